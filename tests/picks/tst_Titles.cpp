// Clicks on the titles of every dialog's list.
#include <QCheckBox>
#include <QHeaderView>
#include <QTest>

#include "picks/orders/uPickOEJob.h"
#include "support/EveryDialog.h"
#include "support/PickDriver.h"
#include "support/TestCompany.h"

using toolkit::TColumn;
using uDocPickBase::TDocPickBase;

namespace {

void ClickTitle(const TDocPickBase& Dialog, const TColumn& Column) {
  QHeaderView* Titles = Dialog.dbgAvail->horizontalHeader();
  Titles->setOffset(0);
  const QPoint At(Titles->sectionViewportPosition(Column.Index()) + Column.Width() / 2, 9);
  QTest::mouseClick(Titles->viewport(), Qt::LeftButton, {}, At);
}

// The first line of the query, which ends in the sort column, and the last one.
std::string OrderOf(const TDocPickBase& Dialog) {
  const std::vector<std::string> Lines = support::SqlLines(Dialog);
  return Lines.front() + " ... " + Lines.back();
}

}  // namespace

class tst_Titles : public QObject {
  Q_OBJECT

  support::TTestCompany Company_;

 private Q_SLOTS:
  void shouldOrderByATitle_data();
  void shouldOrderByATitle();
  void shouldOrderByATitleThatIsCalledOtherwise();
  void shouldShowTheDirection();
};

void tst_Titles::shouldOrderByATitle_data() {
  QTest::addColumn<int>("Index");
  int Index = 0;
  for (const support::TSampleDialog& Sample : support::EveryDialog()) QTest::newRow(Sample.Name.c_str()) << Index++;
}

void tst_Titles::shouldOrderByATitle() {
  QFETCH(int, Index);
  const support::TSampleDialog& Sample = support::EveryDialog()[static_cast<std::size_t>(Index)];
  const auto Dialog = Sample.Create(Company_.Connection());
  const auto Other = Sample.Create(Company_.Connection());
  const support::TErrorBoxes Boxes;
  Dialog->dbgAvail->setFixedWidth(3000);  // every title can be clicked, also on a narrow screen
  Dialog->show();
  for (const TColumn* Column : Dialog->dbgAvail->Columns()) {
    const int Item = Dialog->rgOrderBy->Items().IndexOf(Column->Title());
    if (Item < 0) continue;
    Other->rgOrderBy->SetItemIndex(Item);
    if (!Boxes.Messages().empty()) return;  // an order that no server can do; the title would say the same
    if (Dialog->rgOrderBy->ItemIndex() != Item) ClickTitle(*Dialog, *Column);
    QCOMPARE(Dialog->rgOrderBy->ItemIndex(), Item);
    QCOMPARE(OrderOf(*Dialog), OrderOf(*Other));
    QCOMPARE(Dialog->dbgAvail->OrderColumn(), Column);
    for (const bool Descending : {!Other->ckbDesc->isChecked(), Other->ckbDesc->isChecked()}) {
      ClickTitle(*Dialog, *Column);
      Other->ckbDesc->setChecked(Descending);
      QCOMPARE(Dialog->ckbDesc->isChecked(), Descending);
      QCOMPARE(Dialog->dbgAvail->OrderDescending(), Descending);
      QCOMPARE(OrderOf(*Dialog), OrderOf(*Other));
    }
  }
  for (const TColumn* Column : Dialog->dbgAvail->Columns()) {
    if (!Column->Title().empty()) continue;
    const std::string Before = OrderOf(*Dialog);
    ClickTitle(*Dialog, *Column);
    QCOMPARE(OrderOf(*Dialog), Before);
  }
  QCOMPARE(Boxes.Messages(), std::vector<std::string>());
}

void tst_Titles::shouldOrderByATitleThatIsCalledOtherwise() {
  const auto Dialog = uPickOEJob::TfrmPickOEJob::Create(Company_.Connection());
  Dialog->show();
  ClickTitle(*Dialog, *Dialog->dbgAvail->Columns()[2]);
  QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 2);
  QCOMPARE(Dialog->rgOrderBy->Items()[2], std::string("Doc. Type"));
}

void tst_Titles::shouldShowTheDirection() {
  const auto Dialog = support::EveryDialog().front().Create(Company_.Connection());
  Dialog->show();
  const auto Title = [&] { return Dialog->dbgAvail->horizontalHeader()->grab().toImage(); };
  const QImage Ascending = Title();
  Dialog->ckbDesc->setChecked(true);
  QVERIFY(Title() != Ascending);
  Dialog->dbgAvail->ShowOrder(nullptr, false);
  QVERIFY(Title() != Ascending);
  Dialog->ckbDesc->setChecked(false);
  QCOMPARE(Title(), Ascending);
}

QTEST_MAIN(tst_Titles)
#include "tst_Titles.moc"
