#include "LoadUsers.h"

#include <sys/prctl.h>

#include <QTest>
#include <algorithm>
#include <csignal>

namespace {

constexpr int LongestStart = 120000;
// What is under way when the time is up is brought to its end.
constexpr int LongestEnd = 120000;

}  // namespace

TLoadUsers::TLoadUsers(const std::string& Address, int Count, int LongestLook) {
  for (int Place = 0; Place < Count; ++Place) {
    Users_.push_back(std::make_unique<TUser>());
    TUser& User = *Users_.back();
    User.Process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    QObject::connect(&User.Process, &QProcess::readyReadStandardOutput, [this, &User] { Read(User); });
    User.Process.start(QStringLiteral(ZUL_LOAD_USER),
                       {QString::fromStdString(Address), QString::number(Place), QString::number(LongestLook)});
  }
}

TLoadUsers::~TLoadUsers() {
  for (const auto& User : Users_) {
    User->Process.disconnect();
    User->Process.kill();
  }
  for (const auto& User : Users_) User->Process.waitForFinished();
}

bool TLoadUsers::Connect() {
  return Await("ready", LongestStart);
}

bool TLoadUsers::Work(double Seconds) {
  for (const auto& User : Users_) User->Process.write(QByteArray::number(Seconds) + '\n');
  return Await("done", static_cast<int>(Seconds * 1000) + LongestEnd);
}

bool TLoadUsers::Leave() {
  for (const auto& User : Users_) User->Process.closeWriteChannel();
  const bool HaveLeft = QTest::qWaitFor(
      [this] {
        return std::all_of(Users_.begin(), Users_.end(),
                           [](const auto& User) { return User->Process.state() == QProcess::NotRunning; });
      },
      LongestEnd);
  for (const auto& User : Users_) {
    if (User->Process.exitStatus() == QProcess::NormalExit && User->Process.exitCode() == 0) continue;
    Errors_ << "a user crashed: " + QString::fromUtf8(User->Process.readAllStandardError());
  }
  return HaveLeft;
}

bool TLoadUsers::Await(const QByteArray& State, int Milliseconds) {
  const auto IsThere = [&](const auto& User) { return User->State == State; };
  const auto IsGone = [](const auto& User) { return User->Process.state() == QProcess::NotRunning; };
  const auto IsOver = [&] {
    return std::all_of(Users_.begin(), Users_.end(), IsThere) || std::any_of(Users_.begin(), Users_.end(), IsGone);
  };
  return QTest::qWaitFor(IsOver, Milliseconds) && std::all_of(Users_.begin(), Users_.end(), IsThere);
}

void TLoadUsers::Read(TUser& User) {
  while (User.Process.canReadLine()) Take(User, User.Process.readLine().trimmed());
}

void TLoadUsers::Take(TUser& User, const QByteArray& Line) {
  if (Line.startsWith("time ")) {
    const auto At = Line.lastIndexOf(' ');
    Times_.Note(QString::fromLatin1(Line.mid(5, At - 5)), Line.mid(At + 1).toDouble());
  } else if (Line.startsWith("memory ")) {
    const QList<QByteArray> Words = Line.split(' ');
    qint64& Most = User.Memory[Words.value(1).toInt()];
    Most = std::max(Most, Words.value(2).toLongLong());
  } else if (Line.startsWith("error ")) {
    Errors_ << QString::fromUtf8(Line.mid(6));
  } else if (Line == "cut") {
    ++Cuts_;
  } else {
    User.State = Line;
  }
}

TLoadUsers::TGrowth TLoadUsers::Growth() const {
  TGrowth Result;
  for (const auto& User : Users_) {
    qint64 Most = 0;
    for (auto Each = User->Memory.lowerBound(2); Each != User->Memory.end(); ++Each)
      Most = std::max(Most, Each.value());
    if (Most == 0) continue;
    const qint64 Grown = Most - User->Memory[1];
    Result.MostKiB = Result.Users++ == 0 ? Grown : std::max(Result.MostKiB, Grown);
  }
  return Result;
}
