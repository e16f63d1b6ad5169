#pragma once

#include <QStringList>

#include "OrderDialogs.h"

/// The query over order-entry documents, spelled out.
namespace orders {

inline const QString DocumentColumns =
    "SELECT O.Type, O.ID, C.Company, O.JobNo, J.[Desc], O.Number, O.SubTotal + O.FedTax Total, O.[Date], O.Posted, ";
inline const QString DocumentTables =
    "FROM OE O INNER JOIN Cust C ON O.ID = C.ID INNER JOIN Jobs J ON O.JobNo = J.JobNo";

/// The order-by and find-by lines; those for a fixed customer do not begin with the company.
inline picks::TSqlParts DocumentSql(const QString& Filter, bool WithCompany) {
  picks::TSqlParts Parts;
  Parts.From = DocumentTables + " | WHERE 0=0" + Filter;
  Parts.Typed = " 1/2/2024 ";
  if (WithCompany) {
    Parts.Selects.append(DocumentColumns + "UPPER(C.Company) SortFld");
    Parts.Finds.append("AND UPPER(C.Company) LIKE '%1/2/2024%'");
  }
  Parts.Selects += {DocumentColumns + "UPPER(O.Type) SortFld", DocumentColumns + "UPPER(O.JobNo) SortFld",
                    DocumentColumns + "UPPER(J.[Desc]) SortFld", DocumentColumns + "UPPER(O.Number) SortFld",
                    DocumentColumns + "O.[Date] SortFld"};
  Parts.Finds +=
      {"AND UPPER(O.Type) LIKE '%1/2/2024%'", "AND UPPER(O.JobNo) LIKE '%1/2/2024%'",
       "AND UPPER(J.[Desc]) LIKE '%1/2/2024%'", "AND UPPER(O.Number) LIKE '%1/2/2024%'", "AND O.[Date] = '2024-02-01'"};
  return Parts;
}

inline const QString DocumentFields =
    "Type string 1 | ID string 6 | Company string 35 | JobNo string 6 | Desc string 25 | Number string 8 | Total float "
    "| Date date | Posted boolean";
inline const QString DocumentGrid =
    "Type T3147 centre/centre | ID T3026 left/left | Company T3027 left/left | JobNo T3000 right/right | "
    "Desc T3001 left/left | Number T3021 right/right | Total T3023 right/right | Date T3002 centre/centre | "
    "Posted T3072 centre/centre";
inline const QString DocumentGridOfCustomer =
    "Type T3147 centre/centre | JobNo T3000 right/right | Desc T3001 left/left | Number T3021 right/right | "
    "Total T3023 right/right | Date T3002 centre/centre | Posted T3072 centre/centre";

}  // namespace orders
