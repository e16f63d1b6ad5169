#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ads/Field.h"
#include "ads/SQLLines.h"
#include "frame/zulpicklists_export.h"

namespace uDocPickBase {

/// How a find text is turned into a condition, and what it is checked for first.
enum class TFindKind {
  None,          // this choice searches nothing
  Contains,      // … LIKE '%TEXT%'
  EndsWith,      // … LIKE '%TEXT'
  Whole,         // … LIKE 'TEXT', wildcards only where the user typed them
  Date,          // … = 'YYYY-MM-DD'; the text must be a date
  Number,        // … = the trimmed text; it must be a number
  TypedNumber,   // … = the text as typed; it must be a number
  TypedInteger,  // … = the text as typed; it must be a whole number
};

/// The find line of a choice: its start, such as "AND UPPER(C.ID)", and how it goes on.
struct TFindRule {
  TFindKind Kind = TFindKind::None;
  std::string Start;
};

inline TFindRule Contains(std::string Start) {
  return {TFindKind::Contains, std::move(Start)};
}
inline TFindRule EndsWith(std::string Start) {
  return {TFindKind::EndsWith, std::move(Start)};
}
inline TFindRule Whole(std::string Start) {
  return {TFindKind::Whole, std::move(Start)};
}
inline TFindRule OnDate(std::string Start) {
  return {TFindKind::Date, std::move(Start)};
}
inline TFindRule OnNumber(std::string Start) {
  return {TFindKind::Number, std::move(Start)};
}
inline TFindRule OnTypedNumber(std::string Start) {
  return {TFindKind::TypedNumber, std::move(Start)};
}
inline TFindRule OnTypedInteger(std::string Start) {
  return {TFindKind::TypedInteger, std::move(Start)};
}

/// One choice of a dialog's find-by and order-by groups: the caption of its radio buttons and the SQL that it stands
/// for.
struct TPickChoice {
  /// A choice that is called as a field's column is.
  TPickChoice(const ads::TField* TheField, std::string TheSort, TFindRule TheFind)
      : Field(TheField), Caption(TheField->DisplayLabel()), Sort(std::move(TheSort)), Find(std::move(TheFind)) {}
  /// One that is called otherwise than the field's column.
  TPickChoice(const ads::TField* TheField, std::string TheCaption, std::string TheSort, TFindRule TheFind)
      : Field(TheField), Caption(std::move(TheCaption)), Sort(std::move(TheSort)), Find(std::move(TheFind)) {}
  TPickChoice(std::string TheCaption, std::string TheSort, TFindRule TheFind)
      : Caption(std::move(TheCaption)), Sort(std::move(TheSort)), Find(std::move(TheFind)) {}

  /// The field whose column is searched and ordered by; null when there is none.
  const ads::TField* Field = nullptr;
  std::string Caption;
  /// What ends the SELECT line when the list is ordered by this choice: "UPPER(C.ID) SortFld". One that starts with
  /// SELECT is the whole line.
  std::string Sort;
  TFindRule Find;
};

/// In the order of the radio buttons.
using TPickChoices = std::vector<TPickChoice>;

/// What the user has set in a dialog, as the query is built from it.
struct TQueryState {
  int OrderBy = -1;  ///< the chosen order-by item
  int FindBy = -1;   ///< the chosen find-by item
  bool Descending = false;
  bool WithFind = false;  ///< there is a find text to search with
  std::string FindText;   ///< trimmed, upper-cased, quotes doubled
  std::string Typed;      ///< as it was typed, a number with a point and plain digits
  std::string FindDate;   ///< YYYY-MM-DD; only where the find line wants a date
};

/// The same state with a text that can do no harm in the place of the typed one.
ZULPICKLISTS_EXPORT TQueryState Harmless(TQueryState State);

/// Adds the lines of a list query in order, for a dialog's `SetSQL`. The same recipe builds the filtered query, the one
/// without its find lines when that one failed, and each of them once more with harmless values, to see that no value
/// changes the shape of the query.
class ZULPICKLISTS_EXPORT TListQuery {
 public:
  /// `SQL` is cleared first. `FindLines` says whether find lines are added.
  enum class TValues { AsTheyAre, Harmless };
  TListQuery(ads::TSQLLines& SQL, TQueryState State, TPickChoices Choices, bool FindLines,
             TValues Values = TValues::AsTheyAre);

  /// A line as it is. A value that the caller of the dialog passed goes into it by `Passed`.
  void Add(std::string Line);

  /// A value that the caller of the dialog passed, for between two quotes: just as it is. One that does not stay
  /// between them (a quote that is not doubled) makes the query fail before a server sees it.
  const std::string& Passed(const std::string& Value) const;

  /// The SELECT line: its columns, up to and with the last comma and blank, and the sort column of the chosen order-by.
  /// An order that there is no choice for adds no line.
  void Select(const std::string& Columns);
  void Select(const std::string& Columns, const TPickChoices& Choices);

  /// The find line of the chosen find-by, when there is a find text.
  void Find();
  void Find(const TPickChoices& Choices);

  /// One find line whatever find-by is chosen, when there is a find text.
  void FindAlways(const TFindRule& Rule);

  /// Here ends what a rebuild without the find line takes over, as one entry. A recipe without it is rebuilt line by
  /// line.
  void Keep();

  /// The last line: by the sort column, in the direction of the descending box.
  void OrderBy() { OrderBy("SortFld"); }
  void OrderBy(const std::string& Column) { OrderBy(Column, State_.Descending); }
  void OrderBy(const std::string& Column, bool Descending);

  /// The texts of the lines that a multi-part query puts together itself; empty where `Select` and `Find` would add
  /// nothing.
  std::string SelectText(const std::string& Columns, const TPickChoices& Choices) const;
  std::string FindText(const TPickChoices& Choices) const;

 private:
  void AddUnlessEmpty(std::string Line);
  std::string FindText(const TFindRule& Rule) const;

  ads::TSQLLines& SQL_;
  TQueryState State_;
  TPickChoices Choices_;
  bool FindLines_;
  TValues Values_;
};

}  // namespace uDocPickBase
