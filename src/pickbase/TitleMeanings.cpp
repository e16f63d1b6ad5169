#include "pickbase/TitleMeanings.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "zulcommon/StringTable.h"

namespace pickbase {

namespace {

struct TMeaning {
  std::string_view Field;
  int Text;
};

constexpr std::array Meanings{
    TMeaning{"Ticked", 65532},     TMeaning{"Inactive", 65533}, TMeaning{"Default", 65534},
    TMeaning{"OEDefault", 65534},  TMeaning{"Posted", 65535},   TMeaning{"Processed", 65536},
    TMeaning{"Contractor", 65537}, TMeaning{"RMA", 65538},
};

}  // namespace

void NameLetterColumns(toolkit::TDBGrid& Grid) {
  for (toolkit::TColumn* Column : Grid.Columns()) {
    if (Column->Field() == nullptr || QString::fromStdString(Column->Title()).size() != 1) continue;
    const auto Meaning = std::find_if(Meanings.begin(), Meanings.end(), [Column](const TMeaning& Each) {
      return Each.Field == Column->Field()->FieldName();
    });
    if (Meaning != Meanings.end()) Column->SetAccessibleTitle(zulcommon::LoadZULResString(Meaning->Text));
  }
}

}  // namespace pickbase
