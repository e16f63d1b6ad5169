#include "picks/stock/uPickKitDetail.h"

#include "pickbase/PickCall.h"
#include "zulcommon/Text.h"

namespace uPickKitDetail {

using ads::TFieldType;

TfrmPickKitDetail::TfrmPickKitDetail(std::int32_t KitID)
    : TOptionPickBase({.Name = "KitDetails", .Alias = "D", .Parent = "KitID"}, KitID), KitID_(KitID) {
  tblKits_ = new ads::TAdsTable(this);
  tblKits_->setObjectName(QStringLiteral("tblKits_"));
  tblKits_->SetTableName("Kits");
  tblKits_->SetIndex("PK_ID", "ID");
  tblKits_Item = tblKits_->AddField("Item", TFieldType::ftString, 15);
  tblKits_ID = tblKits_->AddField("ID", TFieldType::ftAutoInc);
  tblKits_Descript = tblKits_->AddField("Descript", TFieldType::ftString, 35);
}

void TfrmPickKitDetail::SetUpColumns() {
  TOptionPickBase::SetUpColumns();
  tblKits_->Open();
  const bool Found = tblKits_->FindKey(KitID_);
  SetPickCaption(
      Found ? zulcommon::FormatText(OwnText("PickCaptionFor", "Kit Option for : %s"), {tblKits_Descript->AsString()})
            : "Kit Option");
  SetAvailableCaption("Kit Options");
}

bool CallPickKitDetail(ads::TAdsConnection* Connection, std::int32_t KitID, std::string& Item) {
  return pickbase::PickTextInOut<TfrmPickKitDetail>(Item, &TfrmPickKitDetail::GetSelectedItem, Connection, KitID);
}

}  // namespace uPickKitDetail
