#include <QTest>
#include <algorithm>

#include "ads/EDatabaseError.h"
#include "ads/sql/References.h"

using ads::sql::ReferencesOf;

class tst_References : public QObject {
  Q_OBJECT

  static QString Shown(const std::vector<std::string>& Names) {
    QStringList Result;
    for (const std::string& Name : Names) Result << QString::fromStdString(Name);
    return Result.join('|');
  }
  static QString Columns(const std::string& Sql) {
    QStringList Result;
    for (const auto& Column : ReferencesOf(Sql).Columns) {
      Result << Shown(Column.Tables) + "." + QString::fromStdString(Column.Name);
    }
    return Result.join(' ');
  }

 private Q_SLOTS:
  void shouldFindTablesAndColumns_data() {
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<QString>("Tables");
    QTest::addColumn<QString>("Found");
    QTest::newRow("one table") << "SELECT Zip, UPPER(Zip) SortFld FROM Area WHERE Zip LIKE '%A%'"
                               << "Area"
                               << "Area.Zip";
    QTest::newRow("other names") << "SELECT C.ID, c.[Desc] FROM Cust C INNER JOIN CustBal AS B ON B.CustID = C.ID"
                                 << "Cust|CustBal"
                                 << "Cust.ID Cust.Desc CustBal.CustID";
    QTest::newRow("listed tables") << "SELECT I.Item FROM Item I, ItemDet D WHERE D.OnHand > 0"
                                   << "Item|ItemDet"
                                   << "Item.Item ItemDet.OnHand";
    QTest::newRow("a name alone among two") << "SELECT I.Qty FROM ItemCost I LEFT OUTER JOIN Loc l ON i.L = l.ID "
                                               "WHERE Item = 'x'"
                                            << "ItemCost|Loc"
                                            << "ItemCost.Qty ItemCost.L Loc.ID ItemCost|Loc.Item";
    QTest::newRow("parts of a union") << "SELECT A.X FROM T A UNION ALL SELECT A.Y FROM U A ORDER BY X DESC"
                                      << "T|U"
                                      << "T.X U.Y U.X";
    QTest::newRow("a query for a table") << "SELECT Q.N FROM (SELECT T.A N FROM T) Q WHERE Q.N > 1"
                                         << "T"
                                         << "T.A";
    QTest::newRow("a query among the conditions")
        << "SELECT A.ID FROM A WHERE NOT EXISTS (SELECT B.ID FROM B WHERE B.Ref = A.Key)"
        << "A|B"
        << "A.ID B.ID B.Ref A.Key";
    QTest::newRow("joins in parentheses") << "SELECT A.X FROM (T A INNER JOIN U B ON A.X = B.Y) LEFT JOIN V C ON C.Z = "
                                             "B.Y"
                                          << "T|U|V"
                                          << "T.X U.Y V.Z";
    QTest::newRow("in any case") << "SELECT a.x, A.X FROM [t] A, T b"
                                 << "t"
                                 << "t.x";
  }
  void shouldFindTablesAndColumns() {
    QFETCH(const QString, Sql);
    QFETCH(const QString, Tables);
    QFETCH(const QString, Found);
    QCOMPARE(Shown(ReferencesOf(Sql.toStdString()).Tables), Tables);
    QCOMPARE(Columns(Sql.toStdString()), Found);
  }

  void shouldRefuseWhatCannotBeTakenApart() {
    QVERIFY_EXCEPTION_THROWN(ReferencesOf("SELECT (A FROM T"), ads::EDatabaseError);
    QVERIFY_EXCEPTION_THROWN(ReferencesOf("SELECT 'A FROM T"), ads::EDatabaseError);
  }
};

QTEST_MAIN(tst_References)
#include "tst_References.moc"
