#include <QDir>
#include <QTest>

#include "support/ProgramRun.h"
#include "support/TestCompany.h"

namespace {

constexpr int Fit = 0;
constexpr int Unfit = 1;
constexpr int WrongUsage = 2;
constexpr int DatabaseError = 3;

using support::TRun;

// The program itself, to its end, where there is no display.
TRun Run(const QStringList& Words) {
  QProcessEnvironment Variables = QProcessEnvironment::systemEnvironment();
  for (const char* Name : {"ZUL_DB", "QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) {
    Variables.remove(QLatin1String(Name));
  }
  Variables.insert("XDG_RUNTIME_DIR", QDir::tempPath());
  return support::RunProgram(QStringLiteral(ZUL_PROGRAM), Words, Variables, 200000);
}

}  // namespace

class tst_ZulpickCheck : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldFindTheSampleCompanyFit();
  void shouldCheckOnePickAlone();
  void shouldTellWhatIsMissing();
  void shouldTakeAMissingIndexForAdvice();
  void shouldRefuseAWrongCommandLine_data();
  void shouldRefuseAWrongCommandLine();
  void shouldFailOverWhatCannotBeAsked_data();
  void shouldFailOverWhatCannotBeAsked();
};

void tst_ZulpickCheck::shouldFindTheSampleCompanyFit() {
  support::TTestCompany Company;
  const TRun Result = Run({"--check", "--db", QString::fromStdString(Company.FileName())});
  QVERIFY2(Result.Code == Fit, qPrintable(Result.Output + Result.Errors));
  QVERIFY(Result.Output.startsWith("Database: "));
  QVERIFY(Result.Output.contains("\nServer: SQLite "));
  QVERIFY(Result.Output.contains("\nChecked: 55 picks, "));
  QVERIFY(Result.Output.endsWith("\nThe database is fit for all of them.\n"));
  QVERIFY(!Result.Output.contains("WHAT IS MISSING"));
  QVERIFY(!Result.Output.contains("WORTH HAVING"));
  QVERIFY2(!Result.Errors.contains("plugin"), qPrintable(Result.Errors));
}

void tst_ZulpickCheck::shouldCheckOnePickAlone() {
  support::TTestCompany Company;
  Company.Execute("DROP TABLE Cust");
  const TRun City = Run({"--check", "city", "--db", QString::fromStdString(Company.FileName())});
  QCOMPARE(City.Code, Fit);
  QVERIFY(
      City.Output.contains("\n  city: works, 5 queries\n      Area (Zip)\n      Sys (MultiAcct, MultiLoc, PrcDec, "
                           "QtyDec)\n"));
  const TRun Customer = Run({"--check", "customer", "--db", QString::fromStdString(Company.FileName())});
  QCOMPARE(Customer.Code, Unfit);
}

void tst_ZulpickCheck::shouldTellWhatIsMissing() {
  support::TTestCompany Company;
  Company.Execute("DROP TABLE Area");
  const TRun Result = Run({"--check", "--db", QString::fromStdString(Company.FileName())});
  QVERIFY2(Result.Code == Unfit, qPrintable(Result.Errors));
  QVERIFY(
      Result.Output.contains("\nWHAT IS MISSING\n\nTable Area is missing, with the columns Zip.\n    Concerns city\n"));
  QVERIFY(Result.Output.contains("\n  city: DOES NOT WORK, "));
  QVERIFY(Result.Output.endsWith("\n54 of 55 picks will work.\n"));
}

void tst_ZulpickCheck::shouldTakeAMissingIndexForAdvice() {
  support::TTestCompany Company;
  Company.Execute("DROP INDEX PK_ZIP");
  const TRun Result = Run({"city", "--check", "--db", QString::fromStdString(Company.FileName())});
  QCOMPARE(Result.Code, Fit);
  QVERIFY(Result.Output.contains(
      "\nWORTH HAVING\n\nNo index of table Area begins with Zip.\n    Concerns city\n    CREATE INDEX [PK_ZIP] ON "
      "[Area] ([Zip]);\n"));
}

void tst_ZulpickCheck::shouldRefuseAWrongCommandLine_data() {
  QTest::addColumn<QStringList>("Words");
  QTest::newRow("unknown pick") << QStringList{"--check", "citi"};
  QTest::newRow("option of the pick") << QStringList{"--check", "period", "--include-closed"};
  QTest::newRow("value") << QStringList{"--check=city"};
}

void tst_ZulpickCheck::shouldRefuseAWrongCommandLine() {
  QFETCH(const QStringList, Words);
  const TRun Result = Run(Words);
  QVERIFY2(Result.Code == WrongUsage, qPrintable(Result.Errors));
  QCOMPARE(Result.Output, QString());
}

void tst_ZulpickCheck::shouldFailOverWhatCannotBeAsked_data() {
  QTest::addColumn<QString>("Address");
  QTest::newRow("no file") << "/nowhere/none.db";
  QTest::newRow("no database") << ZUL_PROGRAM;
  QTest::newRow("refusing server") << "postgresql://nobody@127.0.0.1:1/none";
}

void tst_ZulpickCheck::shouldFailOverWhatCannotBeAsked() {
  QFETCH(const QString, Address);
  const TRun Result = Run({"--check", "--db", Address});
  QVERIFY2(Result.Code == DatabaseError, qPrintable(Result.Errors));
  QVERIFY(Result.Errors.contains("zulpick: "));
  QCOMPARE(Result.Output, QString());
}

QTEST_MAIN(tst_ZulpickCheck)
#include "tst_ZulpickCheck.moc"
