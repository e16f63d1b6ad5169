#pragma once

#include <QRect>
#include <QString>
#include <QStyle>

class QPainter;
class QStyleOptionButton;
class QWidget;

namespace toolkit {

/// Where the caption of a radio button or check box stands that is painted by `PaintChoice`.
QRect ChoiceTextRect(const QWidget& Button);

/// Paints a radio button or check box as closely as the narrow choices of the dialogs ask for, 14 pixels high: the
/// styles' own indicators and spacing take a third of the width, and grow with the system's fonts beyond the height.
///
/// `Option` is the button's own; `Text` has its mnemonic marked by "&" and is cut off where it does not fit.
void PaintChoice(QPainter& Painter, const QWidget& Button, QStyleOptionButton Option,
                 QStyle::PrimitiveElement Indicator, const QString& Text);

/// A tool tip with the whole text when it does not fit, else none.
QString ChoiceToolTip(const QWidget& Button, const QString& Text);

}  // namespace toolkit
