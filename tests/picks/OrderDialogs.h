#pragma once

#include <QLocale>
#include <QStringList>
#include <QVariant>
#include <string>
#include <vector>

#include "DialogFacts.h"
#include "PickQueries.h"
#include "ads/EDatabaseError.h"
#include "support/NumberedTexts.h"
#include "support/PickDriver.h"
#include "support/TestCompany.h"
#include "toolkit/Formats.h"
#include "zulcommon/EZULException.h"

/// What the tests of the order-entry dialogs share.
namespace orders {

using picks::Columns;
using picks::Fields;
using picks::Joined;
using picks::SqlFor;
using picks::Text;
using support::TTestCompany;
using uDocPickBase::TDocPickBase;

/// A user to whom a date is day, month and year, and a point parts the decimals.
inline void UseAustralianFormats() {
  QLocale::setDefault(QLocale(QLocale::English, QLocale::Australia));
  toolkit::SetShortDateFormat("dd/mm/yyyy");
}

/// The pixels of a field's column; -1 when it has none.
inline int WidthOf(const TDocPickBase& Dialog, const ads::TField* Field) {
  for (const toolkit::TColumn* Column : Dialog.dbgAvail->Columns()) {
    if (Column->Field() == Field) return Column->Width();
  }
  return -1;
}

inline QString Column(TDocPickBase& Dialog, const std::string& Field) {
  return Joined(support::Column(Dialog, Field));
}
inline QString Shown(TDocPickBase& Dialog, const std::string& Field) {
  return Joined(support::ShownColumn(Dialog, Field));
}
inline QString Sql(const TDocPickBase& Dialog) {
  return Joined(support::SqlLines(Dialog));
}

/// The bytes that `TShortStatements` leaves a statement, and a find text that makes any too long.
inline constexpr int ShortStatement = 3000;
inline QString TooLong() {
  return QString(5000, 'x');
}

inline QVariant Null() {
  return QVariant(QMetaType(QMetaType::QString));
}

/// An order-entry document; what is not set is what most have.
struct TDocument {
  QVariant Type;
  QVariant Number;
  QVariant ID = "C1";
  QVariant JobNo = "J1";
  QVariant Date = "2024-03-05";
  QVariant SubTotal = 100.0;
  QVariant FedTax = 10.0;
  bool Posted = false;
  bool StockReturned = false;
  bool Internal = false;
  bool StockTrans = false;
};

inline void Add(TTestCompany& Company, const TDocument& Document) {
  Company.Execute(
      "INSERT INTO OE (Type, Number, ID, JobNo, Date, SubTotal, FedTax, Posted, StockReturned, Internal, "
      "StockTrans) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
      {Document.Type, Document.Number, Document.ID, Document.JobNo, Document.Date, Document.SubTotal, Document.FedTax,
       Document.Posted, Document.StockReturned, Document.Internal, Document.StockTrans});
}

/// A company of two customers and two jobs, without documents.
class TSmallCompany : public TTestCompany {
 public:
  TSmallCompany() : TTestCompany(TRows::None) {
    Execute("INSERT INTO Cust (ID, Company) VALUES ('C1', 'Brown & Sons'), ('C2', 'adams')");
    Execute("INSERT INTO Jobs VALUES ('J1', 'Kitchen'), ('J2', 'bathroom')");
  }
};

/// The message with which a call fails; empty when it does not.
template <typename TError, typename TCall>
QString Failure(TCall Call) {
  try {
    Call();
  } catch (const TError& Error) {
    return QString::fromUtf8(Error.what());
  }
  return {};
}

inline const QString NoDate = "The find text is not a valid date. Please type it as DD/MM/YYYY.";
inline const QString NoNumber = "The find text is not a valid number.";

}  // namespace orders
