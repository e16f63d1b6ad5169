#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "picks/orders/OEDocQuery.h"
#include "toolkit/Lists.h"
#include "toolkit/Set.h"

namespace uPickMultiOEDocs {

/// What an order-entry document can be: its wastage returned to stock, internal, a movement of stock, posted. The order
/// is part of the interface.
enum class TOEDocOption : std::uint8_t { ooWastagePosted, ooInternal, ooStockTrans, ooPosted };

using TOEDocOptions = toolkit::TSet<TOEDocOption>;

/// Lists order-entry documents of one type, of one customer or of all, to be ticked.
class ZULPICKLISTS_EXPORT TfrmPickMultiOEDocs : public OEDocQuery::TOEDocPick<uDocPickMultiBase::TDocPickMultiBase> {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickMultiOEDocs> Create(ads::TAdsConnection* Connection, const std::string& CustomerID,
                                                     zulcommon::TDocType DocType, TOEDocOptions RequiredOptions,
                                                     TOEDocOptions ExcludedOptions) {
    return Construct<TfrmPickMultiOEDocs>(Connection, CustomerID, DocType, RequiredOptions, ExcludedOptions);
  }
  /// Adds the numbers of the ticked documents, in the order of the list, which is left at its end. Does nothing when
  /// `List` is null or holds a line already.
  void DocNumbers(toolkit::TStringList* List);

 private:
  friend class TDocPickBase;
  TfrmPickMultiOEDocs(const std::string& CustomerID, zulcommon::TDocType DocType, TOEDocOptions RequiredOptions,
                      TOEDocOptions ExcludedOptions);
};

/// Lets the user tick order-entry documents of one type: of one customer, or of all when `CustomerID` is empty. A
/// document must have every required option and none of the excluded ones. The numbers are added to `DocNumbers` (the
/// caller's), but only when it is empty. Whether OK was pressed. The customer code stands in the query as it is.
ZULPICKLISTS_EXPORT bool CallPickMultiOEDocs(ads::TAdsConnection* Connection, const std::string& CustomerID,
                                             zulcommon::TDocType DocType, const TOEDocOptions& RequiredOptions,
                                             const TOEDocOptions& ExcludedOptions, toolkit::TStringList* DocNumbers);

/// The same for the documents of all customers.
ZULPICKLISTS_EXPORT bool CallPickMultiOEDocs(ads::TAdsConnection* Connection, zulcommon::TDocType DocType,
                                             const TOEDocOptions& RequiredOptions, const TOEDocOptions& ExcludedOptions,
                                             toolkit::TStringList* DocNumbers);

}  // namespace uPickMultiOEDocs
