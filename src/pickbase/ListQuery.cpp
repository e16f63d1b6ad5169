#include "pickbase/ListQuery.h"

#include "zulcommon/Text.h"

namespace uDocPickBase {

namespace {

const TPickChoice* Chosen(const TPickChoices& Choices, int Index) {
  if (Index < 0 || Index >= static_cast<int>(Choices.size())) return nullptr;
  return &Choices[static_cast<std::size_t>(Index)];
}

}  // namespace

TQueryState Harmless(TQueryState State) {
  State.FindText = "X";
  State.Typed = "0";
  State.FindDate = "2000-01-01";
  return State;
}

TListQuery::TListQuery(ads::TSQLLines& SQL, TQueryState State, TPickChoices Choices, bool FindLines, TValues Values)
    : SQL_(SQL),
      State_(Values == TValues::Harmless ? Harmless(std::move(State)) : std::move(State)),
      Choices_(std::move(Choices)),
      FindLines_(FindLines),
      Values_(Values) {
  SQL_.Clear();
}

const std::string& TListQuery::Passed(const std::string& Value) const {
  static const std::string Harmless = "X";
  return Values_ == TValues::Harmless ? Harmless : Value;
}

void TListQuery::Add(std::string Line) {
  SQL_.Add(std::move(Line));
}

void TListQuery::AddUnlessEmpty(std::string Line) {
  if (!Line.empty()) SQL_.Add(std::move(Line));
}

void TListQuery::Select(const std::string& Columns) {
  Select(Columns, Choices_);
}
void TListQuery::Select(const std::string& Columns, const TPickChoices& Choices) {
  AddUnlessEmpty(SelectText(Columns, Choices));
}

std::string TListQuery::SelectText(const std::string& Columns, const TPickChoices& Choices) const {
  const TPickChoice* Choice = Chosen(Choices, State_.OrderBy);
  if (Choice == nullptr) return {};
  return Choice->Sort.starts_with("SELECT ") ? Choice->Sort : Columns + Choice->Sort;
}

void TListQuery::Find() {
  Find(Choices_);
}
void TListQuery::Find(const TPickChoices& Choices) {
  AddUnlessEmpty(FindText(Choices));
}
void TListQuery::FindAlways(const TFindRule& Rule) {
  AddUnlessEmpty(FindText(Rule));
}

std::string TListQuery::FindText(const TPickChoices& Choices) const {
  const TPickChoice* Choice = Chosen(Choices, State_.FindBy);
  return Choice == nullptr ? std::string() : FindText(Choice->Find);
}

std::string TListQuery::FindText(const TFindRule& Rule) const {
  if (!FindLines_ || !State_.WithFind) return {};
  const std::string& Start = Rule.Start;
  switch (Rule.Kind) {
    case TFindKind::None:
      return {};
    case TFindKind::Contains:
      return Start + " LIKE '%" + State_.FindText + "%'";
    case TFindKind::EndsWith:
      return Start + " LIKE '%" + State_.FindText + "'";
    case TFindKind::Whole:
      return Start + " LIKE '" + State_.FindText + "'";
    case TFindKind::Date:
      return Start + " = '" + State_.FindDate + "'";
    case TFindKind::Number:
      return Start + " = " + std::string(zulcommon::Trim(State_.Typed));
    case TFindKind::TypedNumber:
    case TFindKind::TypedInteger:
      return Start + " = " + State_.Typed;
  }
  return {};
}

void TListQuery::Keep() {
  if (FindLines_) return;
  std::string Kept = SQL_.Text();
  SQL_.Clear();
  SQL_.Add(std::move(Kept));
}

void TListQuery::OrderBy(const std::string& Column, bool Descending) {
  SQL_.Add("ORDER BY " + Column + (Descending ? " DESC" : ""));
}

}  // namespace uDocPickBase
