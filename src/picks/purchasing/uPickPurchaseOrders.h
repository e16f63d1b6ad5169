#pragma once

#include <string>

#include "ads/Connection.h"
#include "frame/uPickListTypes.h"
#include "frame/zulpicklists_export.h"

/// Picks of purchase orders of one kind, and of customers and documents that have some. All are limited to orders in
/// every required state and in none of the excluded ones. Codes go into the query as they are: one with a quote fails.
namespace uPickPurchaseOrders {

using uPickListTypes::TOEDoc;
using uPickListTypes::TPOStates;

/// The number of a customer purchase order, empty when none was picked. A customer code, and a document number with its
/// type, limit the list when they are not blank.
ZULPICKLISTS_EXPORT std::string CallPickCustPO(ads::TAdsConnection* Connection, TPOStates RequiredStates,
                                               TPOStates ExcludedStates, const std::string& CustID,
                                               const std::string& PONumber, const std::string& POType);

/// The number of a stock purchase order, empty when none was picked.
ZULPICKLISTS_EXPORT std::string CallPickStockPO(ads::TAdsConnection* Connection, TPOStates RequiredStates,
                                                TPOStates ExcludedStates);

/// The code of a customer who has customer purchase orders, empty when none was picked.
ZULPICKLISTS_EXPORT std::string CallPickCust(ads::TAdsConnection* Connection, TPOStates RequiredStates,
                                             TPOStates ExcludedStates);

/// An order-entry document that has customer purchase orders, with an empty number when none was picked. With a
/// customer code the dialog shows no customers; it lists the documents of all of them nevertheless.
ZULPICKLISTS_EXPORT TOEDoc CallOEDocWithPOPick(ads::TAdsConnection* Connection, TPOStates RequiredStates,
                                               TPOStates ExcludedStates, const std::string& CustID);

/// The number of a purchase order for several documents, empty when none was picked.
ZULPICKLISTS_EXPORT std::string CallPickMultiPO(ads::TAdsConnection* Connection, TPOStates RequiredStates,
                                                TPOStates ExcludedStates);

}  // namespace uPickPurchaseOrders
