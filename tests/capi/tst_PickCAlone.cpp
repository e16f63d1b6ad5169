// What the C interface answers without an application, without what it was given, and without memory.
#include <QCoreApplication>
#include <QTest>
#include <cstdlib>
#include <new>

#include "capi/PickResult.h"

namespace {

// How many allocations are granted from now on; without a limit while it is negative.
long Granted = -1;
bool WasRefused = false;
long Live = 0;

void* Allocate(std::size_t Size) {
  if (Granted == 0) {
    WasRefused = true;
    throw std::bad_alloc();
  }
  if (Granted > 0) --Granted;
  void* Memory = std::malloc(Size);
  if (Memory == nullptr) throw std::bad_alloc();
  ++Live;
  return Memory;
}

void Free(void* Memory) {
  if (Memory != nullptr) --Live;
  std::free(Memory);
}

/// Calls with no allocation granted, then with one and so on until the call needs no more. Whether every call that got
/// too few has said so; the last one's failure goes to `Last`.
bool SaysSoWithoutMemory(zul_result* (*Call)(), std::string& Last) {
  for (long Limit = 0;; ++Limit) {
    Granted = Limit;
    WasRefused = false;
    zul_result* Result = Call();
    Granted = -1;
    const TPickResult Read(Result);
    Last = Read.Failure();
    if (!WasRefused) return Limit > 0;
    if (Last != "40: Out of memory.") return false;
  }
}

}  // namespace

void* operator new(std::size_t Size) {
  return Allocate(Size);
}
void* operator new(std::size_t Size, const std::nothrow_t&) noexcept {
  try {
    return Allocate(Size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void operator delete(void* Memory) noexcept {
  Free(Memory);
}
void operator delete(void* Memory, std::size_t) noexcept {
  Free(Memory);
}

class tst_PickCAlone : public QObject {
  Q_OBJECT

 private slots:
  // First: the lists are made when they are first asked for.
  void shouldSayThatThereIsNoMemory() {
    std::string Last;
    QVERIFY2(SaysSoWithoutMemory([] { return zul_list_picks(); }, Last), Last.c_str());
    QCOMPARE(Last, std::string("0: "));
    QVERIFY2(SaysSoWithoutMemory([] { return zul_list_arguments("customer"); }, Last), Last.c_str());
    QCOMPARE(Last, std::string("0: "));
    const auto Call = [] {
      static const char* const Names[] = {"entity"};
      static const char* const Values[] = {"an entity whose name is too long to stand in a string"};
      return zul_pick("main", "customer", Names, Values, 1);
    };
    QVERIFY2(SaysSoWithoutMemory(Call, Last), Last.c_str());
    QCOMPARE(Last, std::string("20: A pick needs a QApplication."));
  }

  void shouldKeepSayingThatThereWasNoMemory() {
    Granted = 0;
    zul_result* First = zul_list_picks();
    zul_result_free(First);
    zul_result_free(First);  // nobody's to free, so it does not matter
    zul_result* Second = zul_list_picks();
    Granted = -1;
    QCOMPARE(zul_result_code(Second), int{ZUL_ERROR_MEMORY});
    QCOMPARE(zul_result_count(Second), std::size_t(0));
    QCOMPARE(std::string(zul_result_text(Second)), std::string());
    QCOMPARE(std::string(zul_result_message(Second)), std::string("Out of memory."));
    zul_result_free(Second);
  }

  void shouldLeaveNothingBehind() {
    const auto Calls = [] {
      zul_result_free(zul_list_picks());
      zul_result_free(zul_list_arguments("customer"));
      zul_result_free(zul_list_arguments("custommer"));
      const char* const Names[] = {"entity", "entity whose name is that of no argument at all"};
      zul_result_free(zul_pick("main", "customer", Names, Names, 1));
      zul_result_free(zul_pick("main", "customer", Names, Names, 2));
    };
    Calls();
    const long Before = Live;
    Calls();
    QCOMPARE(Live, Before);
    zul_result* Kept = zul_list_picks();
    QVERIFY(Live > Before);
    zul_result_free(Kept);
    QCOMPARE(Live, Before);
  }

  void shouldNeedAQApplication() {
    QCOMPARE(CallPick("main", "city").Failure(), std::string("20: A pick needs a QApplication."));
    int Count = 1;
    char Name[] = "test";
    char* Arguments[] = {Name, nullptr};
    const QCoreApplication WithoutWidgets(Count, Arguments);
    QCOMPARE(CallPick("main", "city").Failure(), std::string("20: A pick needs a QApplication."));
    QCOMPARE(CallPick(nullptr, "city").Failure(), std::string("20: A pick needs a QApplication."));
    QCOMPARE(CallPick("main", "citty").Failure(), std::string("12: There is no pick \"citty\". Did you mean city?"));
  }

  void shouldAnswerForANullResult() {
    QCOMPARE(zul_result_code(nullptr), int{ZUL_ERROR_NULL});
    QCOMPARE(std::string(zul_result_message(nullptr)), std::string("The result is null."));
    QCOMPARE(std::string(zul_result_text(nullptr)), std::string());
    QCOMPARE(zul_result_count(nullptr), std::size_t(0));
    QVERIFY(zul_result_value(nullptr, 0, "name") == nullptr);
    zul_result_free(nullptr);
  }

  void shouldGiveNoValueThatThereIsNot() {
    zul_result* Picks = zul_list_picks();
    const std::size_t Count = zul_result_count(Picks);
    QVERIFY(zul_result_value(Picks, Count - 1, "name") != nullptr);
    QVERIFY(zul_result_value(Picks, Count, "name") == nullptr);
    QVERIFY(zul_result_value(Picks, static_cast<std::size_t>(-1), "name") == nullptr);
    QVERIFY(zul_result_value(Picks, 0, "key") == nullptr);
    QVERIFY(zul_result_value(Picks, 0, "") == nullptr);
    QVERIFY(zul_result_value(Picks, 0, "\xFF") == nullptr);
    QVERIFY(zul_result_value(Picks, 0, nullptr) == nullptr);
    zul_result_free(Picks);
  }

  void shouldTellItsVersion() {
    const QString Version = QString::fromUtf8(zul_version());
    QCOMPARE(Version, QStringLiteral(ZUL_VERSION));
    const QStringList Parts = Version.split('.');
    QCOMPARE(zul_version_number(), Parts[0].toInt() * 10000 + Parts[1].toInt() * 100 + Parts[2].toInt());
  }
};

QTEST_APPLESS_MAIN(tst_PickCAlone)
#include "tst_PickCAlone.moc"
