#pragma once

// Everything of the database layer that a host or a dialog uses.

#include "ads/Connection.h"
#include "ads/DataSet.h"
#include "ads/EDatabaseError.h"
#include "ads/Field.h"
#include "ads/Query.h"
#include "ads/SQLLines.h"
#include "ads/Table.h"
