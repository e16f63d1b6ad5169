#pragma once

#include <span>
#include <string>
#include <string_view>

#include "sample/tables/Random.h"

namespace sample {

std::span<const std::string_view> FirstNames();
std::span<const std::string_view> Surnames();

struct TPerson {
  std::string_view FirstName;
  std::string_view Surname;

  std::string FullName() const { return std::string(FirstName) + " " + std::string(Surname); }
};

TPerson AnyPerson(TRandom& Random);

}  // namespace sample
