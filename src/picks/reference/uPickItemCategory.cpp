#include "picks/reference/uPickItemCategory.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickItemCategory {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickItemCat::TfrmPickItemCat() {
  Column(qryList_CatID = TextField("CatID", 3));
  Column(qryList_Descript = TextField("Descript", 50)).SetWidth(124);
}

void TfrmPickItemCat::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetPickCaption(LoadZULResString(518));
  SetAvailableCaption(LoadZULResString(519));
  SetLabels({{qryList_CatID, 3248}, {qryList_Descript, 3007}});
  SetChoices({{qryList_CatID, "UPPER(CatID) SortFld", Contains("AND UPPER(CatID)")},
              {qryList_Descript, "UPPER(Descript) SortFld", Contains("AND UPPER(Descript)")}},
             0);
}

void TfrmPickItemCat::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT CatID, Descript, ");
    Query.Add("FROM ItemCat");
    Query.Add("WHERE 0=0");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickItemCat::GetItemCat() const {
  return qryList_CatID->AsString();
}

bool CallPickItemCat(ads::TAdsConnection* Connection, std::string& ItemCat) {
  return pickbase::PickText(ItemCat, &TfrmPickItemCat::GetItemCat, Connection);
}

}  // namespace uPickItemCategory
