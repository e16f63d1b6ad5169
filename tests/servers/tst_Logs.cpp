#include <QLoggingCategory>
#include <QRegularExpression>
#include <QTest>

#include "ads/Ads.h"
#include "ads/Cursor.h"
#include "picks/reference/uPickCity.h"
#include "servers/Backends.h"
#include "servers/ListDialog.h"
#include "servers/OpenOrSkip.h"
#include "servers/SentStatements.h"
#include "support/PickDriver.h"

using support::DrivePick;
using support::TBackend;
using support::TBackendKind;
using support::TListDialog;
using support::TListSource;
using uDocPickBase::TDocPickBase;

namespace {

constexpr int Nowhere = 1;  // the choice of TListDialog that no server can search by

QStringList Told;  // "category: message"

void Keep(QtMsgType, const QMessageLogContext& Context, const QString& Message) {
  const QString Category = QLatin1String(Context.category);
  if (Category.startsWith(QLatin1String("zul."))) Told << Category + ": " + Message;
}

/// Keeps what is logged while it lives.
class TListening {
 public:
  explicit TListening(const QString& Rules) : Before_(qInstallMessageHandler(Keep)) {
    Told.clear();
    QLoggingCategory::setFilterRules(Rules);
  }
  ~TListening() {
    QLoggingCategory::setFilterRules({});
    qInstallMessageHandler(Before_);
  }
  TListening(const TListening&) = delete;
  TListening& operator=(const TListening&) = delete;

 private:
  QtMessageHandler Before_;
};

// Without what differs each time.
QStringList Messages(const char* Category) {
  static const QRegularExpression Times(QStringLiteral("[0-9]+\\.[0-9] ms"));
  QStringList Result;
  for (QString Message : std::as_const(Told)) {
    if (Message.startsWith(QLatin1String(Category))) Result << Message.replace(Times, QStringLiteral("# ms"));
  }
  return Result;
}

QStringList Statements() {
  static const QRegularExpression Statement(
      QStringLiteral("^zul\\.sql: \\[[a-z0-9]+\\] ((?:SELECT|PRAGMA|BEGIN|SAVEPOINT|ROLLBACK|RELEASE).*)"));
  QStringList Result;
  for (const QString& Message : std::as_const(Told)) {
    if (const auto Match = Statement.match(Message); Match.hasMatch()) Result << Match.captured(1);
  }
  return Result;
}

// How the statements ended.
QStringList Ends() {
  static const QRegularExpression End(
      QStringLiteral("^zul\\.sql: \\[[0-9]+\\] ((?:done|left|stopped|made way|failed|ended).*)"));
  QStringList Result;
  for (const QString& Message : Messages("zul.sql")) {
    if (const auto Match = End.match(Message); Match.hasMatch()) Result << Match.captured(1);
  }
  return Result;
}

bool Has(const QStringList& Messages, const char* Text) {
  return std::any_of(Messages.begin(), Messages.end(), [Text](const QString& Each) { return Each.contains(Text); });
}

}  // namespace

/// What is logged when the host asks for it, and that nothing is when it does not.
class tst_Logs : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;
  std::unique_ptr<TBackend> Host_;

  void AddBackends() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : support::EveryBackend) QTest::newRow(support::NameOf(Kind)) << Kind;
  }
  bool Open() {
    QFETCH(const TBackendKind, Kind);
    Host_ = support::OpenOrSkip(*Backends_, Kind);
    return Host_ != nullptr;
  }
  // A search that is done, one that cannot be, and a choice.
  void PickWhole() {
    const auto Dialog = TListDialog::Create(Host_->Connection(), TListSource());
    QVERIFY(DrivePick([&] { return Dialog->ShowPick(); },
                      [&](TDocPickBase& Shown) {
                        support::TypeFind(Shown, "C001");
                        support::ChooseFindBy(Shown, Nowhere);
                        support::TypeFind(Shown, "typedtext");
                        support::ClickOK(Shown);
                      }));
  }

 private slots:
  void initTestCase() {
    Backends_ = std::make_unique<support::TBackends>();
    support::RecordStatements(*Backends_);
  }
  void cleanup() { Host_.reset(); }

  void shouldSayNothingUnlessItIsAskedFor_data() { AddBackends(); }
  void shouldSayNothingUnlessItIsAskedFor() {
    if (!Open()) return;
    const TListening Listening({});
    PickWhole();
    QCOMPARE(Told, QStringList());
  }

  // What the server itself has seen is the witness.
  void shouldTellEveryStatementAsItIsSent_data() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : {TBackendKind::SQLite, TBackendKind::PostgreSQL}) {
      QTest::newRow(support::NameOf(Kind)) << Kind;
    }
  }
  void shouldTellEveryStatementAsItIsSent() {
    if (!Open()) return;
    support::TSentStatements Sent(*Host_, *Backends_);
    {
      const TListening Listening(QStringLiteral("zul.sql=true"));
      const auto Dialog = TListDialog::Create(Host_->Connection(), TListSource());
      DrivePick([&] { return Dialog->ShowPick(); }, [&](TDocPickBase& Shown) { support::TypeFind(Shown, "C001"); });
    }
    QStringList Expected = Sent.Take();
    for (QString& Statement : Expected) Statement.replace(u'\n', u' ');
    QVERIFY(Expected.size() > 2);
    QCOMPARE(Statements(), Expected);
    QVERIFY(Messages("zul.pick").isEmpty());
  }

  // One that gives values of a type that is read as text is asked twice.
  void shouldTellAStatementThatIsAskedAgain() {
    Host_ = support::OpenOrSkip(*Backends_, TBackendKind::PostgreSQL);
    if (Host_ == nullptr) return;
    Host_->ExecuteBeside("CREATE TABLE place AS SELECT CAST('10.0.0.1' AS inet) address");
    support::TSentStatements Sent(*Host_, *Backends_);
    const TListening Listening(QStringLiteral("zul.sql=true"));
    const auto Cursor = Host_->Connection()->OpenCursor("SELECT Address FROM Place");
    while (Cursor->Next()) continue;
    const QStringList Texts = Sent.Take().filter(QStringLiteral("place"), Qt::CaseInsensitive);
    QCOMPARE(Texts.size(), 2);
    QCOMPARE(Statements().filter(QStringLiteral("place"), Qt::CaseInsensitive), Texts);
  }

  void shouldTellHowManyRowsCame_data() { AddBackends(); }
  void shouldTellHowManyRowsCame() {
    if (!Open()) return;
    const TListening Listening(QStringLiteral("zul.*=true"));
    ads::TAdsQuery Query(nullptr);
    Query.SetConnection(Host_->Connection());
    Query.AddField("ID", ads::TFieldType::ftString, 6);
    Query.SQL()->Add("SELECT ID FROM Cust ORDER BY ID");
    Query.Open();
    const QString Rows = QString::number(Query.RecordCount());
    QCOMPARE(Ends(), QStringList("done after # ms, " + Rows + " rows, the first after # ms"));
  }

  void shouldTellHowAStatementEnded_data() { AddBackends(); }
  void shouldTellHowAStatementEnded() {
    if (!Open()) return;
    const TListening Listening(QStringLiteral("zul.*=true"));
    const auto Begin = [&] { return Host_->Connection()->OpenCursor("SELECT ID FROM Cust"); };
    Begin()->Next();
    Begin();
    try {
      Host_->Connection()->OpenCursor("SELECT NoSuchColumn FROM Cust")->Next();
      QFAIL("nothing was thrown");
    } catch (const ads::EDatabaseError&) {
    }
    const auto Cursor = Begin();
    Cursor->Next();
    Host_->Database().close();
    const QStringList Known = Ends();
    QCOMPARE(Known.size(), 3);
    QCOMPARE(Known[0], QStringLiteral("left, as no more rows are wanted after # ms, 1 rows, the first after # ms"));
    QCOMPARE(Known[1], QStringLiteral("stopped after # ms, 0 rows"));
    QVERIFY2(Known[2].startsWith(QLatin1String("failed after # ms, 0 rows: ")), qPrintable(Known[2]));
    QVERIFY2(Known[2].contains(QLatin1String("nosuchcolumn"), Qt::CaseInsensitive), qPrintable(Known[2]));
  }

  void shouldTellThatTheConnectionWasClosed() {
    Host_ = Backends_->Open(TBackendKind::SQLite);
    const TListening Listening(QStringLiteral("zul.*=true"));
    {
      const auto Cursor = Host_->Connection()->OpenCursor("SELECT ID FROM Cust");
      Cursor->Next();
      Host_->Database().close();
    }
    QCOMPARE(Ends(), QStringList("ended with its connection after # ms, 1 rows, the first after # ms"));
  }

  void shouldTellThatAListMadeWay() {
    Host_ = support::OpenOrSkip(*Backends_, TBackendKind::PostgreSQL);
    if (Host_ == nullptr) return;
    const TListening Listening(QStringLiteral("zul.*=true"));
    ads::TAdsQuery List(nullptr);
    List.SetConnection(Host_->Connection());
    List.SetFirstRowsFirst(true);
    List.OnProgress = [] {};
    List.AddField("ID", ads::TFieldType::ftString, 6);
    List.SQL()->Add("SELECT A.ID FROM Cust A, Cust B");
    List.Open();
    Host_->Connection()->OpenCursor("SELECT 1 X")->Next();
    QVERIFY2(Has(Ends(), "made way for another after # ms"), qPrintable(Ends().join(u'\n')));
  }

  void shouldTellWhatBecameOfAPick_data() { AddBackends(); }
  void shouldTellWhatBecameOfAPick() {
    if (!Open()) return;
    const TListening Listening(QStringLiteral("zul.pick=true"));
    PickWhole();
    QVERIFY(Messages("zul.sql").isEmpty());
    const QStringList Picks = Messages("zul.pick");
    const QString First =
        QStringLiteral("zul.pick: DocPickBase: opens over %1 (%2)")
            .arg(QLatin1String(Host_->Connection()->Dialect().Name()), Host_->Database().driverName());
    QCOMPARE(Picks.front(), First);
    QCOMPARE(Picks.back(), QStringLiteral("zul.pick: DocPickBase: chosen"));
    const QString Count = Host_->ValueBeside("SELECT COUNT(*) FROM cust").toString();
    QVERIFY2(Picks.contains("zul.pick: DocPickBase: all " + Count + " rows after # ms"), qPrintable(Picks.join(u'\n')));
    const auto Failed = Picks.filter(QStringLiteral("the search could not be done, the whole list is shown: "));
    QCOMPARE(Failed.size(), 1);
    QVERIFY2(Failed.front().contains(QLatin1String("nosuchcolumn"), Qt::CaseInsensitive), qPrintable(Failed.front()));
  }

  void shouldNameTheDialog() {
    Host_ = Backends_->Open(TBackendKind::SQLite);
    const TListening Listening(QStringLiteral("zul.pick=true"));
    std::string Zip;
    DrivePick([&] { return uPickCity::CallPickCity(Host_->Connection(), Zip); }, [](TDocPickBase&) {});
    const QString Rows = Host_->ValueBeside("SELECT COUNT(*) FROM Area").toString();
    QCOMPARE(Messages("zul.pick"), QStringList({"zul.pick: frmPickCity: opens over SQLite (QSQLITE)",
                                                "zul.pick: frmPickCity: all " + Rows + " rows after # ms",
                                                "zul.pick: frmPickCity: cancelled"}));
  }

  void shouldTellThatTheUserStopped() {
    Host_ = Backends_->Open(TBackendKind::SQLite);
    const TListening Listening(QStringLiteral("zul.*=true"));
    const auto Dialog = TListDialog::Create(Host_->Connection(), TListSource());
    DrivePick([&] { return Dialog->ShowPick(); },
              [&](TDocPickBase& Shown) {
                support::After(&Shown, 100, [&] { Shown.reject(); });
                Dialog->Source.From = "Cust A, Cust B, Cust C WHERE UPPER(A.ID + '' + B.ID + C.ID) = 'none'";
                Shown.CallSetSQL();
              });
    QVERIFY(Has(Messages("zul.pick"), "DocPickBase: stopped by the user"));
    QVERIFY(Has(Ends(), "stopped after # ms, 0 rows"));
  }

  void shouldTellNothingOfWhatIsListedOrChosen_data() { AddBackends(); }
  void shouldTellNothingOfWhatIsListedOrChosen() {
    if (!Open()) return;
    Host_->ExecuteBeside(support::IsOnMariaDB(Host_->Kind()) ? "UPDATE area SET zip = concat('key', zip)"
                                                             : "UPDATE area SET zip = 'key' || zip");
    const TListening Listening(QStringLiteral("zul.*=true"));
    std::string Zip;
    QVERIFY(DrivePick([&] { return uPickCity::CallPickCity(Host_->Connection(), Zip); },
                      [&](TDocPickBase& Shown) {
                        support::TypeFind(Shown, "1");
                        support::ClickOK(Shown);
                      }));
    QVERIFY(Zip.starts_with("key"));
    QVERIFY(!Told.isEmpty());
    for (const QString& Message : std::as_const(Told)) {
      QVERIFY2(!Message.contains(QLatin1String("key")) && !Message.contains(QString::fromStdString(Zip)),
               qPrintable(Message));
    }
    // What was typed stands in statements alone.
    const QStringList Typed = Told.filter(QRegularExpression(QStringLiteral("'%?1%?'")));
    QVERIFY(!Typed.isEmpty());
    for (const QString& Message : Typed) {
      QVERIFY2(Message.contains(QLatin1String("SELECT")), qPrintable(Message));
    }
  }

  // Nothing in a text can pass for a message of its own.
  void shouldTellAStatementInOneLine() {
    Host_ = Backends_->Open(TBackendKind::SQLite);
    const TListening Listening(QStringLiteral("zul.sql=true"));
    Host_->Connection()->OpenCursor("SELECT 'a\nzul.sql: \x1b[2Jb\u2028\u202e''\tc' X,\r\n\tZip\nFROM Area");
    QCOMPARE(Statements().back(),
             QString::fromUtf8("SELECT 'a\\u{a}zul.sql: \\u{1b}[2Jb\\u{2028}\\u{202e}''\\u{9}c' X,   Zip FROM Area"));
  }
};

QTEST_MAIN(tst_Logs)
#include "tst_Logs.moc"
