#include <QTest>

#include "frame/uPickListTypes.h"
#include "frame/uZULPickLists.h"

using toolkit::EListError;
using uPickListTypes::TPOState;
using uPickListTypes::TPOStates;
using uZULPickLists::TCurrencyList;
using uZULPickLists::TIntegerList;
using uZULPickLists::TSimpleObj;
using uZULPickLists::TSimpleObjList;
using zulcommon::TCurrency;

namespace {

// Counts how many of its kind are alive.
class TCounted : public TSimpleObj {
 public:
  TCounted() { ++Alive; }
  ~TCounted() override { --Alive; }
  static inline int Alive = 0;
};

class TCountedList : public TSimpleObjList {
 public:
  TCountedList() {
    ItemClass = [] { return std::make_unique<TCounted>(); };
  }
};

}  // namespace

class tst_ValueLists : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldAppendAndReturnTheNewIndex() {
    TIntegerList List;
    QCOMPARE(List.Add(7), 0);
    QCOMPARE(List.Add(-3), 1);
    QCOMPARE(List.Count(), 2);
    QCOMPARE(List.First(), 7);
    QCOMPARE(List.Last(), -3);
    QCOMPARE(List[1], -3);
  }

  void shouldAddASecondCellForAValueAlreadyThere() {
    TIntegerList List;
    List.Add(5);
    List.Add(9);
    List.Add(5);
    QCOMPARE(List.Count(), 3);
    QCOMPARE(List.IndexOf(5), 0);
    QCOMPARE(List.IndexOf(8), -1);
  }

  void shouldInsertInFrontAndAtTheEnd() {
    TIntegerList List;
    List.Insert(0, 2);
    List.Insert(0, 1);
    List.Insert(2, 3);
    QCOMPARE(std::vector<std::int32_t>(List.begin(), List.end()), (std::vector<std::int32_t>{1, 2, 3}));
    QVERIFY_THROWS_EXCEPTION(EListError, List.Insert(4, 0));
    QVERIFY_THROWS_EXCEPTION(EListError, List.Insert(-1, 0));
    QCOMPARE(List.Count(), 3);
  }

  void shouldOverwriteInPlace() {
    TIntegerList List;
    List.Add(1);
    List.Put(0, 4);
    QCOMPARE(List.Get(0), 4);
    QCOMPARE(List.Count(), 1);
  }

  void shouldRaiseForABadIndex() {
    TIntegerList List;
    QVERIFY_THROWS_EXCEPTION(EListError, List.Get(0));
    QVERIFY_THROWS_EXCEPTION(EListError, List.First());
    QVERIFY_THROWS_EXCEPTION(EListError, List.Last());
    QVERIFY_THROWS_EXCEPTION(EListError, List.Put(0, 1));
    QVERIFY_THROWS_EXCEPTION(EListError, List.Delete(0));
    QVERIFY_THROWS_EXCEPTION(EListError, List.Delete(-1));
  }

  void shouldRemoveTheFirstEqualValue() {
    TIntegerList List;
    for (const int Value : {4, 6, 4}) List.Add(Value);
    QCOMPARE(List.Remove(4), 0);
    QCOMPARE(List.Remove(4), 1);
    QCOMPARE(List.Remove(4), -1);
    QCOMPARE(List.Count(), 1);
  }

  void shouldExtractZeroAndChangeNothingForAValueThatIsNotThere() {
    TIntegerList List;
    List.Add(4);
    QCOMPARE(List.Extract(5), 0);
    QCOMPARE(List.Count(), 1);
    QCOMPARE(List.Extract(4), 4);
    QCOMPARE(List.Count(), 0);
  }

  void shouldCompareCurrencyByTheStoredValue() {
    TCurrencyList List;
    List.Add(TCurrency::FromDouble(0.1) + TCurrency::FromDouble(0.2));
    List.Add(TCurrency::FromScaled(1));
    QCOMPARE(List.IndexOf(TCurrency::FromDouble(0.3)), 0);
    QCOMPARE(List.IndexOf(TCurrency::FromDouble(0.0001)), 1);
    QCOMPARE(List.IndexOf(TCurrency::FromDouble(0.0002)), -1);
    QCOMPARE(List.Extract(TCurrency::FromDouble(7)).Scaled(), std::int64_t{0});
    QCOMPARE(List.Extract(TCurrency::FromDouble(0.3)).Scaled(), std::int64_t{3000});
    QCOMPARE(List.Count(), 1);
  }

  void shouldHoldNoObjectsBeforeTheFirstAddAndAfterClear() {
    TCountedList List;
    QCOMPARE(List.GetCount(), 0);
    QVERIFY(List.GetList(0) == nullptr);
    TSimpleObj* First = List.Add();
    List.Add();
    QCOMPARE(List.GetCount(), 2);
    QCOMPARE(List.GetList(0), First);
    QCOMPARE(TCounted::Alive, 2);
    QVERIFY_THROWS_EXCEPTION(EListError, List.GetList(2));
    List.Clear();
    QCOMPARE(TCounted::Alive, 0);
    QCOMPARE(List.GetCount(), 0);
    QVERIFY(List.GetList(0) == nullptr);
  }

  void shouldFreeItsObjectsWithTheList() {
    {
      TCountedList List;
      List.Add();
      List.Add();
    }
    QCOMPARE(TCounted::Alive, 0);
  }

  void shouldRefuseToAddInAListWithoutAnItemClass() {
    TSimpleObjList List;
    QVERIFY_THROWS_EXCEPTION(std::logic_error, List.Add());
    QCOMPARE(List.GetCount(), 0);
  }

  void shouldKeepStatesByOrdinal() {
    const TPOStates States{TPOState::poUnposted, TPOState::poCancelled};
    QCOMPARE(States.Bits(), 0b100001U);
    QVERIFY(!States.Contains(TPOState::poPaid));
  }
};

QTEST_GUILESS_MAIN(tst_ValueLists)
#include "tst_ValueLists.moc"
