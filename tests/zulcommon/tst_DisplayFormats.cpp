#include <QLocale>
#include <QTest>
#include <limits>

#include "zulcommon/DisplayFormats.h"
#include "zulcommon/EZULException.h"

using namespace zulcommon;

namespace {

QString Number(const QString& Format, double Value) {
  return QString::fromStdString(FormatNumber(Format.toStdString(), Value));
}

QString Money(const char* Format, std::int64_t Scaled) {
  return QString::fromStdString(FormatNumber(Format, TCurrency::FromScaled(Scaled)));
}

QString Date(const char* Pattern, QDate Day) {
  return QString::fromStdString(FormatDate(Pattern, Day));
}

}  // namespace

class tst_DisplayFormats : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup();
  void shouldFormatNumbers_data();
  void shouldFormatNumbers();
  void shouldRoundTheDecimalsThatAUserReads();
  void shouldFormatMoneyExactly();
  void shouldRoundMoneyAwayFromZero();
  void shouldAgreeOnMoneyAndDoubles();
  void shouldUseTheSignsOfTheLocale();
  void shouldWriteNumbersAsTheLocaleDoes_data();
  void shouldWriteNumbersAsTheLocaleDoes();
  void shouldWriteLargeNumbersInGroupsOfTheLocale();
  void shouldWriteDatesInTheDigitsOfTheLocale();
  void shouldGiveTheShortestNumberForAnEmptyFormat_data();
  void shouldGiveTheShortestNumberForAnEmptyFormat();
  void shouldGiveNothingForNotANumber();
  void shouldFormatDatesByAPattern_data();
  void shouldFormatDatesByAPattern();
  void shouldGiveNothingForAnInvalidDate();
  void shouldTakeTheShortDateFormatOfTheLocale_data();
  void shouldTakeTheShortDateFormatOfTheLocale();
  void shouldFormatShortDates();
  void shouldSetTheShortDateFormat();
  void shouldRefuseAPatternThatCannotBeTyped_data();
  void shouldRefuseAPatternThatCannotBeTyped();
  void shouldFormatMinutes();
};

void tst_DisplayFormats::init() {
  QLocale::setDefault(QLocale("en_AU"));
}

void tst_DisplayFormats::cleanup() {
  SetShortDateFormat("");
  QLocale::setDefault(QLocale::system());
}

void tst_DisplayFormats::shouldFormatNumbers_data() {
  QTest::addColumn<QString>("Format");
  QTest::addColumn<double>("Value");
  QTest::addColumn<QString>("Text");
  QTest::newRow("thousands") << ",0.00" << 1234.5 << "1,234.50";
  QTest::newRow("millions") << ",0.00" << 1234567.891 << "1,234,567.89";
  QTest::newRow("exactly a thousand") << ",0" << 1000.0 << "1,000";
  QTest::newRow("below a thousand") << ",0" << 999.0 << "999";
  QTest::newRow("no separators") << "0.00" << 1234.5 << "1234.50";
  QTest::newRow("no decimals") << ",0" << 1234.5 << "1,235";
  QTest::newRow("three decimals") << ",0.000" << 0.5 << "0.500";
  QTest::newRow("zero") << ",0.00" << 0.0 << "0.00";
  QTest::newRow("negative") << ",0.00" << -1234.5 << "-1,234.50";
  QTest::newRow("negative group boundary") << ",0" << -123.0 << "-123";
  QTest::newRow("rounds to zero from below") << ",0.00" << -0.004 << "0.00";
  QTest::newRow("negative zero") << "0.0" << -0.0 << "0.0";
  QTest::newRow("carries into a new digit") << ",0.00" << 999.995 << "1,000.00";
  QTest::newRow("carries from nothing") << "0" << 0.5 << "1";
  QTest::newRow("just under the half") << "0" << 0.4999999 << "0";
  QTest::newRow("far under the half") << "0.00" << 0.0009 << "0.00";
  QTest::newRow("tiny") << "0.00" << 5e-324 << "0.00";
  QTest::newRow("more digits than needed") << "000" << 7.0 << "007";
  QTest::newRow("no whole digit asked for") << ".00" << 0.5 << ".50";
  QTest::newRow("large") << ",0" << 1e21 << "1,000,000,000,000,000,000,000";
  QTest::newRow("infinite") << ",0.00" << std::numeric_limits<double>::infinity() << "inf";
  QTest::newRow("negative infinite") << "" << -std::numeric_limits<double>::infinity() << "-inf";
}

void tst_DisplayFormats::shouldFormatNumbers() {
  QFETCH(QString, Format);
  QFETCH(double, Value);
  QFETCH(QString, Text);
  QCOMPARE(Number(Format, Value), Text);
}

void tst_DisplayFormats::shouldRoundTheDecimalsThatAUserReads() {
  QCOMPARE(Number("0.00", 1.005), QString("1.01"));  // the double is 1.00499999999999989...
  QCOMPARE(Number("0.00", -1.005), QString("-1.01"));
  QCOMPARE(Number("0.00", 2.675), QString("2.68"));
  QCOMPARE(Number("0", 2.5), QString("3"));
  QCOMPARE(Number("0", -2.5), QString("-3"));
  QCOMPARE(Number("0.00", 1.0049999), QString("1.00"));
}

void tst_DisplayFormats::shouldFormatMoneyExactly() {
  QCOMPARE(Money(",0.00", 1'300'000), QString("130.00"));
  QCOMPARE(Money(",0.0000", 9'223'372'036'854'775'807), QString("922,337,203,685,477.5807"));
  QCOMPARE(Money(",0.0000", std::numeric_limits<std::int64_t>::min()), QString("-922,337,203,685,477.5808"));
  QCOMPARE(Money("0.000000", 1), QString("0.000100"));
  QCOMPARE(Money("0.00", 0), QString("0.00"));
}

void tst_DisplayFormats::shouldRoundMoneyAwayFromZero() {
  QCOMPARE(Money("0.00", 10'050), QString("1.01"));
  QCOMPARE(Money("0.00", 10'049), QString("1.00"));
  QCOMPARE(Money("0.00", -10'050), QString("-1.01"));
  QCOMPARE(Money("0.00", -49), QString("0.00"));
  QCOMPARE(Money("0", 5'000), QString("1"));
  QCOMPARE(Money(",0", 9'999'999), QString("1,000"));
}

void tst_DisplayFormats::shouldAgreeOnMoneyAndDoubles() {
  for (std::int64_t Scaled = -30'000; Scaled <= 30'000; Scaled += 7) {
    const TCurrency Value = TCurrency::FromScaled(Scaled);
    QCOMPARE(FormatNumber(",0.00", Value), FormatNumber(",0.00", Value.ToDouble()));
    QCOMPARE(FormatNumber("", Value), FormatNumber("", Value.ToDouble()));
  }
}

void tst_DisplayFormats::shouldUseTheSignsOfTheLocale() {
  QLocale::setDefault(QLocale("de_DE"));
  QCOMPARE(Number(",0.00", -1234.5), QString("-1.234,50"));
  QCOMPARE(Number("", 0.5), QString("0,5"));
  QCOMPARE(Number("", 1.5e20), QString("1,5e+20"));
  QCOMPARE(Money(",0.0000", 12'345'678), QString("1.234,5678"));

  QLocale::setDefault(QLocale("fr_FR"));
  QCOMPARE(Number(",0.00", 1234.5), QString("1") + QLocale().groupSeparator() + "234,50");

  QLocale::setDefault(QLocale("de_CH"));
  QCOMPARE(Number(",0.00", 1234567.5), QString::fromUtf8("1’234’567.50"));
}

void tst_DisplayFormats::shouldWriteNumbersAsTheLocaleDoes_data() {
  QTest::addColumn<QString>("Name");
  for (const char* Name :
       {"en_AU", "de_DE", "de_AT", "de_CH", "fr_FR", "es_ES", "pt_PT", "sv_SE", "hu_HU", "bg_BG",
        "pl_PL", "ar_EG", "ar_MA", "fa_IR", "he_IL", "hi_IN", "bn_BD", "ur_PK", "ja_JP", "ff_Adlm_GN"}) {
    QTest::newRow(Name) << QString(Name);
  }
}

// Numbers that a double holds exactly are just what QLocale makes of them.
void tst_DisplayFormats::shouldWriteNumbersAsTheLocaleDoes() {
  QFETCH(QString, Name);
  const QLocale Locale(Name);
  QLocale::setDefault(Locale);
  for (const double Value : {0.0, 7.0, -7.0, 123.5, 999.25, 1000.0, 1234.5, -1234.5, 12345.75, 123456.0, 1234567.25,
                             -98765432.5, 123456789012.0}) {
    QCOMPARE(Number(",0.00", Value), Locale.toString(Value, 'f', 2));
    QLocale Plain = Locale;
    Plain.setNumberOptions(QLocale::OmitGroupSeparator);
    QCOMPARE(Number("0.00", Value), Plain.toString(Value, 'f', 2));
  }
  QCOMPARE(Number("", -1.5e20), Locale.negativeSign() + Locale.toString(1) + Locale.decimalPoint() +
                                    Locale.toString(5) + "e+" + Locale.toString(2) + Locale.toString(0));
}

void tst_DisplayFormats::shouldWriteLargeNumbersInGroupsOfTheLocale() {
  QLocale::setDefault(QLocale("hi_IN"));
  QCOMPARE(Number(",0.00", 12345678.9), QString("1,23,45,678.90"));
  QCOMPARE(Money(",0.0000", 9'223'372'036'854'775'807), QString("92,23,37,20,36,85,477.5807"));
  QCOMPARE(Number(",0", 1e23), QString("1,00,00,00,00,00,00,00,00,00,00,000"));
  QCOMPARE(Number("0", std::numeric_limits<double>::max()), "17976931348623157" + QString(292, '0'));
  QLocale::setDefault(QLocale("es_ES"));
  QCOMPARE(Number(",0", 1234), QString("1234"));
  QCOMPARE(Number(",0", 12345), QString("12.345"));
}

void tst_DisplayFormats::shouldWriteDatesInTheDigitsOfTheLocale() {
  QLocale::setDefault(QLocale("fa_IR"));
  QCOMPARE(QString::fromStdString(FormatShortDate(QDate(2026, 2, 1))), QString::fromUtf8("۲۰۲۶/۲/۱"));
  QCOMPARE(Date("YYYY-MM-DD", QDate(2026, 2, 1)), QString("2026-02-01"));
  QLocale::setDefault(QLocale("hu_HU"));
  QCOMPARE(QString::fromStdString(FormatShortDate(QDate(2026, 2, 1))), QString("2026. 02. 01."));
}

void tst_DisplayFormats::shouldGiveTheShortestNumberForAnEmptyFormat_data() {
  QTest::addColumn<double>("Value");
  QTest::addColumn<QString>("Text");
  QTest::newRow("zero") << 0.0 << "0";
  QTest::newRow("negative zero") << -0.0 << "0";
  QTest::newRow("whole") << 100000.0 << "100000";
  QTest::newRow("decimal") << 0.1 << "0.1";
  QTest::newRow("all digits") << 1.0 / 3.0 << "0.3333333333333333";
  QTest::newRow("negative") << -12.5 << "-12.5";
  QTest::newRow("smallest without exponent") << 0.00001 << "0.00001";
  QTest::newRow("below that") << 0.0000099 << "9.9e-06";
  QTest::newRow("largest without exponent") << 999999999999999.0 << "999999999999999";
  QTest::newRow("above that") << 1e15 << "1e+15";
  QTest::newRow("huge") << -1.5e300 << "-1.5e+300";
}

void tst_DisplayFormats::shouldGiveTheShortestNumberForAnEmptyFormat() {
  QFETCH(double, Value);
  QFETCH(QString, Text);
  QCOMPARE(Number("", Value), Text);
  QCOMPARE(Text.toDouble(), Value);
}

void tst_DisplayFormats::shouldGiveNothingForNotANumber() {
  QCOMPARE(Number(",0.00", std::numeric_limits<double>::quiet_NaN()), QString());
  QCOMPARE(Number("", std::numeric_limits<double>::quiet_NaN()), QString());
}

void tst_DisplayFormats::shouldFormatDatesByAPattern_data() {
  QTest::addColumn<QString>("Pattern");
  QTest::addColumn<QString>("Text");
  QTest::newRow("for the database") << "YYYY-MM-DD"
                                    << "2026-02-01";
  QTest::newRow("short") << "d/m/yy"
                         << "1/2/26";
  QTest::newRow("two digits each") << "dd.mm.yy"
                                   << "01.02.26";
  QTest::newRow("mixed case") << "dD-Mm-yYyY"
                              << "01-02-2026";
  QTest::newRow("other characters") << "(yyyy) q d!!m"
                                    << "(2026) q 1!!2";
  QTest::newRow("without separators") << "yyyymmdd"
                                      << "20260201";
  QTest::newRow("part of a date") << "yyyy"
                                  << "2026";
  QTest::newRow("beyond ASCII") << "d·m·yyyy"
                                << "1·2·2026";
  QTest::newRow("empty") << ""
                         << "";
}

void tst_DisplayFormats::shouldFormatDatesByAPattern() {
  QFETCH(QString, Pattern);
  QFETCH(QString, Text);
  QCOMPARE(Date(Pattern.toUtf8().constData(), QDate(2026, 2, 1)), Text);
}

void tst_DisplayFormats::shouldGiveNothingForAnInvalidDate() {
  QCOMPARE(Date("yyyy-mm-dd", QDate()), QString());
  QCOMPARE(Date("yyyy-mm-dd", QDate(2026, 2, 30)), QString());
  QVERIFY(FormatShortDate(QDate()).empty());
  QCOMPARE(Date("yyyy-mm-dd", QDate(12, 11, 10)), QString("0012-11-10"));
  QCOMPARE(Date("dd/mm/yy", QDate(1907, 12, 31)), QString("31/12/07"));
}

void tst_DisplayFormats::shouldTakeTheShortDateFormatOfTheLocale_data() {
  QTest::addColumn<QString>("Locale");
  QTest::addColumn<QString>("Pattern");
  QTest::newRow("Australia") << "en_AU"
                             << "d/m/yy";
  QTest::newRow("United States") << "en_US"
                                 << "m/d/yy";
  QTest::newRow("Germany") << "de_DE"
                           << "dd.mm.yy";
  QTest::newRow("Sweden") << "sv_SE"
                          << "yyyy-mm-dd";
  QTest::newRow("Croatia, with blanks and a point behind") << "hr_HR"
                                                           << "dd. mm. yyyy.";
  QTest::newRow("C, with the name of the month") << "C"
                                                 << "yyyy-mm-dd";
  QTest::newRow("Bulgaria, with a word") << "bg_BG"
                                         << "yyyy-mm-dd";
  QTest::newRow("Egypt, with marks that nobody types") << "ar_EG"
                                                       << "yyyy-mm-dd";
}

void tst_DisplayFormats::shouldTakeTheShortDateFormatOfTheLocale() {
  QFETCH(QString, Locale);
  QFETCH(QString, Pattern);
  QLocale::setDefault(QLocale(Locale));
  QCOMPARE(QString::fromStdString(ShortDateFormat()), Pattern);
}

void tst_DisplayFormats::shouldFormatShortDates() {
  const QDate Day(2026, 2, 1);
  QCOMPARE(FormatShortDate(Day), std::string("1/2/26"));
  QLocale::setDefault(QLocale("de_DE"));
  QCOMPARE(FormatShortDate(Day), std::string("01.02.26"));
  QLocale::setDefault(QLocale::c());
  QCOMPARE(FormatShortDate(Day), std::string("2026-02-01"));
  SetShortDateFormat("dd/mm/yyyy");
  QCOMPARE(FormatShortDate(Day), std::string("01/02/2026"));
}

void tst_DisplayFormats::shouldSetTheShortDateFormat() {
  for (const char* const Pattern : {"dd/mm/yyyy", "m-d-yy", "yyyy.mm.dd", "d m yy", "d. m. yyyy."}) {
    SetShortDateFormat(Pattern);
    QCOMPARE(ShortDateFormat(), std::string(Pattern));
  }
  SetShortDateFormat("DD/MM/YYYY");
  QCOMPARE(ShortDateFormat(), std::string("dd/mm/yyyy"));
  QLocale::setDefault(QLocale("de_DE"));
  QCOMPARE(ShortDateFormat(), std::string("dd/mm/yyyy"));
  SetShortDateFormat("");
  QCOMPARE(ShortDateFormat(), std::string("dd.mm.yy"));
}

void tst_DisplayFormats::shouldRefuseAPatternThatCannotBeTyped_data() {
  QTest::addColumn<QString>("Pattern");
  const char* const Patterns[] = {
      "dd/mm",      "mm/yyyy",    "dd/mm/yyyy/dd", "ddmmyyyy",    "dd/mmyyyy", "dd/mmm/yyyy", "dd mmmm yyyy",
      "d/d/yyyy",   "dd/mm/y",    "dd/mm/yyy",     "dd/mm/yyyyy", "x",         " ",           "/dd/mm/yyyy",
      "dd'mm'yyyy", "dd/mm/yy x", "dd·mm·yyyy",    "yyyy-mm-ddT", "d1m1yyyy",  "ddd/mm/yyyy"};
  for (const char* const Pattern : Patterns) QTest::newRow(Pattern) << QString::fromUtf8(Pattern);
}

void tst_DisplayFormats::shouldRefuseAPatternThatCannotBeTyped() {
  QFETCH(QString, Pattern);
  SetShortDateFormat("yyyy-mm-dd");
  try {
    SetShortDateFormat(Pattern.toStdString());
  } catch (const EZULException& Error) {
    QVERIFY(QString::fromUtf8(Error.what()).contains(Pattern));
    QCOMPARE(ShortDateFormat(), std::string("yyyy-mm-dd"));
    return;
  }
  QFAIL("nothing was thrown");
}

void tst_DisplayFormats::shouldFormatMinutes() {
  QCOMPARE(FormatMinutes(605), std::string("10:05"));
  QCOMPARE(FormatMinutes(0), std::string("00:00"));
  QCOMPARE(FormatMinutes(59), std::string("00:59"));
  QCOMPARE(FormatMinutes(1439), std::string("23:59"));
  QCOMPARE(FormatMinutes(1440), std::string("24:00"));
  QCOMPARE(FormatMinutes(6000), std::string("100:00"));
  QCOMPARE(FormatMinutes(-5), std::string("-00:05"));
  QCOMPARE(FormatMinutes(-605), std::string("-10:05"));
  QCOMPARE(FormatMinutes(std::numeric_limits<int>::min()), std::string("-35791394:08"));
}

QTEST_GUILESS_MAIN(tst_DisplayFormats)
#include "tst_DisplayFormats.moc"
