#include "toolkit/WholeText.h"

#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>
#include <algorithm>

#include "toolkit/Form.h"
#include "toolkit/Mnemonic.h"

namespace toolkit {

namespace {

constexpr int Flags = Qt::TextSingleLine | Qt::TextShowMnemonic;

}  // namespace

int TextWidth(const QString& Text, bool Bold) {
  return QFontMetrics(Bold ? TForm::TitleFont() : TForm::FormFont()).size(Qt::TextSingleLine, Text).width();
}

int CaptionWidth(const QWidget& Widget, const QString& Caption) {
  return Widget.fontMetrics().size(Flags, Caption).width();
}

QString ElidedCaption(const QWidget& Widget, const QString& Caption, int Room) {
  if (CaptionWidth(Widget, Caption) <= Room) return Caption;
  return Widget.fontMetrics().elidedText(Caption, Qt::ElideRight, std::max(Room, 0), Flags);
}

QString AsToolTip(const QString& Text) {
  return Qt::mightBeRichText(Text) ? QStringLiteral("<qt>%1</qt>").arg(Text.toHtmlEscaped()) : Text;
}

bool ShowWholeText(QEvent* Event, QWidget* Widget, const QString& Caption, int Room) {
  if (Event->type() != QEvent::ToolTip || !Widget->toolTip().isEmpty()) return false;
  if (CaptionWidth(*Widget, Caption) <= Room) {
    QToolTip::hideText();  // nor that of the group around
    return true;
  }
  QToolTip::showText(static_cast<QHelpEvent*>(Event)->globalPos(), AsToolTip(WithoutMnemonic(Caption)), Widget);
  return true;
}

}  // namespace toolkit
