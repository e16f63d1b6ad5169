#include <QTest>

#include "toolkit/Lists.h"

using toolkit::EListError;
using toolkit::TStringList;

namespace {

class TNumberList : public toolkit::TList<int> {};

}  // namespace

class tst_Lists : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldKeepTheOrderOfAdding() {
    TStringList List;
    QCOMPARE(List.Add("b"), 0);
    QCOMPARE(List.Add("a"), 1);
    QCOMPARE(List.Count(), 2);
    QCOMPARE(List[0], std::string("b"));
    QCOMPARE(List.Get(1), std::string("a"));
  }

  void shouldInsertInFrontAndAtTheEnd() {
    TStringList List;
    List.Insert(0, "b");
    List.Insert(0, "a");
    List.Insert(2, "c");
    QCOMPARE(List.Text(), std::string("a\nb\nc\n"));
  }

  void shouldFindTheFirstEqualValue() {
    TNumberList List;
    for (const int Value : {7, 9, 9}) List.Add(Value);
    QCOMPARE(List.IndexOf(9), 1);
    QCOMPARE(List.IndexOf(8), -1);
  }

  void shouldReplaceDeleteAndClear() {
    TNumberList List;
    for (const int Value : {1, 2, 3}) List.Add(Value);
    List.Put(1, 5);
    List.Delete(0);
    QCOMPARE(List.Count(), 2);
    QCOMPARE(List[0], 5);
    QCOMPARE(List[1], 3);
    List.Clear();
    QCOMPARE(List.Count(), 0);
    QCOMPARE(List.IndexOf(5), -1);
  }

  void shouldNameTheIndexThatThereIsNot() {
    TNumberList List;
    List.Add(1);
    try {
      List.Get(3);
      QFAIL("an index behind the end was taken");
    } catch (const EListError& Error) {
      QCOMPARE(std::string(Error.what()), std::string("List index out of bounds (3)"));
    }
  }

  void shouldRefuseBadIndexesEverywhere() {
    TNumberList List;
    List.Add(1);
    for (const int Index : {-1, 1}) {
      QVERIFY_THROWS_EXCEPTION(EListError, List[Index]);
      QVERIFY_THROWS_EXCEPTION(EListError, List.Put(Index, 0));
      QVERIFY_THROWS_EXCEPTION(EListError, List.Delete(Index));
    }
    QVERIFY_THROWS_EXCEPTION(EListError, List.Insert(-1, 0));
    QVERIFY_THROWS_EXCEPTION(EListError, List.Insert(2, 0));
    QCOMPARE(List.Count(), 1);
  }

  void shouldEndEveryLineOfItsText() {
    TStringList List;
    QCOMPARE(List.Text(), std::string());
    List.Add("");
    List.Add("x");
    QCOMPARE(List.Text(), std::string("\nx\n"));
  }

  void shouldCopyIndependently() {
    TStringList List;
    List.Add("a");
    TStringList Copy(List);
    Copy.Add("b");
    QCOMPARE(List.Count(), 1);
    List = Copy;
    QCOMPARE(List.Count(), 2);
  }
};

QTEST_GUILESS_MAIN(tst_Lists)
#include "tst_Lists.moc"
