#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"
#include "toolkit/Set.h"

namespace uPickBooking {

/// Which bookings are left out: those already paid for, and those that a payables batch refers to. The order is part of
/// the interface.
enum class TBookingPickOp : std::uint8_t { boHidePaid, boNotInAPBatch };

using TBookingPickOps = toolkit::TSet<TBookingPickOp>;

/// Lists the bookings of one vendor or of all, for customers and for prospects alike.
class ZULPICKLISTS_EXPORT TfrmPickBooking : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickBooking> Create(ads::TAdsConnection* Connection, TBookingPickOps Options,
                                                 const std::string& VendorID) {
    return Construct<TfrmPickBooking>(Connection, Options, VendorID);
  }
  std::string GetBookingID() const;
  void SetUpColumns() override;
  void SetSQL() override;

  /// Calculates the booked hours: the days, both ends counted, times the hours of each. Nothing when a day or a time is
  /// not known.
  void qryList_CalcFields();
  /// Shows minutes after midnight as a time of the day.
  static void qryList_StartTimeGetText(const ads::TField& Sender, std::string& Text);

  ads::TField* qryList_ID;
  ads::TField* qryList_VendID;
  ads::TField* qryList_VendCompany;
  ads::TField* qryList_CustID;
  ads::TField* qryList_CustCompany;
  ads::TField* qryList_BegDate;
  ads::TField* qryList_EndDate;
  ads::TField* qryList_StartTime;
  ads::TField* qryList_FinishTime;
  ads::TField* qryList_OEInv;
  ads::TField* qryList_OEDT;
  ads::TField* qryList_JobNo;
  ads::TField* qryList_ShipTo2;
  ads::TField* qryList_Length;

 private:
  friend class TDocPickBase;
  /// One half of the query: the bookings for customers, or those for prospects.
  struct TPart;

  TfrmPickBooking(TBookingPickOps Options, const std::string& VendorID);
  void CreateFields();
  uDocPickBase::TPickChoices ChoicesOf(const TPart& Part) const;
  std::string PartText(const uDocPickBase::TListQuery& Query, const TPart& Part) const;

  static const TPart CustomerPart;
  static const TPart ProspectPart;

  const TBookingPickOps Options_;
  const std::string VendorID_;
};

/// Lets the user pick a booking: of one vendor, or of all when `VendorID` is empty. Its id goes to `BookingID`, which
/// is empty when none was picked. The vendor code stands in the query as it is.
ZULPICKLISTS_EXPORT bool CallPickBooking(ads::TAdsConnection* Connection, const TBookingPickOps& Options,
                                         const std::string& VendorID, std::string& BookingID);

}  // namespace uPickBooking
