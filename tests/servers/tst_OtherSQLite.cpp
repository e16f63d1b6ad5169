#include <dlfcn.h>
#include <sqlite3.h>

#include <QLineEdit>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QSqlResult>
#include <QTest>

#include "ads/Ads.h"
#include "ads/Cursor.h"
#include "servers/Backends.h"
#include "support/EveryDialog.h"
#include "support/PickDriver.h"
#include "support/TestCompany.h"

Q_DECLARE_OPAQUE_POINTER(sqlite3*)

namespace {

/// A second copy of the SQLite library in this process, which shares nothing with the first: the same build, so that
/// only its addresses tell the two apart.
class TCopy {
 public:
  TCopy() : Library_(dlmopen(LM_ID_NEWLM, "libsqlite3.so.0", RTLD_NOW | RTLD_LOCAL)) {
    if (Library_ == nullptr) qFatal("%s", dlerror());
  }

  template <typename TFunction>
  TFunction* Find(TFunction&, const char* Name) const {
    void* Address = dlsym(Library_, Name);
    if (Address == nullptr) qFatal("%s", dlerror());
    return reinterpret_cast<TFunction*>(Address);
  }

 private:
  void* Library_;
};

const TCopy& Copy() {
  static const TCopy Instance;
  return Instance;
}

#define CALL_COPY(Function)                                      \
  [] {                                                           \
    static auto* const Found = Copy().Find(Function, #Function); \
    return Found;                                                \
  }()

/// What a driver needs to read texts and numbers through the copy.
class TCopyResult : public QSqlResult {
 public:
  TCopyResult(const QSqlDriver* Driver, sqlite3* Handle) : QSqlResult(Driver), Handle_(Handle) {}
  ~TCopyResult() override { CALL_COPY(sqlite3_finalize)(Statement_); }

 protected:
  bool reset(const QString& Sql) override {
    CALL_COPY(sqlite3_finalize)(std::exchange(Statement_, nullptr));
    if (CALL_COPY(sqlite3_prepare_v2)(Handle_, Sql.toUtf8().constData(), -1, &Statement_, nullptr) != SQLITE_OK) {
      setLastError(QSqlError({}, CALL_COPY(sqlite3_errmsg)(Handle_), QSqlError::StatementError, "1"));
      return false;
    }
    setAt(QSql::BeforeFirstRow);
    setActive(true);
    setSelect(true);
    return true;
  }
  QVariant data(int Column) override {
    switch (CALL_COPY(sqlite3_column_type)(Statement_, Column)) {
      case SQLITE_NULL:
        return {};
      case SQLITE_INTEGER:
        return static_cast<qlonglong>(CALL_COPY(sqlite3_column_int64)(Statement_, Column));
      case SQLITE_FLOAT:
        return CALL_COPY(sqlite3_column_double)(Statement_, Column);
      default:
        return QString::fromUtf8(reinterpret_cast<const char*>(CALL_COPY(sqlite3_column_text)(Statement_, Column)));
    }
  }
  bool isNull(int Column) override { return !data(Column).isValid(); }
  bool fetch(int) override { return false; }
  bool fetchFirst() override { return fetchNext(); }
  bool fetchLast() override { return false; }
  bool fetchNext() override {
    if (CALL_COPY(sqlite3_step)(Statement_) != SQLITE_ROW) return false;
    setAt(at() == QSql::BeforeFirstRow ? 0 : at() + 1);
    return true;
  }
  int size() override { return -1; }
  int numRowsAffected() override { return 0; }
  QSqlRecord record() const override {
    QSqlRecord Result;
    for (int Column = 0; Column < CALL_COPY(sqlite3_column_count)(Statement_); ++Column) {
      Result.append(QSqlField(CALL_COPY(sqlite3_column_name)(Statement_, Column)));
    }
    return Result;
  }

 private:
  sqlite3* Handle_;
  sqlite3_stmt* Statement_ = nullptr;
};

/// A driver that brings a SQLite library of its own, and shows its handle as Qt's does.
class TCopyDriver : public QSqlDriver {
 public:
  ~TCopyDriver() override { TCopyDriver::close(); }
  bool hasFeature(DriverFeature) const override { return false; }
  bool open(const QString& File, const QString&, const QString&, const QString&, int, const QString&) override {
    if (CALL_COPY(sqlite3_open)(File.toUtf8().constData(), &Handle_) != SQLITE_OK) return false;
    setOpen(true);
    return true;
  }
  bool beginTransaction() override { return false; }
  void close() override {
    CALL_COPY(sqlite3_close)(std::exchange(Handle_, nullptr));
    setOpen(false);
  }
  QSqlResult* createResult() const override { return new TCopyResult(this, Handle_); }
  QVariant handle() const override { return QVariant::fromValue(Handle_); }

 private:
  sqlite3* Handle_ = nullptr;
};

constexpr const char* Values[] = {"NULL",
                                  "''",
                                  "'text'",
                                  "'é'",
                                  "0",
                                  "1",
                                  "-5",
                                  "2147483648",
                                  "9223372036854775807",
                                  "1.0",
                                  "0.1",
                                  "1e20",
                                  "1e-7",
                                  "123456.789",
                                  "1234567890123456.7",
                                  "9e999",
                                  "-9e999",
                                  "x'414243'",
                                  "x''",
                                  "'2024-02-29'",
                                  "'2024-02-30'",
                                  "'true'",
                                  "' 7 '",
                                  "1e15"};

constexpr ads::TFieldType Types[] = {ads::TFieldType::ftString, ads::TFieldType::ftFloat, ads::TFieldType::ftBoolean,
                                     ads::TFieldType::ftInteger, ads::TFieldType::ftDate};

// Each value as a field of each type gives it.
QStringList Read(ads::TAdsConnection& Connection) {
  QStringList Result;
  for (const ads::TFieldType Type : Types) {
    ads::TAdsQuery Query(nullptr);
    Query.SetConnection(&Connection);
    const ads::TField* Value = Query.AddField("V", Type, 40);
    Query.SQL()->Add("SELECT N, V FROM Odd ORDER BY N");
    Query.Open();
    for (int Row = 0; Row < Query.RecordCount(); ++Row) {
      const ads::TRowScope Scope(Query, Row);
      Result << QStringLiteral("%1 as %2: %3")
                    .arg(QLatin1String(Values[Row]))
                    .arg(static_cast<int>(Type))
                    .arg(Value->IsNull() ? QStringLiteral("null")
                                         : "'" + QString::fromStdString(Value->AsString()) + "'");
      if (Type == ads::TFieldType::ftFloat) Result.back() += QString::number(Value->AsFloat(), 'g', 17);
    }
  }
  return Result;
}

// What every dialog lists, whole and searched.
QStringList Lists(ads::TAdsConnection* Connection, const QString& Find) {
  QStringList Result;
  for (const support::TSampleDialog& Sample : support::EveryDialog()) {
    const auto Dialog = Sample.Create(Connection);
    if (!Find.isEmpty()) {
      const QSignalBlocker Quiet(Dialog->edFind);
      Dialog->edFind->setText(Find);
      try {
        Dialog->CallSetSQL();
      } catch (const std::exception& Error) {
        Result << Error.what();  // such as of a text that is no date
      }
    }
    Result << QString::fromStdString(Sample.Name);
    for (const ads::TField* Field : Dialog->qryList_->Fields()) {
      if (Field->Kind() != ads::TFieldKind::fkData) continue;
      for (const std::string& Text : support::Column(*Dialog, Field->FieldName())) Result << Text.c_str();
    }
  }
  return Result;
}

constexpr char OwnName[] = "SQLite";
constexpr char OtherName[] = "SQLite without functions";

}  // namespace

/// A driver of Qt's may have another SQLite library than this program: its connections are read too, and nothing of
/// theirs reaches the functions of ours. What every connection must do is tried with it where that stands.
class tst_OtherSQLite : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;

 private slots:
  void initTestCase() { Backends_ = std::make_unique<support::TBackends>(); }

  void shouldKnowItsOwnLibrary() {
    const auto Own = Backends_->Open(support::TBackendKind::SQLite);
    QCOMPARE(Own->Connection()->Dialect().Name(), OwnName);
    Own->Execute("SELECT 1");
    for (const QString& File : {QStringLiteral(":memory:"), QString()}) {
      QSqlDatabase Database = QSqlDatabase::addDatabase("QSQLITE", "own");
      Database.setDatabaseName(File);
      QVERIFY(Database.open());
      QCOMPARE(ads::TAdsConnection(Database).Dialect().Name(), OwnName);
      Database = {};
      QSqlDatabase::removeDatabase("own");
    }
  }

  void shouldKnowAnotherBuild() {
    const auto Other = Backends_->Open(support::TBackendKind::OtherSQLite);
    QCOMPARE(Other->Connection()->Dialect().Name(), OtherName);
  }

  // Also when they were built alike, and then the rows come through that other copy.
  void shouldPickByAnotherCopy() {
    support::TTestCompany Company;
    {
      QSqlDatabase Database = QSqlDatabase::addDatabase(new TCopyDriver, "copy");
      Database.setDatabaseName(QString::fromStdString(Company.FileName()));
      QVERIFY(Database.open());
      ads::TAdsConnection Connection(Database);
      QCOMPARE(Connection.Dialect().Name(), OtherName);
      for (const QString& Find : {QString(), QStringLiteral("an"), QStringLiteral("É")}) {
        const QStringList Expected = Lists(Company.Connection(), Find);
        QVERIFY(Expected.size() > 100);
        QCOMPARE(Lists(&Connection, Find), Expected);
      }
    }
    QSqlDatabase::removeDatabase("copy");
  }

  void shouldReadEveryValueAsItsOwnLibraryDoes() {
    for (const auto Policy : {QSql::LowPrecisionDouble, QSql::LowPrecisionInt32, QSql::HighPrecision}) {
      const auto Other = Backends_->Open(support::TBackendKind::OtherSQLite);
      Other->Execute("CREATE TABLE Odd (N INTEGER, V)");
      for (std::size_t Number = 0; Number < std::size(Values); ++Number) {
        Other->Execute(QStringLiteral("INSERT INTO Odd VALUES (%1, %2)").arg(Number).arg(QString(Values[Number])));
      }
      ads::TAdsConnection Own(Other->Beside());
      QCOMPARE(Own.Dialect().Name(), OwnName);
      Other->Database().setNumericalPrecisionPolicy(Policy);
      QCOMPARE(Read(*Other->Connection()), Read(Own));
    }
  }

  void shouldPassOnTheServersMessage() {
    const auto Other = Backends_->Open(support::TBackendKind::OtherSQLite);
    try {
      Other->Connection()->OpenCursor("SELECT Nowhere FROM Area")->Next();
      QFAIL("nothing was thrown");
    } catch (const ads::EConnectionLost&) {
      QFAIL("the connection is not lost");
    } catch (const ads::EDatabaseError& Error) {
      QCOMPARE(QString(Error.what()), QStringLiteral("no such column: Nowhere"));
    }
  }

  void shouldSayThatTheHostOpenedAnew() {
    const auto Other = Backends_->Open(support::TBackendKind::OtherSQLite);
    const auto Cursor = Other->Connection()->OpenCursor("SELECT A.ID FROM Cust A, Cust B");
    QVERIFY(Cursor->Next());
    QSqlDatabase Database = Other->Database();
    Database.close();
    QVERIFY(Database.open());
    if (!Cursor->IsConnected()) return;  // the handle lies elsewhere
    QVERIFY_EXCEPTION_THROWN(Cursor->Next(), ads::EConnectionLost);
  }

  void shouldSayThatSomebodyElseEndedTheQuery() {
    const auto Other = Backends_->Open(support::TBackendKind::OtherSQLite);
    sqlite3* Handle = support::SQLiteOf(*Other);
    sqlite3_progress_handler(
        Handle, 1000, [](void*) { return 1; }, nullptr);
    const auto Cursor = Other->Connection()->OpenCursor("SELECT COUNT(*) X FROM Cust A, Cust B");
    QVERIFY_EXCEPTION_THROWN(Cursor->Next(), ads::EQueryEnded);
    sqlite3_progress_handler(Handle, 0, nullptr, nullptr);
  }

  void shouldChangeNoSettingOfTheConnection() {
    const auto Other = Backends_->Open(support::TBackendKind::OtherSQLite);
    Lists(Other->Connection(), "an");
    QCOMPARE(ValueOf(*Other, "PRAGMA query_only").toInt(), 0);
    QCOMPARE(ValueOf(*Other, "SELECT COUNT(*) FROM pragma_function_list WHERE name LIKE 'zul%'").toInt(), 0);
  }

 private:
  static QVariant ValueOf(const support::TBackend& Backend, const char* Sql) {
    return support::TBackend::Value(Backend.Database(), QString(Sql));
  }
};

QTEST_MAIN(tst_OtherSQLite)
#include "tst_OtherSQLite.moc"
