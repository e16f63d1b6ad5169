// The layout of every dialog, as it opens and when its list becomes wider or narrower.
#include <QApplication>
#include <QCheckBox>
#include <QHeaderView>
#include <QTest>

#include "support/EveryDialog.h"
#include "support/TestCompany.h"

using uDocPickBase::TDocPickBase;

namespace {

// What stands on the form and is not hidden; the dialog itself need not be shown for that.
QList<QWidget*> Shown(const TDocPickBase& Dialog) {
  QList<QWidget*> All = Dialog.pnlForm->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
  All.removeIf([](const QWidget* Widget) { return Widget->isHidden(); });
  return All;
}

// The first two that overlap: "ckbGSTInc over gbList"; empty when none do.
QString Overlapping(const TDocPickBase& Dialog) {
  const QList<QWidget*> All = Shown(Dialog);
  for (qsizetype A = 0; A < All.size(); ++A) {
    for (qsizetype B = A + 1; B < All.size(); ++B) {
      if (All[A]->geometry().intersects(All[B]->geometry()))
        return All[B]->objectName() + " over " + All[A]->objectName();
    }
  }
  return {};
}

// The first that does not stand wholly on the form.
QString Outside(const TDocPickBase& Dialog) {
  for (const QWidget* Widget : Shown(Dialog)) {
    if (!Dialog.pnlForm->rect().contains(Widget->geometry())) return Widget->objectName();
  }
  return {};
}

// The first of the dialog's own boxes that does not stand at the left of the descending one, below it.
QString Astray(const TDocPickBase& Dialog) {
  for (const QCheckBox* Box : Dialog.pnlForm->findChildren<QCheckBox*>(Qt::FindDirectChildrenOnly)) {
    if (Box == Dialog.ckbDesc) continue;
    if (Box->x() != Dialog.ckbDesc->x() || Box->y() <= Dialog.ckbDesc->y()) return Box->objectName();
  }
  return {};
}

// A style sheet of the application's, while it lives.
class TStyleSheet {
 public:
  explicit TStyleSheet(const QString& Sheet) { qApp->setStyleSheet(Sheet); }
  ~TStyleSheet() { qApp->setStyleSheet({}); }
  TStyleSheet(const TStyleSheet&) = delete;
  TStyleSheet& operator=(const TStyleSheet&) = delete;
};

// The first control that is not written in the form's font; column titles have the bold one.
QString InAnotherFont(const TDocPickBase& Dialog) {
  for (const QWidget* Widget : Dialog.findChildren<QWidget*>()) {
    if (!Widget->isVisible() || Widget->window() != &Dialog) continue;
    const bool IsTitle = qobject_cast<const QHeaderView*>(Widget) != nullptr ||
                         qobject_cast<const QHeaderView*>(Widget->parentWidget()) != nullptr;
    const QFont Font = IsTitle ? toolkit::TForm::TitleFont() : toolkit::TForm::FormFont();
    const QFont Has = Widget->font();
    if (Has.family() != Font.family() || Has.pixelSize() != Font.pixelSize() || Has.bold() != Font.bold()) {
      return QString(Widget->metaObject()->className()) + ' ' + Widget->objectName() + ": " + Has.toString();
    }
  }
  return {};
}

// The first widget that does not stand in the one dialog where it would stand in the other, seen in a mirror.
QString NotMirrored(const TDocPickBase& Dialog, const TDocPickBase& Plain) {
  for (const QWidget* Widget : Plain.findChildren<QWidget*>()) {
    const QWidget* Parent = Widget->parentWidget();
    if (Widget->objectName().isEmpty() || Widget->objectName().startsWith("qt_") || Widget->isWindow()) continue;
    const QRect Place = Widget->geometry();
    const QRect Mirrored(Parent->width() - Place.x() - Place.width(), Place.y(), Place.width(), Place.height());
    if (Dialog.findChild<QWidget*>(Widget->objectName())->geometry() != Mirrored) return Widget->objectName();
  }
  return {};
}

}  // namespace

class tst_PickLayouts : public QObject {
  Q_OBJECT

  support::TTestCompany Company_;

  static void AddDialogs();

 private Q_SLOTS:
  void shouldHaveBoxesOfTheirOwn();
  void shouldKeepEverythingApart_data();
  void shouldKeepEverythingApart();
  void shouldBeMirroredForThoseWhoReadFromTheRight_data();
  void shouldBeMirroredForThoseWhoReadFromTheRight();
  void shouldKeepItsFontUnderAStyleSheet_data();
  void shouldKeepItsFontUnderAStyleSheet();
};

void tst_PickLayouts::AddDialogs() {
  QTest::addColumn<int>("Index");
  for (std::size_t Index = 0; Index < support::EveryDialog().size(); ++Index) {
    QTest::newRow(support::EveryDialog()[Index].Name.c_str()) << static_cast<int>(Index);
  }
}

// So that the walk below does look at some.
void tst_PickLayouts::shouldHaveBoxesOfTheirOwn() {
  qsizetype Boxes = 0;
  for (const support::TSampleDialog& Each : support::EveryDialog()) {
    Boxes +=
        Each.Create(Company_.Connection())->pnlForm->findChildren<QCheckBox*>(Qt::FindDirectChildrenOnly).size() - 1;
  }
  QVERIFY(Boxes >= 10);
}

void tst_PickLayouts::shouldKeepEverythingApart_data() {
  AddDialogs();
}

void tst_PickLayouts::shouldKeepEverythingApart() {
  QFETCH(int, Index);
  const auto Dialog = support::EveryDialog()[static_cast<std::size_t>(Index)].Create(Company_.Connection());
  QCOMPARE(Overlapping(*Dialog), QString());
  QCOMPARE(Astray(*Dialog), QString());
  for (const int Change : {90, -40, 130}) {
    toolkit::TColumn* Column = Dialog->dbgAvail->Columns()[0];
    Column->SetWidth(std::max(Column->Width() + Change, 1));
    Dialog->AdjustWidths();
    QCOMPARE(Overlapping(*Dialog), QString());
    QCOMPARE(Astray(*Dialog), QString());
    QCOMPARE(Outside(*Dialog), QString());
  }
}

void tst_PickLayouts::shouldBeMirroredForThoseWhoReadFromTheRight_data() {
  AddDialogs();
}

void tst_PickLayouts::shouldBeMirroredForThoseWhoReadFromTheRight() {
  QFETCH(int, Index);
  const support::TSampleDialog& Sample = support::EveryDialog()[static_cast<std::size_t>(Index)];
  const auto Plain = Sample.Create(Company_.Connection());
  qApp->setLayoutDirection(Qt::RightToLeft);
  const auto Dialog = Sample.Create(Company_.Connection());
  qApp->setLayoutDirection(Qt::LeftToRight);
  Plain->setLayoutDirection(Qt::LeftToRight);
  Dialog->setLayoutDirection(Qt::RightToLeft);
  QCOMPARE(Dialog->size(), Plain->size());
  QCOMPARE(NotMirrored(*Dialog, *Plain), QString());
  for (TDocPickBase* Each : {Plain.get(), Dialog.get()}) {
    toolkit::TColumn* Column = Each->dbgAvail->Columns()[0];
    Column->SetWidth(Column->Width() + 40);
    Each->AdjustWidths();
    Each->UpdateFind();
  }
  QCOMPARE(NotMirrored(*Dialog, *Plain), QString());
  Dialog->setLayoutDirection(Qt::LeftToRight);
  Dialog->setLayoutDirection(Qt::RightToLeft);
  QCOMPARE(NotMirrored(*Dialog, *Plain), QString());
}

void tst_PickLayouts::shouldKeepItsFontUnderAStyleSheet_data() {
  AddDialogs();
}

void tst_PickLayouts::shouldKeepItsFontUnderAStyleSheet() {
  QFETCH(int, Index);
  const support::TSampleDialog& Sample = support::EveryDialog()[static_cast<std::size_t>(Index)];
  const auto Plain = Sample.Create(Company_.Connection());
  for (const char* Sheet : {"QPushButton { color: navy }", "* { color: #222 }", "QWidget { background: #eee }"}) {
    const TStyleSheet Host(Sheet);
    const auto Dialog = Sample.Create(Company_.Connection());
    Dialog->show();
    QCOMPARE(InAnotherFont(*Dialog), QString());
    QCOMPARE(Dialog->size(), Plain->size());
    Dialog->rgOrderBy->Items().Add("One more");
    QCOMPARE(InAnotherFont(*Dialog), QString());
  }
}

QTEST_MAIN(tst_PickLayouts)
#include "tst_PickLayouts.moc"
