#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickCustContactEmails {

/// Lists e-mail addresses: of the customers and their contacts, or of the prospects and theirs.
class ZULPICKLISTS_EXPORT TfrmDocPickCustEmails : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmDocPickCustEmails> Create(ads::TAdsConnection* Connection, bool ForCustomers) {
    return Construct<TfrmDocPickCustEmails>(Connection, ForCustomers);
  }
  std::string GetEmailAddress() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_ID;
  ads::TField* qryList_Company;
  ads::TField* qryList_Contact;
  ads::TField* qryList_Email;

 private:
  friend class TDocPickBase;
  explicit TfrmDocPickCustEmails(bool ForCustomers);

  /// The choices as they stand for the contacts' half of the list.
  uDocPickBase::TPickChoices ContactChoices() const;

  bool ForCustomers_;
};

/// Lets the user pick the e-mail address of a customer or of a contact there; `Email` is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickCustomerEmailAddress(ads::TAdsConnection* Connection, std::string& Email);

/// The same of a prospect.
ZULPICKLISTS_EXPORT bool CallPickProspectEmailAddress(ads::TAdsConnection* Connection, std::string& Email);

}  // namespace uPickCustContactEmails
