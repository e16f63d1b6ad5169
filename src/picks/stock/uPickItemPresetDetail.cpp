#include "picks/stock/uPickItemPresetDetail.h"

#include "pickbase/PickCall.h"
#include "zulcommon/Text.h"

namespace uPickItemPresetDetail {

using ads::TFieldType;

TfrmPickItemPresetDetail::TfrmPickItemPresetDetail(std::int32_t LineID)
    : TOptionPickBase({.Name = "PresetOptions", .Alias = "O", .Parent = "LineID"}, LineID), LineID_(LineID) {
  tblDetails_ = new ads::TAdsTable(this);
  tblDetails_->setObjectName(QStringLiteral("tblDetails_"));
  tblDetails_->SetTableName("PresetDetails");
  tblDetails_->SetIndex("PK_LINEID", "LineID");
  tblDetails_LineID = tblDetails_->AddField("LineID", TFieldType::ftAutoInc);
  tblDetails_Descript = tblDetails_->AddField("Descript", TFieldType::ftString, 35);
}

void TfrmPickItemPresetDetail::SetUpColumns() {
  TOptionPickBase::SetUpColumns();
  tblDetails_->Open();
  const bool Found = tblDetails_->FindKey(LineID_);
  SetPickCaption(Found ? zulcommon::FormatText(OwnText("PickCaptionFor", "Preset Options for : %s"),
                                               {tblDetails_Descript->AsString()})
                       : "Preset Option");
  SetAvailableCaption("Preset Options");
}

bool CallPickPresetDetail(ads::TAdsConnection* Connection, std::int32_t LineID, std::string& Item) {
  return pickbase::PickText<TfrmPickItemPresetDetail>(Item, &TfrmPickItemPresetDetail::GetSelectedItem, Connection,
                                                      LineID);
}

}  // namespace uPickItemPresetDetail
