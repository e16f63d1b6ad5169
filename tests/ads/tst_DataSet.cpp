#include <sqlite3.h>

#include <QFile>
#include <QSqlDriver>
#include <QTest>

#include "DatabaseTest.h"
#include "ads/MessageOf.h"

using ads::EDatabaseError;
using ads::TAdsQuery;
using ads::TAdsTable;
using ads::TField;
using ads::TFieldKind;
using ads::TFieldType;
using support::MessageOf;

namespace {

std::vector<std::string> Texts(ads::TDataSet& DataSet, const TField* Field) {
  std::vector<std::string> Result;
  for (DataSet.First(); !DataSet.Eof(); DataSet.Next()) Result.push_back(Field->AsString());
  return Result;
}

}  // namespace

class tst_DataSet : public QObject {
  Q_OBJECT

  std::unique_ptr<TTestDatabase> Db;
  std::unique_ptr<TAdsQuery> Query;
  TField* Id = nullptr;
  TField* Name = nullptr;

  void SetQuery(const std::string& Sql) {
    Query->SQL()->Clear();
    Query->SQL()->Add(Sql);
  }

 private Q_SLOTS:
  void init() {
    Db = std::make_unique<TTestDatabase>();
    Db->Execute("CREATE TABLE T (ID INTEGER PRIMARY KEY, Name VARCHAR(10), Flag BOOLEAN, Day DATE, Cost DOUBLE)");
    Db->Execute(
        "INSERT INTO T VALUES (1, 'one', 0, '2026-01-31', 1.5), (2, 'two', 1, NULL, NULL), (3, NULL, NULL, '', 3)");
    Query = std::make_unique<TAdsQuery>(nullptr);
    Query->setObjectName("qry");
    Query->SetConnection(Db->Connection.get());
    Id = Query->AddField("ID", TFieldType::ftInteger);
    Name = Query->AddField("Name", TFieldType::ftString, 10);
    SetQuery("SELECT ID, Name, Flag, Day, Cost FROM T ORDER BY ID");
  }
  void cleanup() {
    Query.reset();
    Db.reset();
  }

  void shouldOpenOnItsFirstRow() {
    QVERIFY(!Query->Active());
    Query->Open();
    QVERIFY(Query->Active());
    QVERIFY(Query->Bof());
    QVERIFY(!Query->Eof());
    QCOMPARE(Query->RecNo(), 1);
    QCOMPARE(Query->RecordCount(), 3);
    QCOMPARE(Id->AsInteger(), 1);
  }

  void shouldWalkToTheEndAndStayOnTheLastRow() {
    Query->Open();
    int Rows = 0;
    for (; !Query->Eof(); Query->Next()) ++Rows;
    QCOMPARE(Rows, 3);
    QCOMPARE(Id->AsInteger(), 3);
    QVERIFY(!Query->Bof());
    Query->Prior();
    QCOMPARE(Id->AsInteger(), 2);
    QVERIFY(!Query->Eof());
    Query->First();
    Query->Prior();
    QVERIFY(Query->Bof());
    QCOMPARE(Id->AsInteger(), 1);
    Query->Last();
    QVERIFY(Query->Eof());
    QCOMPARE(Query->RecNo(), 3);
  }

  void shouldBeAtBothEndsWithoutRows() {
    SetQuery("SELECT ID, Name FROM T WHERE ID > 99");
    Query->Open();
    QVERIFY(Query->Active());
    QVERIFY(Query->Bof() && Query->Eof() && Query->IsEmpty());
    QCOMPARE(Query->RecNo(), 0);
    QVERIFY(Id->IsNull());
    QCOMPARE(Name->AsString(), std::string());
    Query->Next();
    Query->Prior();
    Query->First();
    Query->SetRecNo(5);
    QCOMPARE(Query->RecNo(), 0);
  }

  void shouldGoToTheNearestRowForANumberOutOfRange() {
    Query->Open();
    Query->SetRecNo(99);
    QCOMPARE(Query->RecNo(), 3);
    Query->SetRecNo(-4);
    QCOMPARE(Query->RecNo(), 1);
  }

  void shouldComeBackToABookmark() {
    Query->Open();
    Query->Next();
    const ads::TDataSet::TBookmark Bookmark = Query->GetBookmark();
    Query->Last();
    Query->GotoBookmark(Bookmark);
    QCOMPARE(Id->AsInteger(), 2);
  }

  void shouldLocateTheFirstRowWithAValue() {
    TField* Flag = nullptr;
    Query->Close();
    Flag = Query->AddField("Flag", TFieldType::ftBoolean);
    Query->Open();
    QVERIFY(Query->Locate("flag", true));
    QCOMPARE(Id->AsInteger(), 2);
    QVERIFY(Flag->AsBoolean());
    QVERIFY(Query->Locate("Flag", false));
    QCOMPARE(Id->AsInteger(), 1);
    QVERIFY(Query->Locate("Name", "two"));
    QVERIFY(!Query->Locate("Name", ""));
    QCOMPARE(Id->AsInteger(), 2);
    QVERIFY(Query->Locate("ID", 3));
    QVERIFY_THROWS_EXCEPTION(EDatabaseError, Query->Locate("Nothing", true));
  }

  void shouldReadAnotherRowInAScopeWithoutMoving() {
    Query->Open();
    int Moves = 0;
    connect(Query.get(), &ads::TDataSet::Scrolled, Query.get(), [&Moves] { ++Moves; });
    {
      const ads::TRowScope Scope(*Query, 1);
      QCOMPARE(Name->AsString(), std::string("two"));
      QCOMPARE(Query->RecNo(), 2);
    }
    QCOMPARE(Name->AsString(), std::string("one"));
    QCOMPARE(Moves, 0);
  }

  void shouldTellNothingWhileControlsAreDisabled() {
    Query->Open();
    int Moves = 0;
    connect(Query.get(), &ads::TDataSet::Scrolled, Query.get(), [&Moves] { ++Moves; });
    Query->DisableControls();
    Query->DisableControls();
    Query->Next();
    Query->EnableControls();
    Query->Next();
    QCOMPARE(Moves, 0);
    Query->EnableControls();
    QCOMPARE(Moves, 1);
  }

  void shouldCalculateOnceForEachRowThatIsRead() {
    TField* Double = Query->AddField("Double", TFieldType::ftInteger, 0, TFieldKind::fkCalculated);
    int Calls = 0;
    Query->OnCalcFields = [&](ads::TDataSet& Sender) {
      ++Calls;
      if (Sender.RecNo() != 2) Double->SetInteger(Id->AsInteger() * 2);
    };
    Query->Open();
    QCOMPARE(Double->AsInteger(), 2);
    QCOMPARE(Double->AsInteger(), 2);
    QCOMPARE(Calls, 1);
    Query->Next();
    QVERIFY(Double->IsNull());
    {
      const ads::TRowScope Scope(*Query, 2);
      QCOMPARE(Double->AsInteger(), 6);
    }
    QVERIFY(Double->IsNull());
    Calls = 0;
    Query->Refresh();
    QVERIFY(Double->IsNull());
    QCOMPARE(Calls, 1);
    QVERIFY_THROWS_EXCEPTION(EDatabaseError, Double->SetInteger(1));
    QVERIFY_THROWS_EXCEPTION(EDatabaseError, Name->SetString("x"));
  }

  void shouldKeepItsRowsAndPlaceWhenOpeningAnewFails() {
    Query->Open();
    Query->SetRecNo(2);
    int Closed = 0;
    Query->AfterClose = [&Closed](ads::TDataSet&) { ++Closed; };
    SetQuery("SELECT ID, Name FROM Missing");
    const std::string Message = MessageOf([this] { Query->Open(); });
    QVERIFY2(Message.find("Missing") != std::string::npos, Message.c_str());
    QVERIFY(Query->Active());
    QCOMPARE(Query->RecNo(), 2);
    QCOMPARE(Name->AsString(), std::string("two"));
    QCOMPARE(Closed, 0);
    SetQuery("SELECT ID, Name FROM T");
    Query->Open();
    QCOMPARE(Closed, 1);
    QCOMPARE(Query->RecNo(), 1);
  }

  void shouldFailForAFieldThatTheResultLacks() {
    SetQuery("SELECT ID FROM T");
    const std::string Message = MessageOf([this] { Query->Open(); });
    QVERIFY2(Message.find("'Name'") != std::string::npos, Message.c_str());
    QVERIFY(!Query->Active());
  }

  void shouldMatchFieldsToColumnsInAnyCase() {
    SetQuery("SELECT id, nAME FROM t");
    Query->Open();
    QCOMPARE(Name->AsString(), std::string("one"));
  }

  void shouldRefuseAFieldTwiceAndOneTooLate() {
    QVERIFY_THROWS_EXCEPTION(EDatabaseError, Query->AddField("name", TFieldType::ftString));
    Query->Open();
    QVERIFY_THROWS_EXCEPTION(EDatabaseError, Query->AddField("Cost", TFieldType::ftFloat));
  }

  void shouldNameItsFieldsAfterItself() { QCOMPARE(Name->objectName(), QString("qryName")); }

  void shouldBeASnapshotThatHoldsNothingOpen() {
    Query->Open();
    const QVariant Handle = Db->Database.driver()->handle();
    sqlite3* Sqlite = *static_cast<sqlite3* const*>(Handle.constData());
    QVERIFY(sqlite3_next_stmt(Sqlite, nullptr) == nullptr);
    QVERIFY(sqlite3_get_autocommit(Sqlite) != 0);
    QSqlDatabase Other = TTestDatabase::Open(Db->FileName);
    {
      QSqlQuery Write(Other);
      QVERIFY2(Write.exec("INSERT INTO T (ID, Name) VALUES (4, 'four')"), qPrintable(Write.lastError().text()));
    }
    TTestDatabase::Close(Other);
    QCOMPARE(Query->RecordCount(), 3);
    Query->Open();
    QCOMPARE(Query->RecordCount(), 4);
  }

  void shouldSeeTheHostsOpenTransactionAndLeaveItOpen() {
    QVERIFY(Db->Database.transaction());
    Db->Execute("INSERT INTO T (ID, Name) VALUES (9, 'mine')");
    Query->Open();
    QCOMPARE(Query->RecordCount(), 4);
    SetQuery("SELECT Nothing FROM T");
    QVERIFY_THROWS_EXCEPTION(EDatabaseError, Query->Open());
    QVERIFY(Db->Database.rollback());
    SetQuery("SELECT ID, Name FROM T");
    Query->Open();
    QCOMPARE(Query->RecordCount(), 3);
  }

  void shouldRefuseAnythingButOneReadingStatement_data() {
    QTest::addColumn<QString>("Sql");
    for (const char* Sql :
         {"DELETE FROM T", "SELECT ID, Name FROM T; DELETE FROM T", "SELECT ID, Name FROM T;", "FROM T", "",
          "WITH X AS (SELECT 1) SELECT ID, Name FROM T", "INSERT INTO T (ID) VALUES (7)", "PRAGMA user_version = 4",
          "DROP TABLE T", "ATTACH 'x' AS y"}) {
      QTest::newRow(Sql) << QString(Sql);
    }
  }
  void shouldRefuseAnythingButOneReadingStatement() {
    QFETCH(QString, Sql);
    SetQuery(Sql.toStdString());
    QVERIFY_THROWS_EXCEPTION(EDatabaseError, Query->Open());
    SetQuery("SELECT ID, Name FROM T");
    Query->Open();
    QCOMPARE(Query->RecordCount(), 3);
  }

  void shouldLeaveTheFileByteForByteTheSame() {
    Query->Open();
    QFile File(Db->FileName);
    QVERIFY(File.open(QIODevice::ReadOnly));
    const QByteArray Before = File.readAll();
    for (const char* Sql : {"SELECT ID, Name FROM T WHERE UPPER(Name) LIKE '%O%' ORDER BY ID", "SELECT x FROM T",
                            "SELECT ID, Name FROM T; DELETE FROM T"}) {
      SetQuery(Sql);
      try {
        Query->Open();
      } catch (const EDatabaseError&) {
      }
    }
    File.seek(0);
    QCOMPARE(File.readAll(), Before);
  }

  void shouldReadADatabaseThatIsOpenedReadOnly() {
    QSqlDatabase ReadOnly = TTestDatabase::Open(Db->FileName, "QSQLITE_OPEN_READONLY");
    {
      ads::TAdsConnection Connection(ReadOnly);
      TAdsQuery Reader(nullptr);
      Reader.SetConnection(&Connection);
      const TField* Upper = Reader.AddField("U", TFieldType::ftString, 10);
      Reader.SQL()->Add("SELECT UPPER(Name) U FROM T WHERE ID = 1");
      Reader.Open();
      QCOMPARE(Upper->AsString(), std::string("ONE"));
    }
    TTestDatabase::Close(ReadOnly);
  }

  void shouldSayThatAConnectionIsNotOpen() {
    QSqlDatabase Closed = QSqlDatabase::addDatabase("QSQLITE", "closed");
    {
      ads::TAdsConnection Connection(Closed);
      Query->SetConnection(&Connection);
      QCOMPARE(MessageOf([this] { Query->Open(); }), std::string("The database connection is not open."));
      Query->SetConnection(nullptr);
      QVERIFY_THROWS_EXCEPTION(EDatabaseError, Query->Open());
    }
    TTestDatabase::Close(Closed);
  }

  void shouldUpperCaseAndCompareAsTheDialogsDo() {
    Db->Execute("INSERT INTO T (ID, Name) VALUES (10, 'Škoda'), (11, 'straße'), (12, '50% off_a\\b'), (13, 'skoda')");
    const auto Found = [this](const std::string& Condition) {
      SetQuery("SELECT ID, Name FROM T WHERE " + Condition + " ORDER BY ID");
      Query->Open();
      return Texts(*Query, Id);
    };
    using TIds = std::vector<std::string>;
    QCOMPARE(Found("UPPER(Name) LIKE '%ŠKO%'"), TIds{"10"});
    QCOMPARE(Found("UPPER(Name) LIKE '%STRASSE%'"), TIds{"11"});
    QCOMPARE(Found("Name LIKE 'SKODA'"), TIds{});
    QCOMPARE(Found("Name LIKE 'skoda'"), TIds{"13"});
    QCOMPARE(Found("Name LIKE '%_koda'"), (TIds{"10", "13"}));
    QCOMPARE(Found("Name LIKE '_koda'"), (TIds{"10", "13"}));
    QCOMPARE(Found("Name LIKE '%a\\b'"), TIds{"12"});
    QCOMPARE(Found("Name LIKE '%f%o%'"), TIds{});
    QCOMPARE(Found("Name LIKE '5%f_a%b'"), TIds{"12"});
    QCOMPARE(Found("Name LIKE '%'").size(), std::size_t{6});
    QCOMPARE(Found("Name LIKE '%'"), Found("NOT Name IS NULL"));
    QCOMPARE(Found("Name NOT LIKE '%o%'"), (TIds{"11"}));
  }

  void shouldReadOneRowOfATableAndFindOthersByKey() {
    TAdsTable Table(nullptr);
    Table.SetConnection(Db->Connection.get());
    Table.SetTableName("T");
    const TField* Key = Table.AddField("ID", TFieldType::ftAutoInc);
    const TField* Text = Table.AddField("Name", TFieldType::ftString, 10);
    QVERIFY_THROWS_EXCEPTION(EDatabaseError, Table.FindKey(2));
    Table.Open();
    QCOMPARE(Table.RecordCount(), 1);
    QCOMPARE(Key->AsInteger(), 1);
    QVERIFY_THROWS_EXCEPTION(EDatabaseError, Table.FindKey(2));
    Table.SetIndex("PK_ID", "ID");
    QVERIFY(Table.FindKey(2));
    QCOMPARE(Text->AsString(), std::string("two"));
    QVERIFY(!Table.FindKey(77));
    QVERIFY(Table.IsEmpty());
    Table.SetIndex("PK_NAME", "Name");
    QVERIFY(Table.FindKey("one"));
    QCOMPARE(Key->AsInteger(), 1);
    QVERIFY(!Table.FindKey("o'ne; DELETE"));
  }

  void shouldLookUpAValueOnceAndRememberIt() {
    Db->Execute("CREATE TABLE B (Owner INTEGER, Amount DOUBLE)");
    Db->Execute("INSERT INTO B VALUES (1, 10.5)");
    TAdsTable Table(nullptr);
    Table.SetConnection(Db->Connection.get());
    Table.SetTableName("B");
    Table.SetIndex("FK_OWNER", "Owner");
    TField* Amount = Table.AddField("Amount", TFieldType::ftFloat);
    TField* Found = Query->AddField("Amount", TFieldType::ftFloat, 0, TFieldKind::fkLookup);
    Found->SetLookup(Id, &Table, Amount);
    Query->Open();
    QVERIFY(!Table.Active());
    QCOMPARE(Found->AsFloat(), 10.5);
    Db->Execute("UPDATE B SET Amount = 11");
    QCOMPARE(Found->AsFloat(), 10.5);
    Query->Next();
    QVERIFY(Found->IsNull());
    Query->Open();
    QCOMPARE(Found->AsFloat(), 11.0);
    Query.reset();
  }

  void shouldCallBackWhileItReadsManyRows() {
    Db->Execute(
        "WITH RECURSIVE N(I) AS (SELECT 100 UNION ALL SELECT I + 1 FROM N WHERE I < 60000) "
        "INSERT INTO T (ID, Name) SELECT I, 'row ' || I FROM N");
    SetQuery("SELECT A.ID, A.Name FROM T A, T B WHERE B.ID <= 12");
    int Calls = 0;
    Query->OnProgress = [&Calls] { ++Calls; };
    Query->Open();
    QVERIFY(Query->RecordCount() > 100000);
    QVERIFY2(Calls <= 2000, "it is called by the clock, not by the row");
    QCOMPARE(Query->RecordCount() % 3, 0);
  }

  void shouldTakeLittleMoreMemoryThanItsValues() {
    Db->Execute(
        "WITH RECURSIVE N(I) AS (SELECT 100 UNION ALL SELECT I + 1 FROM N WHERE I < 50000) "
        "INSERT INTO T (ID, Name) SELECT I, 'a text of twenty-four ch' FROM N");
    SetQuery("SELECT ID, Name FROM T WHERE ID >= 100");
    Query->Open();
    const std::size_t Values = static_cast<std::size_t>(Query->RecordCount()) * (4 + 24);
    QVERIFY(Query->SnapshotBytes() <= Values * 3 / 2 + static_cast<std::size_t>(Query->RecordCount()) * 16);
    Query->SetRecNo(40000);
    QCOMPARE(Id->AsInteger(), 40099);
  }

  void shouldKeepTextsThatAreLongEmptyOrNoText() {
    const QString Long(100000, QChar('x'));
    Db->Execute("INSERT INTO T (ID, Name) VALUES (20, '" + Long +
                "'), (21, ''), (22, CAST(x'41FF42' AS TEXT)), (23, 77)");
    SetQuery("SELECT ID, Name FROM T WHERE ID >= 20 ORDER BY ID");
    Query->Open();
    QCOMPARE(Texts(*Query, Name), (std::vector<std::string>{Long.toStdString(), "",
                                                            "A\xFF"
                                                            "B",
                                                            "77"}));
    Query->SetRecNo(2);
    QVERIFY(!Name->IsNull());
  }
};

QTEST_GUILESS_MAIN(tst_DataSet)
#include "tst_DataSet.moc"
