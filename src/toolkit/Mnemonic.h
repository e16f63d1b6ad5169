#pragma once

#include <QString>

#include "toolkit/zultoolkit_export.h"

namespace toolkit {

/// A caption as it is read: without the "&" before its mnemonic, with one for two.
ZULTOOLKIT_EXPORT QString WithoutMnemonic(const QString& Caption);

}  // namespace toolkit
