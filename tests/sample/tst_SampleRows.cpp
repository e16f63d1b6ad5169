#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "sample/SampleCompany.h"
#include "sample/store/Schema.h"
#include "tests/sample/Database.h"

using namespace sample;

namespace {

void Add(const char* Name, const char* Sql) {
  QTest::newRow(Name) << QByteArray(Sql);
}

void AddParties() {
  Add("a name with an apostrophe", "SELECT 1 FROM Cust WHERE Company LIKE '%O''Neil%'");
  Add("a name with é", "SELECT 1 FROM Cust WHERE Company LIKE '%é%'");
  Add("a name with ö", "SELECT 1 FROM Cust WHERE Company LIKE '%ö%'");
  Add("a name with ñ", "SELECT 1 FROM Cust WHERE Company LIKE '%ñ%'");
  Add("a name with ß", "SELECT 1 FROM Cust WHERE Company LIKE '%ß%'");
  Add("a name with Š", "SELECT 1 FROM Cust WHERE Company LIKE '%Š%'");
  Add("a name with a percent sign", "SELECT 1 FROM Cust WHERE instr(Company, '%') > 0");
  Add("a name with an underscore", "SELECT 1 FROM Cust WHERE instr(Company, '_') > 0");
  Add("a name with a backslash", "SELECT 1 FROM Cust WHERE instr(Company, '\\') > 0");
  Add("a name with double quotes", "SELECT 1 FROM Cust WHERE instr(Company, '\"') > 0");
  Add("a street with a blank behind it", "SELECT 1 FROM Cust WHERE Addr1 = '12 High St ' AND Zip = '4001'");
  Add("a customer with a street alone", "SELECT 1 FROM Cust WHERE Addr1 <> '' AND Zip IS NULL");
  Add("a customer with a postcode alone", "SELECT 1 FROM Cust WHERE Addr1 IS NULL AND Zip <> ''");
  Add("a customer with no address", "SELECT 1 FROM Cust WHERE Addr1 IS NULL AND Zip IS NULL");
  Add("a customer of blanks", "SELECT 1 FROM Cust WHERE Company = '' AND Addr1 = '' AND Email = ''");
  Add("a customer of nulls", "SELECT 1 FROM Cust WHERE Company IS NULL AND Phone IS NULL AND Email IS NULL");
  Add("an inactive customer", "SELECT 1 FROM Cust WHERE Inactive = 1");
  Add("a customer of unknown activity", "SELECT 1 FROM Cust WHERE Inactive IS NULL");
  Add("a customer without an entity", "SELECT 1 FROM Cust WHERE Entity IS NULL");
  Add("a balance less a credit", "SELECT 1 FROM CustBal WHERE CustID = 'C00001' AND Balance = 150 AND Credit = 20");
  Add("a negative balance", "SELECT 1 FROM CustBal WHERE Balance < 0");
  Add("a balance without a credit", "SELECT 1 FROM CustBal WHERE Credit IS NULL");
  Add("a customer without a balance", "SELECT 1 FROM Cust WHERE ID NOT IN (SELECT CustID FROM CustBal)");
  Add("a contact without an address", "SELECT 1 FROM Contact WHERE Email IS NULL");
  Add("a contact with a blank address", "SELECT 1 FROM Contact WHERE Email = ''");
  Add("two contacts with an address and one without",
      "SELECT MIN(1) FROM Contact WHERE ID = 'C00001' HAVING COUNT(*) = 3 AND SUM(Email <> '') = 2");
  Add("a prospect's contact with an address", "SELECT 1 FROM Contact WHERE ProspectID IS NOT NULL AND Email <> ''");
  Add("nobody's contact", "SELECT 1 FROM Contact WHERE ID IS NULL AND ProspectID IS NULL");
  Add("an ordinary vendor", "SELECT 1 FROM Vend WHERE NOT Contractor AND NOT Service AND NOT InActive");
  Add("a contractor", "SELECT 1 FROM Vend WHERE Contractor");
  Add("a service vendor", "SELECT 1 FROM Vend WHERE Service AND NOT Contractor");
  Add("an inactive vendor with an address", "SELECT 1 FROM Vend WHERE InActive AND Email <> ''");
  Add("a vendor without an address", "SELECT 1 FROM Vend WHERE Email IS NULL");
}

void AddReferences() {
  Add("a default term", "SELECT 1 FROM Terms WHERE [Default] = 1");
  Add("a term that says nothing of it", "SELECT 1 FROM Terms WHERE [Default] IS NULL");
  Add("a suburb with an apostrophe", "SELECT 1 FROM Suburb WHERE instr(Suburb, '''') > 0");
  Add("a department with an apostrophe", "SELECT 1 FROM Dept WHERE instr(Department, '''') > 0");
  Add("four entities", "SELECT MIN(1) FROM Entity HAVING COUNT(*) = 4 AND MIN(length(Entity)) = 4");
  Add("a closed period", "SELECT 1 FROM Periods WHERE Closed IS NOT NULL");
  Add("an open period", "SELECT 1 FROM Periods WHERE Closed IS NULL");
  Add("a period before the last closed one that is open",
      "SELECT 1 FROM Periods WHERE Closed IS NULL AND Period < (SELECT MAX(Period) FROM Periods WHERE Closed <> '')");
  Add("a period of no days", "SELECT 1 FROM Periods WHERE Start IS NULL AND [End] IS NULL");
  Add("a period with several rows of history", "SELECT 1 FROM APAgeHist GROUP BY Period HAVING COUNT(*) > 3");
  Add("aging of an unknown period", "SELECT 1 FROM APAgeHist WHERE Period NOT IN (SELECT Period FROM Periods)");
  Add("item history of a known period", "SELECT 1 FROM IPHistParents JOIN Periods USING (Period)");
  Add("item history of an unknown one", "SELECT 1 FROM IPHistParents WHERE Period NOT IN (SELECT Period FROM Periods)");
  Add("an inactive user", "SELECT 1 FROM Names WHERE Inactive");
  Add("a user without a name", "SELECT 1 FROM Names WHERE DisplayNm IS NULL");
  Add("a discontinued sales person", "SELECT 1 FROM SalesMen WHERE DiscontD");
  Add("users of several entities", "SELECT MIN(1) FROM Names HAVING COUNT(DISTINCT Entity) > 2");
  Add("sales people of several entities", "SELECT MIN(1) FROM SalesMen HAVING COUNT(DISTINCT Entity) > 2");
}

void AddDocuments() {
  Add("all nine types", "SELECT MIN(1) FROM OE HAVING COUNT(DISTINCT Type) = 9 AND MIN(instr('QOICRSTGM', Type)) = 1");
  Add("every choice of flags",
      "SELECT MIN(1) FROM OE HAVING COUNT(DISTINCT Posted * 8 + StockReturned * 4 + Internal * 2 + StockTrans) = 16");
  Add("a document of no job", "SELECT 1 FROM OE WHERE JobNo IS NULL");
  Add("a document of a blank job", "SELECT 1 FROM OE WHERE JobNo = ''");
  Add("a document of a missing job", "SELECT 1 FROM OE WHERE JobNo > '' AND JobNo NOT IN (SELECT JobNo FROM Jobs)");
  Add("a document without a date", "SELECT 1 FROM OE WHERE [Date] IS NULL");
  Add("a document without an amount", "SELECT 1 FROM OE WHERE SubTotal IS NULL");
  Add("a document without a sales person", "SELECT 1 FROM OE WHERE SalesMan IS NULL");
  Add("a negative document", "SELECT 1 FROM OE WHERE Type = 'C' AND SubTotal + FedTax < 0");
  Add("an order and its invoice under one number",
      "SELECT 1 FROM OE O JOIN OE I ON I.Number = O.Number WHERE O.Type = 'O' AND I.Type = 'I'");
  Add("a job with three documents", "SELECT 1 FROM OE JOIN Jobs USING (JobNo) GROUP BY JobNo HAVING COUNT(*) >= 3");
  Add("a job without documents", "SELECT 1 FROM Jobs WHERE JobNo NOT IN (SELECT JobNo FROM OE WHERE JobNo > '')");
  Add("a group of four members",
      "SELECT 1 FROM OEQuoteGrps G JOIN OE O ON G.Quote = O.Number AND G.QuoteType = O.Type WHERE O.Type = 'M' AND "
      "G.ParentType = 'G' GROUP BY G.Parent, G.Customer HAVING COUNT(*) = 4");
  Add("a group without members",
      "SELECT 1 FROM OE WHERE Type = 'G' AND Number NOT IN (SELECT Parent FROM OEQuoteGrps)");
  Add("a quote in a group", "SELECT 1 FROM OEQuoteGrps WHERE QuoteType = 'Q' AND ParentType = 'G'");
  Add("a member of a quote", "SELECT 1 FROM OEQuoteGrps WHERE QuoteType = 'M' AND ParentType = 'Q'");
  Add("an invoice that is owed", "SELECT 1 FROM AR WHERE Type = 'IN' AND Bal <> 0 AND Amt > 0 AND OEDt = 'I'");
  Add("an invoice that is paid", "SELECT 1 FROM AR WHERE Type = 'IN' AND Bal = 0 AND Amt > 0");
  Add("a credit", "SELECT 1 FROM AR WHERE Type = 'IN' AND Amt < 0 AND OEDt = 'C'");
  Add("a payment", "SELECT 1 FROM AR WHERE Type = 'PA' AND OEDt IS NULL AND Due IS NULL");
  Add("a customer with invoices of two entities",
      "SELECT 1 FROM AR WHERE Type = 'IN' GROUP BY ID HAVING COUNT(DISTINCT Entity) > 1");
}

void AddBookings() {
  Add("27 hours for a customer",
      "SELECT 1 FROM Booking WHERE CustID <> '' AND julianday(EndDate) - julianday(BegDate) = 2 AND StartTime = 480 "
      "AND "
      "FinishTime = 1020");
  Add("no hours", "SELECT 1 FROM Booking WHERE StartTime = FinishTime AND BegDate = EndDate");
  Add("a start at 10:05", "SELECT 1 FROM Booking WHERE StartTime = 605");
  Add("a finish before the start", "SELECT 1 FROM Booking WHERE FinishTime < StartTime");
  Add("a booking without a start", "SELECT 1 FROM Booking WHERE StartTime IS NULL");
  Add("a booking without a finish", "SELECT 1 FROM Booking WHERE FinishTime IS NULL");
  Add("a booking without a first day", "SELECT 1 FROM Booking WHERE BegDate IS NULL");
  Add("a booking without a last day", "SELECT 1 FROM Booking WHERE EndDate IS NULL");
  Add("a booking for a prospect", "SELECT 1 FROM Booking WHERE ProspectID <> '' AND CustID IS NULL");
  Add("a booking for both", "SELECT 1 FROM Booking WHERE ProspectID <> '' AND CustID <> ''");
  Add("a booking for nobody", "SELECT 1 FROM Booking WHERE ProspectID IS NULL AND CustID IS NULL");
  Add("a booking with a document", "SELECT 1 FROM Booking JOIN OE ON OEDT = OE.Type AND OEInv = OE.Number");
  Add("a booking without a document", "SELECT 1 FROM Booking WHERE CustID <> '' AND OEInv IS NULL");
  Add("a booking that is paid for", "SELECT 1 FROM Booking WHERE PaidFor");
  Add("a booking that is not", "SELECT 1 FROM Booking WHERE NOT PaidFor");
  Add("a booking in a batch", "SELECT 1 FROM Booking WHERE ID IN (SELECT BookingID FROM APBtchDT)");
  Add("a booking in two lines", "SELECT 1 FROM APBtchDT WHERE BookingID <> '' GROUP BY BookingID HAVING COUNT(*) = 2");
  Add("a batch line without a booking", "SELECT 1 FROM APBtchDT WHERE BookingID IS NULL");
}

void AddPurchaseOrders() {
  Add("every state of every kind",
      "SELECT MIN(1) FROM IP WHERE Type IS NULL OR Type IN ('P', 'M') HAVING COUNT(DISTINCT ifnull(Type, 'S') || "
      "Posted || "
      "Closed || POReceipt || Canceled || APDocket) = 96");
  Add("a cancelled order that is paid", "SELECT 1 FROM IP WHERE Canceled AND APDocket");
  Add("an order of a blank kind", "SELECT 1 FROM IP WHERE Type = ''");
  Add("a customer order without a customer", "SELECT 1 FROM IP WHERE Type = 'P' AND CustID IS NULL");
  Add("a customer order without a document", "SELECT 1 FROM IP WHERE Type = 'P' AND CustID <> '' AND PONumber IS NULL");
  Add("a customer order with a document",
      "SELECT 1 FROM IP JOIN OE ON PONumber = OE.Number AND POType = OE.Type WHERE IP.Type = 'P' AND CustID = OE.ID");
  Add("a customer with several orders", "SELECT 1 FROM IP WHERE Type = 'P' GROUP BY CustID HAVING COUNT(*) > 1");
  Add("an order of a missing vendor", "SELECT 1 FROM IP WHERE ID NOT IN (SELECT ID FROM Vend)");
  Add("a return", "SELECT 1 FROM IP WHERE RMA");
  Add("an order without tax", "SELECT 1 FROM IP WHERE FedTax IS NULL");
  Add("a shared extra", "SELECT 1 FROM IPDetExtraMaster WHERE VendID IS NULL");
  Add("a vendor's extra", "SELECT 1 FROM IPDetExtraMaster JOIN Vend ON VendID = Vend.ID");
  Add("an extra of a blank vendor", "SELECT 1 FROM IPDetExtraMaster WHERE VendID = ''");
  Add("a vendor without extras",
      "SELECT 1 FROM Vend WHERE ID NOT IN (SELECT VendID FROM IPDetExtraMaster WHERE VendID > '')");
}

void AddStock() {
  Add("an item with children", "SELECT 1 FROM Item GROUP BY ParentItem HAVING ParentItem <> '' AND COUNT(*) = 4");
  Add("an item with a blank parent", "SELECT 1 FROM Item WHERE ParentItem = ''");
  Add("an item without a parent", "SELECT 1 FROM Item WHERE ParentItem IS NULL");
  Add("every type of item", "SELECT MIN(1) FROM Item WHERE Type BETWEEN 0 AND 6 HAVING COUNT(DISTINCT Type) = 7");
  Add("a type above all", "SELECT 1 FROM Item WHERE Type > 6");
  Add("a type below all", "SELECT 1 FROM Item WHERE Type < 0");
  Add("an item without a type", "SELECT 1 FROM Item WHERE Type IS NULL");
  Add("an item code in small letters", "SELECT 1 FROM Item WHERE Item = lower(Item)");
  Add("an item without a description", "SELECT 1 FROM Item WHERE [Desc] IS NULL");
  Add("an item with a percent sign", "SELECT 1 FROM Item WHERE instr([Desc], '%') > 0");
  Add("an item with an underscore", "SELECT 1 FROM Item WHERE instr([Desc], '_') > 0");
  Add("an item with a backslash", "SELECT 1 FROM Item WHERE instr([Desc], '\\') > 0");
  Add("stock", "SELECT 1 FROM ItemDet WHERE OnHand > 0");
  Add("no stock", "SELECT 1 FROM ItemDet WHERE OnHand = 0");
  Add("negative stock", "SELECT 1 FROM ItemDet WHERE OnHand < 0");
  Add("an item at two locations", "SELECT 1 FROM ItemDet GROUP BY Item HAVING COUNT(*) = 2");
  Add("an item at none", "SELECT 1 FROM Item WHERE Item NOT IN (SELECT Item FROM ItemDet)");
  Add("a location without stock", "SELECT 1 FROM ItemLocations WHERE ID NOT IN (SELECT ItemLoc FROM ItemDet)");
  Add("a child in stock",
      "SELECT 1 FROM Item I JOIN ItemDet D ON I.Item = D.Item WHERE I.ParentItem <> '' AND D.OnHand > 0");
  Add("a bin that is blank", "SELECT 1 FROM ItemDet WHERE BinLocation = ''");
  Add("a bin that is not known", "SELECT 1 FROM ItemDet WHERE BinLocation IS NULL");
  Add("a cost without a location", "SELECT 1 FROM ItemCost WHERE ItemLoc IS NULL");
  Add("a cost of 12.5", "SELECT 1 FROM ItemCost WHERE UnitCost = 12.5");
  Add("a cost of a negative quantity", "SELECT 1 FROM ItemCost WHERE Qty < 0");
  Add("an item without costs", "SELECT 1 FROM Item WHERE Item NOT IN (SELECT Item FROM ItemCost)");
  Add("a kit whose second option is the default",
      "SELECT MIN(1) FROM KitDetails WHERE KitID = 1 AND [Default] HAVING MIN(rowid) = 2 AND COUNT(*) = 1");
  Add("a kit without a default", "SELECT 1 FROM KitDetails GROUP BY KitID HAVING SUM([Default]) = 0");
  Add("a kit's option that is gone", "SELECT 1 FROM KitDetails WHERE Item NOT IN (SELECT Item FROM Item)");
  Add("a kit's option in small letters", "SELECT 1 FROM KitDetails WHERE Item = lower(Item)");
  Add("a preset's default", "SELECT 1 FROM PresetOptions WHERE [Default]");
  Add("a preset's option that is gone", "SELECT 1 FROM PresetOptions WHERE Item NOT IN (SELECT Item FROM Item)");
  Add("a preset's line without options",
      "SELECT 1 FROM PresetDetails WHERE LineID NOT IN (SELECT LineID FROM PresetOptions)");
}

void AddBatches() {
  Add("a batch of 35.50 in three payments",
      "SELECT 1 FROM EFTDetails e JOIN PstdGLBatch p ON e.Batch = p.Batch WHERE NOT e.Processed GROUP BY e.Batch "
      "HAVING COUNT(*) = 3 AND SUM(e.Amount) = 35.5 AND p.Total = 35.5");
  Add("a processed batch", "SELECT 1 FROM EFTDetails WHERE Processed");
  Add("an electronic batch without a day",
      "SELECT 1 FROM EFTDetails JOIN PstdGLBatch USING (Batch) WHERE Posted IS NULL");
  Add("an electronic batch that is not posted",
      "SELECT 1 FROM EFTDetails WHERE Batch NOT IN (SELECT Batch FROM PstdGLBatch)");
  Add("a batch without a description", "SELECT 1 FROM PstdGLBatch WHERE [Desc] IS NULL");
  Add("five sources", "SELECT MIN(1) FROM PstdGLBatch HAVING COUNT(DISTINCT Source) = 5");
  Add("a payables batch without payments",
      "SELECT 1 FROM GL WHERE Source = 'AP' AND Batch NOT IN (SELECT Batch FROM AP WHERE Type = 'PA')");
  Add("a payment by cheque",
      "SELECT 1 FROM GL JOIN AP ON GL.Batch = AP.Batch WHERE GL.Source = 'AP' AND AP.Type = 'PA' AND GL.Batch NOT IN "
      "(SELECT Batch FROM EFTDetails)");
  Add("a payment of two days",
      "SELECT 1 FROM GL JOIN AP ON GL.Batch = AP.Batch WHERE AP.Type = 'PA' GROUP BY GL.Batch HAVING COUNT(DISTINCT "
      "GL.[Date]) = 2");
}

}  // namespace

/// What the rows of the smallest company are like.
class tst_SampleRows : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase();
  void shouldStoreEveryValueInTheClassOfItsColumn();
  void shouldHoldEachSpecialRow_data();
  void shouldHoldEachSpecialRow();
  void shouldReferToRowsThatExist_data();
  void shouldReferToRowsThatExist();
  void shouldBeConsistent_data();
  void shouldBeConsistent();

 private:
  QTemporaryDir Dir_;
  std::unique_ptr<TDatabase> Company_;
};

void tst_SampleRows::initTestCase() {
  QVERIFY(Dir_.isValid());
  const std::string FileName = Dir_.filePath("company.db").toStdString();
  CreateCompany(FileName);
  Company_ = std::make_unique<TDatabase>(FileName);
}

void tst_SampleRows::shouldStoreEveryValueInTheClassOfItsColumn() {
  const auto Allowed = [](const TColumn& Column) -> std::string {
    const std::string Name = "\"" + Column.Name + "\"";
    switch (Column.Type) {
      case TColumnType::Boolean:
        return Name + " IN (0, 1) AND typeof(" + Name + ") = 'integer'";
      case TColumnType::Date:
        return "typeof(" + Name + ") = 'text' AND date(" + Name + ") = " + Name;
      case TColumnType::Text:
        return "typeof(" + Name + ") = 'text' AND length(" + Name + ") <= " + std::to_string(Column.Size);
      case TColumnType::Double:
        return "typeof(" + Name + ") = 'real'";
      default:
        return "typeof(" + Name + ") = 'integer'";
    }
  };
  const TSchema Schema = ReadSchema(SchemaSql());
  for (const TTable& Table : Schema.Tables) {
    for (const TColumn& Column : Table.Columns) {
      const std::string Null = Column.Required ? "1" : "\"" + Column.Name + "\" IS NOT NULL";
      const std::string Sql =
          "SELECT COUNT(*) FROM \"" + Table.Name + "\" WHERE " + Null + " AND NOT (" + Allowed(Column) + ")";
      QVERIFY2(Company_->Number(Sql) == 0, Sql.c_str());
    }
  }
}

void tst_SampleRows::shouldHoldEachSpecialRow_data() {
  QTest::addColumn<QByteArray>("Sql");
  AddParties();
  AddReferences();
  AddDocuments();
  AddBookings();
  AddPurchaseOrders();
  AddStock();
  AddBatches();
}

void tst_SampleRows::shouldHoldEachSpecialRow() {
  QFETCH(QByteArray, Sql);
  QCOMPARE(Company_->Text(Sql.toStdString()), QByteArray("1"));
}

namespace {

struct TReference {
  const char* Table;
  const char* Column;
  const char* To;
  const char* Key;
  const char* But = "0";  // the rows that are meant to refer to nothing
};
constexpr TReference References[] = {
    {"CustBal", "CustID", "Cust", "ID"},
    {"Cust", "Entity", "Entity", "Entity"},
    {"Cust", "Zip", "Area", "Zip", "rowid <= 16"},
    {"Names", "Entity", "Entity", "Entity"},
    {"SalesMen", "Entity", "Entity", "Entity"},
    {"SalesMen", "Department", "Dept", "Department"},
    {"Contact", "ID", "Cust", "ID"},
    {"Contact", "ProspectID", "Prospect", "ID"},
    {"OE", "ID", "Cust", "ID"},
    {"OE", "JobNo", "Jobs", "JobNo", "JobNo LIKE '9%'"},
    {"OE", "SalesMan", "SalesMen", "SalesMan"},
    {"OEQuoteGrps", "Quote || QuoteType", "OE", "Number || Type"},
    {"OEQuoteGrps", "Parent || ParentType", "OE", "Number || Type"},
    {"AR", "ID", "Cust", "ID"},
    {"AR", "Entity", "Entity", "Entity"},
    {"AR", "Batch", "PstdGLBatch", "Batch"},
    {"Booking", "VendID", "Vend", "ID"},
    {"Booking", "CustID", "Cust", "ID"},
    {"Booking", "ProspectID", "Prospect", "ID"},
    {"Booking", "OEInv || OEDT", "OE", "Number || Type", "OEInv = '99999999'"},
    {"APBtchDT", "BookingID", "Booking", "ID"},
    {"IP", "ID", "Vend", "ID", "ID = 'V9X9X9'"},
    {"IP", "CustID", "Cust", "ID"},
    {"IP", "PONumber || POType", "OE", "Number || Type", "PONumber = '99999999'"},
    {"IPDetExtraMaster", "VendID", "Vend", "ID"},
    {"Item", "ParentItem", "Item", "Item"},
    {"ItemDet", "Item", "Item", "Item"},
    {"ItemDet", "ItemLoc", "ItemLocations", "ID"},
    {"ItemCost", "Item", "Item", "Item"},
    {"ItemCost", "ItemLoc", "ItemLocations", "ID"},
    {"Kits", "Item", "Item", "Item"},
    {"KitDetails", "KitID", "Kits", "ID"},
    {"KitDetails", "Item", "Item", "Item", "Item LIKE 'OLD-%'"},
    {"PresetDetails", "PresetID", "Presets", "PresetID"},
    {"PresetOptions", "LineID", "PresetDetails", "LineID"},
    {"PresetOptions", "Item", "Item", "Item", "Item LIKE 'OLD-%'"},
    {"PstdGLBatch", "Period", "Periods", "Period"},
    {"GL", "Batch", "PstdGLBatch", "Batch"},
    {"AP", "Batch", "PstdGLBatch", "Batch"},
    {"AP", "ID", "Vend", "ID"},
    {"EFTDetails", "VendID", "Vend", "ID"},
    {"APAgeHist", "VendID", "Vend", "ID"},
};

}  // namespace

void tst_SampleRows::shouldReferToRowsThatExist_data() {
  QTest::addColumn<QByteArray>("Sql");
  for (const TReference& R : References) {
    const QByteArray Name = QByteArray(R.Table) + "." + R.Column;
    QTest::newRow(Name.constData()) << QByteArray("SELECT COUNT(*) FROM " + QByteArray(R.Table) + " WHERE " + R.Column +
                                                  " <> '' AND NOT (" + R.But + ") AND " + R.Column +
                                                  " NOT IN (SELECT " + R.Key + " FROM " + R.To + ")");
  }
}

void tst_SampleRows::shouldReferToRowsThatExist() {
  QFETCH(QByteArray, Sql);
  QCOMPARE(Company_->Number(Sql.toStdString()), 0);
}

void tst_SampleRows::shouldBeConsistent_data() {
  QTest::addColumn<QByteArray>("Sql");
  QTest::newRow("one missing vendor") << QByteArray("SELECT COUNT(*) - 1 FROM IP WHERE ID = 'V9X9X9'");
  QTest::newRow("members and their groups have one customer") << QByteArray(
      "SELECT COUNT(*) FROM OEQuoteGrps G JOIN OE O ON G.Quote = O.Number AND G.QuoteType = O.Type WHERE "
      "O.Type = 'M' AND O.ID <> G.Customer");
  QTest::newRow("bookings and their documents have one customer") << QByteArray(
      "SELECT COUNT(*) FROM Booking JOIN OE ON OEDT = OE.Type AND OEInv = OE.Number WHERE CustID <> OE.ID");
  QTest::newRow("contractors alone are booked")
      << QByteArray("SELECT COUNT(*) FROM Booking JOIN Vend ON VendID = Vend.ID WHERE NOT Contractor");
  QTest::newRow("periods follow each other") << QByteArray(
      "SELECT COUNT(*) FROM Periods A JOIN Periods B ON date(A.[End], '+1 day') = B.Start WHERE B.Period "
      "<= A.Period OR B.RealPeriod <= A.RealPeriod");
  QTest::newRow("ledger lines are of their batch's period") << QByteArray(
      "SELECT COUNT(*) FROM GL JOIN PstdGLBatch P ON GL.Batch = P.Batch WHERE GL.Period <> P.Period OR "
      "GL.Source <> P.Source");
  QTest::newRow("batches fall into their periods") << QByteArray(
      "SELECT COUNT(*) FROM GL JOIN Periods P ON GL.Period = P.Period WHERE date(GL.[Date], '-1 day') > "
      "P.[End] OR GL.[Date] < P.Start");
  QTest::newRow("nothing is owed beyond an invoice") << QByteArray("SELECT COUNT(*) FROM AR WHERE abs(Bal) > abs(Amt)");
  QTest::newRow("amounts are whole cents")
      << QByteArray("SELECT COUNT(*) FROM AR WHERE Amt <> round(Amt, 2) OR Bal <> round(Bal, 2)");
  QTest::newRow("kits are kits") << QByteArray(
      "SELECT COUNT(*) FROM Kits K JOIN Item I ON K.Item = I.Item WHERE I.Type <> 4");
}

void tst_SampleRows::shouldBeConsistent() {
  QFETCH(QByteArray, Sql);
  QCOMPARE(Company_->Number(Sql.toStdString()), 0);
}

QTEST_GUILESS_MAIN(tst_SampleRows)
#include "tst_SampleRows.moc"
