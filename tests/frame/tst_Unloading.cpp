// A host that is linked with Qt but with none of our libraries: it loads the module, picks, and unloads it.
#include <dlfcn.h>

#include <QtSql>
#include <QtTest>
#include <QtWidgets>
#include <memory>
#include <string>

// What a host knows of the class that it only holds a pointer to.
namespace ads {
class TAdsConnection;
}

namespace {

template <typename TFunction>
TFunction* Symbol(void* Module, const char* Name) {
  void* Address = dlsym(Module, Name);
  if (Address == nullptr) qFatal("%s", dlerror());
  return reinterpret_cast<TFunction*>(Address);
}

/// The module, loaded and initialized; finalized and unloaded in the end.
class TModule {
 public:
  TModule() : Handle_(dlopen(ZUL_MODULE, RTLD_NOW | RTLD_LOCAL)) {
    if (Handle_ == nullptr) qFatal("%s", dlerror());
    Symbol<void()>(Handle_, "Initialize")();
    if (Symbol<const void*()>(Handle_, "GetPackageInfoTable")() == nullptr) qFatal("The module has no table.");
  }
  ~TModule() {
    Symbol<void()>(Handle_, "Finalize")();
    dlclose(Handle_);
  }
  TModule(const TModule&) = delete;
  TModule& operator=(const TModule&) = delete;

  /// Calls CallPickCity over the database; the key, or what was thrown.
  std::string PickCity(const QSqlDatabase& Database) const {
    // The connection's constructor and destructor, on memory that is large enough for one.
    auto* Construct = Symbol<void(void*, QSqlDatabase)>(Handle_, "_ZN3ads14TAdsConnectionC1E12QSqlDatabase");
    auto* Destroy = Symbol<void(void*)>(Handle_, "_ZN3ads14TAdsConnectionD1Ev");
    auto* Pick = Symbol<bool(void*, std::string&)>(
        Handle_,
        "_ZN9uPickCity12CallPickCityEPN3ads14TAdsConnectionERNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE");
    const auto Connection = std::make_unique<std::max_align_t[]>(16);
    Construct(Connection.get(), Database);
    std::string Zip;
    try {
      if (!Pick(Connection.get(), Zip)) Zip = "nothing was chosen";
    } catch (const std::exception& Error) {
      Zip = Error.what();
    }
    Destroy(Connection.get());
    return Zip;
  }

 private:
  void* Handle_;
};

QStringList Mapped() {
  QFile Maps("/proc/self/maps");
  if (!Maps.open(QIODevice::ReadOnly)) qFatal("What is mapped cannot be read.");
  QStringList Result;
  for (const QByteArray& Line : Maps.readAll().split('\n')) {
    const QString Name = QString::fromUtf8(Line).section('/', -1).section('.', 0, 0);
    if (Name.startsWith("libZUL") && !Result.contains(Name)) Result += Name;
  }
  Result.sort();
  return Result;
}

void Execute(const QSqlDatabase& Database, const QString& Sql) {
  QSqlQuery Query(Database);
  if (!Query.exec(Sql)) qFatal("%s", qPrintable(Query.lastError().text()));
}

// What a user does in the dialog, once it is there: sorts the other way, searches, takes the row that is found.
void DriveDialog() {
  QWidget* Dialog = QApplication::activeModalWidget();
  auto* Find = Dialog != nullptr ? Dialog->findChild<QLineEdit*>("edFind") : nullptr;
  if (Find == nullptr || !Find->isVisible()) return;
  Dialog->findChild<QCheckBox*>("ckbDesc")->click();
  QTest::keyClicks(Find, "10");
  QTest::keyClick(Find, Qt::Key_Return);
  Dialog->grab();
  Dialog->findChild<QPushButton*>("bbnOK")->click();
}

}  // namespace

class tst_Unloading : public QObject {
  Q_OBJECT

  QSqlDatabase Database_;

 private slots:
  void initTestCase() {
    Database_ = QSqlDatabase::addDatabase("QSQLITE", "host");
    Database_.setDatabaseName(":memory:");
    QVERIFY(Database_.open());
    Execute(Database_, "CREATE TABLE Sys (QtyDec SMALLINT, PrcDec SMALLINT, MultiAcct BOOLEAN, MultiLoc BOOLEAN)");
    Execute(Database_, "INSERT INTO Sys VALUES (2, 2, 0, 0)");
    Execute(Database_, "CREATE TABLE Area (Zip VARCHAR(10))");
    Execute(Database_, "INSERT INTO Area VALUES ('1000'), ('2000')");
    QCOMPARE(Mapped(), QStringList());
  }
  void cleanupTestCase() {
    Database_ = {};
    QSqlDatabase::removeDatabase("host");
  }

  // ZULAds stays, with ZULCommon, which it needs: SQLite connections go on calling its functions.
  void shouldLeaveNothingMappedButTheDatabaseSide() {
    for (int Round = 0; Round < 3; ++Round) {
      {
        const TModule Module;
        QCOMPARE(Mapped(), QStringList({"libZULAds", "libZULCommon", "libZULPickLists", "libZULToolkit"}));
        QTimer User;
        connect(&User, &QTimer::timeout, DriveDialog);
        User.start(10);
        QCOMPARE(Module.PickCity(Database_), std::string("1000"));
      }
      QCOMPARE(Mapped(), QStringList({"libZULAds", "libZULCommon"}));
      QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      QTest::qWait(50);
      QCOMPARE(Mapped(), QStringList({"libZULAds", "libZULCommon"}));
      Execute(Database_, "SELECT zul_upper('é'), zul_like(Zip, '1%') FROM Area");
    }
  }

  // Qt knows logging categories by their addresses, and visits each when the rules change.
  void shouldLeaveNoLoggingCategoryBehind() {
    static int Told = 0;
    const auto Count = [](QtMsgType, const QMessageLogContext& Context, const QString&) {
      if (QByteArray(Context.category).startsWith("zul.pick")) ++Told;
    };
    const QtMessageHandler Before = qInstallMessageHandler(Count);
    for (int Round = 0; Round < 3; ++Round) {
      Told = 0;
      QLoggingCategory::setFilterRules("zul.*=true");
      {
        const TModule Module;
        QTimer User;
        connect(&User, &QTimer::timeout, DriveDialog);
        User.start(10);
        Module.PickCity(Database_);
      }
      QLoggingCategory::setFilterRules("");
      QVERIFY(Told > 0);
      QCOMPARE(Mapped(), QStringList({"libZULAds", "libZULCommon"}));
    }
    qInstallMessageHandler(Before);
  }
};

QTEST_MAIN(tst_Unloading)
#include "tst_Unloading.moc"
