#include "toolkit/ChoicePainting.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <QStyleOptionFocusRect>
#include <QWidget>
#include <algorithm>

#include "toolkit/Mnemonic.h"
#include "toolkit/WholeText.h"

namespace toolkit {

namespace {

constexpr int IndicatorSize = 12;
constexpr int TextLeft = 15;

QRect Mirrored(const QWidget& Button, const QRect& Rect) {
  return QStyle::visualRect(Button.layoutDirection(), Button.rect(), Rect);
}

void PaintFocus(QPainter& Painter, const QWidget& Button, const QStyleOptionButton& Of, const QString& Shown) {
  QStyleOptionFocusRect Option;
  Option.initFrom(&Button);
  Option.state = Of.state;
  Option.backgroundColor = Button.palette().color(QPalette::Window);
  const int Width = std::min(Button.width() - TextLeft, CaptionWidth(Button, Shown) + 1);
  Option.rect = Mirrored(Button, QRect(TextLeft - 1, 0, Width + 1, Button.height()));
  Button.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &Option, &Painter, &Button);
}

}  // namespace

QRect ChoiceTextRect(const QWidget& Button) {
  return Mirrored(Button, Button.rect().adjusted(TextLeft, 0, 0, 0));
}

void PaintChoice(QPainter& Painter, const QWidget& Button, QStyleOptionButton Option,
                 QStyle::PrimitiveElement Indicator, const QString& Text) {
  const QStyle& Style = *Button.style();
  Option.rect = Mirrored(Button, QRect(0, (Button.height() - IndicatorSize) / 2, IndicatorSize, IndicatorSize));
  Style.drawPrimitive(Indicator, &Option, &Painter, &Button);
  const QRect Place = ChoiceTextRect(Button);
  const QString Shown = ElidedCaption(Button, Text, Place.width());
  const int Mnemonic =
      Style.styleHint(QStyle::SH_UnderlineShortcut, &Option, &Button) ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
  const Qt::Alignment Side = QStyle::visualAlignment(Button.layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter);
  const int Shape = static_cast<int>(Side | Qt::AlignAbsolute) | Qt::TextSingleLine | Mnemonic;
  Painter.setLayoutDirection(Qt::LayoutDirectionAuto);  // "PO No." ends with its point also among Arabic
  Style.drawItemText(&Painter, Place, Shape, Button.palette(), Button.isEnabled(), Shown, QPalette::WindowText);
  if (Button.hasFocus()) PaintFocus(Painter, Button, Option, Shown);
}

QString ChoiceToolTip(const QWidget& Button, const QString& Text) {
  if (CaptionWidth(Button, Text) <= ChoiceTextRect(Button).width()) return {};
  return WithoutMnemonic(Text).toHtmlEscaped();
}

}  // namespace toolkit
