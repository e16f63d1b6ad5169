#include "toolkit/EventGuard.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <exception>

#include "toolkit/Own.h"
#include "zulcommon/StringTable.h"

namespace toolkit {

namespace {

constexpr int MaxCharacters = 1000;
constexpr int MaxLines = 20;
constexpr int MaxWord = 60;
constexpr QChar Ellipsis(0x2026);
constexpr QChar ZeroWidthSpace(0x200B);

// What a box can show of a message: a statement of a hundred thousand characters would make it larger than any screen.
QString Shortened(const QString& Message) {
  qsizetype End = 0;
  int Lines = 1;
  while (End < Message.size() && End < MaxCharacters) {
    if (Message[End] == u'\n' && ++Lines > MaxLines) break;
    ++End;
  }
  if (End == Message.size()) return Message;
  if (Message[End - 1].isHighSurrogate()) --End;
  return Message.left(End) + Ellipsis;
}

// The box breaks lines between words only, so a word longer than a line is given places to break it.
QString WithBreaks(const QString& Text) {
  QString Result;
  int Word = 0;
  for (const QChar Character : Text) {
    Word = Character.isSpace() ? 0 : Word + 1;
    if (Word > MaxWord && !Character.isLowSurrogate()) {
      Result += ZeroWidthSpace;
      Word = 1;
    }
    Result += Character;
  }
  return Result;
}

// A window that is not shown yet (a dialog that is still being set up) cannot carry a box.
QWidget* WindowToCover(QWidget* Over) {
  QWidget* Window = Over != nullptr ? Over->window() : nullptr;
  return Window != nullptr && Window->isVisible() ? Window : QApplication::activeWindow();
}

}  // namespace

bool Guarded(QWidget* Over, const std::function<void()>& Body) {
  const QPointer<QWidget> StillThere(Over);
  std::string Message;
  try {
    Body();
    return true;
  } catch (const std::exception& Error) {
    Message = Error.what();
  } catch (...) {
    // Told below, as a message without text.
  }
  ShowError(StillThere, Message);
  return false;
}

void ShowError(QWidget* Over, const std::string& Message) {
  const std::string Whole =
      Message.empty() ? zulcommon::Translated("ErrorBox.Unknown", "An unknown error has occurred.") : Message;
  const QString Text = WithBreaks(Shortened(QString::fromStdString(Whole)));
  const QString Title = Over != nullptr ? Over->window()->windowTitle() : QString();
  // Not on the stack: the window may take the box with it while it is open.
  const QPointer<QMessageBox> Box =
      new QMessageBox(QMessageBox::Critical, Title, QString(), QMessageBox::Ok, WindowToCover(Over));
  Box->setObjectName(QStringLiteral("ErrorBox"));
  DeclareOwn(Box);
  Box->setTextFormat(Qt::PlainText);
  Box->setText(Text);
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
  Box->setOption(QMessageBox::Option::DontUseNativeDialog);
#endif
  Box->setWindowModality(Box->parentWidget() != nullptr ? Qt::WindowModal : Qt::ApplicationModal);
  Box->exec();
  delete Box;
}

}  // namespace toolkit
