#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "picks/orders/OEDocQuery.h"
#include "toolkit/Set.h"

namespace uPickOEDoc {

/// What an order-entry document can be: its wastage returned to stock, internal, a movement of stock, posted. The order
/// is part of the interface.
enum class TOEDocOption : std::uint8_t { ooWastagePosted, ooInternal, ooStockTrans, ooPosted };

using TOEDocOptions = toolkit::TSet<TOEDocOption>;

/// Lists order-entry documents of some types, of one customer or of all, that are and are not what the options say.
class ZULPICKLISTS_EXPORT TfrmPickOEDoc : public OEDocQuery::TOEDocPick<uDocPickBase::TDocPickBase> {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickOEDoc> Create(ads::TAdsConnection* Connection, const std::string& CustomerID,
                                               const zulcommon::TDocTypes& DocTypes, TOEDocOptions RequiredOptions,
                                               TOEDocOptions ExcludedOptions) {
    return Construct<TfrmPickOEDoc>(Connection, CustomerID, DocTypes, RequiredOptions, ExcludedOptions);
  }
  std::string GetDocumentNo() const;
  /// Throws `zulcommon::EZULException` when the list has no current row.
  zulcommon::TDocType GetDocumentType() const;
  void dbgAvailDrawColumnCell(toolkit::TDBGrid* Sender, const QRect& Rect, int DataCol, toolkit::TColumn* Column,
                              toolkit::TGridDrawState State) override;

 protected:
  TfrmPickOEDoc(const std::string& CustomerID, const zulcommon::TDocTypes& DocTypes, TOEDocOptions RequiredOptions,
                TOEDocOptions ExcludedOptions);

 private:
  friend class TDocPickBase;
};

/// Lets the user pick an order-entry document of the given types: of one customer, or of all when `CustomerID` is
/// empty. A document must have every required option and none of the excluded ones. The number goes to `DocNo`, which
/// is empty when none was picked, the type to `DocType`, which then stays as it was. The customer code stands in the
/// query as it is.
ZULPICKLISTS_EXPORT bool CallPickOEDoc(ads::TAdsConnection* Connection, const std::string& CustomerID,
                                       const zulcommon::TDocTypes& DocTypes, const TOEDocOptions& RequiredOptions,
                                       const TOEDocOptions& ExcludedOptions, std::string& DocNo,
                                       zulcommon::TDocType& DocType);

/// The same for the documents of all customers.
ZULPICKLISTS_EXPORT bool CallPickOEDoc(ads::TAdsConnection* Connection, const zulcommon::TDocTypes& DocTypes,
                                       const TOEDocOptions& RequiredOptions, const TOEDocOptions& ExcludedOptions,
                                       std::string& DocNo, zulcommon::TDocType& DocType);

}  // namespace uPickOEDoc
