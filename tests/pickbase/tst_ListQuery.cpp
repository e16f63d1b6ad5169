// The lines of a list query, as a dialog's recipe adds them.
#include <QTest>

#include "ads/Query.h"
#include "pickbase/ListQuery.h"

using namespace uDocPickBase;

namespace {

using TLines = std::vector<std::string>;

TLines LinesOf(const ads::TSQLLines& SQL) {
  return {SQL.begin(), SQL.end()};
}

TPickChoices Choices() {
  return {{"Code", "UPPER(C.ID) SortFld", Contains("AND UPPER(C.ID)")},
          {"Date", "C.[Date] SortFld", OnDate("AND C.[Date]")},
          {"All", "SELECT C.ID, 1 SortFld", {}}};
}

// A search for O'Neil with blanks around it.
TQueryState Searching(int OrderBy, int FindBy, bool Descending = false) {
  TQueryState State;
  State.OrderBy = OrderBy;
  State.FindBy = FindBy;
  State.Descending = Descending;
  State.WithFind = true;
  State.FindText = "O''NEIL";
  State.Typed = " O'Neil ";
  State.FindDate = "2026-03-31";
  return State;
}

TQueryState WithoutText(int OrderBy, int FindBy) {
  TQueryState State = Searching(OrderBy, FindBy);
  State.WithFind = false;
  State.FindText.clear();
  State.Typed = "  ";
  return State;
}

void Build(TListQuery& Query) {
  Query.Select("SELECT C.ID, ");
  Query.Add("FROM Cust C");
  Query.Add("WHERE 0=0");
  Query.Keep();
  Query.Find();
  Query.OrderBy();
}

TLines Built(const TQueryState& State, bool FindLines = true) {
  ads::TSQLLines SQL;
  TListQuery Query(SQL, State, Choices(), FindLines);
  Build(Query);
  return LinesOf(SQL);
}

}  // namespace

class tst_ListQuery : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldAddTheLinesInOrder();
  void shouldClearTheLinesFirst();
  void shouldTakeTheSelectLineOfTheChosenOrder();
  void shouldTakeAWholeSelectLineAsItIs();
  void shouldAddNoSelectLineForAnOrderThatThereIsNot();
  void shouldAddNoFindLineWithoutText();
  void shouldAddNoFindLineForAFindByThatThereIsNot();
  void shouldSpellEachKindOfFindLine_data();
  void shouldSpellEachKindOfFindLine();
  void shouldBuildTheSameQueryOfHarmlessValues();
  void shouldFindWhateverIsChosenWhenAskedTo();
  void shouldLeaveOutFindLinesInARebuild();
  void shouldPutTheKeptTextBackAsOneEntry();
  void shouldRebuildLineByLineWithoutAKeptText();
  void shouldOrderInTheAskedDirection();
  void shouldGiveTheTextsThatAMultiPartQueryPutsTogether();
  void shouldTakeTheCaptionOfAFieldsColumn();
};

void tst_ListQuery::shouldAddTheLinesInOrder() {
  QCOMPARE(Built(Searching(0, 0)), (TLines{"SELECT C.ID, UPPER(C.ID) SortFld", "FROM Cust C", "WHERE 0=0",
                                           "AND UPPER(C.ID) LIKE '%O''NEIL%'", "ORDER BY SortFld"}));
}

void tst_ListQuery::shouldClearTheLinesFirst() {
  ads::TSQLLines SQL;
  SQL.Add("SELECT what was there before");
  const TListQuery Query(SQL, Searching(0, 0), Choices(), true);
  QCOMPARE(SQL.Count(), 0);
}

void tst_ListQuery::shouldTakeTheSelectLineOfTheChosenOrder() {
  QCOMPARE(Built(Searching(0, 1)).front(), std::string("SELECT C.ID, UPPER(C.ID) SortFld"));
  QCOMPARE(Built(Searching(1, 0)).front(), std::string("SELECT C.ID, C.[Date] SortFld"));
}

void tst_ListQuery::shouldTakeAWholeSelectLineAsItIs() {
  QCOMPARE(Built(Searching(2, 0)).front(), std::string("SELECT C.ID, 1 SortFld"));
}

void tst_ListQuery::shouldAddNoSelectLineForAnOrderThatThereIsNot() {
  QCOMPARE(Built(Searching(-1, 0)).front(), std::string("FROM Cust C"));
  QCOMPARE(Built(Searching(3, 0)).front(), std::string("FROM Cust C"));
}

void tst_ListQuery::shouldAddNoFindLineWithoutText() {
  QCOMPARE(Built(WithoutText(0, 0)),
           (TLines{"SELECT C.ID, UPPER(C.ID) SortFld", "FROM Cust C", "WHERE 0=0", "ORDER BY SortFld"}));
}

void tst_ListQuery::shouldAddNoFindLineForAFindByThatThereIsNot() {
  for (const int FindBy : {-1, 2, 3}) {
    QCOMPARE(Built(Searching(0, FindBy)),
             (TLines{"SELECT C.ID, UPPER(C.ID) SortFld", "FROM Cust C", "WHERE 0=0", "ORDER BY SortFld"}));
  }
}

void tst_ListQuery::shouldSpellEachKindOfFindLine_data() {
  QTest::addColumn<int>("Kind");
  QTest::addColumn<QString>("Line");
  const auto Row = [](const char* Name, TFindKind Kind, const char* Line) {
    QTest::newRow(Name) << static_cast<int>(Kind) << QString::fromLatin1(Line);
  };
  Row("none", TFindKind::None, "");
  Row("contains", TFindKind::Contains, "AND X LIKE '%O''NEIL%'");
  Row("ends with", TFindKind::EndsWith, "AND X LIKE '%O''NEIL'");
  Row("whole", TFindKind::Whole, "AND X LIKE 'O''NEIL'");
  Row("date", TFindKind::Date, "AND X = '2026-03-31'");
  Row("number", TFindKind::Number, "AND X = O'Neil");
  Row("typed number", TFindKind::TypedNumber, "AND X =  O'Neil ");
  Row("typed integer", TFindKind::TypedInteger, "AND X =  O'Neil ");
}

void tst_ListQuery::shouldSpellEachKindOfFindLine() {
  QFETCH(int, Kind);
  QFETCH(QString, Line);
  const TPickChoices One{{"X", "X SortFld", TFindRule{static_cast<TFindKind>(Kind), "AND X"}}};
  ads::TSQLLines SQL;
  TListQuery Query(SQL, Searching(0, 0), One, true);
  Query.Find();
  QCOMPARE(LinesOf(SQL), Line.isEmpty() ? TLines{} : TLines{Line.toStdString()});
}

void tst_ListQuery::shouldBuildTheSameQueryOfHarmlessValues() {
  const auto BuiltFor = [](TListQuery::TValues Values, int FindBy) {
    ads::TSQLLines SQL;
    TListQuery Query(SQL, Searching(1, FindBy), Choices(), true, Values);
    Query.Add("WHERE A = '" + Query.Passed("x' OR '1'='1") + "'");
    Query.Find();
    return LinesOf(SQL);
  };
  QCOMPARE(BuiltFor(TListQuery::TValues::AsTheyAre, 0),
           (TLines{"WHERE A = 'x' OR '1'='1'", "AND UPPER(C.ID) LIKE '%O''NEIL%'"}));
  QCOMPARE(BuiltFor(TListQuery::TValues::Harmless, 0), (TLines{"WHERE A = 'X'", "AND UPPER(C.ID) LIKE '%X%'"}));
  QCOMPARE(BuiltFor(TListQuery::TValues::Harmless, 1), (TLines{"WHERE A = 'X'", "AND C.[Date] = '2000-01-01'"}));
}

void tst_ListQuery::shouldFindWhateverIsChosenWhenAskedTo() {
  ads::TSQLLines SQL;
  TListQuery Query(SQL, Searching(0, -1), Choices(), true);
  Query.FindAlways(Contains("WHERE UPPER(Zip)"));
  QCOMPARE(LinesOf(SQL), (TLines{"WHERE UPPER(Zip) LIKE '%O''NEIL%'"}));

  ads::TSQLLines Blank;
  TListQuery(Blank, WithoutText(0, -1), Choices(), true).FindAlways(Contains("WHERE UPPER(Zip)"));
  QCOMPARE(Blank.Count(), 0);
}

void tst_ListQuery::shouldLeaveOutFindLinesInARebuild() {
  ads::TSQLLines SQL;
  TListQuery Query(SQL, Searching(0, 0), Choices(), false);
  Query.Find();
  Query.FindAlways(Contains("AND UPPER(Zip)"));
  QCOMPARE(SQL.Count(), 0);
  QCOMPARE(Query.FindText(Choices()), std::string());
}

void tst_ListQuery::shouldPutTheKeptTextBackAsOneEntry() {
  QCOMPARE(Built(Searching(0, 0, true), false),
           (TLines{"SELECT C.ID, UPPER(C.ID) SortFld\nFROM Cust C\nWHERE 0=0", "ORDER BY SortFld DESC"}));
}

void tst_ListQuery::shouldRebuildLineByLineWithoutAKeptText() {
  ads::TSQLLines SQL;
  TListQuery Query(SQL, Searching(0, 0), Choices(), false);
  Query.Select("SELECT C.ID, ");
  Query.Add("FROM Cust C");
  Query.Find();
  Query.Add("GROUP BY C.ID");
  Query.OrderBy();
  QCOMPARE(LinesOf(SQL),
           (TLines{"SELECT C.ID, UPPER(C.ID) SortFld", "FROM Cust C", "GROUP BY C.ID", "ORDER BY SortFld"}));
}

void tst_ListQuery::shouldOrderInTheAskedDirection() {
  ads::TSQLLines SQL;
  TListQuery Query(SQL, Searching(0, 0, true), Choices(), true);
  Query.OrderBy();
  Query.OrderBy("SortFLD");
  Query.OrderBy("Period", false);
  QCOMPARE(LinesOf(SQL), (TLines{"ORDER BY SortFld DESC", "ORDER BY SortFLD DESC", "ORDER BY Period"}));
}

void tst_ListQuery::shouldGiveTheTextsThatAMultiPartQueryPutsTogether() {
  ads::TSQLLines SQL;
  const TListQuery Query(SQL, Searching(1, 0), Choices(), true);
  QCOMPARE(Query.SelectText("SELECT ", Choices()), std::string("SELECT C.[Date] SortFld"));
  QCOMPARE(Query.SelectText("SELECT ", TPickChoices{}), std::string());
  QCOMPARE(Query.FindText(Choices()), std::string("AND UPPER(C.ID) LIKE '%O''NEIL%'"));
  QCOMPARE(Query.FindText(TPickChoices{}), std::string());
  QCOMPARE(SQL.Count(), 0);
}

void tst_ListQuery::shouldTakeTheCaptionOfAFieldsColumn() {
  ads::TAdsQuery DataSet(nullptr);
  ads::TField* Field = DataSet.AddField("Zip", ads::TFieldType::ftString, 30);
  Field->SetDisplayLabel("Postcode");
  const TPickChoice Choice(Field, "UPPER(Zip) SortFld", EndsWith("AND Zip"));
  QCOMPARE(Choice.Caption, std::string("Postcode"));
  QCOMPARE(Choice.Sort, std::string("UPPER(Zip) SortFld"));
  QCOMPARE(Choice.Find.Kind, TFindKind::EndsWith);
  QCOMPARE(Choice.Find.Start, std::string("AND Zip"));
}

QTEST_APPLESS_MAIN(tst_ListQuery)
#include "tst_ListQuery.moc"
