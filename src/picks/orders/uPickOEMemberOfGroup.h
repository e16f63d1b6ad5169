#pragma once

#include <memory>
#include <string>

#include "picks/orders/uPickOEDoc.h"

namespace uPickOEMemberOfGroup {

/// Lists the members of one group document of one customer.
///
/// It shows the choices of the document pick, but takes their positions for job, description, number and date: the list
/// opens in the order of the date, a text searched for by number must be a date, and the fifth order is an error. A
/// customer must be given, because the choices of an empty one begin with the company and the list would open in that
/// fifth order.
class ZULPICKLISTS_EXPORT TfrmPickOEMemberOfGroup : public uPickOEDoc::TfrmPickOEDoc {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickOEMemberOfGroup> Create(ads::TAdsConnection* Connection, const std::string& CustomerID,
                                                         const std::string& ParentNo) {
    return Construct<TfrmPickOEMemberOfGroup>(Connection, CustomerID, ParentNo);
  }
  void SetSQL() override;

 private:
  friend class TDocPickBase;
  TfrmPickOEMemberOfGroup(const std::string& CustomerID, const std::string& ParentNo);
  void OpenMembers();
  void ListAgain(int RecNo);

  const std::string ParentNo_;
  ads::TSQLLines Listed_;  // the query of the members that are listed
};

/// Lets the user pick a member of the customer's group document `ParentNo`; its number goes to `DocNo`, which is empty
/// when none was picked. Both codes stand in the query as they are. Throws `ads::EDatabaseError` when `CustomerID` is
/// blank.
ZULPICKLISTS_EXPORT bool CallPickOEMemberOfGroup(ads::TAdsConnection* Connection, const std::string& CustomerID,
                                                 const std::string& ParentNo, std::string& DocNo);

}  // namespace uPickOEMemberOfGroup
