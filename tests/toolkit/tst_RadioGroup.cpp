#include <QTest>
#include <QtWidgets>

#include "toolkit/ErrorBoxAnswer.h"
#include "toolkit/Form.h"
#include "toolkit/RadioGroup.h"

using toolkit::EListError;
using toolkit::TForm;
using toolkit::TRadioGroup;

namespace {

// A form with a group of three between two edits, as the dialogs have it.
struct TSample : TForm {
  QLineEdit* Before = new QLineEdit(this);
  TRadioGroup* Group = new TRadioGroup(this);
  QLineEdit* After = new QLineEdit(this);
  int Clicks = 0;

  TSample() {
    Group->setObjectName(QStringLiteral("rgFindBy"));
    Group->setTitle(QStringLiteral("Find By"));
    for (const char* Caption : {"Number", "Date", "Vendor"}) Group->Items().Add(Caption);
    Group->setGeometry(4, 30, 83, 62);
    Group->OnClick = [this] { ++Clicks; };
    SetClientSize(100, 120);
    After->move(0, 95);
  }

  bool Show() {
    show();
    return QTest::qWaitForWindowActive(this);
  }
};

std::vector<std::string> CaptionsOf(const TRadioGroup& Group) {
  return {Group.Items().begin(), Group.Items().end()};
}

QStringList ButtonTexts(const TRadioGroup& Group) {
  QStringList Result;
  for (const QRadioButton* Button : Group.findChildren<QRadioButton*>()) Result << Button->text();
  return Result;
}

void AddStyles() {
  QTest::addColumn<QString>("style");
  for (const char* Style : {"Fusion", "Windows"}) QTest::newRow(Style) << QString::fromLatin1(Style);
}

}  // namespace

class tst_RadioGroup : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldHaveAButtonForEachItem() {
    const TSample Form;
    QCOMPARE(Form.Group->Items().Count(), 3);
    QCOMPARE(ButtonTexts(*Form.Group), QStringList({"Number", "Date", "Vendor"}));
    QCOMPARE(Form.Group->Button(2)->objectName(), QStringLiteral("rgFindBy2"));
    QCOMPARE(Form.Group->Items().IndexOf("Date"), 1);
    QCOMPARE(Form.Group->Items().IndexOf("date"), -1);
  }

  void shouldNameTheButtonsAfterALateName() {
    TRadioGroup Group;
    Group.Items().Add("a");
    Group.setObjectName(QStringLiteral("rgOrderBy"));
    QCOMPARE(Group.Button(0)->objectName(), QStringLiteral("rgOrderBy0"));
  }

  void shouldPlaceTheButtonsFourteenPixelsApart() {
    TSample Form;
    QVERIFY(Form.Show());
    const QRect First = Form.Group->Button(0)->geometry();
    for (int Index = 1; Index < 3; ++Index) {
      QCOMPARE(Form.Group->Button(Index)->geometry(), First.translated(0, 14 * Index));
    }
    QVERIFY(Form.Group->Button(2)->geometry().bottom() < Form.Group->height() - 2);
    QVERIFY(First.right() < Form.Group->width() - 1);
    QVERIFY(Form.Group->Button(1)->isVisible());
  }

  void shouldBeginWithNothingChosen() {
    const TSample Form;
    QCOMPARE(Form.Group->ItemIndex(), -1);
    for (int Index = 0; Index < 3; ++Index) QVERIFY(!Form.Group->Button(Index)->isChecked());
  }

  void shouldCallOnClickForAChangeOnly() {
    TSample Form;
    Form.Group->SetItemIndex(1);
    QCOMPARE(Form.Clicks, 1);
    QVERIFY(Form.Group->Button(1)->isChecked());
    Form.Group->SetItemIndex(1);
    QCOMPARE(Form.Clicks, 1);
    Form.Group->SetItemIndex(-1);
    QCOMPARE(Form.Clicks, 2);
    QVERIFY(!Form.Group->Button(1)->isChecked());
    Form.Group->SetItemIndex(0);
    QCOMPARE(Form.Clicks, 3);
  }

  void shouldTakeTheNearestIndex() {
    TSample Form;
    Form.Group->SetItemIndex(7);
    QCOMPARE(Form.Group->ItemIndex(), 2);
    Form.Group->SetItemIndex(-5);
    QCOMPARE(Form.Group->ItemIndex(), -1);
    TRadioGroup Empty;
    Empty.SetItemIndex(0);
    QCOMPARE(Empty.ItemIndex(), -1);
  }

  void shouldHaveTheNewIndexInOnClick() {
    TSample Form;
    int Seen = -2;
    Form.Group->OnClick = [&] { Seen = Form.Group->ItemIndex(); };
    Form.Group->SetItemIndex(2);
    QCOMPARE(Seen, 2);
    QVERIFY(Form.Show());
    QTest::mouseClick(Form.Group->Button(0), Qt::LeftButton);
    QCOMPARE(Seen, 0);
  }

  void shouldChooseByMouseOverTheWholeWidth() {
    TSample Form;
    QVERIFY(Form.Show());
    QRadioButton* Button = Form.Group->Button(1);
    QTest::mouseClick(Button, Qt::LeftButton, {}, QPoint(Button->width() - 2, 7));
    QCOMPARE(Form.Group->ItemIndex(), 1);
    QCOMPARE(Form.Clicks, 1);
    QTest::mouseClick(Button, Qt::LeftButton);
    QCOMPARE(Form.Clicks, 1);
  }

  void shouldChooseByArrowKeys() {
    TSample Form;
    Form.Group->SetItemIndex(0);
    QVERIFY(Form.Show());
    Form.Group->Button(0)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QCOMPARE(Form.Group->ItemIndex(), 1);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QCOMPARE(Form.Group->ItemIndex(), 2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    QCOMPARE(Form.Group->ItemIndex(), 1);
    QCOMPARE(Form.Clicks, 4);
  }

  void shouldBeOneTabStop_data() {
    QTest::addColumn<int>("index");
    for (const int Index : {-1, 0, 2}) QTest::addRow("%d", Index) << Index;
  }

  void shouldBeOneTabStop() {
    QFETCH(int, index);
    TSample Form;
    Form.Group->SetItemIndex(index);
    QVERIFY(Form.Show());
    Form.Before->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), Form.Group->Button(std::max(index, 0)));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), Form.After);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(QApplication::focusWidget(), Form.Group->Button(std::max(index, 0)));
    QCOMPARE(Form.Group->ItemIndex(), index);
  }

  void shouldTakeItsPlaceInTheTabOrderWithLaterItems() {
    TSample Form;
    QWidget::setTabOrder(Form.After, Form.Group);
    QWidget::setTabOrder(Form.Group, Form.Before);
    Form.Group->SetItemIndex(1);
    for (const char* Caption : {"Job", "Customer"}) Form.Group->Items().Add(Caption);
    Form.Group->SetItemIndex(4);
    TRadioGroup Other(&Form);
    QWidget::setTabOrder(Form.Group, &Other);
    Other.Items().Add("Only");
    Other.setGeometry(0, 0, 50, 40);
    QVERIFY(Form.Show());
    Form.After->setFocus();
    QTest::keyClick(Form.After, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), Form.Group->Button(4));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), Other.Button(0));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), Form.Before);
    Form.Group->setFocus();
    QCOMPARE(QApplication::focusWidget(), Form.Group->Button(4));
  }

  void shouldBeNoTabStopWithoutItems() {
    TSample Form;
    Form.Group->Items().Clear();
    QVERIFY(Form.Show());
    Form.Before->setFocus();
    QTest::keyClick(Form.Before, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), Form.After);
  }

  void shouldChooseWithSpaceWhenNothingIsChosen() {
    TSample Form;
    QVERIFY(Form.Show());
    Form.Group->Button(0)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QCOMPARE(Form.Group->ItemIndex(), 0);
    QCOMPARE(Form.Clicks, 1);
  }

  void shouldKeepTheChoiceWhenItemsChange() {
    TSample Form;
    Form.Group->SetItemIndex(2);
    Form.Group->Items().Put(2, "Job");
    Form.Group->Items().Add("Customer");
    QCOMPARE(Form.Group->ItemIndex(), 2);
    QVERIFY(Form.Group->Button(2)->isChecked());
    QCOMPARE(ButtonTexts(*Form.Group), QStringList({"Number", "Date", "Job", "Customer"}));
    TRadioGroup Other;
    Other.Items().Add("Only");
    Form.Group->Items().Assign(Other.Items());
    QCOMPARE(Form.Group->ItemIndex(), 0);
    QCOMPARE(CaptionsOf(*Form.Group), std::vector<std::string>{"Only"});
    Form.Group->Items().Clear();
    QCOMPARE(Form.Group->ItemIndex(), -1);
    QVERIFY(ButtonTexts(*Form.Group).isEmpty());
    QCOMPARE(Form.Clicks, 1);
  }

  void shouldSurviveLosingTheClickedButton() {
    TSample Form;
    QVERIFY(Form.Show());
    Form.Group->OnClick = [&Form] { Form.Group->Items().Clear(); };
    QTest::mouseClick(Form.Group->Button(1), Qt::LeftButton);
    QCOMPARE(Form.Group->ItemIndex(), -1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  void shouldShowAnAmpersandAsItIs() {
    TSample Form;
    Form.Group->Items().Put(0, "R&D");
    QVERIFY(Form.Show());
    QCOMPARE(Form.Group->Items()[0], std::string("R&D"));
    QVERIFY(Form.Group->Button(0)->shortcut().isEmpty());
    QCOMPARE(QAccessible::queryAccessibleInterface(Form.Group->Button(0))->text(QAccessible::Name),
             QStringLiteral("R&D"));
  }

  void shouldExplainACaptionThatDoesNotFit() {
    TSample Form;
    Form.Group->Items().Put(0, "A caption far too long <for> this");
    QVERIFY(Form.Show());
    QCOMPARE(Form.Group->Button(0)->toolTip(), QStringLiteral("A caption far too long &lt;for&gt; this"));
    QVERIFY(Form.Group->Button(1)->toolTip().isEmpty());
    Form.Group->resize(300, 62);
    QVERIFY(Form.Group->Button(0)->toolTip().isEmpty());
  }

  void shouldHaveRoomForTheLongestCaption_data() { AddStyles(); }

  void shouldHaveRoomForTheLongestCaption() {
    QFETCH(QString, style);
    QApplication::setStyle(style);
    TSample Form;
    const QFontMetrics Metrics(TForm::FormFont());
    QString Caption;
    while (Metrics.horizontalAdvance(Caption) < 58) Caption += u'i';
    Form.Group->Items().Put(0, Caption.toStdString());
    QVERIFY(Form.Show());
    QVERIFY(Form.Group->Button(0)->toolTip().isEmpty());
  }

  void shouldHaveItsFrameAroundTheButtons_data() { AddStyles(); }

  void shouldHaveItsFrameAroundTheButtons() {
    QFETCH(QString, style);
    QApplication::setStyle(style);
    TSample Form;
    Form.Group->Items().Put(0, "i");
    QVERIFY(Form.Show());
    const QImage Image = Form.Group->grab().toImage();
    const int Beside = Image.width() - 8;  // right of the title and of the short captions
    for (int Y = 0; Y < Image.height(); ++Y) {
      const bool IsLine = Image.pixel(Beside, Y) != Image.pixel(Beside, 20);
      const bool MayBeLine = (Y > 2 && Y < 12) || Y == Image.height() - 1;
      QVERIFY2(!IsLine || MayBeLine, std::to_string(Y).c_str());
    }
    QVERIFY(Image.pixel(Beside, Image.height() - 1) != Image.pixel(Beside, 20));
  }

  void shouldStandOnTheRightForThoseWhoReadFromThere() {
    TSample Form;
    Form.setLayoutDirection(Qt::RightToLeft);
    for (int Index = 0; Index < 3; ++Index) Form.Group->Items().Put(Index, "i");
    QVERIFY(Form.Show());
    QCOMPARE(Form.Group->Button(0)->geometry(), QRect(2, 15, 75, 14));
    QRadioButton* Button = Form.Group->Button(1);
    const QImage Image = Button->grab().toImage();
    const QRgb Behind = Image.pixel(0, 0);
    for (int X = 0; X < 60; ++X) {
      for (int Y = 0; Y < 14; ++Y) QVERIFY2(X >= 50 || Image.pixel(X, Y) == Behind, std::to_string(X).c_str());
    }
    QVERIFY(Image.pixel(63, 7) != Behind || Image.pixel(64, 7) != Behind);
  }

  // The N stands at the left of the point.
  void shouldReadACaptionByItsOwnLetters() {
    TSample Form;
    Form.Group->Items().Put(1, "N.");
    qApp->setLayoutDirection(Qt::RightToLeft);
    QVERIFY(Form.Show());
    const QImage Image = Form.Group->Button(1)->grab(QRect(0, 0, 60, 14)).toImage();
    qApp->setLayoutDirection(Qt::LeftToRight);
    std::vector<int> Heights;  // of the columns that are not empty
    for (int X = 0; X < Image.width(); ++X) {
      int Dark = 0;
      for (int Y = 0; Y < Image.height(); ++Y) Dark += qGray(Image.pixel(X, Y)) < 140 ? 1 : 0;
      if (Dark > 0) Heights.push_back(Dark);
    }
    QVERIFY(Heights.size() >= 3);
    QVERIFY(Heights.front() >= 6);
    QVERIFY(Heights.back() <= 2);
  }

  void shouldShowWhatOnClickThrows() {
    TSample Form;
    QVERIFY(Form.Show());
    const TErrorBoxAnswer Answer;
    Form.Group->OnClick = [] { throw std::runtime_error("no such table"); };
    QTest::mouseClick(Form.Group->Button(1), Qt::LeftButton);
    QCOMPARE(Answer.Texts(), QStringList(QStringLiteral("no such table")));
    QCOMPARE(Form.Group->ItemIndex(), 1);
  }

  void shouldRefuseAnIndexThatThereIsNot() {
    TSample Form;
    QVERIFY_THROWS_EXCEPTION(EListError, Form.Group->Button(3));
    QVERIFY_THROWS_EXCEPTION(EListError, Form.Group->Items()[-1]);
    QVERIFY_THROWS_EXCEPTION(EListError, Form.Group->Items().Put(3, "x"));
  }
};

QTEST_MAIN(tst_RadioGroup)
#include "tst_RadioGroup.moc"
