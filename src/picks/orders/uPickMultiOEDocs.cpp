#include "picks/orders/uPickMultiOEDocs.h"

#include "pickbase/PickCall.h"

namespace uPickMultiOEDocs {

TfrmPickMultiOEDocs::TfrmPickMultiOEDocs(const std::string& CustomerID, zulcommon::TDocType DocType,
                                         TOEDocOptions RequiredOptions, TOEDocOptions ExcludedOptions)
    : TOEDocPick({CustomerID, {DocType}, RequiredOptions.Bits(), ExcludedOptions.Bits()}) {
  PutTickedLast();
}

void TfrmPickMultiOEDocs::DocNumbers(toolkit::TStringList* List) {
  if (List == nullptr || List->Count() > 0) return;
  WalkTicked([&] { List->Add(qryList_Number->AsString()); });
}

bool CallPickMultiOEDocs(ads::TAdsConnection* Connection, const std::string& CustomerID, zulcommon::TDocType DocType,
                         const TOEDocOptions& RequiredOptions, const TOEDocOptions& ExcludedOptions,
                         toolkit::TStringList* DocNumbers) {
  return pickbase::Pick<TfrmPickMultiOEDocs>([&](TfrmPickMultiOEDocs& Dialog) { Dialog.DocNumbers(DocNumbers); },
                                             Connection, CustomerID, DocType, RequiredOptions, ExcludedOptions);
}

bool CallPickMultiOEDocs(ads::TAdsConnection* Connection, zulcommon::TDocType DocType,
                         const TOEDocOptions& RequiredOptions, const TOEDocOptions& ExcludedOptions,
                         toolkit::TStringList* DocNumbers) {
  return CallPickMultiOEDocs(Connection, std::string(), DocType, RequiredOptions, ExcludedOptions, DocNumbers);
}

}  // namespace uPickMultiOEDocs
