#include "picks/orders/uPickOEDoc.h"

#include "frame/uZULPickListsUtils.h"
#include "pickbase/PickCall.h"

namespace uPickOEDoc {

TfrmPickOEDoc::TfrmPickOEDoc(const std::string& CustomerID, const zulcommon::TDocTypes& DocTypes,
                             TOEDocOptions RequiredOptions, TOEDocOptions ExcludedOptions)
    : TOEDocPick({CustomerID, DocTypes, RequiredOptions.Bits(), ExcludedOptions.Bits()}) {}

std::string TfrmPickOEDoc::GetDocumentNo() const {
  return qryList_Number->AsString();
}

zulcommon::TDocType TfrmPickOEDoc::GetDocumentType() const {
  return zulcommon::GetDocType(qryList_Type->AsString());
}

void TfrmPickOEDoc::dbgAvailDrawColumnCell(toolkit::TDBGrid* Sender, const QRect& Rect, int DataCol,
                                           toolkit::TColumn* Column, toolkit::TGridDrawState State) {
  TOEDocPick::dbgAvailDrawColumnCell(Sender, Rect, DataCol, Column, State);
  if (Sender != nullptr) uZULPickListsUtils::GridPaint(Sender, Rect, DataCol, Column, State);
}

bool CallPickOEDoc(ads::TAdsConnection* Connection, const std::string& CustomerID, const zulcommon::TDocTypes& DocTypes,
                   const TOEDocOptions& RequiredOptions, const TOEDocOptions& ExcludedOptions, std::string& DocNo,
                   zulcommon::TDocType& DocType) {
  return pickbase::PickTexts<TfrmPickOEDoc>(
      {&DocNo},
      [&](const TfrmPickOEDoc& Dialog) {
        DocNo = Dialog.GetDocumentNo();
        DocType = Dialog.GetDocumentType();
      },
      Connection, CustomerID, DocTypes, RequiredOptions, ExcludedOptions);
}

bool CallPickOEDoc(ads::TAdsConnection* Connection, const zulcommon::TDocTypes& DocTypes,
                   const TOEDocOptions& RequiredOptions, const TOEDocOptions& ExcludedOptions, std::string& DocNo,
                   zulcommon::TDocType& DocType) {
  return CallPickOEDoc(Connection, std::string(), DocTypes, RequiredOptions, ExcludedOptions, DocNo, DocType);
}

}  // namespace uPickOEDoc
