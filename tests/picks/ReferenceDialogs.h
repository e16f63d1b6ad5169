#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "pickbase/uDocPickBase.h"

/// What each dialog over a table of codes has to be, spelled out.
namespace reference {

struct TFieldFacts {
  std::string Name;
  ads::TFieldType Type;
  int Size;
};

struct TColumnFacts {
  std::string Field;
  int Label;  ///< string number; 0 for a text of the dialog's own
  int Width;  ///< 0 for the grid's default
  toolkit::TAlignment Cell;
  toolkit::TAlignment Title;
};

/// One item of the find-by and order-by groups.
struct TChoiceFacts {
  std::string Field;
  std::string Select;
  std::string Find;
};

struct TDialogFacts {
  std::string Name;
  std::function<std::unique_ptr<uDocPickBase::TDocPickBase>(ads::TAdsConnection*)> Create;
  std::string Caption;  ///< "T97" for string 97
  std::string Available;
  std::vector<TFieldFacts> Fields;
  std::vector<TColumnFacts> Columns;
  std::vector<TChoiceFacts> Choices;
  int Default;
  std::vector<std::string> Base;  ///< the lines between the SELECT and the find line
  std::string SortColumn = "SortFld";
  bool Narrows = true;  ///< whether a find text has an effect
};

/// All that have choices; the used-year dialog has none.
const std::vector<TDialogFacts>& Dialogs();

}  // namespace reference
