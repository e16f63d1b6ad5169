#pragma once

// Everything of the shared package.

#include "zulcommon/Currency.h"
#include "zulcommon/DisplayFormats.h"
#include "zulcommon/DocTypes.h"
#include "zulcommon/EZULException.h"
#include "zulcommon/Set.h"
#include "zulcommon/StringTable.h"
#include "zulcommon/Text.h"
#include "zulcommon/TextCheck.h"
#include "zulcommon/TypedValues.h"
