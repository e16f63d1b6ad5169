#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickVendors {

/// Which vendors a pick lists; the names and their order are part of the interface. A value beyond them lists all.
enum class TVendorWhat : std::uint8_t {
  vwAll,
  vwVend,          ///< no contractors
  vwContractor,    ///< contractors only
  vwVendNoSerice,  ///< neither contractors nor service vendors
};

/// Lists the vendors; inactive ones when their box is ticked.
class ZULPICKLISTS_EXPORT TfrmPickVendors : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickVendors> Create(ads::TAdsConnection* Connection, TVendorWhat What) {
    return Construct<TfrmPickVendors>(Connection, What);
  }
  std::string GetVendID() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_ID;
  ads::TField* qryList_Company;
  ads::TField* qryList_Addr1;
  ads::TField* qryList_Zip;
  ads::TField* qryList_Phone;
  ads::TField* qryList_Contractor;
  ads::TField* qryList_Inactive;
  QCheckBox* ckbInactive;

 private:
  friend class TDocPickBase;
  explicit TfrmPickVendors(TVendorWhat What);

  TVendorWhat What_;
};

/// Lets the user pick a vendor of a kind; the code goes to `VendID`, which stays as it is when none was picked.
ZULPICKLISTS_EXPORT bool CallVendorPick(ads::TAdsConnection* Connection, std::string& VendID, TVendorWhat What);

}  // namespace uPickVendors
