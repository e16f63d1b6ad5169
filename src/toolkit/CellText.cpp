#include "toolkit/CellText.h"

#include <QFontMetrics>
#include <QPainter>
#include <QRect>
#include <QString>
#include <QStyle>

namespace toolkit {

namespace {

// Longer than any column is wide. Measuring a text takes time in proportion to its length, and a memo may be long.
constexpr qsizetype MaxMeasured = 2000;

}  // namespace

bool IsCut(const QFont& Font, int CellWidth, const QString& Text) {
  return QFontMetrics(Font).horizontalAdvance(Text.left(MaxMeasured)) > CellWidth - 2 * CellTextMargin;
}

Qt::Alignment QtAlignment(ads::TAlignment Alignment) {
  switch (Alignment) {
    case ads::TAlignment::taRightJustify:
      return Qt::AlignRight | Qt::AlignVCenter;
    case ads::TAlignment::taCenter:
      return Qt::AlignHCenter | Qt::AlignVCenter;
    default:
      return Qt::AlignLeft | Qt::AlignVCenter;
  }
}

void DrawCellText(QPainter& Painter, const QRect& Cell, const std::string& Text, ads::TAlignment Alignment,
                  Qt::LayoutDirection Direction, Qt::TextElideMode Elide) {
  if (Text.empty()) return;
  const QRect Inside = Cell.adjusted(CellTextMargin, 0, -CellTextMargin, 0);
  const QString Whole = QString::fromStdString(Text).left(MaxMeasured);
  QString Shown = Painter.fontMetrics().elidedText(Whole, Elide, Inside.width());
  // In the narrowest columns nothing but the ellipsis would be left: the first letter says more.
  if (Shown.size() == 1 && Whole.size() > 1) Shown = Whole.left(1);
  const Qt::Alignment Place = QStyle::visualAlignment(Direction, QtAlignment(Alignment)) | Qt::AlignAbsolute;
  const Qt::LayoutDirection Before = Painter.layoutDirection();
  Painter.setLayoutDirection(Qt::LayoutDirectionAuto);
  Painter.drawText(Inside, static_cast<int>(Place) | Qt::TextSingleLine, Shown);
  Painter.setLayoutDirection(Before);
}

}  // namespace toolkit
