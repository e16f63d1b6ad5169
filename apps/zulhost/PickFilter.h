#pragma once

#include <QString>
#include <optional>

#include "catalog/Catalog.h"

namespace zulhost {

/// How well a pick fits what was typed, the smaller the better; nothing when a word of it is nowhere in the pick's
/// name, its function or what it picks. A name counts more than what is said of the pick, a whole word more than its
/// beginning, and that more than letters in its midst.
std::optional<int> Misfit(const catalog::TPick& Pick, const QString& Typed);

}  // namespace zulhost
