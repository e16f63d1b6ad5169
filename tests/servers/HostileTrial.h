#pragma once

#include <QElapsedTimer>
#include <QSet>
#include <QStringList>
#include <functional>
#include <memory>

#include "servers/Backends.h"
#include "servers/SentStatements.h"
#include "servers/Watch.h"

namespace support {

/// The backends for texts that somebody hopes will act: small companies, so that many texts can be tried, on servers
/// that are asked to write down what they get. One of these a program.
class THostileBackends {
 public:
  THostileBackends();

  /// Why a kind is not to be had, for QSKIP; empty when it is.
  QString Missing(TBackendKind Kind) { return Backends_.Missing(Kind); }

  std::unique_ptr<TBackend> Open(TBackendKind Kind);
  TBackends& All() { return Backends_; }

 private:
  QTemporaryDir Folder_;
  TBackends Backends_;
};

/// Tries what must not act on one backend, and complains of everything that comes of it: a statement that reaches the
/// database in a shape in which no harmless value brings one there, a change of anything that is watched, a wait.
class THostileTrial {
 public:
  THostileTrial(THostileBackends& Backends, TBackend& Backend);
  ~THostileTrial();
  THostileTrial(const THostileTrial&) = delete;
  THostileTrial& operator=(const THostileTrial&) = delete;

  const THostileNames& Names() const { return Watch_.Names(); }

  /// Forgets the shapes of the statements that are known.
  void Forget();

  /// Runs what is harmless: the shapes of its statements are known from then on.
  void Learn(const std::function<void()>& Harmless);

  /// Runs what must send nothing in another shape; it may fail as it likes, but soon.
  void Try(const QString& What, const std::function<void()>& Hostile);

  /// To be called after some tries: they have changed nothing.
  void CheckNothingChanged(const QString& What);

  /// What the test itself has changed on purpose is no matter to complain of: to be called behind that.
  void ExpectChanges();

  /// From here on statements may have any shape; only what they change counts.
  void AllowEveryShape() { EveryShape_ = true; }

  void Complain(const QString& What);
  const QStringList& Complaints() const { return Complaints_; }
  int Tries() const { return Tries_; }

 private:
  void WatchTime();
  static int Progress(void* Self);
  void Check();

  TBackend& Backend_;
  TSentStatements Sent_;
  TWatch Watch_;
  QSet<QString> Known_;
  QStringList Untold_;  // what was tried since the statements were last looked at
  QStringList Complaints_;
  QElapsedTimer Running_;
  int Tries_ = 0;
  bool EveryShape_ = false;
};

/// The settings by which these tests are made to try everything everywhere, which takes its time (`ZUL_HOSTILE_ALL`):
/// otherwise each place takes a part of the texts, the next place the next part, all of them together all texts.
class TShare {
 public:
  explicit TShare(int Parts);

  /// What the next place is to try.
  QStringList Of(const QStringList& Texts);

 private:
  int Parts_;
  int Place_ = 0;
};

/// Writes each complaint to the test's log, and gives their number for the verdict.
QByteArray Told(const QStringList& Complaints);

}  // namespace support
