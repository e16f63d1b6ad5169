#include <QTest>
#include <type_traits>

#include "zulcommon/Set.h"

using zulcommon::TSet;

namespace {

enum class TColour : std::uint8_t { coRed, coGreen, coBlue, coLast = 31, coTooLarge = 32, coLargest = 255 };
enum class TSigned : int { siNone = 0, siNegative = -1 };

}  // namespace

class tst_Set : public QObject {
  Q_OBJECT

 private slots:
  void shouldStartEmpty();
  void shouldHoldWhatTheListNames();
  void shouldIncludeAndExclude();
  void shouldGiveBitNForOrdinalN();
  void shouldCompareByContents();
  void shouldIgnoreOrdinalsThatItCannotHold();
  void shouldBeFourBytesThatCanBeCopied();
  void shouldWorkAtCompileTime();
};

void tst_Set::shouldStartEmpty() {
  const TSet<TColour> Set;
  QVERIFY(Set.IsEmpty());
  QVERIFY(!Set.Contains(TColour::coRed));
  QCOMPARE(Set.Bits(), 0u);
}

void tst_Set::shouldHoldWhatTheListNames() {
  const TSet<TColour> Set = {TColour::coRed, TColour::coBlue, TColour::coRed};
  QVERIFY(Set.Contains(TColour::coRed));
  QVERIFY(!Set.Contains(TColour::coGreen));
  QVERIFY(Set.Contains(TColour::coBlue));
  QVERIFY(!Set.IsEmpty());
}

void tst_Set::shouldIncludeAndExclude() {
  TSet<TColour> Set;
  Set.Include(TColour::coGreen);
  QVERIFY(Set.Contains(TColour::coGreen));
  Set.Include(TColour::coGreen);
  Set.Exclude(TColour::coRed);
  QVERIFY(Set == TSet<TColour>{TColour::coGreen});
  Set.Exclude(TColour::coGreen);
  QVERIFY(Set.IsEmpty());
}

void tst_Set::shouldGiveBitNForOrdinalN() {
  QCOMPARE(TSet<TColour>({TColour::coRed}).Bits(), 1u);
  QCOMPARE(TSet<TColour>({TColour::coBlue}).Bits(), 4u);
  QCOMPARE(TSet<TColour>({TColour::coLast}).Bits(), 0x80000000u);
}

void tst_Set::shouldCompareByContents() {
  const TSet<TColour> A = {TColour::coRed, TColour::coBlue};
  const TSet<TColour> B = {TColour::coBlue, TColour::coRed};
  QVERIFY(A == B);
  QVERIFY(A != TSet<TColour>{TColour::coRed});
}

void tst_Set::shouldIgnoreOrdinalsThatItCannotHold() {
  TSet<TColour> Set = {TColour::coTooLarge, TColour::coLargest};
  QVERIFY(Set.IsEmpty());
  Set.Include(TColour::coTooLarge);
  QVERIFY(!Set.Contains(TColour::coTooLarge));
  Set.Include(TColour::coRed);
  Set.Exclude(TColour::coTooLarge);
  QVERIFY(Set.Contains(TColour::coRed));

  const TSet<TSigned> Signed = {TSigned::siNegative};
  QVERIFY(Signed.IsEmpty());
  QVERIFY(!Signed.Contains(TSigned::siNegative));
}

void tst_Set::shouldBeFourBytesThatCanBeCopied() {
  QCOMPARE(sizeof(TSet<TColour>), std::size_t{4});
  QVERIFY(std::is_trivially_copyable_v<TSet<TColour>>);
}

void tst_Set::shouldWorkAtCompileTime() {
  constexpr TSet<TColour> Set = {TColour::coGreen};
  static_assert(Set.Contains(TColour::coGreen) && !Set.Contains(TColour::coRed) && !Set.IsEmpty());
  QCOMPARE(Set.Bits(), 2u);
}

QTEST_GUILESS_MAIN(tst_Set)
#include "tst_Set.moc"
