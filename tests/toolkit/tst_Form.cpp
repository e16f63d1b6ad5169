#include <QTest>
#include <QtWidgets>

#include "toolkit/Form.h"

using toolkit::TForm;

namespace {

// A form such as the dialogs are: an edit, OK and Cancel.
struct TSample : TForm {
  QLineEdit* Edit = new QLineEdit(this);
  QPushButton* OK = new QPushButton(QStringLiteral("OK"), this);
  QPushButton* Cancel = new QPushButton(QStringLiteral("Cancel"), this);

  TSample() {
    Edit->setGeometry(4, 4, 75, 22);
    OK->setGeometry(84, 4, 75, 25);
    Cancel->setGeometry(84, 30, 75, 25);
    connect(OK, &QPushButton::clicked, this, &QDialog::accept);
    connect(Cancel, &QPushButton::clicked, this, &QDialog::reject);
    SetClientSize(164, 60);
  }
};

}  // namespace

class tst_Form : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldHaveAFixedSize() {
    TForm Form;
    Form.SetClientSize(300, 200);
    QCOMPARE(Form.minimumSize(), QSize(300, 200));
    QCOMPARE(Form.maximumSize(), QSize(300, 200));
    Form.SetClientWidth(310);
    Form.SetClientHeight(190);
    QCOMPARE(Form.size(), QSize(310, 190));
    QCOMPARE(Form.ClientWidth(), 310);
    QCOMPARE(Form.ClientHeight(), 190);
  }

  void shouldKeepItsSizeWhenItIsShown() {
    TForm Form;
    Form.SetClientSize(300, 200);
    Form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&Form));
    QCOMPARE(Form.size(), QSize(300, 200));
  }

  void shouldUseTheFormFont() {
    TForm Form;
    const QLabel Label(&Form);
    QCOMPARE(Label.font().pixelSize(), 11);
    QCOMPARE(Label.font().family(), QStringLiteral("Arial"));
    QVERIFY(!Label.font().bold());
    QVERIFY(TForm::TitleFont().bold());
    QCOMPARE(TForm::TitleFont().pixelSize(), 11);
  }

  void shouldKeepItsCaption() {
    TForm Form;
    Form.SetCaption("Select Café");
    QCOMPARE(Form.Caption(), std::string("Select Café"));
    QCOMPARE(Form.windowTitle(), QStringLiteral("Select Café"));
  }

  void shouldHaveNoDefaultButton() {
    TSample Form;
    Form.show();
    auto* Late = new QPushButton(&Form);
    Form.hide();
    Form.show();
    for (const QPushButton* Button : {Form.OK, Form.Cancel, Late}) {
      QVERIFY(!Button->autoDefault());
      QVERIFY(!Button->isDefault());
    }
  }

  void shouldStayOpenOnEnterInAnEdit() {
    TSample Form;
    Form.show();
    QVERIFY(QTest::qWaitForWindowActive(&Form));
    Form.Edit->setFocus();
    int Entered = 0;
    connect(Form.Edit, &QLineEdit::returnPressed, this, [&Entered] { ++Entered; });
    QTest::keyClick(Form.Edit, Qt::Key_Return);
    QTest::keyClick(Form.Edit, Qt::Key_Enter, Qt::KeypadModifier);
    QVERIFY(Form.isVisible());
    QCOMPARE(Entered, 2);
  }

  void shouldPressTheFocusedButtonOnEnter() {
    TSample Form;
    Form.show();
    QVERIFY(QTest::qWaitForWindowActive(&Form));
    Form.OK->setFocus();
    QTest::keyClick(Form.OK, Qt::Key_Return);
    QVERIFY(!Form.isVisible());
    QCOMPARE(Form.result(), int{QDialog::Accepted});
  }

  void shouldCancelOnEscape() {
    TSample Form;
    Form.show();
    QVERIFY(QTest::qWaitForWindowActive(&Form));
    Form.setResult(QDialog::Accepted);
    QTest::keyClick(Form.Edit, Qt::Key_Escape);
    QVERIFY(!Form.isVisible());
    QCOMPARE(Form.result(), int{QDialog::Rejected});
  }

  void shouldReturnWhetherItWasAccepted() {
    TSample Form;
    QTimer::singleShot(0, Form.OK, &QPushButton::click);
    QVERIFY(Form.ShowModal());
    QTimer::singleShot(0, Form.Cancel, &QPushButton::click);
    QVERIFY(!Form.ShowModal());
    QTimer::singleShot(0, &Form, &QWidget::close);
    QVERIFY(!Form.ShowModal());
  }

  void shouldStandAboveTheActiveWindow() {
    QWidget Host;
    Host.show();
    QVERIFY(QTest::qWaitForWindowActive(&Host));
    TSample Form;
    QWindow* Parent = nullptr;
    bool Modal = false;
    QTimer::singleShot(0, &Form, [&] {
      Parent = Form.windowHandle()->transientParent();
      Modal = Form.isModal();
      Form.accept();
    });
    QVERIFY(Form.ShowModal());
    QCOMPARE(Parent, Host.windowHandle());
    QVERIFY(Modal);
  }

  void shouldEndWhenTheHostWindowGoesWithIt() {
    auto* Host = new QWidget;
    Host->show();
    QVERIFY(QTest::qWaitForWindowActive(Host));
    TSample Form;
    QTimer::singleShot(0, &Form, [&] {
      delete Host;
      Form.accept();
    });
    QVERIFY(Form.ShowModal());
  }
};

QTEST_MAIN(tst_Form)
#include "tst_Form.moc"
