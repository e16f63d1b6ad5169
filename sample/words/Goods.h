#pragma once

#include <string>
#include <string_view>

#include "sample/tables/Random.h"

namespace sample {

struct TGoods {
  std::string_view Category;  // three letters
  std::string Description;    // up to 35 characters
};

/// Something on the shelf, such as "Brass Elbow 20mm" of the category FIT.
TGoods AnyGoods(TRandom& Random);

/// What a job or a document's delivery is about, such as "Kitchen refit", up to 16 characters.
std::string_view AnyWork(TRandom& Random);

}  // namespace sample
