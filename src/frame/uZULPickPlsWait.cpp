#include "frame/uZULPickPlsWait.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QLabel>
#include <QTimer>

#include "frame/uZULPickListsUtils.h"
#include "toolkit/GroupBox.h"
#include "zulcommon/StringTable.h"

namespace uZULPickPlsWait {

namespace {

constexpr int PleaseWaitText = 65520;

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
  lblStatus = new QLabel(gbPleaseWait);
  lblStatus->setObjectName(QStringLiteral("lblStatus"));
  lblStatus->setGeometry(4, 16, 256, 17);
  lblStatus->setAlignment(Qt::AlignCenter);
  lblStatus->setTextFormat(Qt::PlainText);
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

void TZULPickPlsWait::UpdateForm(const std::string& Message) {
  lblStatus->setText(QString::fromStdString(Message));
  QCoreApplication::processEvents();
}

void TZULPickPlsWait::tmCaptTimer() {
  if (DotStep <= 3) {
    gbPleaseWait->setTitle(PleaseWait() + QString(DotStep, QLatin1Char('.')));
    if (DotStep == 3) DotStep = 0;
  }
  QCoreApplication::processEvents();
}

void TZULPickPlsWait::reject() {}

void TZULPickPlsWait::closeEvent(QCloseEvent* Event) {
  Event->ignore();
}

}  // namespace uZULPickPlsWait
