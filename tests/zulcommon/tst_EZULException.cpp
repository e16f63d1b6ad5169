#include <QTest>
#include <exception>
#include <type_traits>

#include "zulcommon/EZULException.h"

using zulcommon::EZULException;

class tst_EZULException : public QObject {
  Q_OBJECT

 private slots:
  void shouldKeepTheMessageAsItIs();
  void shouldHaveNoCodeUnlessOneIsGiven();
  void shouldPutTheArgumentsIntoTheMessage();
  void shouldLeaveAPlaceholderWithoutArgumentStanding();
  void shouldIgnoreAnArgumentTooMany();
  void shouldBeCaughtAsAStandardException();
  void shouldNestTheExceptionThatLedToIt();
  void shouldSurviveACopy();
};

void tst_EZULException::shouldKeepTheMessageAsItIs() {
  QCOMPARE(QByteArray(EZULException("100 % of %s, %%").what()), QByteArray("100 % of %s, %%"));
  QCOMPARE(QByteArray(EZULException("Müller").what()), QByteArray("Müller"));
}

void tst_EZULException::shouldHaveNoCodeUnlessOneIsGiven() {
  QCOMPARE(EZULException("a").Code(), -1);
  QCOMPARE(EZULException("a", 17).Code(), 17);
  QCOMPARE(EZULException("a %s", {"b"}).Code(), -1);
  QCOMPARE(EZULException("a %s", {"b"}, 18).Code(), 18);
}

void tst_EZULException::shouldPutTheArgumentsIntoTheMessage() {
  const EZULException Error("%s of %s is 100 %%", {"This", "that %s"});
  QCOMPARE(QByteArray(Error.what()), QByteArray("This of that %s is 100 %"));
}

void tst_EZULException::shouldLeaveAPlaceholderWithoutArgumentStanding() {
  QCOMPARE(QByteArray(EZULException("%s and %s", {"one"}).what()), QByteArray("one and %s"));
}

void tst_EZULException::shouldIgnoreAnArgumentTooMany() {
  QCOMPARE(QByteArray(EZULException("only %s", {"one", "two"}).what()), QByteArray("only one"));
}

void tst_EZULException::shouldBeCaughtAsAStandardException() {
  try {
    throw EZULException("No date.");
  } catch (const std::exception& Error) {
    QCOMPARE(QByteArray(Error.what()), QByteArray("No date."));
    QVERIFY(dynamic_cast<const EZULException*>(&Error) != nullptr);
  }
  QVERIFY((std::is_base_of_v<std::runtime_error, EZULException>));
}

void tst_EZULException::shouldNestTheExceptionThatLedToIt() {
  std::string Inner;
  try {
    try {
      throw std::runtime_error("the cause");
    } catch (...) {
      std::throw_with_nested(EZULException("the effect", 3));
    }
  } catch (const EZULException& Error) {
    QCOMPARE(Error.Code(), 3);
    try {
      std::rethrow_if_nested(Error);
    } catch (const std::runtime_error& Cause) {
      Inner = Cause.what();
    }
  }
  QCOMPARE(Inner, std::string("the cause"));
}

void tst_EZULException::shouldSurviveACopy() {
  const EZULException Copy = [] {
    const EZULException Original("short lived %s", {"text"}, 5);
    return EZULException(Original);
  }();
  QCOMPARE(QByteArray(Copy.what()), QByteArray("short lived text"));
  QCOMPARE(Copy.Code(), 5);
}

QTEST_GUILESS_MAIN(tst_EZULException)
#include "tst_EZULException.moc"
