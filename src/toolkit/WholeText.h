#pragma once

#include <QString>

#include "toolkit/zultoolkit_export.h"

class QEvent;
class QWidget;

namespace toolkit {

/// The pixels that a text takes in the font of the forms, or in the bold one of column titles.
ZULTOOLKIT_EXPORT int TextWidth(const QString& Text, bool Bold = false);

/// The pixels of a caption whose mnemonic is marked by "&", in the widget's font.
int CaptionWidth(const QWidget& Widget, const QString& Caption);

/// The caption as it is painted in so many pixels.
QString ElidedCaption(const QWidget& Widget, const QString& Caption, int Room);

/// A text for a tool tip, which shows it as it is, letter by letter.
ZULTOOLKIT_EXPORT QString AsToolTip(const QString& Text);

/// For a tool tip's event on a widget that has no other tool tip: shows the whole caption when it does not fit, and
/// nothing when it does. Whether the event was such a one, and needs no more care.
bool ShowWholeText(QEvent* Event, QWidget* Widget, const QString& Caption, int Room);

}  // namespace toolkit
