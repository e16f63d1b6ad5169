#include "apps/zulhost/ArgsPanel.h"
#include "apps/zulhost/HostWindow.h"
#include "apps/zulhost/PickTree.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>

#include "apps/zulhost/ArgsPanel.h"
#include "catalog/Shapes.h"
#include "picks/reference/uPickCity.h"
#include "support/PickDriver.h"
#include "support/TestCompany.h"

using catalog::TArgs;
using catalog::TCatalog;
using zulhost::THostWindow;

namespace {

catalog::TPick ThrowingPick() {
  return {"throwing",
          "uPickThrowing::CallPickThrowing",
          "Never anything",
          {catalog::TextArg("text", "A text"), catalog::BooleanArg("flag", "A switch", true),
           catalog::IntegerArg("number", "A number", 3),
           catalog::ChoiceArg("colour", "A colour", {"red", "green"}, "green"),
           catalog::ChoicesArg("colours", "Colours", {"red", "green", "blue"}, "blue")},
          [](ads::TAdsConnection*, const TArgs& Args) -> catalog::TResult {
            throw std::runtime_error("called with " + Args.Describe());
          }};
}

const TCatalog& Catalog() {
  static const TCatalog Result = [] {
    TCatalog Picks;
    Picks.StartGroup("Codes");
    Picks.Add(catalog::TextPick("city", "uPickCity::CallPickCity", "A postcode", uPickCity::CallPickCity));
    Picks.StartGroup("Others");
    Picks.Add(ThrowingPick());
    return Picks;
  }();
  return Result;
}

// The window with a company open and the keyboard.
struct TFixture {
  explicit TFixture(const std::string& Pick) {
    Window.OpenDatabase(Company.FileName());
    Window.Choose(*Catalog().Find(Pick), TArgs(Catalog().Find(Pick)->Args));
    Window.show();
    if (!QTest::qWaitForWindowActive(&Window)) qFatal("The window does not become active.");
  }

  template <typename TWidget>
  TWidget* Find(const char* Name) {
    auto* Widget = Window.findChild<TWidget*>(QLatin1String(Name));
    if (Widget == nullptr) qFatal("There is no %s.", Name);
    return Widget;
  }

  QStringList LogRow(int Row) {
    QStringList Texts;
    const auto* Log = Find<QTableWidget>("Log");
    for (int Column = 0; Column < Log->columnCount(); ++Column) Texts.append(Log->item(Row, Column)->text());
    return Texts;
  }

  support::TTestCompany Company;
  THostWindow Window{Catalog()};
};

}  // namespace

class tst_HostWindow : public QObject {
  Q_OBJECT
 private slots:
  void shouldCallThePickOnEnter();
  void shouldLogACancelledPick();
  void shouldLogAnException();
  void shouldLogABadArgumentWithoutCalling();
  void shouldPassWhatTheControlsHold();
  void shouldShowTheArgumentsThatAreGiven();
  void shouldNarrowThePicksByTheFilter();
  void shouldAskForArgumentsInWords();
  void shouldChooseWhatFitsBest_data();
  void shouldChooseWhatFitsBest();
  void shouldNotCallWithoutADatabase();
  void shouldKeepTheDatabaseWhenAnotherCannotBeOpened();
  void shouldReachEveryControlWithTheTabKey();
  void shouldNameEveryControl();
};

void tst_HostWindow::shouldCallThePickOnEnter() {
  TFixture Host("city");
  std::string First;
  QVERIFY(support::DrivePick(
      [&] {
        QTest::keyClick(&Host.Window, Qt::Key_Return);
        return Host.Find<QTableWidget>("Log")->rowCount() == 1;
      },
      [&](uDocPickBase::TDocPickBase& Dialog) {
        First = support::Column(Dialog, "Zip").front();
        // The window waits: no key of the user reaches it.
        QTest::keyClick(Host.Window.windowHandle(), Qt::Key_Return);
        QTest::keyClick(Host.Window.windowHandle(), Qt::Key_Q, Qt::ControlModifier);
        QVERIFY(Host.Window.isVisible());
        QCOMPARE(QApplication::activeModalWidget(), &Dialog);
        support::ClickOK(Dialog);
      }));
  const QStringList Row = Host.LogRow(0);
  QCOMPARE(Row.mid(0, 4),
           (QStringList{"uPickCity::CallPickCity", "", "true", QString::fromStdString('"' + First + '"')}));
  QVERIFY(Row[4].toInt() >= 0);
  QCOMPARE(Row[5], QString());
}

void tst_HostWindow::shouldLogACancelledPick() {
  TFixture Host("city");
  support::DrivePick(
      [&] {
        QTest::mouseClick(Host.Find<QPushButton>("Call"), Qt::LeftButton);
        return true;
      },
      support::ClickCancel);
  QCOMPARE(Host.LogRow(0).mid(2, 2), (QStringList{"false", "\"\""}));
}

void tst_HostWindow::shouldLogAnException() {
  TFixture Host("throwing");
  Host.Window.Call();
  QCOMPARE(Host.LogRow(0)[2], QStringLiteral("exception"));
  QCOMPARE(Host.LogRow(0)[5], QStringLiteral("called with "));
  Host.Company.Execute(QStringLiteral("DROP TABLE Area"));
  Host.Window.Choose(*Catalog().Find("city"), TArgs(Catalog().Find("city")->Args));
  Host.Window.Call();
  QCOMPARE(Host.LogRow(1)[2], QStringLiteral("exception"));
  QVERIFY2(Host.LogRow(1)[5].contains("Area"), qPrintable(Host.LogRow(1)[5]));
}

void tst_HostWindow::shouldLogABadArgumentWithoutCalling() {
  TFixture Host("throwing");
  Host.Find<QLineEdit>("number")->setText(QStringLiteral("many"));
  Host.Window.Call();
  QCOMPARE(Host.LogRow(0)[5], QStringLiteral("\"many\" is no value for number: it is a whole number of 32 bits."));
}

void tst_HostWindow::shouldPassWhatTheControlsHold() {
  TFixture Host("throwing");
  Host.Find<QLineEdit>("text")->setText(QStringLiteral("Zoë"));
  Host.Find<QCheckBox>("flag")->setChecked(false);
  Host.Find<QLineEdit>("number")->setText(QStringLiteral("-4"));
  Host.Find<QComboBox>("colour")->setCurrentIndex(0);
  Host.Find<QCheckBox>("green")->setChecked(true);
  Host.Window.Call();
  const QString Args = QStringLiteral("--text=\"Zoë\" --flag=no --number=-4 --colour=red --colours=green,blue");
  QCOMPARE(Host.LogRow(0)[1], Args);
  QCOMPARE(Host.LogRow(0)[5], "called with " + Args);
}

void tst_HostWindow::shouldShowTheArgumentsThatAreGiven() {
  TFixture Host("city");
  TArgs Args(Catalog().Find("throwing")->Args);
  Args.Set("text", "given");
  Args.Set("colours", "red");
  Host.Window.Choose(*Catalog().Find("throwing"), Args);
  QCOMPARE(Host.Find<QLineEdit>("text")->text(), QStringLiteral("given"));
  QVERIFY(Host.Find<QCheckBox>("red")->isChecked());
  QVERIFY(!Host.Find<QCheckBox>("blue")->isChecked());
  QCOMPARE(Host.Find<QComboBox>("colour")->currentText(), QStringLiteral("green"));
}

void tst_HostWindow::shouldAskForArgumentsInWords() {
  const zulhost::TArgsPanel Panel(*catalog::FullCatalog().Find("customer"));
  QStringList Labels;
  for (const QLabel* Label : Panel.findChildren<QLabel*>()) {
    QVERIFY(Label->isEnabled());
    Labels.append(Label->text());
  }
  QVERIFY(Labels.contains("Filter by entity:"));
  QVERIFY(Panel.findChild<QCheckBox*>("filter-by-entity") != nullptr);
}

void tst_HostWindow::shouldChooseWhatFitsBest_data() {
  QTest::addColumn<QString>("Typed");
  QTest::addColumn<QString>("Name");
  for (const char* Name : {"po", "city", "customer", "vendor", "user", "job", "state"}) {
    QTest::newRow(Name) << QString(Name) << QString(Name);
  }
  QTest::newRow("PO") << "PO"
                      << "po";
  QTest::newRow("kit") << "kit"
                       << "kit-option";
  QTest::newRow("two words") << "email vendor"
                             << "vendor-email";
  QTest::newRow("the function") << "CallPickCity"
                                << "city";
  QTest::newRow("what it picks") << "postcode"
                                 << "city";
}

void tst_HostWindow::shouldChooseWhatFitsBest() {
  QFETCH(QString, Typed);
  QFETCH(QString, Name);
  zulhost::TPickTree Tree(catalog::FullCatalog());
  Tree.findChild<QLineEdit*>("Filter")->setText(Typed);
  QVERIFY(Tree.Pick() != nullptr);
  QCOMPARE(QString::fromStdString(Tree.Pick()->Name), Name);
}

void tst_HostWindow::shouldNarrowThePicksByTheFilter() {
  TFixture Host("city");
  auto* Filter = Host.Find<QLineEdit>("Filter");
  const auto* Tree = Host.Find<QTreeWidget>("Picks");
  QTest::keyClicks(Filter, "THROW");
  QVERIFY(Tree->topLevelItem(0)->isHidden());
  QVERIFY(!Tree->topLevelItem(1)->isHidden());
  QCOMPARE(Tree->currentItem()->text(0), QStringLiteral("throwing"));
  QVERIFY(Host.Window.findChild<QLineEdit*>("number") != nullptr);
  Filter->setText(QStringLiteral("nothing like it"));
  QVERIFY(!Host.Find<QPushButton>("Call")->isEnabled());
  Filter->clear();
  QVERIFY(Host.Find<QPushButton>("Call")->isEnabled());
  QVERIFY(!Tree->topLevelItem(0)->isHidden());
}

void tst_HostWindow::shouldNotCallWithoutADatabase() {
  TFixture Host("throwing");
  Host.Window.ShowNoDatabase("gone");
  QVERIFY(!Host.Find<QPushButton>("Call")->isEnabled());
  QCOMPARE(Host.Find<QLabel>("Address")->text(), QStringLiteral("gone"));
  Host.Window.Call();
  QCOMPARE(Host.Find<QTableWidget>("Log")->rowCount(), 0);
}

void tst_HostWindow::shouldKeepTheDatabaseWhenAnotherCannotBeOpened() {
  TFixture Host("throwing");
  QVERIFY_THROWS_EXCEPTION(command::EOpenError, Host.Window.OpenDatabase("/nowhere/at/all.db"));
  QCOMPARE(Host.Find<QLabel>("Address")->text(), QString::fromStdString(Host.Company.FileName()));
  QVERIFY(Host.Find<QPushButton>("Call")->isEnabled());
}

void tst_HostWindow::shouldReachEveryControlWithTheTabKey() {
  TFixture Host("throwing");
  Host.Find<QLineEdit>("Filter")->setFocus();
  QStringList Names;
  for (int Step = 0; Step < 11; ++Step) {
    Names.append(Host.Window.focusWidget()->objectName());
    QTest::keyClick(Host.Window.focusWidget(), Qt::Key_Tab);
  }
  QCOMPARE(Names,
           (QStringList{"Filter", "Picks", "text", "flag", "number", "colour", "red", "green", "blue", "Call", "Log"}));
  QCOMPARE(Host.Window.focusWidget()->objectName(), QStringLiteral("Filter"));
}

void tst_HostWindow::shouldNameEveryControl() {
  TFixture Host("throwing");
  for (const char* Name :
       {"Filter", "Picks", "text", "flag", "number", "colour", "red", "green", "blue", "Call", "Log"}) {
    QVERIFY2(!Host.Find<QWidget>(Name)->accessibleName().isEmpty(), Name);
  }
}

QTEST_MAIN(tst_HostWindow)
#include "tst_HostWindow.moc"
