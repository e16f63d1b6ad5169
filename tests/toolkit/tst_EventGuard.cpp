#include <QTest>
#include <QtWidgets>
#include <stdexcept>

#include "toolkit/ErrorBoxAnswer.h"
#include "toolkit/EventGuard.h"

using toolkit::Guarded;
using toolkit::ShowError;

class tst_EventGuard : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldSayThatTheHandlerRanToItsEnd() {
    bool Ran = false;
    QVERIFY(Guarded(nullptr, [&Ran] { Ran = true; }));
    QVERIFY(Ran);
  }

  void shouldShowTheMessageOverTheWindow() {
    QWidget Window;
    QLineEdit Edit(&Window);
    Window.setWindowTitle(QStringLiteral("Select City"));
    Window.show();
    const TErrorBoxAnswer Answer;
    QVERIFY(!Guarded(&Edit, [] { throw std::runtime_error("Pas une date: é"); }));
    QCOMPARE(Answer.Texts(), QStringList(QStringLiteral("Pas une date: é")));
    QCOMPARE(Answer.Titles(), QStringList(QStringLiteral("Select City")));
  }

  void shouldBeModalToTheWindowThatItCovers() {
    QWidget Window;
    Window.show();
    QPointer<QWidget> Covered;
    Qt::WindowModality Modality = Qt::NonModal;
    QTimer::singleShot(0, this, [&] {
      QWidget* Box = QApplication::activeModalWidget();
      Covered = Box->parentWidget();
      Modality = Box->windowModality();
      Box->close();
    });
    ShowError(&Window, "x");
    QCOMPARE(Covered.data(), &Window);
    QCOMPARE(Modality, Qt::WindowModal);
  }

  void shouldTellWhatIsNoException() {
    const TErrorBoxAnswer Answer;
    QVERIFY(!Guarded(nullptr, [] { throw 5; }));
    QVERIFY(!Guarded(nullptr, [] { throw std::runtime_error(""); }));
    const QString Unknown = QStringLiteral("An unknown error has occurred.");
    QCOMPARE(Answer.Texts(), QStringList({Unknown, Unknown}));
  }

  void shouldShowMarkupAsItStands() {
    QString Text;
    Qt::TextFormat Format = Qt::AutoText;
    QTimer::singleShot(0, this, [&] {
      auto* Box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      Text = Box->text();
      Format = Box->textFormat();
      Box->close();
    });
    ShowError(nullptr, "<b>near</b> \"<i>\"");
    QCOMPARE(Text, QStringLiteral("<b>near</b> \"<i>\""));
    QCOMPARE(Format, Qt::PlainText);
  }

  void shouldStaySmallWhateverTheMessage_data() {
    QTest::addColumn<QString>("message");
    QTest::newRow("words") << QStringLiteral("SELECT ").repeated(15000);
    QTest::newRow("one word") << QString(100000, u'x');
    QTest::newRow("lines") << QStringLiteral("a\n").repeated(50000);
    QTest::newRow("pairs") << QStringLiteral("\U0001F600").repeated(50000);
  }

  void shouldStaySmallWhateverTheMessage() {
    QFETCH(QString, message);
    QSize Size;
    QString Text;
    QTimer::singleShot(100, this, [&] {
      auto* Box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      Size = Box->size();
      Text = Box->text();
      Box->close();
    });
    ShowError(nullptr, message.toStdString());
    QVERIFY2(Size.width() <= 700 && Size.height() <= 600,
             qPrintable(QStringLiteral("%1x%2").arg(Size.width()).arg(Size.height())));
    QVERIFY(Text.endsWith(QChar(0x2026)));
    QVERIFY(!Text.contains(QChar(QChar::ReplacementCharacter)));
    QVERIFY(Text.isValidUtf16());
  }

  void shouldOutliveTheWindow() {
    QPointer<QWidget> Window = new QWidget;
    Window->show();
    QTimer::singleShot(0, this, [Window] { delete Window; });
    QVERIFY(!Guarded(Window, [] { throw std::runtime_error("x"); }));
    QVERIFY(Window.isNull());
  }

  void shouldReportWhenTheHandlerDestroyedItsWindow() {
    const TErrorBoxAnswer Answer;
    QPointer<QWidget> Window = new QWidget;
    Guarded(Window, [Window] {
      delete Window;
      throw std::runtime_error("gone");
    });
    QCOMPARE(Answer.Texts(), QStringList(QStringLiteral("gone")));
  }

  void shouldReportWhileItsWindowIsNotShownYet() {
    QDialog Hidden;
    const TErrorBoxAnswer Answer;
    Guarded(&Hidden, [] { throw std::runtime_error("early"); });
    QCOMPARE(Answer.Texts(), QStringList(QStringLiteral("early")));
  }
};

QTEST_MAIN(tst_EventGuard)
#include "tst_EventGuard.moc"
