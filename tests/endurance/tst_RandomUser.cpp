#include <QCheckBox>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>
#include <random>

#include "catalog/Catalog.h"
#include "support/PickDriver.h"
#include "support/TestCompany.h"

using uDocPickBase::TDocPickBase;

namespace {

// Milliseconds of rough treatment for each pick; ZUL_RANDOM_USER_MS asks for more.
int TimeForEach() {
  bool Set = false;
  const int Asked = qEnvironmentVariableIntValue("ZUL_RANDOM_USER_MS", &Set);
  return Set ? Asked : 150;
}

// A user who does anything anywhere, the same every time for the same seed.
class TRandomUser {
 public:
  explicit TRandomUser(unsigned Seed) : Random_(Seed) {}

  void Use(TDocPickBase& Dialog, int Milliseconds) {
    QElapsedTimer Used;
    Used.start();
    while (Used.elapsed() < Milliseconds && Dialog.isVisible()) {
      DoSomething(Dialog);
      if (QWidget* Popup = QApplication::activePopupWidget()) QTest::keyClick(Popup, Qt::Key_Escape);
      QCoreApplication::processEvents();
    }
  }

 private:
  int Below(int Bound) { return static_cast<int>(Random_() % static_cast<unsigned>(Bound)); }

  void DoSomething(TDocPickBase& Dialog) {
    switch (Below(10)) {
      case 0:
      case 1:
        support::TypeFind(Dialog, Text());
        break;
      case 2:
        ClickAny(Dialog.findChildren<QRadioButton*>());
        break;
      case 3:
        ClickAny(Dialog.findChildren<QCheckBox*>());
        break;
      case 4:
        QTest::keyClick(Dialog.dbgAvail, Key());
        break;
      case 5:
        QTest::mouseClick(Dialog.dbgAvail->viewport(), Qt::LeftButton, {}, Place(*Dialog.dbgAvail->viewport()));
        break;
      case 6:
        QTest::mouseClick(Dialog.dbgAvail->viewport(), Qt::RightButton, {}, Place(*Dialog.dbgAvail->viewport()));
        break;
      case 7:
        support::TypeFind(Dialog, QString());
        break;
      case 8:
        if (QWidget* Focus = Dialog.focusWidget()) QTest::keyClick(Focus, Below(2) == 0 ? Qt::Key_Tab : Qt::Key_Space);
        break;
      default:
        // Now and then something that closes the dialog.
        if (Below(20) == 0) support::DoubleClickRow(Dialog, 0);
        break;
    }
  }

  QString Text() {
    static const QStringList Texts{"a",
                                   "'",
                                   "%",
                                   "_",
                                   "\\",
                                   "O'N",
                                   "31/12/2025",
                                   "2025-12-31",
                                   "7",
                                   "7; DELETE FROM Cust",
                                   "1e3",
                                   "') OR ('1'='1",
                                   "--",
                                   "/*",
                                   "é ß",
                                   "$$",
                                   "\x01",
                                   "0x10",
                                   "[Desc]",
                                   "\"x\"",
                                   "1 UNION SELECT 1",
                                   "-5",
                                   " ",
                                   "A very long text that nothing has at all"};
    return Texts[Below(static_cast<int>(Texts.size()))];
  }

  Qt::Key Key() {
    static constexpr Qt::Key Keys[] = {Qt::Key_Up,   Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home,
                                       Qt::Key_End,  Qt::Key_Left, Qt::Key_Right,  Qt::Key_Space,    Qt::Key_A,
                                       Qt::Key_Menu, Qt::Key_Tab,  Qt::Key_F2,     Qt::Key_Delete};
    return Keys[Below(static_cast<int>(std::size(Keys)))];
  }

  QPoint Place(const QWidget& Widget) { return {Below(Widget.width()), Below(Widget.height())}; }

  template <typename TButton>
  void ClickAny(const QList<TButton*>& Buttons) {
    if (Buttons.isEmpty()) return;
    TButton* Button = Buttons[Below(static_cast<int>(Buttons.size()))];
    if (Button->isVisible() && Button->isEnabled()) {
      QTest::mouseClick(Button, Qt::LeftButton, {}, QPoint(6, Button->height() / 2));
    }
  }

  std::mt19937 Random_;
};

QByteArray Contents(const std::string& FileName) {
  QFile File(QString::fromStdString(FileName));
  return File.open(QIODevice::ReadOnly) ? File.readAll() : QByteArray();
}

}  // namespace

class tst_RandomUser : public QObject {
  Q_OBJECT

  support::TTestCompany Company;

 private Q_SLOTS:
  void shouldSurviveEveryPickAndLeaveTheDatabaseAsItWas_data() {
    QTest::addColumn<QString>("Name");
    for (const catalog::TPick& Pick : catalog::FullCatalog().All()) {
      QTest::newRow(Pick.Name.c_str()) << QString::fromStdString(Pick.Name);
    }
  }
  void shouldSurviveEveryPickAndLeaveTheDatabaseAsItWas() {
    QFETCH(QString, Name);
    const catalog::TPick* Pick = catalog::FullCatalog().Find(Name.toStdString());
    const QByteArray Before = Contents(Company.FileName());
    QVERIFY(!Before.isEmpty());
    const support::TErrorBoxes Boxes;
    const catalog::TArgs Args(Pick->Args);
    TRandomUser User(54);
    try {
      support::DrivePick([&] { return Pick->Call(Company.Connection(), Args).Chosen; },
                         [&](TDocPickBase& Dialog) { User.Use(Dialog, TimeForEach()); });
    } catch (const std::exception& Error) {
      // Some picks cannot open with every argument empty; they say so to the host.
      qInfo("%s", Error.what());
    }
    QVERIFY(Contents(Company.FileName()) == Before);
  }
};

QTEST_MAIN(tst_RandomUser)
#include "tst_RandomUser.moc"
