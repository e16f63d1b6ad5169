// The pictures of purchase orders: every state with every type, as the grid's cells show them.
#include <QTemporaryDir>
#include <QTest>

#include "pickbase/IconCell.h"
#include "picks/purchasing/POIcons.h"
#include "picks/purchasing/POStates.h"
#include "support/Pictures.h"

using purchasing::FirstOverlay;
using toolkit::TGridDrawState;
using toolkit::TImageList;

namespace {

constexpr int Cell = 15;
constexpr int States = 6;
constexpr int Types = 3;

// What of the pictures a cell shows, on a background.
QImage Shown(const TImageList& List, const std::vector<int>& Pictures, const QColor& Behind, qreal Scale = 1) {
  QImage Image((QSizeF(Cell, Cell) * Scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  Image.setDevicePixelRatio(Scale);
  Image.fill(Behind);
  QPainter Painter(&Image);
  for (const int Picture : Pictures) List.Draw(Painter, 0, 0, Picture);
  return Image;
}

// The whole picture, also what a cell cuts off.
QImage Whole(const TImageList& List, int Picture, const QColor& Behind = Qt::transparent) {
  QImage Image(20, 20, QImage::Format_ARGB32_Premultiplied);
  Image.fill(Behind);
  QPainter Painter(&Image);
  List.Draw(Painter, 0, 0, Picture);
  return Image;
}

// How many pixels differ clearly when only their brightness is seen.
int DifferentGreys(const QImage& A, const QImage& B) {
  int Count = 0;
  for (int Y = 0; Y < A.height(); ++Y) {
    for (int X = 0; X < A.width(); ++X) {
      if (std::abs(qGray(A.pixel(X, Y)) - qGray(B.pixel(X, Y))) > 60) ++Count;
    }
  }
  return Count;
}

std::vector<std::vector<int>> OrderCombinations() {
  std::vector<std::vector<int>> All;
  for (int State = 0; State < States; ++State) {
    for (int Type = 0; Type < Types; ++Type) All.push_back({State, FirstOverlay + Type});
  }
  return All;
}

void CompareAllPairs(const TImageList& List, const std::vector<std::vector<int>>& Combinations, int Least) {
  for (const QColor& Behind : {QColor(Qt::white), QColor(48, 140, 198), QColor(0, 0, 128), QColor(40, 40, 40)}) {
    for (std::size_t A = 0; A < Combinations.size(); ++A) {
      for (std::size_t B = A + 1; B < Combinations.size(); ++B) {
        const int Count = DifferentGreys(Shown(List, Combinations[A], Behind), Shown(List, Combinations[B], Behind));
        QVERIFY2(Count >= Least,
                 qPrintable(QStringLiteral("%1 and %2 on %3: %4").arg(A).arg(B).arg(Behind.name()).arg(Count)));
      }
    }
  }
}

// A row of pictures a background: the pictures as they are and four times as large.
void PaintSheetRows(QPainter& Painter, const TImageList& List, const std::vector<std::vector<int>>& Combinations,
                    int Top) {
  int Row = 0;
  for (const QColor& Behind : {QColor(Qt::white), QColor(48, 140, 198), QColor(40, 40, 40)}) {
    for (std::size_t Index = 0; Index < Combinations.size(); ++Index) {
      const int Left = 4 + static_cast<int>(Index) * 20;
      Painter.drawImage(QPoint(Left, Top + Row * 20),
                        Shown(List, Combinations[Index], Behind, Painter.device()->devicePixelRatio()));
    }
    ++Row;
  }
}

QImage Sheet(qreal Scale) {
  QImage Image((QSizeF(370, 132) * Scale).toSize(), QImage::Format_RGB32);
  Image.setDevicePixelRatio(Scale);
  Image.fill(QColor(200, 200, 200));
  QPainter Painter(&Image);
  PaintSheetRows(Painter, purchasing::OrderIcons(), OrderCombinations(), 4);
  PaintSheetRows(Painter, purchasing::TypeIcons(), {{0}, {1}, {2}}, 68);
  return Image;
}

}  // namespace

class tst_POIcons : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldHoldStatesAndOverlays() {
    QCOMPARE(purchasing::OrderIcons().Count(), States + Types);
    QCOMPARE(purchasing::OrderIcons().Size(), QSize(16, 16));
    QCOMPARE(FirstOverlay, States);
    QCOMPARE(purchasing::TypeIcons().Count(), Types);
    QCOMPARE(purchasing::TypeIcons().Size(), QSize(16, 16));
  }

  void shouldDrawWhatTheStateMeans_data() {
    QTest::addColumn<int>("Picture");
    QTest::newRow("order-unposted") << purchasing::StatePicture({});
    QTest::newRow("order-posted") << purchasing::StatePicture({.Posted = true});
    QTest::newRow("order-receipted") << purchasing::StatePicture({.Receipted = true});
    QTest::newRow("order-closed") << purchasing::StatePicture({.Closed = true, .Receipted = true});
    QTest::newRow("order-paid") << purchasing::StatePicture({.Paid = true});
    QTest::newRow("order-cancelled") << purchasing::StatePicture({.Cancelled = true});
  }
  void shouldDrawWhatTheStateMeans() {
    QFETCH(int, Picture);
    const QImage Painted = Shown(purchasing::OrderIcons(), {Picture}, Qt::transparent);
    QVERIFY(support::LooksLikeKept(Painted, QTest::currentDataTag()));
  }

  void shouldDrawWhatTheTypeMeans_data() {
    QTest::addColumn<QString>("Type");
    QTest::newRow("stock") << "S";
    QTest::newRow("customer") << "P";
    QTest::newRow("several-documents") << "M";
  }
  void shouldDrawWhatTheTypeMeans() {
    QFETCH(QString, Type);
    const int Picture = purchasing::TypePicture(Type.toStdString());
    const QString Name = QTest::currentDataTag();
    const QImage Small = Shown(purchasing::OrderIcons(), {FirstOverlay + Picture}, Qt::transparent);
    QVERIFY(support::LooksLikeKept(Small, "over-order-" + Name));
    QVERIFY(support::LooksLikeKept(Shown(purchasing::TypeIcons(), {Picture}, Qt::transparent), "type-" + Name));
  }

  // A type's light rim may be cut off at the cell's edge, a picture's own ink may not.
  void shouldKeepWithinTheCell() {
    for (const TImageList& List : {purchasing::OrderIcons(), purchasing::TypeIcons()}) {
      for (int Picture = 0; Picture < List.Count(); ++Picture) {
        const QImage Image = Whole(List, Picture, Qt::white);
        for (int Y = 0; Y < Image.height(); ++Y) {
          for (int X = 0; X < Image.width(); ++X) {
            if (X < Cell && Y < Cell) continue;
            QVERIFY2(qGray(Image.pixel(X, Y)) == 255, qPrintable(QString::number(Picture)));
          }
        }
      }
    }
  }

  void shouldLeaveTheStateReadableUnderTheType() {
    const TImageList List = purchasing::OrderIcons();
    for (int Type = 0; Type < Types; ++Type) {
      const QImage Image = Whole(List, FirstOverlay + Type);
      int Covered = 0;
      for (int Y = 0; Y < Cell; ++Y) {
        for (int X = 0; X < Cell; ++X) {
          if (qAlpha(Image.pixel(X, Y)) == 0) continue;
          ++Covered;
          QVERIFY2(X >= 7 && Y >= 7, "the type stands in the lower right corner");
        }
      }
      QVERIFY(Covered > 20);
      QVERIFY(Covered * 3 < Cell * Cell);
    }
  }

  void shouldTellEveryCombinationFromEveryOtherWithoutColour() {
    CompareAllPairs(purchasing::OrderIcons(), OrderCombinations(), 8);
    CompareAllPairs(purchasing::TypeIcons(), {{0}, {1}, {2}}, 40);
  }

  void shouldTellTheStatesApartUnderAnyType() {
    for (int Type = 0; Type < Types; ++Type) {
      std::vector<std::vector<int>> SameType;
      for (int State = 0; State < States; ++State) SameType.push_back({State, FirstOverlay + Type});
      CompareAllPairs(purchasing::OrderIcons(), SameType, 10);
    }
  }

  void shouldBeSharpOnAFineScreen() {
    const TImageList List = purchasing::OrderIcons();
    for (const std::vector<int>& Pictures : OrderCombinations()) {
      const QImage Fine = Shown(List, Pictures, Qt::white, 3);
      QCOMPARE(Fine.size(), QSize(45, 45));
      QVERIFY(Fine != Shown(List, Pictures, Qt::white).scaled(45, 45));
    }
  }

  void shouldDrawThemAllOnOneSheet() {
    const QTemporaryDir Folder;
    const QString Name = Folder.filePath(QStringLiteral("po-icons.png"));
    QVERIFY(Sheet(1).save(Name));
    QVERIFY(Sheet(4).save(Folder.filePath(QStringLiteral("po-icons-4x.png"))));
    const QImage Read(Name);
    QCOMPARE(Read.size(), QSize(370, 132));
    if (qEnvironmentVariableIsSet("ZUL_SHOTS")) {
      Sheet(1).save(qEnvironmentVariable("ZUL_SHOTS") + "/po-icons-1x.png");
      Sheet(4).save(qEnvironmentVariable("ZUL_SHOTS") + "/po-icons.png");
    }
  }
};

QTEST_MAIN(tst_POIcons)
#include "tst_POIcons.moc"
