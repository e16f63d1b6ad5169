#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <memory>
#include <unordered_set>

#include "sample/SampleCompany.h"
#include "sample/store/Schema.h"
#include "sample/tables/Codes.h"
#include "sample/words/Places.h"
#include "sample/words/Text.h"
#include "tests/sample/Database.h"

using namespace sample;

class tst_SampleCompany : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase();
  void shouldFillEveryTable();
  void shouldBeOfTheStatedSize();
  void shouldGiveTheSameFileForTheSameOptions();
  void shouldGiveAnotherCompanyForAnotherSeed();
  void shouldGrowWithTheScale();
  void shouldNotDependOnTheCurrentDate();
  void shouldRefuseToOverwrite();
  void shouldOverwriteWhenAsked();
  void shouldRefuseAScaleOutOfRange();
  void shouldLeaveNothingBehindWhenItFails();
  void shouldCreateAnEmptySchema();
  void shouldHaveCodesForEveryCustomer();
  void shouldNameAllSuburbsDifferently();
  void shouldCutTextsAtCharacters();

 private:
  std::string File(const char* Name) const { return Dir_.filePath(Name).toStdString(); }
  QByteArray Bytes(const char* Name) const { return Contents(Dir_.filePath(Name)); }

  QTemporaryDir Dir_;
  TSchema Schema_;
  std::unique_ptr<TDatabase> Company_;
};

void tst_SampleCompany::initTestCase() {
  QVERIFY(Dir_.isValid());
  Schema_ = ReadSchema(SchemaSql());
  CreateCompany(File("company.db"));
  Company_ = std::make_unique<TDatabase>(File("company.db"));
}

void tst_SampleCompany::shouldFillEveryTable() {
  QCOMPARE(Company_->Text("PRAGMA integrity_check"), QByteArray("ok"));
  for (const TTable& Table : Schema_.Tables) {
    QVERIFY2(Company_->Number("SELECT COUNT(*) FROM \"" + Table.Name + "\"") > 0, Table.Name.c_str());
  }
}

void tst_SampleCompany::shouldBeOfTheStatedSize() {
  QCOMPARE(Company_->Number("SELECT COUNT(*) FROM Cust"), 1000);
  QCOMPARE(Company_->Number("SELECT COUNT(*) FROM OE"), 1000);
  QCOMPARE(Company_->Number("SELECT COUNT(*) FROM IP"), 600);
  QCOMPARE(Company_->Number("SELECT COUNT(*) FROM Item"), 500);
  QCOMPARE(Company_->Number("SELECT COUNT(*) FROM Jobs"), 300);
  QCOMPARE(Company_->Number("SELECT COUNT(*) FROM Vend"), 200);
  QCOMPARE(Company_->Number("SELECT COUNT(*) FROM ItemLocations"), 8);
  QCOMPARE(Company_->Number("SELECT COUNT(*) FROM Sys"), 1);
}

void tst_SampleCompany::shouldGiveTheSameFileForTheSameOptions() {
  CreateCompany(File("again.db"));
  QVERIFY(!Bytes("again.db").isEmpty());
  QVERIFY(Bytes("again.db") == Bytes("company.db"));
}

void tst_SampleCompany::shouldGiveAnotherCompanyForAnotherSeed() {
  CreateCompany(File("seed.db"), {.Seed = 55});
  QVERIFY(Bytes("seed.db") != Bytes("company.db"));
  const TDatabase Other(File("seed.db"));
  QCOMPARE(Other.Number("SELECT COUNT(*) FROM Cust"), 1000);
  const std::string Odd = "SELECT Company FROM Cust WHERE ID = 'C00001'";
  QCOMPARE(Other.Text(Odd), Company_->Text(Odd));
  const std::string Any = "SELECT group_concat(Company) FROM Cust";
  QVERIFY(Other.Text(Any) != Company_->Text(Any));
}

void tst_SampleCompany::shouldGrowWithTheScale() {
  CreateCompany(File("large.db"), {.Scale = 20});
  const TDatabase Large(File("large.db"));
  for (const char* const Table : {"Suburb", "Cust", "CustBal", "Contact", "Prospect", "Vend", "Jobs", "OE", "AR",
                                  "Booking", "IP", "Item", "ItemDet", "EFTDetails", "GL", "AP"}) {
    const std::string Count = std::string("SELECT COUNT(*) FROM ") + Table;
    const double Growth = static_cast<double>(Large.Number(Count)) / static_cast<double>(Company_->Number(Count));
    QVERIFY2(Growth > 18 && Growth < 22, Table);
  }
  for (const char* const Table : {"State", "Terms", "GSTRates", "Entity", "ItemCat", "Periods", "ItemLocations"}) {
    const std::string Count = std::string("SELECT COUNT(*) FROM ") + Table;
    QCOMPARE(Large.Number(Count), Company_->Number(Count));
  }
}

void tst_SampleCompany::shouldNotDependOnTheCurrentDate() {
  QCOMPARE(Company_->Text("SELECT MAX([Date]) FROM OE") <= QByteArray("2026-06-30"), true);
  QCOMPARE(Company_->Text("SELECT MAX(Closed) FROM Periods"), QByteArray("2026-04-18"));
}

void tst_SampleCompany::shouldRefuseToOverwrite() {
  const QByteArray Before = Bytes("company.db");
  QVERIFY_THROWS_EXCEPTION(std::runtime_error, CreateCompany(File("company.db")));
  QVERIFY_THROWS_EXCEPTION(std::runtime_error, CreateSchema(File("company.db")));
  QVERIFY(Bytes("company.db") == Before);
}

void tst_SampleCompany::shouldOverwriteWhenAsked() {
  for (const char* const Name : {"old.db", "old.db-wal", "old.db-journal", "old.db.part"}) {
    QFile Old(Dir_.filePath(Name));
    QVERIFY(Old.open(QIODevice::WriteOnly));
    Old.write("of another database");
  }
  CreateCompany(File("old.db"), {.Overwrite = true});
  QVERIFY(Bytes("old.db") == Bytes("company.db"));
  QCOMPARE(QDir(Dir_.path()).entryList({"old.db*"}), QStringList{"old.db"});
}

void tst_SampleCompany::shouldRefuseAScaleOutOfRange() {
  for (const std::int64_t Scale : {std::int64_t(-1), std::int64_t(0), MaxScale + 1}) {
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, CreateCompany(File("scale.db"), {.Scale = Scale}));
  }
  QVERIFY(QDir(Dir_.path()).entryList({"scale.db*"}).isEmpty());
}

void tst_SampleCompany::shouldLeaveNothingBehindWhenItFails() {
  QVERIFY_THROWS_EXCEPTION(std::runtime_error, CreateCompany(""));
  QVERIFY_THROWS_EXCEPTION(std::runtime_error, CreateCompany(File("nowhere/company.db")));
  // The unfinished file's place is taken by a folder with something in it.
  QVERIFY(QDir(Dir_.path()).mkpath("taken.db.part/inside"));
  QVERIFY_THROWS_EXCEPTION(std::runtime_error, CreateCompany(File("taken.db")));
  QVERIFY(!QFile::exists(Dir_.filePath("taken.db")));
  QVERIFY(QDir(Dir_.filePath("taken.db.part/inside")).exists());
}

void tst_SampleCompany::shouldCreateAnEmptySchema() {
  CreateSchema(File("empty – ä.db"));
  const TDatabase Empty(File("empty – ä.db"));
  for (const TTable& Table : Schema_.Tables) {
    QCOMPARE(Empty.Number("SELECT COUNT(*) FROM \"" + Table.Name + "\""), 0);
  }
  QVERIFY_THROWS_EXCEPTION(std::runtime_error, CreateSchema(File("empty – ä.db")));
  CreateSchema(File("empty – ä.db"), true);
}

void tst_SampleCompany::shouldHaveCodesForEveryCustomer() {
  QCOMPARE(LetterCode('C', 1), std::string("C00001"));
  QCOMPARE(LetterCode('C', 99'999), std::string("C99999"));
  QCOMPARE(LetterCode('C', 100'000), std::string("CA0000"));
  QCOMPARE(LetterCode('C', 359'999), std::string("CZ9999"));
  QCOMPARE(LetterCode('C', 360'000), std::string("CAA000"));
  std::unordered_set<std::string> Codes;
  const std::int64_t Count = 1000 * MaxScale;
  for (std::int64_t Number = 1; Number <= Count; ++Number) {
    Codes.insert(LetterCode('C', Number));
  }
  QCOMPARE(static_cast<std::int64_t>(Codes.size()), Count);
  QVERIFY(std::all_of(Codes.begin(), Codes.end(), [](const std::string& Code) { return Code.size() == 6; }));
  QVERIFY_THROWS_EXCEPTION(std::runtime_error, LetterCode('C', 50'000'000));
}

void tst_SampleCompany::shouldNameAllSuburbsDifferently() {
  std::unordered_set<std::string> Names;
  const std::int64_t Count = 150 * MaxScale;
  for (std::int64_t Number = 0; Number < Count; ++Number) {
    const std::string Name = SuburbName(Number);
    QVERIFY2(QString::fromStdString(Name).size() <= 30, Name.c_str());
    Names.insert(Name);
  }
  QCOMPARE(static_cast<std::int64_t>(Names.size()), Count);
}

void tst_SampleCompany::shouldCutTextsAtCharacters() {
  QCOMPARE(Fitted("Großmann", 4), std::string("Groß"));
  QCOMPARE(Fitted("Groß & Co", 5), std::string("Groß"));
  QCOMPARE(Fitted("12 High St ", 35), std::string("12 High St "));
  QCOMPARE(Fitted("", 3), std::string());
  QCOMPARE(AddressPart("D'Arcy & Söhne Café", 40), std::string("darcysoehnecafe"));
  QCOMPARE(AddressPart("Čapek", 40), std::string("apek"));
  QCOMPARE(AddressPart("Abcdef", 3), std::string("abc"));
}

QTEST_GUILESS_MAIN(tst_SampleCompany)
#include "tst_SampleCompany.moc"
