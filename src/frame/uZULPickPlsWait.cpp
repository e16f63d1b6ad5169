#include "frame/uZULPickPlsWait.h"

#include <QCloseEvent>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QThread>
#include <QTimer>
#include <QWindow>

#include "frame/uZULPickListsUtils.h"
#include "toolkit/EventGuard.h"
#include "toolkit/GroupBox.h"
#include "toolkit/Label.h"
#include "toolkit/QuietLoop.h"
#include "zulcommon/StringTable.h"

namespace uZULPickPlsWait {

namespace {

constexpr int PleaseWaitText = 65520;
constexpr int SoonMilliseconds = 100;
constexpr int LongestWaitForScreen = 100;  // milliseconds

QString PleaseWait() {
  return QString::fromStdString(zulcommon::LoadZULResString(PleaseWaitText));
}

}  // namespace

TZULPickPlsWait::TZULPickPlsWait(QWidget* Owner, const std::string& Message, bool ShowNow) : TForm(Owner) {
  setObjectName(QStringLiteral("ZULPickPlsWait"));
  // It never takes the keyboard from the dialog, whose user may type on.
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowDoesNotAcceptFocus);
  setAttribute(Qt::WA_ShowWithoutActivating);
  gbPleaseWait = new toolkit::TGroupBox(this);
  gbPleaseWait->setObjectName(QStringLiteral("gbPleaseWait"));
  gbPleaseWait->setGeometry(4, 4, 264, 36);
  lblStatus = new toolkit::TLabel(gbPleaseWait);
  lblStatus->setObjectName(QStringLiteral("lblStatus"));
  lblStatus->setGeometry(4, 16, 256, 17);
  lblStatus->setAlignment(Qt::AlignCenter);
  tmCapt = new QTimer(this);
  tmCapt->setObjectName(QStringLiteral("tmCapt"));
  tmCapt->setInterval(1500);
  connect(tmCapt, &QTimer::timeout, this, &TZULPickPlsWait::tmCaptTimer);

  setWindowTitle(QGuiApplication::applicationDisplayName());
  lblStatus->setText(QString::fromStdString(Message));
  gbPleaseWait->setTitle(PleaseWait());
  SetClientSize(gbPleaseWait->x() + gbPleaseWait->width() + 4, gbPleaseWait->y() + gbPleaseWait->height() + 4);
  uZULPickListsUtils::CenterFormOnScreen(this);
  if (ShowNow) show();
  tmCapt->start();
}

TZULPickPlsWait::~TZULPickPlsWait() = default;

void TZULPickPlsWait::ShowSoon() {
  if (isVisible()) return;
  auto* Soon = new QTimer(this);
  Soon->setObjectName(QStringLiteral("tmSoon"));
  Soon->setSingleShot(true);
  Soon->setTimerType(Qt::PreciseTimer);
  connect(Soon, &QTimer::timeout, Soon, &QObject::deleteLater);
  connect(Soon, &QTimer::timeout, this, &TZULPickPlsWait::BringOntoScreen);
  setAttribute(Qt::WA_DontShowOnScreen);
  show();
  Soon->start(SoonMilliseconds);
}

// The creator may not serve events again before long, and would leave an empty frame on the screen till then.
void TZULPickPlsWait::BringOntoScreen() {
  setAttribute(Qt::WA_DontShowOnScreen, false);
  if (!isVisible()) return;
  const QPoint Place = pos();
  hide();
  move(Place);  // what is on no screen had no frame, which is to stand there
  show();
  const QPointer<TZULPickPlsWait> There(this);
  QElapsedTimer Clock;
  Clock.start();
  while (!windowHandle()->isExposed() && Clock.elapsed() < LongestWaitForScreen) {
    QThread::msleep(1);
    toolkit::ServeEvents();
    if (There.isNull() || !isVisible()) return;
  }
  repaint();
}

void TZULPickPlsWait::UpdateForm(const std::string& Message) {
  lblStatus->setText(QString::fromStdString(Message));
  toolkit::ServeEvents();
}

void TZULPickPlsWait::tmCaptTimer() {
  if (DotStep <= 3) {
    gbPleaseWait->setTitle(PleaseWait() + QString(DotStep, QLatin1Char('.')));
    if (DotStep == 3) DotStep = 0;
  }
  toolkit::ServeEvents();
}

void TZULPickPlsWait::reject() {}

void TZULPickPlsWait::keyPressEvent(QKeyEvent* Event) {
  if (!Event->matches(QKeySequence::Cancel)) return TForm::keyPressEvent(Event);
  // A copy, because the window may be gone afterwards.
  const std::function<void()> Handler = OnEscape;
  if (Handler) toolkit::Guarded(this, Handler);
}

void TZULPickPlsWait::closeEvent(QCloseEvent* Event) {
  Event->ignore();
}

}  // namespace uZULPickPlsWait
