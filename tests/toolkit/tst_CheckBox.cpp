#include <QTest>
#include <QtWidgets>

#include "toolkit/CheckBox.h"
#include "toolkit/Form.h"

using toolkit::TCheckBox;
using toolkit::TForm;

namespace {

// A style that makes its indicators as large as screens of three times the density ask for.
class TLargeStyle : public QProxyStyle {
 public:
  TLargeStyle() : QProxyStyle(QStringLiteral("Fusion")) {}
  int pixelMetric(PixelMetric Metric, const QStyleOption* Option, const QWidget* Widget) const override {
    const bool IsIndicator = Metric == PM_IndicatorWidth || Metric == PM_IndicatorHeight;
    return IsIndicator ? 42 : QProxyStyle::pixelMetric(Metric, Option, Widget);
  }
};

struct TSample : TForm {
  TCheckBox* Box = new TCheckBox(QStringLiteral("Descending"), this);

  TSample() {
    Box->setGeometry(10, 10, 83, 14);
    SetClientSize(103, 34);
  }

  // The columns of the box that hold something dark, as a picture of its own.
  QPair<int, int> Dark() const {
    const QImage Image = Box->grab().toImage();
    QPair<int, int> Result(-1, -1);
    for (int X = 0; X < Image.width(); ++X) {
      for (int Y = 0; Y < Image.height(); ++Y) {
        if (qGray(Image.pixel(X, Y)) > 190) continue;
        if (Result.first < 0) Result.first = X;
        Result.second = X;
      }
    }
    return Result;
  }
};

}  // namespace

class tst_CheckBox : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void init() { QApplication::setStyle(QStringLiteral("Fusion")); }

  void shouldHaveAWholeIndicatorWhateverTheStyleThinksOfIt() {
    TSample Form;
    Form.show();
    const QImage Small = Form.Box->grab().toImage();
    QApplication::setStyle(new TLargeStyle);
    Form.Box->ensurePolished();
    QCOMPARE(Form.Box->grab().toImage(), Small);
    const auto [First, Last] = Form.Dark();
    QVERIFY(First <= 1 && Last > 60 && Last < 82);
  }

  void shouldStandOnTheRightForThoseWhoReadFromThere() {
    TSample Form;
    Form.setLayoutDirection(Qt::RightToLeft);
    Form.show();
    const auto [First, Last] = Form.Dark();
    QVERIFY(First > 5);
    QVERIFY(Last >= 81);
  }

  void shouldBeClickedOverItsWholeWidth() {
    TSample Form;
    Form.show();
    QTest::mouseClick(Form.Box, Qt::LeftButton, {}, QPoint(81, 12));
    QVERIFY(Form.Box->isChecked());
    QTest::mouseClick(Form.Box, Qt::LeftButton, {}, QPoint(1, 1));
    QVERIFY(!Form.Box->isChecked());
  }

  void shouldShowThatItIsChecked() {
    TSample Form;
    Form.show();
    const QImage Off = Form.Box->grab().toImage();
    Form.Box->setChecked(true);
    const QImage On = Form.Box->grab().toImage();
    QVERIFY(On.copy(0, 0, 14, 14) != Off.copy(0, 0, 14, 14));
    QCOMPARE(On.copy(14, 0, 69, 14), Off.copy(14, 0, 69, 14));
  }

  void shouldShowItsFocus() {
    TSample Form;
    auto* Edit = new QLineEdit(&Form);
    Form.show();
    QVERIFY(QTest::qWaitForWindowActive(&Form));
    Edit->setFocus();
    const QImage Without = Form.Box->grab().toImage();
    QTest::keyClick(Edit, Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(Form.Box->hasFocus());
    QVERIFY(Form.Box->grab().toImage() != Without);
  }

  void shouldExplainACaptionThatDoesNotFit() {
    TSample Form;
    Form.Box->setText(QStringLiteral("Descending & all the rest"));
    Form.show();
    QHelpEvent Event(QEvent::ToolTip, QPoint(20, 5), Form.Box->mapToGlobal(QPoint(20, 5)));
    QApplication::sendEvent(Form.Box, &Event);
    QTRY_VERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), QStringLiteral("Descending  all the rest"));
    QToolTip::hideText();
  }

  void shouldUnderlineItsMnemonic() {
    TSample Form;
    Form.Box->setText(QStringLiteral("De&scending"));
    Form.show();
    QVERIFY(QTest::qWaitForWindowActive(&Form));
    QCOMPARE(Form.Box->shortcut(), QKeySequence(QStringLiteral("Alt+S")));
    QTest::keyClick(&Form, Qt::Key_S, Qt::AltModifier);
    QTRY_VERIFY(Form.Box->isChecked());
  }
};

QTEST_MAIN(tst_CheckBox)
#include "tst_CheckBox.moc"
