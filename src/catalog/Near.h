#pragma once

#include <string>
#include <vector>

#include "catalog/zulcatalog_export.h"

namespace catalog {

class TCatalog;

/// Those of `Names` that somebody who typed `Typed` may have meant, the nearest first; at most three.
ZULCATALOG_EXPORT std::vector<std::string> NearNames(const std::string& Typed, const std::vector<std::string>& Names);

/// " Did you mean this or that?" for a message; empty when nothing is near.
ZULCATALOG_EXPORT std::string DidYouMean(const std::vector<std::string>& Near);

/// That there is no pick of that name, and which one may have been meant.
ZULCATALOG_EXPORT std::string NoSuchPick(const TCatalog& Catalog, const std::string& Name);

}  // namespace catalog
