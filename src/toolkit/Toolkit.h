#pragma once

// Everything of the toolkit.

#include "toolkit/ActionButton.h"
#include "toolkit/CheckBox.h"
#include "toolkit/DBGrid.h"
#include "toolkit/EConvertError.h"
#include "toolkit/EListError.h"
#include "toolkit/EventGuard.h"
#include "toolkit/Form.h"
#include "toolkit/Formats.h"
#include "toolkit/GroupBox.h"
#include "toolkit/ImageList.h"
#include "toolkit/Label.h"
#include "toolkit/Lists.h"
#include "toolkit/MirroredLayout.h"
#include "toolkit/Mnemonic.h"
#include "toolkit/QuietLoop.h"
#include "toolkit/RadioGroup.h"
#include "toolkit/Set.h"
#include "toolkit/WholeText.h"
