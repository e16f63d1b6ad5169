#include "catalog/Near.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "catalog/Catalog.h"

namespace catalog {

namespace {

constexpr std::size_t Most = 3;

// How many letters must be added, left out or replaced to make one text the other.
std::size_t Distance(const std::string& A, const std::string& B) {
  std::vector<std::size_t> Row(B.size() + 1);
  std::iota(Row.begin(), Row.end(), std::size_t{0});
  for (std::size_t I = 0; I < A.size(); ++I) {
    std::size_t Diagonal = Row[0]++;
    for (std::size_t J = 0; J < B.size(); ++J) {
      const std::size_t Replaced = Diagonal + (A[I] == B[J] ? 0 : 1);
      Diagonal = Row[J + 1];
      Row[J + 1] = std::min({Replaced, Diagonal + 1, Row[J] + 1});
    }
  }
  return Row[B.size()];
}

}  // namespace

std::vector<std::string> NearNames(const std::string& Typed, const std::vector<std::string>& Names) {
  if (Typed.empty()) return {};
  std::vector<std::pair<std::size_t, std::string>> Near;
  for (const std::string& Name : Names) {
    const std::size_t Far = Distance(Typed, Name);
    const bool Part = Typed.size() > 2 && Name.find(Typed) != std::string::npos;
    if (Part || Far <= std::max<std::size_t>(1, Typed.size() / 3)) Near.emplace_back(Part ? 0 : Far, Name);
  }
  std::stable_sort(Near.begin(), Near.end(), [](const auto& A, const auto& B) { return A.first < B.first; });
  std::vector<std::string> Result;
  for (std::size_t Index = 0; Index < std::min(Most, Near.size()); ++Index) Result.push_back(Near[Index].second);
  return Result;
}

std::string DidYouMean(const std::vector<std::string>& Near) {
  if (Near.empty()) return {};
  std::string Result = " Did you mean " + Near.front();
  for (std::size_t Index = 1; Index < Near.size(); ++Index) {
    Result += (Index + 1 == Near.size() ? " or " : ", ") + Near[Index];
  }
  return Result + "?";
}

std::string NoSuchPick(const TCatalog& Catalog, const std::string& Name) {
  std::vector<std::string> Names;
  for (const TPick& Pick : Catalog.All()) Names.push_back(Pick.Name);
  return "There is no pick \"" + Name + "\"." + DidYouMean(NearNames(Name, Names));
}

}  // namespace catalog
