#include <QTest>
#include <limits>
#include <stdexcept>

#include "zulcommon/DocTypes.h"
#include "zulcommon/EZULException.h"

using namespace zulcommon;

class tst_DocTypes : public QObject {
  Q_OBJECT

 private slots:
  void shouldKnowTheLetterAndNameOfEveryType_data();
  void shouldKnowTheLetterAndNameOfEveryType();
  void shouldHaveTheGroupMemberAsNinthType();
  void shouldReadALetterWithBlanksAndInAnyCase();
  void shouldRefuseATextThatStandsForNoType_data();
  void shouldRefuseATextThatStandsForNoType();
  void shouldRefuseAValueThatIsNoType();
  void shouldListTheLettersInTheOrderOfTheTypes();
  void shouldListNothingForAnEmptySet();
  void shouldMapItemCodes();
  void shouldMapAnyOtherItemCodeToUnknown();
};

void tst_DocTypes::shouldKnowTheLetterAndNameOfEveryType_data() {
  QTest::addColumn<int>("Ordinal");
  QTest::addColumn<QString>("Letter");
  QTest::addColumn<QString>("Name");
  const QStringList Rows = {"Q Quote",   "O Order",    "I Invoice", "C Credit",      "R Return",
                            "S Service", "T Template", "G Group",   "M Group member"};
  QCOMPARE(Rows.size(), qsizetype{DocTypeCount});
  for (int Ordinal = 0; Ordinal < DocTypeCount; ++Ordinal) {
    const QString& Row = Rows[Ordinal];
    QTest::newRow(qPrintable(Row)) << Ordinal << Row.left(1) << Row.mid(2);
  }
}

void tst_DocTypes::shouldKnowTheLetterAndNameOfEveryType() {
  QFETCH(int, Ordinal);
  QFETCH(QString, Letter);
  QFETCH(QString, Name);
  const auto Type = static_cast<TDocType>(Ordinal);
  QCOMPARE(QString(QLatin1Char(DocTypeLetter(Type))), Letter);
  QCOMPARE(QString::fromLatin1(DocTypeName(Type)), Name);
  QVERIFY(GetDocType(Letter.toStdString()) == Type);
}

void tst_DocTypes::shouldHaveTheGroupMemberAsNinthType() {
  QCOMPARE(static_cast<int>(TDocType::dtGroupMember), 8);
  QCOMPARE(DocTypeLetter(TDocType::dtGroupMember), 'M');
  QCOMPARE(DocTypeLetter(TDocType::dtGroup), 'G');
}

void tst_DocTypes::shouldReadALetterWithBlanksAndInAnyCase() {
  QVERIFY(GetDocType(" o\t") == TDocType::dtOrder);
  QVERIFY(GetDocType("m") == TDocType::dtGroupMember);
  QVERIFY(GetDocType("Q ") == TDocType::dtQuote);
}

void tst_DocTypes::shouldRefuseATextThatStandsForNoType_data() {
  QTest::addColumn<QString>("Text");
  QTest::newRow("empty") << "";
  QTest::newRow("blank") << " ";
  QTest::newRow("unknown letter") << "X";
  QTest::newRow("two letters") << "QO";
  QTest::newRow("name") << "Quote";
}

void tst_DocTypes::shouldRefuseATextThatStandsForNoType() {
  QFETCH(QString, Text);
  try {
    GetDocType(Text.toStdString());
  } catch (const EZULException& Error) {
    QCOMPARE(Error.Code(), -1);
    QVERIFY(QString::fromUtf8(Error.what()).startsWith("\"" + Text + "\""));
    return;
  }
  QFAIL("nothing was thrown");
}

void tst_DocTypes::shouldRefuseAValueThatIsNoType() {
  QVERIFY_THROWS_EXCEPTION(std::out_of_range, DocTypeLetter(static_cast<TDocType>(DocTypeCount)));
  QVERIFY_THROWS_EXCEPTION(std::out_of_range, DocTypeName(static_cast<TDocType>(255)));
}

void tst_DocTypes::shouldListTheLettersInTheOrderOfTheTypes() {
  QCOMPARE(GetDocTypeList({TDocType::dtOrder, TDocType::dtQuote}), std::string("'Q', 'O'"));
  QCOMPARE(GetDocTypeList({TDocType::dtGroupMember}), std::string("'M'"));
  TDocTypes All;
  for (int Ordinal = 0; Ordinal < DocTypeCount; ++Ordinal) All.Include(static_cast<TDocType>(Ordinal));
  QCOMPARE(GetDocTypeList(All), std::string("'Q', 'O', 'I', 'C', 'R', 'S', 'T', 'G', 'M'"));
}

void tst_DocTypes::shouldListNothingForAnEmptySet() {
  QCOMPARE(GetDocTypeList({}), std::string("NULL"));
  QCOMPARE(GetDocTypeList({static_cast<TDocType>(DocTypeCount)}), std::string("NULL"));
}

void tst_DocTypes::shouldMapItemCodes() {
  for (std::int16_t Code = 0; Code <= 6; ++Code) QCOMPARE(static_cast<int>(GetItemType(Code)), static_cast<int>(Code));
  QVERIFY(GetItemType(0) == TItemType::itStock);
  QVERIFY(GetItemType(4) == TItemType::itKit);
  QVERIFY(GetItemType(6) == TItemType::itComment);
}

void tst_DocTypes::shouldMapAnyOtherItemCodeToUnknown() {
  const std::int16_t Codes[] = {7, 8, -1, std::numeric_limits<std::int16_t>::max(),
                                std::numeric_limits<std::int16_t>::min()};
  for (const std::int16_t Code : Codes) QVERIFY(GetItemType(Code) == TItemType::itUnknown);
}

QTEST_GUILESS_MAIN(tst_DocTypes)
#include "tst_DocTypes.moc"
