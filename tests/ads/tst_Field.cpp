#include <QLocale>
#include <QTest>

#include "DatabaseTest.h"
#include "zulcommon/DisplayFormats.h"

using ads::TAdsQuery;
using ads::TAlignment;
using ads::TField;
using ads::TFieldKind;
using ads::TFieldType;
using zulcommon::TCurrency;

Q_DECLARE_METATYPE(ads::TFieldType)

class tst_Field : public QObject {
  Q_OBJECT

  TTestDatabase Db;

  // A query of one row with one column, V.
  std::unique_ptr<TAdsQuery> QueryOf(const QString& Value, TFieldType Type, TField** Field) {
    auto Query = std::make_unique<TAdsQuery>(nullptr);
    Query->SetConnection(Db.Connection.get());
    *Field = Query->AddField("V", Type, 20);
    Query->SQL()->Add("SELECT " + Value.toStdString() + " V FROM One");
    Query->Open();
    return Query;
  }

 private Q_SLOTS:
  void initTestCase() {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::Australia));
    Db.Execute("CREATE TABLE One (X)");
    Db.Execute("INSERT INTO One VALUES (1)");
  }

  void shouldConvertAValueOfAnotherClassWhereThatIsPossible_data() {
    QTest::addColumn<QString>("Value");
    QTest::addColumn<TFieldType>("Type");
    QTest::addColumn<QString>("Text");
    QTest::addColumn<bool>("Null");
    const auto Row = [](const char* Name, const char* Value, TFieldType Type, const char* Text) {
      QTest::newRow(Name) << QString(Value) << Type << QString(Text) << false;
    };
    const auto Null = [](const char* Name, const char* Value, TFieldType Type) {
      QTest::newRow(Name) << QString(Value) << Type << QString() << true;
    };
    Row("number as text", "12", TFieldType::ftString, "12");
    Row("real as text", "1.5", TFieldType::ftString, "1.5");
    Row("text as whole number", "' 42 '", TFieldType::ftInteger, "42");
    Row("whole real as whole number", "7.0", TFieldType::ftInteger, "7");
    Null("broken real as whole number", "7.5", TFieldType::ftInteger);
    Null("word as whole number", "'seven'", TFieldType::ftInteger);
    Null("too large a whole number", "5000000000", TFieldType::ftInteger);
    Row("whole number as real", "3", TFieldType::ftFloat, "3");
    Row("text as real", "'2.25'", TFieldType::ftFloat, "2.25");
    Null("word as real", "'x'", TFieldType::ftFloat);
    Row("one as Boolean", "1", TFieldType::ftBoolean, "True");
    Row("text as Boolean", "'true'", TFieldType::ftBoolean, "True");
    Row("letter as Boolean", "'F'", TFieldType::ftBoolean, "False");
    Null("word as Boolean", "'maybe'", TFieldType::ftBoolean);
    Row("date", "'2024-02-29'", TFieldType::ftDate, "2024-02-29");
    Row("date with a time", "'2024-02-29 11:30:00'", TFieldType::ftDate, "2024-02-29");
    Null("no date", "'2023-02-29'", TFieldType::ftDate);
    Null("blank date", "''", TFieldType::ftDate);
    Null("number as date", "20240229", TFieldType::ftDate);
    Row("first date", "'0001-01-01'", TFieldType::ftDate, "0001-01-01");
    Row("last date", "'9999-12-31'", TFieldType::ftDate, "9999-12-31");
    Row("date between blanks", "' 2024-02-29 '", TFieldType::ftDate, "2024-02-29");
    Row("date with a T", "'2024-02-29T11:30'", TFieldType::ftDate, "2024-02-29");
    Row("date with parts of a second", "'2024-02-29 23:59:59.999999'", TFieldType::ftDate, "2024-02-29");
    Row("date with a zone", "'2024-02-29 11:30:00+05:30'", TFieldType::ftDate, "2024-02-29");
    Row("date with a short zone", "'2024-02-29T11:30:00.5-03'", TFieldType::ftDate, "2024-02-29");
    Row("date with a parted zone", "'2024-02-29 11:30:00 +02:00'", TFieldType::ftDate, "2024-02-29");
    Row("date in world time", "'2024-02-29T11:30:00Z'", TFieldType::ftDate, "2024-02-29");
    Row("end of a day", "'2024-02-29 24:00:00'", TFieldType::ftDate, "2024-02-29");
    const QString WrongDates =
        "-001-01-01|-2024-02-29|+202-02-29|0000-00-00|0000-01-01|2026-13-01|2026-00-10|2026-01-00|2026-01-32|"
        "20260-01-01|2026-1-1|2026-01-1|2026--1-01|2026-01--1|2026/01/01|01/02/2026|2026-01-01x|x2026-01-01|"
        "2026-01-01-|2026-01-01 x|2026-01-01 soon|2026-01-01T|2026-01-01 11|2026-01-01 11:3|2026-01-01 11:30x|"
        "2026-01-01 11:60|2026-01-01 25:00|2026-01-01 11:30:61|2026-01-01 11:30:|2026-01-01 11:30:00.|"
        "2026-01-01 11:30:00+|2026-01-01 11:30:00+2|2026-01-01 11:30:00 soon|2026-01-01  11:30";
    for (const QString& Wrong : WrongDates.split('|')) {
      QTest::addRow("no date: %s", qPrintable(Wrong)) << '\'' + Wrong + '\'' << TFieldType::ftDate << QString() << true;
    }
    Null("null", "NULL", TFieldType::ftString);
  }
  void shouldConvertAValueOfAnotherClassWhereThatIsPossible() {
    QFETCH(QString, Value);
    QFETCH(TFieldType, Type);
    QFETCH(QString, Text);
    QFETCH(bool, Null);
    TField* Field = nullptr;
    const auto Query = QueryOf(Value, Type, &Field);
    QCOMPARE(Field->IsNull(), Null);
    QCOMPARE(QString::fromStdString(Field->AsString()), Text);
  }

  void shouldReadNullsAsNothing() {
    TField* Field = nullptr;
    const auto Query = QueryOf("NULL", TFieldType::ftFloat, &Field);
    QCOMPARE(Field->AsInteger(), 0);
    QCOMPARE(Field->AsFloat(), 0.0);
    QVERIFY(!Field->AsBoolean());
    QVERIFY(!Field->AsDate().isValid());
    QCOMPARE(Field->AsCurrency().Scaled(), std::int64_t{0});
    QCOMPARE(Field->DisplayText(), std::string());
  }

  void shouldReadADateInATextAsInADateColumn() {
    TField* Field = nullptr;
    const auto Day = QueryOf("' 2024-02-29 11:30'", TFieldType::ftString, &Field);
    QCOMPARE(Field->AsDate(), QDate(2024, 2, 29));
    for (const char* Wrong : {"'-001-01-01'", "'2024-02-29x'", "'2024-02-29 soon'", "'2024/02/29'", "'2024-2-29'",
                              "'2023-02-29'", "''", "NULL"}) {
      const auto None = QueryOf(Wrong, TFieldType::ftString, &Field);
      QVERIFY2(!Field->AsDate().isValid(), Wrong);
    }
  }

  void shouldRoundAFloatingKeyHalvesToEven() {
    TField* Field = nullptr;
    QCOMPARE(QueryOf("2.5", TFieldType::ftFloat, &Field)->RecordCount(), 1);
    const auto Low = QueryOf("2.5", TFieldType::ftFloat, &Field);
    QCOMPARE(Field->AsInteger(), 2);
    const auto High = QueryOf("3.5", TFieldType::ftFloat, &Field);
    QCOMPARE(Field->AsInteger(), 4);
  }

  void shouldReadMoneyExactly() {
    TField* Field = nullptr;
    const auto Query = QueryOf("1234.5678", TFieldType::ftFloat, &Field);
    QCOMPARE(Field->AsCurrency(), TCurrency::FromScaled(12345678));
  }

  void shouldShowNumbersAndDatesByTheirFormats() {
    TField* Number = nullptr;
    const auto Numbers = QueryOf("1234.5", TFieldType::ftFloat, &Number);
    Number->SetDisplayFormat(",0.00");
    QCOMPARE(Number->DisplayText(), std::string("1,234.50"));
    Number->SetDisplayFormat("0.00");
    QCOMPARE(Number->DisplayText(), std::string("1234.50"));
    TField* Day = nullptr;
    const auto Days = QueryOf("'2026-03-09'", TFieldType::ftDate, &Day);
    QCOMPARE(Day->DisplayText(), zulcommon::FormatShortDate(QDate(2026, 3, 9)));
    Day->SetDisplayFormat("dd.mm.yyyy");
    QCOMPARE(Day->DisplayText(), std::string("09.03.2026"));
  }

  void shouldShowTheTextOfItsHandlerInstead() {
    TField* Field = nullptr;
    const auto Query = QueryOf("605", TFieldType::ftSmallint, &Field);
    Field->OnGetText = [](const TField& Sender, std::string& Text) {
      Text = zulcommon::FormatMinutes(Sender.AsInteger());
    };
    QCOMPARE(Field->DisplayText(), std::string("10:05"));
    QCOMPARE(Field->AsInteger(), 605);
  }

  void shouldBeLabelledByItsNameUntilToldOtherwise() {
    TField* Field = nullptr;
    const auto Query = QueryOf("1", TFieldType::ftInteger, &Field);
    QCOMPARE(Field->DisplayLabel(), std::string("V"));
    int Changes = 0;
    connect(Field, &TField::Changed, this, [&Changes] { ++Changes; });
    Field->SetDisplayLabel("Value");
    QCOMPARE(Field->DisplayLabel(), std::string("Value"));
    QCOMPARE(Changes, 1);
  }

  void shouldStandAndMeasureByItsKind() {
    TAdsQuery Query(nullptr);
    QCOMPARE(Query.AddField("A", TFieldType::ftString, 30)->DisplayWidth(), 30);
    QCOMPARE(Query.AddField("B", TFieldType::ftBoolean)->DisplayWidth(), 5);
    QCOMPARE(Query.AddField("C", TFieldType::ftDate)->DisplayWidth(), 10);
    QCOMPARE(Query.FieldByName("A")->DefaultAlignment(), TAlignment::taLeftJustify);
    QCOMPARE(Query.FieldByName("C")->DefaultAlignment(), TAlignment::taLeftJustify);
    QCOMPARE(Query.AddField("D", TFieldType::ftFloat)->DefaultAlignment(), TAlignment::taRightJustify);
  }

  void shouldHaveRoomForTheDatesOfTheLocale() {
    TAdsQuery Query(nullptr);
    const TField* Day = Query.AddField("Day", TFieldType::ftDate);
    QLocale::setDefault(QLocale("hu_HU"));
    QCOMPARE(Day->DisplayWidth(), 13);  // 2000. 12. 30.
    QLocale::setDefault(QLocale("de_DE"));
    QCOMPARE(Day->DisplayWidth(), 10);
    QLocale::setDefault(QLocale("fa_IR"));
    QCOMPARE(zulcommon::FormatShownDate("dd/mm/yyyy", QDate(2026, 3, 9)), std::string("۰۹/۰۳/۲۰۲۶"));
    QLocale::setDefault(QLocale(QLocale::English, QLocale::Australia));
  }

  void shouldKeepCalculatedMoneyExact() {
    TAdsQuery Query(nullptr);
    Query.SetConnection(Db.Connection.get());
    TField* Sum = Query.AddField("Sum", TFieldType::ftFloat, 0, TFieldKind::fkCalculated);
    Query.OnCalcFields = [Sum](ads::TDataSet&) {
      Sum->SetCurrency(TCurrency::FromDouble(0.1) + TCurrency::FromDouble(0.2));
    };
    Query.SQL()->Add("SELECT X FROM One");
    Query.Open();
    QCOMPARE(Sum->AsCurrency().Scaled(), std::int64_t{3000});
    Sum->SetDisplayFormat(",0.00");
    QCOMPARE(Sum->DisplayText(), std::string("0.30"));
  }
};

QTEST_GUILESS_MAIN(tst_Field)
#include "tst_Field.moc"
