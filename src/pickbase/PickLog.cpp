#include "pickbase/PickLog.h"

#include <QLoggingCategory>
#include <QObject>
#include <QString>
#include <chrono>

#include "ads/Connection.h"
#include "pickbase/uDocPickBase.h"

namespace pickbase {

using uDocPickBase::TDocPickBase;

namespace {

// Everything is told as a debug message, which the category lets through only when a rule of the host's says so.
Q_LOGGING_CATEGORY(PickLog, "zul.pick", QtWarningMsg)

constexpr char WatchName[] = "zulPickLog";

using TClock = std::chrono::steady_clock;

void Tell(const TDocPickBase& Dialog, const QString& Text) {
  qCDebug(PickLog, "%s: %s", qUtf8Printable(Dialog.objectName()), qUtf8Printable(Text));
}

void TellRows(const TDocPickBase& Dialog, TClock::time_point Begun) {
  const auto Passed = std::chrono::duration<double, std::milli>(TClock::now() - Begun).count();
  Tell(Dialog, QStringLiteral("%1 %2 rows after %3 ms")
                   .arg(QLatin1String(Dialog.qryList_->IsComplete() ? "all" : "the first"))
                   .arg(Dialog.qryList_->KnownRows())
                   .arg(Passed, 0, 'f', 1));
}

}  // namespace

void LogPick(const TDocPickBase& Dialog, const char* What, const std::string& Why) {
  if (!PickLog().isDebugEnabled()) return;
  QString Text = QLatin1String(What);
  // A message is one line, also where a server's is several.
  if (!Why.empty()) Text += QLatin1String(": ") + QString::fromStdString(Why).simplified();
  Tell(Dialog, Text);
}

void LogOpening(const TDocPickBase& Dialog, const ads::TAdsConnection& Connection) {
  if (!PickLog().isDebugEnabled()) return;
  Tell(Dialog, QStringLiteral("opens over %1 (%2)")
                   .arg(QLatin1String(Connection.Dialect().Name()), Connection.Database().driverName()));
}

void LogRows(TDocPickBase& Dialog) {
  delete Dialog.findChild<QObject*>(QLatin1String(WatchName), Qt::FindDirectChildrenOnly);
  if (!PickLog().isDebugEnabled()) return;
  auto* Watch = new QObject(&Dialog);
  Watch->setObjectName(QLatin1String(WatchName));
  const auto Begun = TClock::now();
  const auto TellWhenComplete = [&Dialog, Watch, Begun] {
    if (!Dialog.qryList_->IsComplete()) return;
    TellRows(Dialog, Begun);
    Dialog.qryList_->disconnect(Watch);
  };
  QObject::connect(Dialog.qryList_, &ads::TDataSet::Opened, Watch, [&Dialog, Begun] { TellRows(Dialog, Begun); });
  QObject::connect(Dialog.qryList_, &ads::TDataSet::Grown, Watch, TellWhenComplete);
  QObject::connect(Dialog.qryList_, &ads::TDataSet::Replaced, Watch, TellWhenComplete);
}

}  // namespace pickbase
