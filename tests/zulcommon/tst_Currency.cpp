#include <QTest>
#include <cmath>
#include <limits>

#include "zulcommon/Currency.h"

using zulcommon::TCurrency;

namespace {

constexpr std::int64_t Max = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t Min = std::numeric_limits<std::int64_t>::min();
constexpr double Infinity = std::numeric_limits<double>::infinity();

}  // namespace

class tst_Currency : public QObject {
  Q_OBJECT

 private slots:
  void shouldBeZeroAtFirst();
  void shouldRoundToTheNearestTenThousandth_data();
  void shouldRoundToTheNearestTenThousandth();
  void shouldReadBackEveryDecimalOfUpToFourPlaces();
  void shouldStopAtTheEndsOfTheRange();
  void shouldTakeNotANumberForZero();
  void shouldAddAndSubtractExactly();
  void shouldWrapAroundAtTheEnds();
  void shouldTellWhatDoesNotFit();
  void shouldTellSumsAndDifferencesThatDoNotFit();
  void shouldCompareByAmount();
};

void tst_Currency::shouldBeZeroAtFirst() {
  QCOMPARE(TCurrency().Scaled(), std::int64_t{0});
  QCOMPARE(TCurrency().ToDouble(), 0.0);
}

void tst_Currency::shouldRoundToTheNearestTenThousandth_data() {
  QTest::addColumn<double>("Value");
  QTest::addColumn<qint64>("Scaled");
  QTest::newRow("zero") << 0.0 << qint64{0};
  QTest::newRow("whole") << 150.0 << qint64{1500000};
  QTest::newRow("negative") << -20.25 << qint64{-202500};
  QTest::newRow("not a binary fraction") << 0.1 << qint64{1000};
  QTest::newRow("below the half") << 1.23454 << qint64{12345};
  QTest::newRow("above the half") << 1.23456 << qint64{12346};
  QTest::newRow("half to the even below") << 0.03125 << qint64{312};
  QTest::newRow("half to the even above") << 0.09375 << qint64{938};
  QTest::newRow("negative half to the even") << -0.03125 << qint64{-312};
  // The double is a little above the half; its product with 10000 in doubles would be exactly on it.
  QTest::newRow("hair above the half") << 0.00005 << qint64{1};
  QTest::newRow("hair below the half") << std::nextafter(0.03125, 0.0) << qint64{312};
  QTest::newRow("hair above a half") << std::nextafter(0.03125, 1.0) << qint64{313};
  QTest::newRow("far too small") << 1e-300 << qint64{0};
  QTest::newRow("smallest double") << std::numeric_limits<double>::denorm_min() << qint64{0};
  QTest::newRow("large") << 900000000000000.5 << qint64{9000000000000005000};
}

void tst_Currency::shouldRoundToTheNearestTenThousandth() {
  QFETCH(double, Value);
  QFETCH(qint64, Scaled);
  QCOMPARE(static_cast<qint64>(TCurrency::FromDouble(Value).Scaled()), Scaled);
}

void tst_Currency::shouldReadBackEveryDecimalOfUpToFourPlaces() {
  for (std::int64_t Scaled = -250'000; Scaled <= 250'000; ++Scaled) {
    const TCurrency Value = TCurrency::FromScaled(Scaled);
    QVERIFY(TCurrency::FromDouble(Value.ToDouble()) == Value);
  }
}

void tst_Currency::shouldStopAtTheEndsOfTheRange() {
  QCOMPARE(TCurrency::FromDouble(1e300).Scaled(), Max);
  QCOMPARE(TCurrency::FromDouble(-1e300).Scaled(), Min);
  QCOMPARE(TCurrency::FromDouble(Infinity).Scaled(), Max);
  QCOMPARE(TCurrency::FromDouble(-Infinity).Scaled(), Min);

  // The doubles on both sides of the ends.
  QCOMPARE(TCurrency::FromDouble(922337203685477.5).Scaled(), std::int64_t{9223372036854775000});
  QCOMPARE(TCurrency::FromDouble(-922337203685477.5).Scaled(), std::int64_t{-9223372036854775000});
  QCOMPARE(TCurrency::FromDouble(922337203685477.625).Scaled(), Max);
  QCOMPARE(TCurrency::FromDouble(-922337203685477.625).Scaled(), Min);
}

void tst_Currency::shouldTakeNotANumberForZero() {
  QCOMPARE(TCurrency::FromDouble(std::numeric_limits<double>::quiet_NaN()).Scaled(), std::int64_t{0});
}

void tst_Currency::shouldAddAndSubtractExactly() {
  const TCurrency Balance = TCurrency::FromDouble(150.0);
  const TCurrency Credit = TCurrency::FromDouble(20.0);
  QCOMPARE((Balance - Credit).ToDouble(), 130.0);

  TCurrency Sum;
  for (int Count = 0; Count < 1000; ++Count) Sum = Sum + TCurrency::FromDouble(0.1);
  QCOMPARE(Sum.Scaled(), std::int64_t{1'000'000});
}

void tst_Currency::shouldWrapAroundAtTheEnds() {
  const TCurrency One = TCurrency::FromScaled(1);
  QCOMPARE((TCurrency::FromScaled(Max) + One).Scaled(), Min);
  QCOMPARE((TCurrency::FromScaled(Min) - One).Scaled(), Max);
}

void tst_Currency::shouldTellWhatDoesNotFit() {
  for (const double Fitting : {0.0, 0.3, -0.3, 922337203685477.5, -922337203685477.5}) {
    QVERIFY(TCurrency::Fitting(Fitting) == TCurrency::FromDouble(Fitting));
  }
  constexpr double Infinity = std::numeric_limits<double>::infinity();
  for (const double Wrong : {922337203685477.625, -922337203685477.625, 1e300, -1e300, Infinity, -Infinity,
                             std::numeric_limits<double>::quiet_NaN()}) {
    QVERIFY(!TCurrency::Fitting(Wrong).has_value());
  }
}

void tst_Currency::shouldTellSumsAndDifferencesThatDoNotFit() {
  const auto Of = [](std::int64_t Scaled) { return TCurrency::FromScaled(Scaled); };
  QVERIFY(TCurrency::Sum(Of(3), Of(-5)) == Of(-2));
  QVERIFY(TCurrency::Sum(Of(Max), Of(0)) == Of(Max));
  QVERIFY(TCurrency::Sum(Of(Max - 1), Of(1)) == Of(Max));
  QVERIFY(TCurrency::Sum(Of(Min), Of(Max)) == Of(-1));
  QVERIFY(!TCurrency::Sum(Of(Max), Of(1)).has_value());
  QVERIFY(!TCurrency::Sum(Of(1), Of(Max)).has_value());
  QVERIFY(!TCurrency::Sum(Of(Min), Of(-1)).has_value());
  QVERIFY(!TCurrency::Sum(Of(Min), Of(Min)).has_value());
  QVERIFY(TCurrency::Difference(Of(3), Of(5)) == Of(-2));
  QVERIFY(TCurrency::Difference(Of(Min), Of(0)) == Of(Min));
  QVERIFY(TCurrency::Difference(Of(-1), Of(Min)) == Of(Max));
  QVERIFY(TCurrency::Difference(Of(Min), Of(Min)) == Of(0));
  QVERIFY(!TCurrency::Difference(Of(0), Of(Min)).has_value());
  QVERIFY(!TCurrency::Difference(Of(Max), Of(-1)).has_value());
  QVERIFY(!TCurrency::Difference(Of(Min), Of(1)).has_value());
}

void tst_Currency::shouldCompareByAmount() {
  const TCurrency Less = TCurrency::FromScaled(-5);
  const TCurrency More = TCurrency::FromScaled(3);
  QVERIFY(Less < More);
  QVERIFY(More >= More);
  QVERIFY(Less != More);
  QVERIFY(TCurrency::FromDouble(1.5) == TCurrency::FromScaled(15000));
}

QTEST_GUILESS_MAIN(tst_Currency)
#include "tst_Currency.moc"
