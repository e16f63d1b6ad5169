#include "picks/orders/uPickOEMemberOfGroup.h"

#include "pickbase/PickCall.h"

namespace uPickOEMemberOfGroup {

using uDocPickBase::TListQuery;
using uDocPickBase::TPickChoices;

TfrmPickOEMemberOfGroup::TfrmPickOEMemberOfGroup(const std::string& CustomerID, const std::string& ParentNo)
    : TfrmPickOEDoc(CustomerID, {zulcommon::TDocType::dtGroupMember}, {}, {}), ParentNo_(ParentNo) {}

// The customer's documents are read first, then the members of the group. When those cannot be listed, the list must
// not be left with members of other groups in it.
void TfrmPickOEMemberOfGroup::SetSQL() {
  const ads::TSQLLines Before = *qryList_->SQL();
  const int RecNo = qryList_->RecNo();
  TfrmPickOEDoc::SetSQL();
  *qryList_->SQL() = Before;
  if (WasStopped()) return;
  try {
    OpenMembers();
  } catch (...) {
    ListAgain(RecNo);
    throw;
  }
  if (WasStopped()) return ListAgain(RecNo);
  Listed_ = *qryList_->SQL();
}

void TfrmPickOEMemberOfGroup::OpenMembers() {
  // Job, description, number and date, whatever stands at these positions on the form.
  const TPickChoices All = AllChoices();
  OpenGuarded({All.begin() + 2, All.end()}, [this](TListQuery& Query) {
    Query.Select(OEDocQuery::Columns);
    Query.Add(OEDocQuery::Tables);
    Query.Add("  INNER JOIN OEQuoteGrps G ON G.Quote = O.Number AND g.QuoteType = o.Type");
    Query.Add("WHERE O.Type = 'M'");
    Query.Add("AND G.Customer = '" + Query.Passed(CustomerID()) + "'");
    Query.Add("AND G.Parent = '" + Query.Passed(ParentNo_) + "'");
    Query.Add("AND g.ParentType = 'G'");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

// Lists the members that were listed before; none while the dialog is being created. The lines stay those of the query
// that failed.
void TfrmPickOEMemberOfGroup::ListAgain(int RecNo) {
  const ads::TSQLLines Failed = *qryList_->SQL();
  *qryList_->SQL() = Listed_;
  try {
    if (qryList_->Open()) {
      qryList_->SetRecNo(RecNo);
    } else {
      qryList_->Close();
    }
  } catch (const std::exception&) {
    qryList_->Close();
  }
  *qryList_->SQL() = Failed;
}

bool CallPickOEMemberOfGroup(ads::TAdsConnection* Connection, const std::string& CustomerID,
                             const std::string& ParentNo, std::string& DocNo) {
  return pickbase::PickText<TfrmPickOEMemberOfGroup>(DocNo, &TfrmPickOEMemberOfGroup::GetDocumentNo, Connection,
                                                     CustomerID, ParentNo);
}

}  // namespace uPickOEMemberOfGroup
