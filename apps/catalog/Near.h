#pragma once

#include <string>
#include <vector>

namespace catalog {

/// Those of `Names` that somebody who typed `Typed` may have meant, the nearest first; at most three.
std::vector<std::string> NearNames(const std::string& Typed, const std::vector<std::string>& Names);

/// " Did you mean this or that?" for a message; empty when nothing is near.
std::string DidYouMean(const std::vector<std::string>& Near);

}  // namespace catalog
