#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QScreen>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

#include "ads/Connection.h"
#include "ads/Query.h"
#include "frame/uZULPickListsUtils.h"

using namespace uZULPickListsUtils;
using ads::TFieldType;
using toolkit::TAlignment;
using toolkit::TColumn;
using toolkit::TDBGrid;

class tst_PickListsUtils : public QObject {
  Q_OBJECT

  QSqlDatabase Database;
  std::unique_ptr<ads::TAdsConnection> Connection;

  // A grid over two rows, the first true and the second false.
  struct TGrid {
    explicit TGrid(ads::TAdsConnection* Connection) : Query(nullptr) {
      Query.SetConnection(Connection);
      Flag = Query.AddField("Flag", TFieldType::ftBoolean);
      Name = Query.AddField("Name", TFieldType::ftString, 10);
      Query.SQL()->Add("SELECT Flag, Name FROM T ORDER BY Name");
      Query.Open();
      Grid.SetDataSet(&Query);
      Grid.AddColumn(Name);
      Column = &Grid.AddColumn(Flag);
      Column->SetWidth(40);
      Grid.OnDrawColumnCell = GridPaint;
      Grid.setFixedSize(200, 120);
    }
    ~TGrid() { Grid.SetDataSet(nullptr); }

    QImage ViewportImage() {
      Grid.show();
      return Grid.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    // The grid is laid out when it is shown, so the picture comes first.
    QImage CellImage(int Row) {
      const QImage Shown = ViewportImage();
      return Shown.copy(Grid.visualRect(Grid.model()->index(Row, 1)));
    }
    static int Count(const QImage& Image, QRgb Colour) {
      int Found = 0;
      for (int Y = 0; Y < Image.height(); ++Y) {
        for (int X = 0; X < Image.width(); ++X) Found += Image.pixel(X, Y) == Colour ? 1 : 0;
      }
      return Found;
    }

    ads::TAdsQuery Query;
    ads::TField* Flag;
    ads::TField* Name;
    TDBGrid Grid;
    TColumn* Column;
  };

 private Q_SLOTS:
  void initTestCase() {
    Database = QSqlDatabase::addDatabase("QSQLITE");
    Database.setDatabaseName(":memory:");
    QVERIFY(Database.open());
    QSqlQuery Query(Database);
    QVERIFY(Query.exec("CREATE TABLE T (Flag BOOLEAN, Name VARCHAR(10))"));
    QVERIFY(Query.exec("INSERT INTO T VALUES (0, 'a'), (1, 'b'), (0, 'c')"));
    Connection = std::make_unique<ads::TAdsConnection>(Database);
  }

  void shouldDoubleEveryQuoteAndNothingElse() {
    QCOMPARE(AddQuotes("O'NEIL"), std::string("O''NEIL"));
    QCOMPARE(AddQuotes("''"), std::string("''''"));
    QCOMPARE(AddQuotes("plain \"text\" %_\\"), std::string("plain \"text\" %_\\"));
    QCOMPARE(AddQuotes(""), std::string());
  }

  void shouldCentreAFormByTruncatedHalves() {
    const QSize Screen = QGuiApplication::primaryScreen()->size();
    toolkit::TForm Form;
    Form.SetClientSize(301, 201);
    CenterFormOnScreen(&Form);
    QCOMPARE(Form.pos(), QPoint((Screen.width() - 301) / 2, (Screen.height() - 201) / 2));
    QCOMPARE(Form.size(), QSize(301, 201));
    Form.SetClientSize(Screen.width() + 101, 100);
    CenterFormOnScreen(&Form);
    QCOMPARE(Form.x(), -50);
  }

  void shouldHaveATickImageOfTheStatedSizeAndColours() {
    const QImage Tick(":/zul/frame/PICKTICK.bmp");
    QCOMPARE(Tick.size(), QSize(11, 17));
    QCOMPARE(Tick.format(), QImage::Format_Indexed8);
    int Ticks = 0;
    for (int Y = 0; Y < 17; ++Y) {
      for (int X = 0; X < 11; ++X) {
        const QRgb Colour = Tick.pixel(X, Y);
        if (Colour == qRgb(255, 0, 255)) continue;
        QVERIFY2(Y >= 8 && Y <= 13, "the tick stands in rows 8 to 13");
        QVERIFY(Colour == qRgb(0, 0, 0) || Colour == qRgb(128, 128, 128));
        Ticks += Colour == qRgb(0, 0, 0) ? 1 : 0;
      }
    }
    QVERIFY(Ticks > 8);
  }

  void shouldPaintATickForTrueAndNothingForFalse() {
    TGrid Grid(Connection.get());
    QVERIFY(TGrid::Count(Grid.CellImage(1), qRgb(0, 0, 0)) > 8);
    const QImage False = Grid.CellImage(2);
    QCOMPARE(TGrid::Count(False, qRgb(0, 0, 0)), 0);
    QCOMPARE(TGrid::Count(False, qRgb(255, 0, 255)), 0);
  }

  void shouldPaintTheTickInTheHighlightedTextColourOnTheSelectedRow() {
    TGrid Grid(Connection.get());
    QPalette Palette = Grid.Grid.palette();
    Palette.setColor(QPalette::Highlight, QColor(10, 20, 200));
    Palette.setColor(QPalette::HighlightedText, QColor(250, 240, 10));
    Grid.Grid.setPalette(Palette);
    Grid.Query.SetRecNo(2);
    const QImage Selected = Grid.CellImage(1);
    QVERIFY(TGrid::Count(Selected, qRgb(250, 240, 10)) > 8);
    QCOMPARE(TGrid::Count(Selected, qRgb(0, 0, 0)), 0);
    QVERIFY(TGrid::Count(Selected, qRgb(10, 20, 200)) > 50);
    Grid.Query.SetRecNo(1);
    QVERIFY(TGrid::Count(Grid.CellImage(1), qRgb(0, 0, 0)) > 8);
  }

  void shouldPaintTheTickInTheTextColourOfADarkPalette() {
    TGrid Grid(Connection.get());
    QPalette Palette(QColor(40, 40, 45));
    Palette.setColor(QPalette::Base, QColor(20, 20, 22));
    Palette.setColor(QPalette::Text, QColor(240, 241, 242));
    Grid.Grid.setPalette(Palette);
    const QImage Tick = Grid.CellImage(1);
    QVERIFY(TGrid::Count(Tick, qRgb(240, 241, 242)) > 8);
    QCOMPARE(TGrid::Count(Tick, qRgb(0, 0, 0)), 0);
  }

  void shouldPlaceTheTickByTheColumnsAlignment_data() {
    QTest::addColumn<int>("Alignment");
    QTest::addColumn<QSize>("Cell");
    QTest::addColumn<QPoint>("Place");
    const auto Add = [](const char* Name, TAlignment Alignment, QSize Cell, QPoint Place) {
      QTest::newRow(Name) << static_cast<int>(Alignment) << Cell << Place;
    };
    // Half the cell less half the image of 11 by 17, each half truncated.
    Add("left", TAlignment::taLeftJustify, {40, 20}, {0, 2});
    Add("centred", TAlignment::taCenter, {40, 20}, {15, 2});
    Add("right", TAlignment::taRightJustify, {40, 20}, {29, 2});
    Add("left, odd", TAlignment::taLeftJustify, {41, 21}, {0, 2});
    Add("centred, odd", TAlignment::taCenter, {41, 21}, {15, 2});
    Add("right, odd", TAlignment::taRightJustify, {41, 21}, {30, 2});
    Add("centred, higher", TAlignment::taCenter, {42, 30}, {16, 7});
    Add("centred, narrow", TAlignment::taCenter, {16, 18}, {3, 1});
    Add("centred, smaller than the image", TAlignment::taCenter, {8, 14}, {-1, -1});
  }
  void shouldPlaceTheTickByTheColumnsAlignment() {
    QFETCH(int, Alignment);
    QFETCH(QSize, Cell);
    QFETCH(QPoint, Place);
    TGrid Grid(Connection.get());
    Grid.Column->SetAlignment(static_cast<TAlignment>(Alignment));
    Grid.Grid.setShowGrid(false);
    // The only cell that is painted, of a size that the grid itself would not give it.
    const QRect Rect(QPoint(60, 40), Cell);
    Grid.Grid.OnDrawColumnCell = [&](TDBGrid* Sender, const QRect&, int DataCol, TColumn* Column,
                                     toolkit::TGridDrawState State) {
      if (Column != Grid.Column || !Grid.Flag->AsBoolean()) return;
      Sender->Canvas()->setClipping(false);
      GridPaint(Sender, Rect, DataCol, Column, State);
    };
    const QImage Shown = Grid.ViewportImage();
    QImage Expected(Shown.size(), QImage::Format_RGB32);
    Expected.fill(Grid.Grid.palette().color(QPalette::Base));
    const QImage Tick(":/zul/frame/PICKTICK.bmp");
    for (int Y = 0; Y < Tick.height(); ++Y) {
      for (int X = 0; X < Tick.width(); ++X) {
        if (Tick.pixel(X, Y) == qRgb(255, 0, 255)) continue;
        Expected.setPixel(Rect.topLeft() + Place + QPoint(X, Y), Tick.pixel(X, Y));
      }
    }
    const QRect Around = Rect.adjusted(-12, -12, 12, 12);
    QCOMPARE(Shown.copy(Around), Expected.copy(Around));
  }

  void shouldPaintABooleanWithADisplayTextAsText() {
    TGrid Grid(Connection.get());
    const QImage Tick = Grid.CellImage(1);
    Grid.Flag->OnGetText = [](const ads::TField&, std::string& Text) { Text = "WWW"; };
    QVERIFY(Grid.CellImage(1) != Tick);
    QVERIFY(Grid.CellImage(1) == Grid.CellImage(2));
  }

  void shouldPaintNothingWhileTheGridDoesNotPaint() {
    TGrid Grid(Connection.get());
    Grid.Query.SetRecNo(2);
    QVERIFY(Grid.Flag->AsBoolean());
    QVERIFY(Grid.Grid.Canvas() == nullptr);
    const QRect Cell(0, 0, 40, 17);
    GridPaint(&Grid.Grid, Cell, 1, Grid.Column, {});
    GridPaint(&Grid.Grid, Cell, 0, GridCol(&Grid.Grid, Grid.Name), {});
    Grid.Query.SetRecNo(1);
    QVERIFY(TGrid::Count(Grid.CellImage(1), qRgb(0, 0, 0)) > 8);
  }

  void shouldFindAColumnByItsField() {
    TGrid Grid(Connection.get());
    QCOMPARE(GridColIndex(&Grid.Grid, Grid.Flag), 1);
    QCOMPARE(GridCol(&Grid.Grid, Grid.Flag), Grid.Column);
    Grid.Grid.RemoveColumn(1);
    QCOMPARE(GridColIndex(&Grid.Grid, Grid.Flag), -1);
    QVERIFY(GridCol(&Grid.Grid, Grid.Flag) == nullptr);
  }
};

QTEST_MAIN(tst_PickListsUtils)
#include "tst_PickListsUtils.moc"
