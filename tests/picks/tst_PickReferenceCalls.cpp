// The pick functions over the tables of codes, each called as a host does and driven in its modal dialog.
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <algorithm>

#include "ads/EDatabaseError.h"
#include "picks/reference/uPickCity.h"
#include "picks/reference/uPickCostCenter.h"
#include "picks/reference/uPickCutLocations.h"
#include "picks/reference/uPickEntity.h"
#include "picks/reference/uPickFinance.h"
#include "picks/reference/uPickGSTRate.h"
#include "picks/reference/uPickItemCategory.h"
#include "picks/reference/uPickItemClass.h"
#include "picks/reference/uPickItemFactorPreset.h"
#include "picks/reference/uPickItemPreset.h"
#include "picks/reference/uPickJob.h"
#include "picks/reference/uPickState.h"
#include "picks/reference/uPickSuburb.h"
#include "picks/reference/uPickTerms.h"
#include "picks/reference/uPickUsedPeriodYear.h"
#include "support/PickDriver.h"
#include "support/TestCompany.h"

using support::Column;
using support::DrivePick;
using support::TTestCompany;
using uDocPickBase::TDocPickBase;

namespace {

using TLines = std::vector<std::string>;

struct TTextPick {
  std::string Name;
  std::function<bool(ads::TAdsConnection* Connection, std::string& Key)> Call;
  std::string Key;
  std::string Table;
};

const std::vector<TTextPick>& TextPicks() {
  // Two functions share this name, so which one is meant has to be said.
  constexpr bool (*PickEntity)(ads::TAdsConnection*, std::string&) = uPickEntity::CallPickEntity;
  static const std::vector<TTextPick> All{
      {"city", uPickCity::CallPickCity, "Zip", "Area"},
      {"cost centre", uPickCostCenter::CallPickCostCenter, "CstCtr", "CstCtr"},
      {"cutting location", uPickCutLocations::CallPickCutLoc, "Desc", "Location"},
      {"entity", PickEntity, "Entity", "Entity"},
      {"GST rate", uPickGSTRate::CallPickGSTRate, "ID", "GSTRates"},
      {"item category", uPickItemCategory::CallPickItemCat, "CatID", "ItemCat"},
      {"item class", uPickItemClass::CallPickItemClass, "Class", "ItemClass"},
      {"job", uPickJob::CallPickJobNo, "JobNo", "Jobs"},
      {"state", uPickState::CallPickState, "State", "State"},
      {"suburb", uPickSuburb::CallPickSuburb, "Suburb", "Suburb"},
      {"terms", uPickTerms::CallPickTerms, "Desc", "Terms"},
      {"used year", uPickUsedPeriodYear::CallPickUsedPeriodYear, "Year", "Periods"},
  };
  return All;
}

struct TIntegerPick {
  std::string Name;
  std::function<bool(ads::TAdsConnection* Connection, std::int32_t& Key)> Call;
  std::string Key;
  std::string Table;
};

const std::vector<TIntegerPick>& IntegerPicks() {
  static const std::vector<TIntegerPick> All{
      {"finance rate", uPickFinance::CallPickFinanceRate, "Key", "FinanceRates"},
      {"item factor preset", uPickItemFactorPreset::CallPickItemFactor, "ID", "ItemFactorPresets"},
      {"item preset", uPickItemPreset::CallPickItemPreset, "PresetID", "Presets"},
  };
  return All;
}

template <typename TPicks>
void AddRows(const TPicks& Picks) {
  QTest::addColumn<int>("Index");
  for (std::size_t Index = 0; Index < Picks.size(); ++Index) {
    QTest::newRow(Picks[Index].Name.c_str()) << static_cast<int>(Index);
  }
}

template <typename TPicks>
const auto& Current(const TPicks& Picks) {
  QFETCH(int, Index);
  return Picks[static_cast<std::size_t>(Index)];
}

// Clicks a row of the grid, from 0, as far as it is on the screen.
void ClickRow(TDocPickBase& Dialog, int Row) {
  const QRect Cell = Dialog.dbgAvail->visualRect(Dialog.dbgAvail->model()->index(Row, 0));
  QTest::mouseClick(Dialog.dbgAvail->viewport(), Qt::LeftButton, {}, Cell.center());
}

// The message with which a call fails; empty when it does not.
std::string FailureOf(const std::function<void()>& Call) {
  try {
    Call();
  } catch (const ads::EDatabaseError& Error) {
    return Error.what();
  }
  return {};
}

}  // namespace

class tst_PickReferenceCalls : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void init() { Company_ = std::make_unique<TTestCompany>(); }
  void cleanup() { Company_.reset(); }

  void shouldReturnTheChosenRowsKeyOnOK_data() { AddRows(TextPicks()); }
  void shouldReturnTheChosenRowsKeyOnOK();
  void shouldEmptyTheTextOnCancel_data() { AddRows(TextPicks()); }
  void shouldEmptyTheTextOnCancel();
  void shouldPickByDoubleClick_data() { AddRows(TextPicks()); }
  void shouldPickByDoubleClick();
  void shouldPickByEnterInTheGrid_data() { AddRows(TextPicks()); }
  void shouldPickByEnterInTheGrid();
  void shouldCancelByEscape_data() { AddRows(TextPicks()); }
  void shouldCancelByEscape();
  void shouldPassTheDatabasesMessageToTheCaller_data() { AddRows(TextPicks()); }
  void shouldPassTheDatabasesMessageToTheCaller();
  void shouldShowAnEmptyListWithoutOK_data() { AddRows(TextPicks()); }
  void shouldShowAnEmptyListWithoutOK();

  void shouldReturnTheChosenNumberOnOK_data() { AddRows(IntegerPicks()); }
  void shouldReturnTheChosenNumberOnOK();
  void shouldLeaveTheNumberOnCancel_data() { AddRows(IntegerPicks()); }
  void shouldLeaveTheNumberOnCancel();
  void shouldLeaveTheNumberWhenTheDatabaseFails_data() { AddRows(IntegerPicks()); }
  void shouldLeaveTheNumberWhenTheDatabaseFails();
  void shouldRoundTheFinanceKey();

  void shouldReturnTheEntityAsTheResult();
  void shouldReturnNoEntityWhenNoneWasPicked();
  void shouldReachEveryControlByKeyboard();
  void shouldSearchCostCentresByDescription();
  void shouldSearchCostCentresByCode();
  void shouldSearchForAQuote();
  void shouldFindANameWithAnApostrophe();
  void shouldTurnTheOrderOnly();
  void shouldShowEveryRateWhateverIsTyped();
  void shouldShowAllTermsWhateverIsTyped();
  void shouldStillOrderTheRatesThatAreNeverNarrowed();
  void shouldListEachUsedYearOnceAscending();
  void shouldPassAMissingSettingsTableToTheCaller();
  void shouldTakeTheKeyAsItIsStored();
  void shouldFailTheFilteredAndTheWholeListTogether();
  void shouldPickTwiceOverOneConnection();

 private:
  ads::TAdsConnection* Connection() { return Company_->Connection(); }

  std::unique_ptr<TTestCompany> Company_;
};

void tst_PickReferenceCalls::shouldReturnTheChosenRowsKeyOnOK() {
  const TTextPick& Pick = Current(TextPicks());
  std::string Key = "before";
  std::string Expected;
  QVERIFY(DrivePick([&] { return Pick.Call(Connection(), Key); },
                    [&](TDocPickBase& Dialog) {
                      ClickRow(Dialog, 2);
                      Expected = Column(Dialog, Pick.Key).at(2);
                      support::ClickOK(Dialog);
                    }));
  QVERIFY(!Expected.empty());
  QCOMPARE(Key, Expected);
}

void tst_PickReferenceCalls::shouldEmptyTheTextOnCancel() {
  const TTextPick& Pick = Current(TextPicks());
  std::string Key = "before";
  QVERIFY(!DrivePick([&] { return Pick.Call(Connection(), Key); },
                     [](TDocPickBase& Dialog) {
                       ClickRow(Dialog, 1);
                       support::ClickCancel(Dialog);
                     }));
  QCOMPARE(Key, std::string());
}

void tst_PickReferenceCalls::shouldPickByDoubleClick() {
  const TTextPick& Pick = Current(TextPicks());
  std::string Key;
  std::string Expected;
  QVERIFY(DrivePick([&] { return Pick.Call(Connection(), Key); },
                    [&](TDocPickBase& Dialog) {
                      Expected = Column(Dialog, Pick.Key).at(1);
                      support::DoubleClickRow(Dialog, 1);
                    }));
  QCOMPARE(Key, Expected);
}

void tst_PickReferenceCalls::shouldPickByEnterInTheGrid() {
  const TTextPick& Pick = Current(TextPicks());
  std::string Key;
  std::string Expected;
  QVERIFY(DrivePick([&] { return Pick.Call(Connection(), Key); },
                    [&](TDocPickBase& Dialog) {
                      Expected = Column(Dialog, Pick.Key).back();
                      Dialog.dbgAvail->setFocus();
                      QTest::keyClick(Dialog.dbgAvail, Qt::Key_End);
                      QTest::keyClick(Dialog.dbgAvail, Qt::Key_Return);
                    }));
  QCOMPARE(Key, Expected);
}

void tst_PickReferenceCalls::shouldCancelByEscape() {
  const TTextPick& Pick = Current(TextPicks());
  std::string Key = "before";
  bool Closed = false;
  QVERIFY(!DrivePick([&] { return Pick.Call(Connection(), Key); },
                     [&](TDocPickBase& Dialog) {
                       QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
                       Closed = !Dialog.isVisible();
                     }));
  QVERIFY(Closed);
  QCOMPARE(Key, std::string());
}

void tst_PickReferenceCalls::shouldPassTheDatabasesMessageToTheCaller() {
  const TTextPick& Pick = Current(TextPicks());
  Company_->Execute("DROP TABLE " + QString::fromStdString(Pick.Table));
  std::string Key = "before";
  const std::string Message = FailureOf([&] { Pick.Call(Connection(), Key); });
  QCOMPARE(Message, "no such table: " + Pick.Table);
  QCOMPARE(Key, std::string());
  QCOMPARE(QApplication::topLevelWidgets().size(), 0);
}

void tst_PickReferenceCalls::shouldShowAnEmptyListWithoutOK() {
  const TTextPick& Pick = Current(TextPicks());
  Company_->Execute("DELETE FROM " + QString::fromStdString(Pick.Table));
  std::string Key = "before";
  bool Enabled = true;
  QVERIFY(!DrivePick([&] { return Pick.Call(Connection(), Key); },
                     [&](TDocPickBase& Dialog) {
                       Enabled = Dialog.bbnOK->isEnabled();
                       support::ClickOK(Dialog);
                       Dialog.dbgAvail->setFocus();
                       QTest::keyClick(Dialog.dbgAvail, Qt::Key_Return);
                     }));
  QVERIFY(!Enabled);
  QCOMPARE(Key, std::string());
}

void tst_PickReferenceCalls::shouldReturnTheChosenNumberOnOK() {
  const TIntegerPick& Pick = Current(IntegerPicks());
  std::int32_t Key = -7;
  std::string Expected;
  QVERIFY(DrivePick([&] { return Pick.Call(Connection(), Key); },
                    [&](TDocPickBase& Dialog) {
                      ClickRow(Dialog, 3);
                      Expected = Column(Dialog, Pick.Key).at(3);
                      support::ClickOK(Dialog);
                    }));
  QCOMPARE(std::to_string(Key), Expected);
}

void tst_PickReferenceCalls::shouldLeaveTheNumberOnCancel() {
  const TIntegerPick& Pick = Current(IntegerPicks());
  std::int32_t Key = -7;
  QVERIFY(!DrivePick([&] { return Pick.Call(Connection(), Key); }, support::ClickCancel));
  QCOMPARE(Key, -7);
}

void tst_PickReferenceCalls::shouldLeaveTheNumberWhenTheDatabaseFails() {
  const TIntegerPick& Pick = Current(IntegerPicks());
  Company_->Execute("DROP TABLE " + QString::fromStdString(Pick.Table));
  std::int32_t Key = -7;
  QCOMPARE(FailureOf([&] { Pick.Call(Connection(), Key); }), "no such table: " + Pick.Table);
  QCOMPARE(Key, -7);
}

void tst_PickReferenceCalls::shouldRoundTheFinanceKey() {
  Company_->Execute("DELETE FROM FinanceRates");
  Company_->Execute("INSERT INTO FinanceRates VALUES (41.6, 'The only one', 1)");
  std::int32_t Key = -7;
  QVERIFY(DrivePick([&] { return uPickFinance::CallPickFinanceRate(Connection(), Key); }, support::ClickOK));
  QCOMPARE(Key, 42);
}

void tst_PickReferenceCalls::shouldReturnTheEntityAsTheResult() {
  std::string Expected;
  std::string Entity;
  DrivePick(
      [&] {
        Entity = uPickEntity::CallPickEntity(Connection());
        return !Entity.empty();
      },
      [&](TDocPickBase& Dialog) {
        Expected = Column(Dialog, "Entity").at(1);
        support::DoubleClickRow(Dialog, 1);
      });
  QVERIFY(!Expected.empty());
  QCOMPARE(Entity, Expected);
}

void tst_PickReferenceCalls::shouldReturnNoEntityWhenNoneWasPicked() {
  std::string Entity = "before";
  DrivePick(
      [&] {
        Entity = uPickEntity::CallPickEntity(Connection());
        return true;
      },
      support::ClickCancel);
  QCOMPARE(Entity, std::string());
}

void tst_PickReferenceCalls::shouldReachEveryControlByKeyboard() {
  std::string Key;
  QStringList Visited;
  DrivePick([&] { return uPickCostCenter::CallPickCostCenter(Connection(), Key); },
            [&](TDocPickBase& Dialog) {
              QTest::keyClicks(Dialog.edFind, "a");  // so that the Find button can be reached
              const QWidget* Start = QApplication::focusWidget();
              do {
                Visited << QApplication::focusWidget()->objectName();
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
              } while (QApplication::focusWidget() != Start && Visited.size() < 20);
            });
  QCOMPARE(Visited,
           (QStringList{"edFind", "bbnFInd", "rgFindBy1", "rgOrderBy1", "ckbDesc", "bbnOK", "bbnCancel", "dbgAvail"}));
}

void tst_PickReferenceCalls::shouldSearchCostCentresByDescription() {
  TLines Found;
  std::string Key;
  QVERIFY(DrivePick([&] { return uPickCostCenter::CallPickCostCenter(Connection(), Key); },
                    [&](TDocPickBase& Dialog) {
                      support::TypeFind(Dialog, "ab");
                      Found = Column(Dialog, "Desc");
                      support::ClickOK(Dialog);
                    }));
  QCOMPARE(Found, (TLines{"Fabrication"}));
  QCOMPARE(Key, std::string("FABRIC"));
}

void tst_PickReferenceCalls::shouldSearchCostCentresByCode() {
  TLines Found;
  std::string Key;
  QVERIFY(DrivePick([&] { return uPickCostCenter::CallPickCostCenter(Connection(), Key); },
                    [&](TDocPickBase& Dialog) {
                      support::ChooseFindBy(Dialog, 0);
                      support::TypeFind(Dialog, "show");
                      support::ChooseOrderBy(Dialog, 0);
                      Found = Column(Dialog, "CstCtr");
                      ClickRow(Dialog, 1);
                      support::ClickOK(Dialog);
                    }));
  QCOMPARE(Found, (TLines{"SHOW-N", "SHOW-S"}));
  QCOMPARE(Key, std::string("SHOW-S"));
}

void tst_PickReferenceCalls::shouldSearchForAQuote() {
  TLines Found;
  TLines Sql;
  std::string Key;
  DrivePick([&] { return uPickCutLocations::CallPickCutLoc(Connection(), Key); },
            [&](TDocPickBase& Dialog) {
              support::TypeFind(Dialog, "'");
              Found = Column(Dialog, "Desc");
              Sql = support::SqlLines(Dialog);
            });
  QCOMPARE(Found, (TLines{"D'Arcy's Guillotine"}));
  QCOMPARE(Sql.at(2), std::string("WHERE UPPER([Desc]) LIKE '%''%'"));
}

void tst_PickReferenceCalls::shouldFindANameWithAnApostrophe() {
  std::string Key;
  QVERIFY(DrivePick([&] { return uPickCutLocations::CallPickCutLoc(Connection(), Key); },
                    [](TDocPickBase& Dialog) {
                      support::TypeFind(Dialog, "d'arcy's");
                      support::ClickOK(Dialog);
                    }));
  QCOMPARE(Key, std::string("D'Arcy's Guillotine"));
}

void tst_PickReferenceCalls::shouldTurnTheOrderOnly() {
  TLines Up;
  TLines Down;
  std::string Key;
  DrivePick([&] { return uPickSuburb::CallPickSuburb(Connection(), Key); },
            [&](TDocPickBase& Dialog) {
              support::TypeFind(Dialog, "bu");
              Up = Column(Dialog, "Suburb");
              support::ClickBox(Dialog.ckbDesc);
              Down = Column(Dialog, "Suburb");
            });
  QVERIFY(Up.size() > 1);
  std::reverse(Down.begin(), Down.end());
  QCOMPARE(Down, Up);
}

void tst_PickReferenceCalls::shouldShowEveryRateWhateverIsTyped() {
  std::int32_t Key = 0;
  TLines All;
  TLines Found;
  support::TErrorBoxes Boxes;
  DrivePick([&] { return uPickFinance::CallPickFinanceRate(Connection(), Key); },
            [&](TDocPickBase& Dialog) {
              All = Column(Dialog, "Name");
              support::TypeFind(Dialog, "no rate is called so");
              Found = Column(Dialog, "Name");
            });
  QVERIFY(!All.empty());
  QCOMPARE(Found, All);
  QVERIFY(Boxes.Messages().empty());
}

void tst_PickReferenceCalls::shouldShowAllTermsWhateverIsTyped() {
  std::string Key;
  TLines All;
  TLines Found;
  support::TErrorBoxes Boxes;
  QVERIFY(DrivePick([&] { return uPickTerms::CallPickTerms(Connection(), Key); },
                    [&](TDocPickBase& Dialog) {
                      All = Column(Dialog, "Desc");
                      support::TypeFind(Dialog, "prepaid");
                      Found = Column(Dialog, "Desc");
                      support::ClickOK(Dialog);
                    }));
  QCOMPARE(Found, All);
  QCOMPARE(Key, All.front());
  QVERIFY(Boxes.Messages().empty());
}

void tst_PickReferenceCalls::shouldStillOrderTheRatesThatAreNeverNarrowed() {
  std::int32_t Key = 0;
  TLines Up;
  TLines Down;
  DrivePick([&] { return uPickFinance::CallPickFinanceRate(Connection(), Key); },
            [&](TDocPickBase& Dialog) {
              support::TypeFind(Dialog, "months");
              Up = Column(Dialog, "Name");
              support::ClickBox(Dialog.ckbDesc);
              Down = Column(Dialog, "Name");
            });
  std::reverse(Down.begin(), Down.end());
  QVERIFY(Up.size() > 1);
  QCOMPARE(Down, Up);
}

void tst_PickReferenceCalls::shouldListEachUsedYearOnceAscending() {
  std::string Key;
  TLines Years;
  QVERIFY(DrivePick([&] { return uPickUsedPeriodYear::CallPickUsedPeriodYear(Connection(), Key); },
                    [&](TDocPickBase& Dialog) {
                      Years = Column(Dialog, "Year");
                      support::ClickOK(Dialog);
                    }));
  QCOMPARE(Years, Company_->Texts("SELECT DISTINCT substr(RealPeriod, 1, 4) FROM Periods ORDER BY 1"));
  QVERIFY(Years.size() > 2);
  QCOMPARE(Key, Years.front());
}

void tst_PickReferenceCalls::shouldPassAMissingSettingsTableToTheCaller() {
  Company_->Execute("DROP TABLE Sys");
  std::string Key = "before";
  QCOMPARE(FailureOf([&] { uPickCity::CallPickCity(Connection(), Key); }), std::string("no such table: Sys"));
  QCOMPARE(Key, std::string());
}

void tst_PickReferenceCalls::shouldTakeTheKeyAsItIsStored() {
  Company_->Execute("DELETE FROM Suburb");
  Company_->Execute("INSERT INTO Suburb VALUES ('  Ōamaru''s   ')");
  std::string Key;
  QVERIFY(DrivePick([&] { return uPickSuburb::CallPickSuburb(Connection(), Key); }, support::ClickOK));
  QCOMPARE(Key, std::string("  Ōamaru's   "));
}

void tst_PickReferenceCalls::shouldFailTheFilteredAndTheWholeListTogether() {
  std::string Key = "before";
  TLines Before;
  TLines After;
  support::TErrorBoxes Boxes;
  DrivePick([&] { return uPickState::CallPickState(Connection(), Key); },
            [&](TDocPickBase& Dialog) {
              Before = Column(Dialog, "State");
              Company_->Execute("DROP TABLE State");
              support::TypeFind(Dialog, "a");
              After = Column(Dialog, "State");
            });
  QCOMPARE(Boxes.Messages(), (TLines{"no such table: State"}));
  QVERIFY(!Before.empty());
  QCOMPARE(After, Before);
}

void tst_PickReferenceCalls::shouldPickTwiceOverOneConnection() {
  std::string First;
  std::string Second = "before";
  QVERIFY(DrivePick([&] { return uPickState::CallPickState(Connection(), First); },
                    [](TDocPickBase& Dialog) {
                      support::TypeFind(Dialog, "vic");
                      support::ClickOK(Dialog);
                    }));
  QCOMPARE(First, std::string("VIC"));
  int Rows = 0;
  QVERIFY(!DrivePick([&] { return uPickState::CallPickState(Connection(), Second); },
                     [&](TDocPickBase& Dialog) { Rows = Dialog.qryList_->RecordCount(); }));
  QCOMPARE(Rows, 9);
}

QTEST_MAIN(tst_PickReferenceCalls)
#include "tst_PickReferenceCalls.moc"
