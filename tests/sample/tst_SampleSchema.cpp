#include <QTest>
#include <map>

#include "sample/SampleCompany.h"
#include "sample/store/Rows.h"
#include "sample/store/Schema.h"
#include "tests/sample/Database.h"

using namespace sample;

namespace {

/// Takes rows and counts them.
class TCountingSink : public TRowSink {
 public:
  void CreateTable(const TTable&) override {}
  void BeginRows(const TTable&, const std::vector<std::string>& Columns) override { Width = Columns.size(); }
  void AddRow(std::span<const TValue> Values) override { Rows += Values.size() == Width ? 1 : 0; }
  void EndRows() override { Ended = true; }
  void CreateIndex(const TIndex&) override {}
  void Finish() override {}

  std::size_t Width = 0;
  int Rows = 0;
  bool Ended = false;
};

const char* const SmallSchema =
    "CREATE TABLE T (ID INTEGER PRIMARY KEY, Name VARCHAR(3) NOT NULL, \"Desc\" VARCHAR(5), Count SMALLINT, "
    "Day DATE, Sum DOUBLE, Yes BOOLEAN)";

/// Whether a row of the small table is refused.
bool IsRefused(std::initializer_list<TValue> Row) {
  const TSchema Schema = ReadSchema(SmallSchema);
  TCountingSink Sink;
  TFiller Filler(Sink, Schema);
  try {
    Filler.Fill("T", {"Name", "Desc", "Count", "Day", "Sum", "Yes"}, [&](TRows& Rows) { Rows.Add(Row); });
  } catch (const std::runtime_error&) {
    return true;
  }
  return Sink.Rows != 1 || !Sink.Ended;
}

// One statement for each kind of list, with every column that is asked for.
constexpr const char* Statements[] = {
    "SELECT QtyDec, PrcDec, MultiAcct, MultiLoc FROM Sys",
    "SELECT Zip, UPPER(Zip) SortFld FROM Area",
    "SELECT CstCtr, [Desc], [Default], UPPER(CstCtr) SortFld FROM CstCtr",
    "SELECT [Desc], UPPER([Desc]) SortFld FROM Location",
    "SELECT E.Entity, E.[Desc], E.OEDefault, UPPER(E.Entity) SortFld FROM Entity E",
    "SELECT [Key], Name, Percent, UPPER(Name) SortFld FROM FinanceRates",
    "SELECT g.ID, g.TaxDesc, g.Rate, UPPER(g.ID) SortFld FROM GSTRates G",
    "SELECT CatID, Descript, UPPER(CatID) SortFld FROM ItemCat",
    "SELECT Class, ClassDesc, UPPER(Class) SortFld FROM ItemClass",
    "SELECT ID, Description, UPPER(Description) SortFLD FROM ItemFactorPresets",
    "SELECT PresetID, Descript, UPPER(Descript) SortFLD FROM Presets ORDER BY SortFld",
    "SELECT j.JobNo, j.[Desc], UPPER(j.JobNo) SortFld FROM Jobs j",
    "SELECT State, UPPER(State) SortFld FROM State",
    "SELECT Suburb, UPPER(Suburb) SortFld FROM Suburb",
    "SELECT [Desc], [Default], UPPER([Desc]) SortFld FROM Terms",
    "SELECT DISTINCT SubString(RealPeriod, 1, 4) Year FROM Periods ORDER BY Year",
    "SELECT P.Period, P.[Start], P.[End], P.[Start] SortFld FROM Periods P WHERE 0=0 AND Closed IS NULL",
    "SELECT P.Period, P.Start, P.[End], P.Start SortFld FROM Periods P INNER JOIN APAgeHist H ON P.Period = H.Period "
    "WHERE P.Start = '2026-01-01' GROUP BY P.Period, P.Start, P.[End] ORDER BY SortFld DESC",
    "SELECT I.Period, P.Start, P.[End], P.[End] SortFld FROM IPHistParents I LEFT OUTER JOIN Periods P ON I.Period = "
    "P.Period",
    "SELECT Department, UPPER(Department) SortFld FROM Dept",
    "SELECT n.UserName, n.DisplayNm, UPPER(n.UserName) SortFld FROM Names n",
    "SELECT UserName, DisplayNM, Inactive, UPPER(DisplayNM) SortFld FROM Names WHERE Entity = '' AND InActive = "
    "FALSE",
    "SELECT SalesMan, Department, Title, UPPER(SalesMan) SortFld FROM SalesMen WHERE DiscontD = FALSE AND Entity = "
    "''",
    "SELECT C.ID, C.FirstName, C.Company, C.Addr1, C.Zip, C.Phone, C.Inactive FROM Cust C WHERE C.Entity = ''",
    "SELECT CustID, Balance, Credit FROM CustBal",
    "SELECT V.ID, V.Company, V.Addr1, V.Zip, V.Phone, V.Contractor, V.InActive, UPPER(V.ID) SortFld FROM Vend V "
    "WHERE "
    "V.Contractor = False AND V.Service = False AND V.Email <> ''",
    "SELECT C.ID, C.Company, C.Contact, C.Email, UPPER(C.ID) SortFld FROM Cust C UNION ALL SELECT T.ID, C.Company, "
    "T.Contact, T.Email, UPPER(T.ID) SortFld FROM Contact T INNER JOIN Cust C ON T.ID = C.ID ORDER BY SortFld",
    "SELECT C.ID, C.Company, C.Contact, C.Email, UPPER(C.ID) SortFld FROM Prospect C UNION ALL SELECT T.ProspectID, "
    "C.Company, T.Contact, T.Email, UPPER(T.ProspectID) SortFld FROM Contact T INNER JOIN Prospect C ON T.ProspectID "
    "= "
    "C.ID ORDER BY SortFld",
    "SELECT O.Type, O.ID, C.Company, O.JobNo, J.[Desc], O.Number, O.SubTotal + O.FedTax Total, O.[Date], O.Posted, "
    "O.[Date] SortFld FROM OE O INNER JOIN Cust C ON O.ID = C.ID INNER JOIN Jobs J ON O.JobNo = J.JobNo WHERE "
    "O.StockReturned = TRUE AND O.Internal = TRUE AND O.StockTrans = TRUE AND o.Posted = TRUE",
    "SELECT j.JobNo, j.[Desc], o.Type, o.Number FROM Jobs j LEFT OUTER JOIN OE o ON (j.JobNo = o.JobNo)",
    "SELECT O.Type FROM OE O INNER JOIN OEQuoteGrps G ON G.Quote = O.Number AND g.QuoteType = o.Type WHERE "
    "G.Customer = "
    "'' AND G.Parent = '' AND g.ParentType = 'G'",
    "SELECT InvNo, [Date], [Desc], Bal, Amt, OEDt, Due, Batch, Entity, Amt SortFld FROM AR WHERE Type = 'IN' AND ID "
    "= ''",
    "SELECT b.ID, b.VendID, v.Company VendCompany, b.CustID CustID, c.Company CustCompany, b.BegDate, b.EndDate, "
    "b.StartTime, b.FinishTime, b.OEInv, b.OEDT, o.JobNo, o.ShipTo2, UPPER(o.JobNo) SortFld FROM Booking b INNER "
    "JOIN "
    "Vend v ON b.VendID = v.ID INNER JOIN Cust c ON b.CustID = c.ID LEFT OUTER JOIN OE o ON (b.OEDT = o.Type AND "
    "b.OEInv = o.Number) WHERE b.ProspectID IS NULL AND b.PaidFor = FALSE AND (NOT b.ID IN (SELECT BookingID FROM "
    "APBtchDT WHERE NOT BookingID IS NULL))",
    "SELECT I.Number, I.[Date], V.Company VendCompany, I.PONumber, I.POType, C.Company CustCompany, I.Type, "
    "I.Posted, "
    "I.Closed, I.POReceipt, I.Canceled, I.APDocket, I.Cost, I.FedTax, O.JobNo, I.RMA FROM (IP I INNER JOIN Vend V ON "
    "(I.ID = V.ID)) LEFT OUTER JOIN Cust C ON C.ID = I.CustID LEFT OUTER JOIN OE O ON I.PONumber = O.Number AND "
    "I.POType = O.Type",
    "SELECT DISTINCT I.CustID, C.Company, C.Addr1, C.Phone, UPPER(C.Phone) SortFld FROM IP I INNER JOIN Cust C ON "
    "(I.CustID = C.ID)",
    "SELECT DISTINCT O.ID, C.Company, O.Number, O.Type, O.SalesMan, O.\"Date\", O.\"Date\" SortFld FROM OE O INNER "
    "JOIN "
    "IP I ON O.Number = I.PONumber INNER JOIN Cust C ON O.ID = C.ID",
    "SELECT ID, Descript, Cost, ID SortFld FROM IPDetExtraMaster WHERE ((VendID IS NULL) OR (VendID = ''))",
    "SELECT I.Item, D.OnHand, L.FullName, I.\"desc\", I.SupplyLot, I.LocalRefNo, D.BinLocation, D.ItemLoc, "
    "UPPER(I.\"Desc\") SORTFLD FROM Item I, ItemLocations L, ItemDet D WHERE I.Item = D.Item AND D.ItemLoc = L.ID "
    "AND "
    "I.ParentItem = '' ORDER BY SortFld",
    "SELECT l.ID, l.ShortName, l.FullName FROM ItemLocations l INNER JOIN ItemDet d ON l.ID = d.ItemLoc WHERE d.Item "
    "= ''",
    "SELECT I.[Key], I.[Date], I.Qty, I.UnitCost, I.UnitBuff, l.ShortName FROM ItemCost I LEFT OUTER JOIN "
    "ItemLocations l "
    "ON i.ItemLoc=l.ID WHERE Item = ''",
    "SELECT D.Item, I.[Desc], D.[Default], I.Type FROM KitDetails D LEFT OUTER JOIN Item I ON D.Item = I.Item WHERE "
    "D.KitID = 1",
    "SELECT O.Item, I.[Desc], O.[Default], I.Type FROM PresetOptions O LEFT OUTER JOIN Item I ON O.Item = I.Item "
    "WHERE "
    "O.LineID = 1",
    "SELECT Item, ID, Descript FROM Kits",
    "SELECT LineID, Descript FROM PresetDetails",
    "SELECT e.Batch, p.[Desc], e.Posted, SUM(e.Amount) Total, e.Processed FROM EFTDetails e INNER JOIN PstdGLBatch p "
    "ON "
    "e.Batch = p.Batch GROUP BY e.Batch, e.Posted, e.Processed, p.[Desc]",
    "SELECT P.[Batch], P.Period, P.[Desc], P.Source, P.Total, UPPER(P.[Source]) SortFld FROM PstdGLBatch P",
    "SELECT p.Batch, g.[Date], g.Period, p.[Desc], p.Total FROM GL g INNER JOIN AP a ON g.Batch = a.Batch INNER JOIN "
    "PstdGLBatch p ON g.Batch = p.Batch WHERE g.Source = 'AP' AND a.Type = 'PA'"};

}  // namespace

class tst_SampleSchema : public QObject {
  Q_OBJECT

 private slots:
  void shouldReadTablesColumnsAndIndexes();
  void shouldRefuseWhatItDoesNotUnderstand_data();
  void shouldRefuseWhatItDoesNotUnderstand();
  void shouldAgreeWithTheDatabaseOnEveryColumn();
  void shouldOpenInAnEmptyDatabase();
  void shouldNameTheIndexesThatTablesAreOpenedBy();
  void shouldAnswerTheDialogs_data();
  void shouldAnswerTheDialogs();
  void shouldRefuseWhatTheServerRefuses_data();
  void shouldRefuseWhatTheServerRefuses();
  void shouldHoldRowsAgainstTheColumns();
  void shouldRefuseUnknownAndMissingColumns();
};

void tst_SampleSchema::shouldReadTablesColumnsAndIndexes() {
  const TSchema Schema = ReadSchema(
      "-- a remark; with a semicolon\nCREATE TABLE A (\n  \"Key\" INTEGER PRIMARY KEY,\n  Name VARCHAR(12) NOT NULL, "
      "-- the name\n  Size SMALLINT\n);\nCREATE UNIQUE INDEX I ON A (Name, \"Key\");\nCREATE INDEX J ON A (Size);\n");
  QCOMPARE(Schema.Tables.size(), std::size_t(1));
  const TTable& Table = Schema.Table("A");
  QCOMPARE(Table.Columns.size(), std::size_t(3));
  QVERIFY(Table.Columns[0].Type == TColumnType::AutoNumber);
  QCOMPARE(Table.Columns[0].Name, std::string("Key"));
  QVERIFY(Table.Find("Name")->Required);
  QCOMPARE(Table.Find("Name")->Size, std::size_t(12));
  QVERIFY(Table.Find("Size")->Type == TColumnType::SmallInt);
  QVERIFY(!Table.Find("Size")->Required);
  QVERIFY(Table.Find("size") == nullptr);
  QCOMPARE(Schema.Indexes.size(), std::size_t(2));
  QVERIFY(Schema.Indexes[0].Unique);
  QVERIFY(!Schema.Indexes[1].Unique);
  QCOMPARE(Schema.Indexes[0].Columns, (std::vector<std::string>{"Name", "Key"}));
  QVERIFY_THROWS_EXCEPTION(std::runtime_error, Schema.Table("B"));
}

void tst_SampleSchema::shouldRefuseWhatItDoesNotUnderstand_data() {
  QTest::addColumn<QByteArray>("Sql");
  QTest::newRow("another statement") << QByteArray("DROP TABLE A");
  QTest::newRow("an unknown type") << QByteArray("CREATE TABLE A (B BLOB)");
  QTest::newRow("a text without a size") << QByteArray("CREATE TABLE A (B VARCHAR)");
  QTest::newRow("a size that is no number") << QByteArray("CREATE TABLE A (B VARCHAR(x))");
  QTest::newRow("a default") << QByteArray("CREATE TABLE A (B INTEGER DEFAULT 1)");
  QTest::newRow("an unfinished table") << QByteArray("CREATE TABLE A (B INTEGER");
  QTest::newRow("something behind the table") << QByteArray("CREATE TABLE A (B INTEGER) STRICT");
  QTest::newRow("a table without a name") << QByteArray("CREATE TABLE (B INTEGER)");
  QTest::newRow("an index on an expression") << QByteArray("CREATE INDEX I ON A (UPPER(B))");
}

void tst_SampleSchema::shouldRefuseWhatItDoesNotUnderstand() {
  QFETCH(QByteArray, Sql);
  QVERIFY_THROWS_EXCEPTION(std::runtime_error, ReadSchema(Sql.toStdString()));
}

void tst_SampleSchema::shouldAgreeWithTheDatabaseOnEveryColumn() {
  static const std::map<TColumnType, QByteArray> Types = {
      {TColumnType::Boolean, "BOOLEAN"},   {TColumnType::Date, "DATE"},       {TColumnType::Double, "DOUBLE"},
      {TColumnType::SmallInt, "SMALLINT"}, {TColumnType::Integer, "INTEGER"}, {TColumnType::AutoNumber, "INTEGER"}};
  const TDatabase Database;
  CreateSchema(Database.Handle());
  const TSchema Schema = ReadSchema(SchemaSql());
  QCOMPARE(Database.Number("SELECT COUNT(*) FROM sqlite_master WHERE type = 'table'"), qint64(Schema.Tables.size()));
  QCOMPARE(Database.Number("SELECT COUNT(*) FROM sqlite_master WHERE type = 'index'"), qint64(Schema.Indexes.size()));
  for (const TTable& Table : Schema.Tables) {
    const std::string From = " FROM pragma_table_info('" + Table.Name + "')";
    QCOMPARE(Database.Number("SELECT COUNT(*)" + From), qint64(Table.Columns.size()));
    for (const TColumn& Column : Table.Columns) {
      const QByteArray Type =
          Column.Type == TColumnType::Text ? "VARCHAR(" + QByteArray::number(Column.Size) + ")" : Types.at(Column.Type);
      QCOMPARE(Database.Text("SELECT type" + From + " WHERE name = '" + Column.Name + "'"), Type);
    }
  }
}

void tst_SampleSchema::shouldOpenInAnEmptyDatabase() {
  const TDatabase Database;
  CreateSchema(Database.Handle());
  QCOMPARE(Database.Number("SELECT COUNT(*) FROM Cust"), 0);
  QVERIFY_THROWS_EXCEPTION(std::runtime_error, CreateSchema(Database.Handle()));
}

void tst_SampleSchema::shouldNameTheIndexesThatTablesAreOpenedBy() {
  const TSchema Schema = ReadSchema(SchemaSql());
  std::map<std::string, std::string> Found;
  for (const TIndex& Index : Schema.Indexes) {
    Found[Index.Name] = Index.Table + "." + Index.Columns.front();
    QVERIFY2(Schema.Table(Index.Table).Find(Index.Columns.front()) != nullptr, Index.Name.c_str());
  }
  QCOMPARE(Found.size(), Schema.Indexes.size());
  QCOMPARE(Found["FK_CUSTID"], std::string("CustBal.CustID"));
  QCOMPARE(Found["PK_ID_Vend"], std::string("Vend.ID"));
  QCOMPARE(Found["PK_ITEM"], std::string("Item.Item"));
  QCOMPARE(Found["PK_ID_Kits"], std::string("Kits.ID"));
  QCOMPARE(Found["PK_LINEID"], std::string("PresetDetails.LineID"));
}

void tst_SampleSchema::shouldAnswerTheDialogs_data() {
  QTest::addColumn<QByteArray>("Sql");
  for (const char* const Sql : Statements) {
    QTest::newRow(Sql) << QByteArray(Sql);
  }
}

void tst_SampleSchema::shouldAnswerTheDialogs() {
  QFETCH(QByteArray, Sql);
  const TDatabase Database;
  CreateSchema(Database.Handle());
  QCOMPARE(Database.Complaint(Sql.toStdString()), QByteArray());
}

void tst_SampleSchema::shouldRefuseWhatTheServerRefuses_data() {
  QTest::addColumn<QByteArray>("Sql");
  QTest::newRow("a sort column that nobody selects") << QByteArray(
      "SELECT I.Period, P.Start, P.[End], P.Start, SortFld FROM IPHistParents I LEFT OUTER JOIN Periods P "
      "ON I.Period = P.Period");
  QTest::newRow("the start of an item history") << QByteArray(
      "SELECT I.Period, P.Start, P.[End] FROM IPHistParents I LEFT OUTER JOIN Periods P ON I.Period = "
      "P.Period WHERE I.Start = '2026-01-01'");
  QTest::newRow("the end of an item history") << QByteArray(
      "SELECT I.Period, P.Start, P.[End] FROM IPHistParents I LEFT OUTER JOIN Periods P ON I.Period = "
      "P.Period WHERE I.[End] = '2026-01-01'");
  QTest::newRow("a condition without WHERE on finance rates")
      << QByteArray("SELECT [Key], Name, Percent FROM FinanceRates AND UPPER(Name) LIKE '%A%'");
  QTest::newRow("a condition without WHERE on terms")
      << QByteArray("SELECT [Desc], [Default] FROM Terms AND UPPER([Desc]) LIKE '%A%'");
  QTest::newRow("letters as a location's number")
      << QByteArray("SELECT l.ID FROM ItemLocations l WHERE 0=0 AND l.ID = abc");
  QTest::newRow("no SELECT line") << QByteArray("FROM OE O WHERE 0=0");
}

void tst_SampleSchema::shouldRefuseWhatTheServerRefuses() {
  QFETCH(QByteArray, Sql);
  const TDatabase Database;
  CreateSchema(Database.Handle());
  QVERIFY(!Database.Complaint(Sql.toStdString()).isEmpty());
}

void tst_SampleSchema::shouldHoldRowsAgainstTheColumns() {
  const TDate Day = BaseDate;
  QVERIFY(!IsRefused({"abc", "x", 1, Day, 1.5, true}));
  QVERIFY(!IsRefused({"äöü", std::nullopt, std::nullopt, std::nullopt, std::nullopt, std::nullopt}));
  QVERIFY(IsRefused({"abcd", "x", 1, Day, 1.5, true}));
  QVERIFY(IsRefused({std::nullopt, "x", 1, Day, 1.5, true}));
  QVERIFY(IsRefused({"abc", 7, 1, Day, 1.5, true}));
  QVERIFY(IsRefused({"abc", "x", 40'000, Day, 1.5, true}));
  QVERIFY(IsRefused({"abc", "x", 1, "2026-01-01", 1.5, true}));
  QVERIFY(IsRefused({"abc", "x", 1, Day, 2, true}));
  QVERIFY(IsRefused({"abc", "x", 1, Day, 1.5, 1}));
  QVERIFY(IsRefused({"abc", "x", 1, Day, 1.5}));
}

void tst_SampleSchema::shouldRefuseUnknownAndMissingColumns() {
  const TSchema Schema = ReadSchema("CREATE TABLE T (ID INTEGER PRIMARY KEY, A SMALLINT, B SMALLINT)");
  TCountingSink Sink;
  TFiller Filler(Sink, Schema);
  const auto Write = [](TRows&) {};
  QVERIFY_THROWS_EXCEPTION(std::runtime_error, Filler.Fill("U", {"A", "B"}, Write));
  QVERIFY_THROWS_EXCEPTION(std::runtime_error, Filler.Fill("T", {"A", "C"}, Write));
  QVERIFY_THROWS_EXCEPTION(std::runtime_error, Filler.Fill("T", {"A"}, Write));
  Filler.Fill("T", {"B", "A"}, Write);
  QCOMPARE(Sink.Width, std::size_t(2));
}

QTEST_GUILESS_MAIN(tst_SampleSchema)
#include "tst_SampleSchema.moc"
