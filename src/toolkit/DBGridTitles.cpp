#include "toolkit/DBGridTitles.h"

#include <QPainter>
#include <QStyleOptionHeader>

#include "toolkit/CellText.h"
#include "toolkit/DBGrid.h"
#include "toolkit/Form.h"

namespace toolkit {

namespace {

constexpr int TitleHeight = 18;
constexpr qreal ArrowTop = 0.5;
constexpr qreal ArrowHeight = 3.5;

}  // namespace

TDBGridTitles::TDBGridTitles(TDBGrid& Grid) : QHeaderView(Qt::Horizontal, &Grid), Grid_(Grid) {
  setFont(TForm::TitleFont());
  setFixedHeight(TitleHeight);
  setMinimumSectionSize(1);  // the style's own would be wider than a column of ticks
  setSectionResizeMode(Fixed);
  setSectionsClickable(true);
  setHighlightSections(false);
}

// The style paints the button only: its own margins at the sides of the text would cut titles off that fit.
void TDBGridTitles::paintSection(QPainter* Painter, const QRect& Rect, int Section) const {
  if (!Rect.isValid() || Section >= Grid_.Columns().Count()) return;
  QStyleOptionHeader Option;
  initStyleOption(&Option);
  Option.rect = Rect;
  Option.section = Section;
  Option.state.setFlag(QStyle::State_MouseOver, false);
  const int Last = count() - 1;
  Option.position = Last == 0         ? QStyleOptionHeader::OnlyOneSection
                    : Section == 0    ? QStyleOptionHeader::Beginning
                    : Section == Last ? QStyleOptionHeader::End
                                      : QStyleOptionHeader::Middle;
  Painter->save();
  style()->drawControl(QStyle::CE_HeaderSection, &Option, Painter, this);
  Painter->restore();
  const TColumn& Column = *Grid_.Columns()[Section];
  Painter->setFont(font());
  Painter->setPen(palette().color(QPalette::ButtonText));
  if (&Column == Grid_.OrderColumn()) PaintArrow(*Painter, Rect);
  DrawCellText(*Painter, Rect.adjusted(0, 0, -1, -1), Column.Title(), Column.TitleAlignment(), layoutDirection());
}

// Above the text, so that no title loses room by it: up for ascending, as on every desktop.
void TDBGridTitles::PaintArrow(QPainter& Painter, const QRect& Title) const {
  const QPointF Middle(Title.center().x() + 0.5, Title.top() + ArrowTop);
  const qreal Base = Grid_.OrderDescending() ? 0 : ArrowHeight;
  const qreal Point = ArrowHeight - Base;
  Painter.save();
  Painter.setRenderHint(QPainter::Antialiasing);
  Painter.setPen(Qt::NoPen);
  Painter.setBrush(palette().color(QPalette::ButtonText));
  Painter.drawPolygon(QPolygonF(
      {Middle + QPointF(-ArrowHeight, Base), Middle + QPointF(ArrowHeight, Base), Middle + QPointF(0, Point)}));
  Painter.restore();
}

}  // namespace toolkit
