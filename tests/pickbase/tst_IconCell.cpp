// Cells of pictures, on light and on dark.
#include <QPainter>
#include <QTest>

#include "pickbase/IconCell.h"
#include "toolkit/Cities.h"
#include "toolkit/Form.h"

using pickbase::TIconHighlight;
using toolkit::TDBGrid;

namespace {

constexpr QColor Ink(45, 55, 72);

// A dark square of five pixels in the midst of a cell.
toolkit::TImageList Square() {
  toolkit::TImageList List(15, 15);
  List.Add(toolkit::PaintedIcon([](QPainter& Painter, const QSizeF&) { Painter.fillRect(QRect(5, 5, 5, 5), Ink); }));
  return List;
}

// The second row's picture, while the first is the selected one.
QImage CellOn(const QPalette& Palette, bool Selected = false) {
  TCities Cities(3);
  Cities.Query->Open();
  toolkit::TForm Form;
  TDBGrid Grid(&Form);
  Grid.SetDataSet(Cities.Query.get());
  Grid.AddColumn(Cities.Zip).SetWidth(20);
  Grid.setFixedSize(120, 120);
  Grid.setPalette(Palette);
  const toolkit::TImageList Images = Square();
  Grid.OnDrawColumnCell = [&Images](TDBGrid* Sender, const QRect& Rect, int, toolkit::TColumn*,
                                    toolkit::TGridDrawState State) {
    pickbase::PaintIconCell(*Sender, Rect, State, TIconHighlight::Selection, Images, {0});
  };
  if (Selected) Cities.Query->SetRecNo(2);
  Form.show();
  const QImage Shown = Grid.viewport()->grab().toImage();
  const QRect Cell = Grid.visualRect(Grid.model()->index(1, 0));
  return Shown.copy(QRect(Cell.topLeft() + QPoint(0, 2), QSize(15, 15)));
}

QPalette Dark() {
  QPalette Result(QColor(40, 40, 45));
  Result.setColor(QPalette::Base, QColor(25, 25, 28));
  Result.setColor(QPalette::Highlight, QColor(20, 40, 90));
  return Result;
}

}  // namespace

class tst_IconCell : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldShowThePictureAsItIsOnLight() {
    const QImage Cell = CellOn(QPalette());
    for (int Y = 0; Y < 15; ++Y) {
      for (int X = 0; X < 15; ++X) {
        const bool Inside = QRect(5, 5, 5, 5).contains(X, Y);
        QCOMPARE(Cell.pixelColor(X, Y), Inside ? Ink : QPalette().color(QPalette::Base));
      }
    }
  }

  void shouldGiveThePictureALightRimOnDark_data() {
    QTest::addColumn<bool>("selected");
    QTest::newRow("list") << false;
    QTest::newRow("selected row") << true;
  }

  void shouldGiveThePictureALightRimOnDark() {
    QFETCH(bool, selected);
    const QImage Cell = CellOn(Dark(), selected);
    const QColor Behind = Dark().color(selected ? QPalette::Highlight : QPalette::Base);
    for (int Y = 0; Y < 15; ++Y) {
      for (int X = 0; X < 15; ++X) {
        const QColor Colour = Cell.pixelColor(X, Y);
        if (QRect(5, 5, 5, 5).contains(X, Y)) {
          QCOMPARE(Colour, Ink);
        } else if (QRect(4, 4, 7, 7).contains(X, Y)) {
          QVERIFY(qGray(Colour.rgb()) > qGray(Behind.rgb()) + 100);
        } else {
          QCOMPARE(Colour, Behind);
        }
      }
    }
  }
};

QTEST_MAIN(tst_IconCell)
#include "tst_IconCell.moc"
