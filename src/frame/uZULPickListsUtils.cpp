#include "frame/uZULPickListsUtils.h"

#include <QImage>
#include <QPainter>
#include <QScreen>
#include <QStyle>

namespace uZULPickListsUtils {

using toolkit::TAlignment;
using toolkit::TColumn;
using toolkit::TDBGrid;
using toolkit::TGridDrawState;
using toolkit::TGridDrawStateFlag;

namespace {

constexpr QRgb Magenta = qRgb(255, 0, 255);
constexpr QRgb Black = qRgb(0, 0, 0);

// The tick with its background transparent and its black pixels in the colour given. The image has a palette, so
// colours are changed there.
QImage TickImage(QRgb BlackBecomes) {
  QImage Tick(QStringLiteral(":/zul/frame/PICKTICK.bmp"));
  if (Tick.isNull()) return Tick;
  QList<QRgb> Colours = Tick.colorTable();
  for (QRgb& Colour : Colours) {
    if (Colour == Magenta) {
      Colour = qRgba(0, 0, 0, 0);
    } else if (Colour == Black) {
      Colour = BlackBecomes;
    }
  }
  Tick.setColorTable(Colours);
  return Tick;
}

int TickLeft(const QRect& Rect, const QImage& Tick, TAlignment Alignment) {
  switch (Alignment) {
    case TAlignment::taLeftJustify:
      return Rect.left();
    case TAlignment::taRightJustify:
      return Rect.left() + Rect.width() - Tick.width();
    case TAlignment::taCenter:
      break;
  }
  return Rect.left() + Rect.width() / 2 - Tick.width() / 2;
}

bool ShowsSelection(const TDBGrid& Grid, TGridDrawState State) {
  if (!State.Contains(TGridDrawStateFlag::gdSelected)) return false;
  return Grid.AlwaysShowSelection() || (State.Contains(TGridDrawStateFlag::gdFocused) && Grid.hasFocus());
}

}  // namespace

std::string AddQuotes(std::string_view S) {
  std::string Result;
  Result.reserve(S.size());
  for (const char Character : S) {
    if (Character == '\'') Result += '\'';
    Result += Character;
  }
  return Result;
}

void CenterFormOnScreen(toolkit::TForm* Form) {
  const QScreen* Screen = toolkit::TForm::CallersScreen(Form);
  if (Screen == nullptr) return;
  const QRect Room = Screen->availableGeometry();
  Form->setGeometry(Room.x() + (Room.width() - Form->width()) / 2, Room.y() + (Room.height() - Form->height()) / 2,
                    Form->width(), Form->height());
}

void GridPaint(TDBGrid* Grid, const QRect& Rect, int DataCol, TColumn* Column, TGridDrawState State) {
  const ads::TField* Field = Column->Field();
  if (Field == nullptr || Field->DataType() != ads::TFieldType::ftBoolean || Field->OnGetText) {
    Grid->DefaultDrawColumnCell(Rect, DataCol, Column, State);
    return;
  }
  if (Grid->Canvas() == nullptr) return;
  QPainter& Canvas = *Grid->Canvas();
  Canvas.fillRect(Rect, Canvas.brush());
  Grid->DrawFocusFrame(Rect, State);
  if (!Field->AsBoolean()) return;
  const QPalette::ColorRole Ink = ShowsSelection(*Grid, State) ? QPalette::HighlightedText : QPalette::Text;
  const QImage Tick = TickImage(Grid->palette().color(Ink).rgb());
  if (Tick.isNull()) return;
  const int Top = Rect.top() + Rect.height() / 2 - Tick.height() / 2;
  const QRect Place(QPoint(TickLeft(Rect, Tick, Column->Alignment()), Top), Tick.size());
  Canvas.drawImage(QStyle::visualRect(Grid->layoutDirection(), Rect, Place).topLeft(), Tick);
}

int GridColIndex(const TDBGrid* Grid, const ads::TField* Field) {
  for (const TColumn* Column : Grid->Columns()) {
    if (Column->Field() == Field) return Column->Index();
  }
  return -1;
}

TColumn* GridCol(const TDBGrid* Grid, const ads::TField* Field) {
  const int Index = GridColIndex(Grid, Field);
  return Index < 0 ? nullptr : Grid->Columns()[Index];
}

}  // namespace uZULPickListsUtils
