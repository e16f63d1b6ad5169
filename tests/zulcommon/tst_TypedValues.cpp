#include <QLocale>
#include <QTest>
#include <limits>

#include "zulcommon/DisplayFormats.h"
#include "zulcommon/TypedValues.h"

using namespace zulcommon;

namespace {

const QDate Today(2025, 11, 21);

std::optional<QDate> Read(const QString& Typed) {
  return ReadDate(Typed.toStdString(), Today);
}

}  // namespace

class tst_TypedValues : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup();
  void shouldReadDatesByThePattern_data();
  void shouldReadDatesByThePattern();
  void shouldRefuseWhatIsNoDate_data();
  void shouldRefuseWhatIsNoDate();
  void shouldReadTwoDigitYearsAroundToday();
  void shouldReadDatesOfTheLocale();
  void shouldReadWhatItShows();
  void shouldTakeTheCurrentDayByItself();
  void shouldReadIntegers_data();
  void shouldReadIntegers();
  void shouldRefuseWhatIsNoInteger_data();
  void shouldRefuseWhatIsNoInteger();
  void shouldReadNumbers_data();
  void shouldReadNumbers();
  void shouldRefuseWhatIsNoNumber_data();
  void shouldRefuseWhatIsNoNumber();
  void shouldReadNumbersTheSameInEveryLocale();
  void shouldSpellPlainlyWhatTheUserTypes_data();
  void shouldSpellPlainlyWhatTheUserTypes();
  void shouldReadTheNumbersThatItShows();
};

void tst_TypedValues::init() {
  QLocale::setDefault(QLocale("en_AU"));
}

void tst_TypedValues::cleanup() {
  SetShortDateFormat("");
  QLocale::setDefault(QLocale::system());
}

void tst_TypedValues::shouldReadDatesByThePattern_data() {
  QTest::addColumn<QString>("Pattern");
  QTest::addColumn<QString>("Typed");
  QTest::addColumn<QDate>("Date");
  const QDate Day(2026, 2, 1);
  const QDate ThisYear(2025, 2, 1);
  QTest::newRow("short") << "dd/mm/yyyy"
                         << "1/2/26" << Day;
  QTest::newRow("long") << "dd/mm/yyyy"
                        << "01/02/2026" << Day;
  QTest::newRow("mixed") << "dd/mm/yyyy"
                         << "1/02/2026" << Day;
  QTest::newRow("year left out") << "dd/mm/yyyy"
                                 << "1/2" << ThisYear;
  QTest::newRow("blanks around") << "dd/mm/yyyy"
                                 << " \t1/2/26 \t" << Day;
  QTest::newRow("four digits where two are shown") << "d/m/yy"
                                                   << "01/02/2026" << Day;
  QTest::newRow("month first") << "m/d/yy"
                               << "2/1/26" << Day;
  QTest::newRow("month first, year left out") << "m/d/yy"
                                              << "2/1" << ThisYear;
  QTest::newRow("year first") << "yyyy-mm-dd"
                              << "2026-02-01" << Day;
  QTest::newRow("year first, short") << "yyyy-mm-dd"
                                     << "26-2-1" << Day;
  QTest::newRow("year first, left out") << "yyyy-mm-dd"
                                        << "11-21" << Today;
  QTest::newRow("year between") << "dd/yyyy-mm"
                                << "01/2026-02" << Day;
  QTest::newRow("year between, left out") << "dd/yyyy-mm"
                                          << "01/02" << ThisYear;
  QTest::newRow("points") << "dd.mm.yy"
                          << "1.2.26" << Day;
  QTest::newRow("blanks") << "d m yyyy"
                          << "1 2 2026" << Day;
  QTest::newRow("two separators") << "dd/mm-yyyy"
                                  << "1/2-2026" << Day;
  QTest::newRow("blanks beside points, typed") << "d. m. yyyy"
                                               << "1. 2. 2026" << Day;
  QTest::newRow("blanks beside points, not typed") << "d. m. yyyy"
                                                   << "1.2.2026" << Day;
  QTest::newRow("point behind, typed") << "d.m.yyyy."
                                       << "1.2.2026." << Day;
  QTest::newRow("point behind, not typed") << "d.m.yyyy."
                                           << "1.2.2026" << Day;
  QTest::newRow("point behind, year left out") << "d.m.yyyy."
                                               << "1.2." << ThisYear;
  QTest::newRow("leap day") << "dd/mm/yyyy"
                            << "29/02/2024" << QDate(2024, 2, 29);
  QTest::newRow("first year") << "dd/mm/yyyy"
                              << "01/01/0001" << QDate(1, 1, 1);
  QTest::newRow("last year") << "dd/mm/yyyy"
                             << "31/12/9999" << QDate(9999, 12, 31);
}

void tst_TypedValues::shouldReadDatesByThePattern() {
  QFETCH(QString, Pattern);
  QFETCH(QString, Typed);
  QFETCH(QDate, Date);
  SetShortDateFormat(Pattern.toStdString());
  const std::optional<QDate> Result = Read(Typed);
  QVERIFY(Result.has_value());
  QCOMPARE(*Result, Date);
}

void tst_TypedValues::shouldRefuseWhatIsNoDate_data() {
  QTest::addColumn<QString>("Pattern");
  QTest::addColumn<QString>("Typed");
  const QString Common = "dd/mm/yyyy";
  const char* const Wrong[] = {
      "",          " ",        "x",          "1",       "1/",         "1/2/",      "/1/2",     "1//26",    "1-2-2026",
      "1.2.2026",  "1/2-2026", "1 / 2 / 26", "1/2/2",   "1/2/026",    "1/2/02026", "30/2/26",  "29/2/25",  "29/2",
      "31/4/2026", "0/1/26",   "1/0/26",     "1/13/26", "32/1/26",    "001/2/26",  "1/002/26", "1/2/0000", "1/2/26/3",
      "1/2/26x",   "x1/2/26",  "-1/2/26",    "+1/2/26", "1/2/2026 0", "01022026",  "today",    "１/２/26", "1/2/26\n"};
  for (const char* const Typed : Wrong) QTest::newRow(Typed) << Common << QString::fromUtf8(Typed);
  QTest::newRow("year first, three digits") << "yyyy-mm-dd"
                                            << "202-01-01";
  QTest::newRow("order of another pattern") << "yyyy-mm-dd"
                                            << "01-02-2026";
  QTest::newRow("year between, with its separator") << "dd/yyyy-mm"
                                                    << "01-02";
  QTest::newRow("a blank that is the separator") << "d m yyyy"
                                                 << "1 22026";
  QTest::newRow("point behind twice") << "d.m.yyyy."
                                      << "1.2.2026..";
}

void tst_TypedValues::shouldRefuseWhatIsNoDate() {
  QFETCH(QString, Pattern);
  QFETCH(QString, Typed);
  SetShortDateFormat(Pattern.toStdString());
  QVERIFY(!Read(Typed).has_value());
}

void tst_TypedValues::shouldReadTwoDigitYearsAroundToday() {
  SetShortDateFormat("dd/mm/yyyy");
  QCOMPARE(Read("1/1/25")->year(), 2025);
  QCOMPARE(Read("1/1/00")->year(), 2000);
  QCOMPARE(Read("1/1/75")->year(), 2075);  // fifty years ahead
  QCOMPARE(Read("1/1/76")->year(), 1976);  // forty-nine back
  QCOMPARE(Read("1/1/99")->year(), 1999);
  QCOMPARE(ReadDate("1/1/49", QDate(1999, 12, 31))->year(), 2049);
  QCOMPARE(ReadDate("1/1/50", QDate(1999, 12, 31))->year(), 1950);
  QCOMPARE(ReadDate("1/1/50", QDate(2000, 1, 1))->year(), 2050);
  QCOMPARE(ReadDate("1/1/51", QDate(2000, 1, 1))->year(), 1951);
}

void tst_TypedValues::shouldReadDatesOfTheLocale() {
  QCOMPARE(Read("1/2/26"), std::optional(QDate(2026, 2, 1)));
  QLocale::setDefault(QLocale("en_US"));
  QCOMPARE(Read("1/2/26"), std::optional(QDate(2026, 1, 2)));
  QLocale::setDefault(QLocale("de_DE"));
  QCOMPARE(Read("1.2.2026"), std::optional(QDate(2026, 2, 1)));
  QVERIFY(!Read("1/2/26").has_value());
  QLocale::setDefault(QLocale::c());
  QCOMPARE(Read("2026-02-01"), std::optional(QDate(2026, 2, 1)));
  QVERIFY(!Read("1 Feb 2026").has_value());
}

void tst_TypedValues::shouldReadWhatItShows() {
  const QList<QLocale> Locales =
      QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
  QVERIFY(Locales.size() > 100);
  const QDate Day(2026, 2, 1);
  for (const QLocale& Locale : Locales) {
    QLocale::setDefault(Locale);
    QVERIFY2(Read(QString::fromStdString(FormatShortDate(Day))) == Day, qPrintable(Locale.name()));
  }
}

void tst_TypedValues::shouldTakeTheCurrentDayByItself() {
  SetShortDateFormat("dd/mm/yyyy");
  const int Before = QDate::currentDate().year();
  const std::optional<QDate> Date = ReadDate("15/6");
  const int After = QDate::currentDate().year();
  QVERIFY(Date.has_value());
  QVERIFY(Date->year() == Before || Date->year() == After);
  QCOMPARE(Date->month(), 6);
  QVERIFY(!ReadDate("15/16").has_value());
}

void tst_TypedValues::shouldReadIntegers_data() {
  QTest::addColumn<QString>("Typed");
  QTest::addColumn<int>("Value");
  QTest::newRow("zero") << "0" << 0;
  QTest::newRow("positive") << "+7" << 7;
  QTest::newRow("negative") << "-7" << -7;
  QTest::newRow("blanks around") << " \t42 " << 42;
  QTest::newRow("leading zeros") << "000000000000042" << 42;
  QTest::newRow("largest") << "2147483647" << std::numeric_limits<int>::max();
  QTest::newRow("smallest") << "-2147483648" << std::numeric_limits<int>::min();
}

void tst_TypedValues::shouldReadIntegers() {
  QFETCH(QString, Typed);
  QFETCH(int, Value);
  QCOMPARE(ReadInteger(Typed.toStdString()), std::optional<std::int32_t>(Value));
}

void tst_TypedValues::shouldRefuseWhatIsNoInteger_data() {
  QTest::addColumn<QString>("Typed");
  const char* const Wrong[] = {"",
                               " ",
                               "x",
                               "7x",
                               "x7",
                               "7.0",
                               "7.",
                               "1e3",
                               "0x10",
                               "$10",
                               "1,000",
                               "1 000",
                               "+-7",
                               "--7",
                               "-+7",
                               "+",
                               "-",
                               "- 7",
                               "7-",
                               "7\n",
                               "2147483648",
                               "-2147483649",
                               "99999999999999999999",
                               "７"};
  for (const char* const Typed : Wrong) QTest::newRow(Typed) << QString::fromUtf8(Typed);
}

void tst_TypedValues::shouldRefuseWhatIsNoInteger() {
  QFETCH(QString, Typed);
  QVERIFY(!ReadInteger(Typed.toStdString()).has_value());
}

void tst_TypedValues::shouldReadNumbers_data() {
  QTest::addColumn<QString>("Typed");
  QTest::addColumn<double>("Value");
  QTest::newRow("whole") << "100" << 100.0;
  QTest::newRow("decimal") << "12.5" << 12.5;
  QTest::newRow("point behind") << "1." << 1.0;
  QTest::newRow("point in front") << ".5" << 0.5;
  QTest::newRow("exponent") << "1e3" << 1000.0;
  QTest::newRow("exponent with signs") << "-1.5E-3" << -0.0015;
  QTest::newRow("exponent with plus") << "1e+3" << 1000.0;
  QTest::newRow("exponent behind a point") << "1.e2" << 100.0;
  QTest::newRow("plus") << "+2" << 2.0;
  QTest::newRow("blanks around") << " 3 " << 3.0;
  QTest::newRow("tabs around") << "\t3\t" << 3.0;
  QTest::newRow("all digits") << "0.1000000000000000055511151231257827" << 0.1;
  QTest::newRow("largest") << "1.7976931348623157e308" << std::numeric_limits<double>::max();
  QTest::newRow("smallest") << "5e-324" << std::numeric_limits<double>::denorm_min();
  QTest::newRow("too small") << "1e-999" << 0.0;
  QTest::newRow("too small without exponent") << "0." + QString(400, '0') + "1" << 0.0;
  QTest::newRow("far too small") << "1e-99999999999999999999" << 0.0;
  QTest::newRow("zero times anything") << "0e999" << 0.0;
  QTest::newRow("small digits, large exponent") << "0." + QString(400, '0') + "1e401" << 1.0;
}

void tst_TypedValues::shouldReadNumbers() {
  QFETCH(QString, Typed);
  QFETCH(double, Value);
  const std::optional<double> Result = ReadNumber(Typed.toStdString());
  QVERIFY(Result.has_value());
  QVERIFY(*Result == Value);
}

void tst_TypedValues::shouldRefuseWhatIsNoNumber_data() {
  QTest::addColumn<QString>("Typed");
  const char* const Wrong[] = {
      "",      " ",    ".",     "+",   "-",    "+.",       "e3",    ".e3",   "1e",     "1e+",
      "1,000", "1,5",  "0x10",  "inf", "-inf", "infinity", "nan",   "1e999", "-1e999", "1e99999999999999999999",
      "1 2",   "1..2", "1.2.3", "--1", "+-1",  "- 1",      "1e1.5", "1f",    "$1",     "1\n",
      "１"};
  for (const char* const Typed : Wrong) QTest::newRow(Typed) << QString::fromUtf8(Typed);
  QTest::newRow("too large without exponent") << "1" + QString(400, '0');
  QTest::newRow("too large with a negative exponent") << "1" + QString(400, '0') + "e-5";
}

void tst_TypedValues::shouldRefuseWhatIsNoNumber() {
  QFETCH(QString, Typed);
  QVERIFY(!ReadNumber(Typed.toStdString()).has_value());
}

void tst_TypedValues::shouldReadNumbersTheSameInEveryLocale() {
  QLocale::setDefault(QLocale("de_DE"));
  QVERIFY(ReadNumber("12.5") == 12.5);
  QVERIFY(!ReadNumber("12,5").has_value());
}

void tst_TypedValues::shouldSpellPlainlyWhatTheUserTypes_data() {
  QTest::addColumn<QString>("Locale");
  QTest::addColumn<QString>("Typed");
  QTest::addColumn<QString>("Plain");
  const auto Add = [](const char* Locale, const char* Typed, const char* Plain) {
    QTest::addRow("%s %s", Locale, Typed) << QString(Locale) << QString::fromUtf8(Typed) << QString::fromUtf8(Plain);
  };
  Add("de_DE", "12,5", "12.5");
  Add("de_DE", " -0012,50 ", " -0012.50 ");
  Add("fr_FR", "12,5", "12.5");
  Add("hu_HU", "12,5", "12.5");
  Add("bg_BG", ",5", ".5");
  Add("sv_SE", "−12,5", "-12.5");
  Add("ar_EG", "١٢٫٥", "12.5");
  Add("ar_EG", "12٫5", "12.5");
  Add("fa_IR", "\u200e−۱۲٫۵", "-12.5");
  Add("hi_IN", "१२.५", "१२.५");  // Hindi is written in plain digits
  // A point is a point, and nothing else is touched.
  for (const char* Locale : {"de_DE", "fa_IR", "en_AU"}) {
    Add(Locale, "0012.50", "0012.50");
    Add(Locale, " +1.e2", " +1.e2");
    Add(Locale, "12' OR 1=1", "12' OR 1=1");
    Add(Locale, "", "");
  }
  // Groups make it none.
  Add("en_AU", "1,234", "1,234");
  Add("de_DE", "1.234,5", "1.234.5");
  Add("de_DE", "1,234.5", "1.234.5");
  Add("de_CH", "1’234", "1’234");
}

void tst_TypedValues::shouldSpellPlainlyWhatTheUserTypes() {
  QFETCH(QString, Locale);
  QFETCH(QString, Typed);
  QFETCH(QString, Plain);
  QLocale::setDefault(QLocale(Locale));
  QCOMPARE(QString::fromStdString(PlainNumber(Typed.toStdString())), Plain);
}

void tst_TypedValues::shouldReadTheNumbersThatItShows() {
  const QList<QLocale> Locales =
      QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
  for (const QLocale& Locale : Locales) {
    QLocale::setDefault(Locale);
    for (const double Value : {0.0, 12.5, -12.5, -1234.25, 98765.75}) {
      const std::string Shown = FormatNumber("0.00", Value);
      QVERIFY2(ReadNumber(PlainNumber(Shown)) == Value, (Locale.name().toStdString() + ' ' + Shown).c_str());
    }
    QVERIFY2(ReadInteger(PlainNumber(FormatNumber("0", -42))) == -42, qPrintable(Locale.name()));
  }
}

QTEST_GUILESS_MAIN(tst_TypedValues)
#include "tst_TypedValues.moc"
