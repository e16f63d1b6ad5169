#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickVendorsEmails {

/// Lists the vendors' e-mail addresses; those of inactive vendors when their box is ticked.
class ZULPICKLISTS_EXPORT TfrmPickVendorsEmail : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickVendorsEmail> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickVendorsEmail>(Connection);
  }
  std::string GetEmailAddress() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_ID;
  ads::TField* qryList_Company;
  ads::TField* qryList_Email;
  ads::TField* qryList_Contractor;
  ads::TField* qryList_Inactive;
  QCheckBox* ckbInactive;

 private:
  friend class TDocPickBase;
  TfrmPickVendorsEmail();
};

/// Lets the user pick a vendor's e-mail address; `Email` stays as it is when none was picked.
ZULPICKLISTS_EXPORT bool CallVendorEmailsPick(ads::TAdsConnection* Connection, std::string& Email);

}  // namespace uPickVendorsEmails
