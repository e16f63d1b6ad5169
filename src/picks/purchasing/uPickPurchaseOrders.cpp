#include "picks/purchasing/uPickPurchaseOrders.h"

#include "pickbase/PickCall.h"
#include "picks/purchasing/uCustWithPO.h"
#include "picks/purchasing/uOEDocWithPO.h"
#include "picks/purchasing/uPickCustPO.h"
#include "picks/purchasing/uPickMultiPO.h"
#include "picks/purchasing/uPickStockPO.h"

namespace uPickPurchaseOrders {

using uCustWithPO::TfrmPickCustWithPO;
using uOEDocWithPO::TfrmPickOEDocWithPO;
using uPickCustPO::TfrmPickCustPO;
using uPickMultiPO::TfrmPickMultiPO;
using uPickStockPO::TfrmPickStockPO;

std::string CallPickCustPO(ads::TAdsConnection* Connection, TPOStates RequiredStates, TPOStates ExcludedStates,
                           const std::string& CustID, const std::string& PONumber, const std::string& POType) {
  std::string Number;
  pickbase::PickText(Number, &TfrmPickCustPO::GetPurchaseOrder, Connection, RequiredStates, ExcludedStates, CustID,
                     PONumber, POType);
  return Number;
}

std::string CallPickStockPO(ads::TAdsConnection* Connection, TPOStates RequiredStates, TPOStates ExcludedStates) {
  std::string Number;
  pickbase::PickText<TfrmPickStockPO>(Number, &TfrmPickStockPO::GetPurchaseOrder, Connection, RequiredStates,
                                      ExcludedStates);
  return Number;
}

std::string CallPickCust(ads::TAdsConnection* Connection, TPOStates RequiredStates, TPOStates ExcludedStates) {
  std::string CustID;
  pickbase::PickText(CustID, &TfrmPickCustWithPO::GetCustomerNo, Connection, RequiredStates, ExcludedStates);
  return CustID;
}

TOEDoc CallOEDocWithPOPick(ads::TAdsConnection* Connection, TPOStates RequiredStates, TPOStates ExcludedStates,
                           const std::string& CustID) {
  TOEDoc Doc;
  pickbase::Pick<TfrmPickOEDocWithPO>([&](const TfrmPickOEDocWithPO& Dialog) { Doc = Dialog.GetOEDoc(); }, Connection,
                                      RequiredStates, ExcludedStates, CustID);
  return Doc;
}

std::string CallPickMultiPO(ads::TAdsConnection* Connection, TPOStates RequiredStates, TPOStates ExcludedStates) {
  std::string Number;
  pickbase::PickText<TfrmPickMultiPO>(Number, &TfrmPickMultiPO::GetPurchaseOrder, Connection, RequiredStates,
                                      ExcludedStates);
  return Number;
}

}  // namespace uPickPurchaseOrders
