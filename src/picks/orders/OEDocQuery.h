#pragma once

#include <cstdint>
#include <string>

#include "pickbase/uDocPickBase.h"
#include "pickbase/uDocPickMultiBase.h"
#include "zulcommon/DocTypes.h"

/// What the picks over order-entry documents have in common, for one document or for several.
namespace OEDocQuery {

/// The start of the list's SELECT line and its tables.
inline constexpr char Columns[] =
    "SELECT O.Type, O.ID, C.Company, O.JobNo, J.[Desc], O.Number, O.SubTotal + O.FedTax Total, O.[Date], O.Posted, ";
inline constexpr char Tables[] = "FROM OE O INNER JOIN Cust C ON O.ID = C.ID INNER JOIN Jobs J ON O.JobNo = J.JobNo";

/// Which documents are listed.
struct TOEDocFilter {
  std::string CustomerID;  ///< as given; a blank one stands for all customers
  zulcommon::TDocTypes DocTypes;
  /// What a document must be and must not be: the bits of a set of the document options, which each unit declares for
  /// itself.
  std::uint32_t Required = 0;
  std::uint32_t Excluded = 0;
};

/// Lists order-entry documents on either of the base dialogs.
template <typename TBase>
class ZULPICKLISTS_EXPORT TOEDocPick : public TBase {
 public:
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_Type;
  ads::TField* qryList_ID;
  ads::TField* qryList_Company;
  ads::TField* qryList_JobNo;
  ads::TField* qryList_Desc;
  ads::TField* qryList_Number;
  ads::TField* qryList_Total;
  ads::TField* qryList_Date;
  ads::TField* qryList_Posted;

 protected:
  explicit TOEDocPick(TOEDocFilter Filter);

  /// Every choice that there can be: company, type, job, description, number and date.
  uDocPickBase::TPickChoices AllChoices() const;
  const std::string& CustomerID() const { return Filter_.CustomerID; }

 private:
  bool HasCustomer() const;
  void AddFilter(uDocPickBase::TListQuery& Query) const;

  const TOEDocFilter Filter_;
};

extern template class TOEDocPick<uDocPickBase::TDocPickBase>;
extern template class TOEDocPick<uDocPickMultiBase::TDocPickMultiBase>;

}  // namespace OEDocQuery
