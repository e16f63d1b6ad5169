#include "catalog/ChosenRows.h"

#include <algorithm>

#include "pickbase/uDocPickMultiBase.h"

namespace catalog {

namespace {

TShownValue ValueOf(const ads::TField& Field) {
  if (Field.IsNull()) return {};
  switch (Field.DataType()) {
    case ads::TFieldType::ftBoolean:
      return Field.AsBoolean();
    case ads::TFieldType::ftSmallint:
    case ads::TFieldType::ftInteger:
    case ads::TFieldType::ftAutoInc:
      return Field.AsInteger();
    case ads::TFieldType::ftFloat:
      return Field.AsFloat();
    case ads::TFieldType::ftString:
    case ads::TFieldType::ftDate:
      break;
  }
  return Field.AsString();
}

// Without the ticks, which say only what is chosen here anyway.
std::vector<const ads::TField*> ShownFields(const uDocPickBase::TDocPickBase& Dialog, const ads::TField* Ticked) {
  std::vector<const ads::TField*> Fields;
  for (const auto& Column : Dialog.dbgAvail->Columns()) {
    const ads::TField* Field = Column->Field();
    if (Field == nullptr || Field == Ticked) continue;
    if (std::find(Fields.begin(), Fields.end(), Field) == Fields.end()) Fields.push_back(Field);
  }
  return Fields;
}

TShownRow Row(const std::vector<const ads::TField*>& Fields) {
  TShownRow Result;
  for (const ads::TField* Field : Fields) Result.emplace_back(Field->FieldName(), ValueOf(*Field));
  return Result;
}

}  // namespace

std::vector<TShownRow> ChosenRows(uDocPickBase::TDocPickBase& Dialog) {
  const auto* Multi = dynamic_cast<uDocPickMultiBase::TDocPickMultiBase*>(&Dialog);
  const auto Fields = ShownFields(Dialog, Multi != nullptr ? Multi->qryList_Ticked : nullptr);
  if (Multi == nullptr) return {Row(Fields)};
  std::vector<std::int32_t> RecNos(Multi->TickedRows.begin(), Multi->TickedRows.end());
  std::sort(RecNos.begin(), RecNos.end());
  std::vector<TShownRow> Rows;
  for (const std::int32_t RecNo : RecNos) {
    Dialog.qryList_->SetRecNo(RecNo);
    Rows.push_back(Row(Fields));
  }
  return Rows;
}

}  // namespace catalog
