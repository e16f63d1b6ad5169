#include "toolkit/Form.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QWindow>

namespace toolkit {

namespace {

bool IsEnter(const QKeyEvent& Event) {
  return Event.key() == Qt::Key_Return || Event.key() == Qt::Key_Enter;
}

// Enter clicks the button in which it is pressed. Asked for later, by the form, that need no longer be the one with the
// focus: an Enter in another control may have taken long.
class TEnterClicks : public QObject {
 public:
  static constexpr QLatin1String Name{"EnterClicks"};

  explicit TEnterClicks(TForm* Form) : QObject(Form) { setObjectName(Name); }

  bool eventFilter(QObject* Button, QEvent* Event) override {
    if (Event->type() != QEvent::KeyPress) return false;
    const auto& Key = static_cast<const QKeyEvent&>(*Event);
    if (!IsEnter(Key)) return false;
    if (!Key.isAutoRepeat()) static_cast<QPushButton*>(Button)->click();
    return true;
  }
};

}  // namespace

TForm::TForm(QWidget* Parent) : QDialog(Parent) {
  // A frame with a close button only: the size is fixed, and there is no context help.
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                 Qt::WindowCloseButtonHint);
  setFont(FormFont());
  SetClientSize(width(), height());
}

TForm::~TForm() = default;

QFont TForm::FormFont() {
  // The twins have Arial's widths; what there is without any of them at least looks alike. The font database keeps the
  // names, so they are no literals, which would go with the library when it is unloaded.
  QFont Font(
      QStringList{QString::fromLatin1("Arial"), QString::fromLatin1("Liberation Sans"), QString::fromLatin1("Arimo")});
  Font.setStyleHint(QFont::SansSerif);
  Font.setPixelSize(11);
  return Font;
}

QFont TForm::TitleFont() {
  QFont Font = FormFont();
  Font.setBold(true);
  return Font;
}

QScreen* TForm::CallersScreen(const TForm* Form) {
  if (Form->isVisible()) return Form->screen();
  const QWidget* Owner = Form->parentWidget() != nullptr ? Form->parentWidget()->window() : nullptr;
  if (Owner == nullptr || !Owner->isVisible()) Owner = QApplication::activeWindow();
  return Owner != nullptr ? Owner->screen() : QGuiApplication::primaryScreen();
}

std::string TForm::Caption() const {
  return windowTitle().toStdString();
}

void TForm::SetCaption(const std::string& Caption) {
  setWindowTitle(QString::fromStdString(Caption));
}

void TForm::SetClientSize(int Width, int Height) {
  setFixedSize(Width, Height);
}

// Where the application has a style sheet, whatever it says, a control does not inherit a font any more: each has it as
// its own.
void TForm::GiveFont() {
  for (QWidget* Widget : findChildren<QWidget*>()) {
    if (Widget->window() != this || Widget->testAttribute(Qt::WA_SetFont)) continue;
    Widget->setFont(Widget->parentWidget()->font());
  }
}

// A QDialog looks for its default button when it is about to be shown, and takes any that offers itself.
void TForm::setVisible(bool Visible) {
  if (Visible) {
    GiveFont();
    auto* Enter = findChild<QObject*>(TEnterClicks::Name, Qt::FindDirectChildrenOnly);
    if (Enter == nullptr) Enter = new TEnterClicks(this);
    for (QPushButton* Button : findChildren<QPushButton*>()) {
      Button->setAutoDefault(false);
      Button->setDefault(false);
      Button->installEventFilter(Enter);
    }
  }
  QDialog::setVisible(Visible);
}

void TForm::StayAboveActiveWindow() {
  const QWidget* Active = QApplication::activeWindow();
  if (parentWidget() != nullptr || Active == nullptr || Active == this) return;
  winId();  // a window handle exists only from here on
  windowHandle()->setTransientParent(Active->windowHandle());
}

bool TForm::ShowModal() {
  StayAboveActiveWindow();
  return exec() == Accepted;
}

void TForm::keyPressEvent(QKeyEvent* Event) {
  if (!IsEnter(*Event)) QDialog::keyPressEvent(Event);
}

}  // namespace toolkit
