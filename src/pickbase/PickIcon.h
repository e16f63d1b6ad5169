#pragma once

#include <QIcon>

#include "frame/zulpicklists_export.h"

namespace pickbase {

/// A list with a row that is picked: the window icon of a dialog whose application has none.
ZULPICKLISTS_EXPORT QIcon PickIcon();

}  // namespace pickbase
