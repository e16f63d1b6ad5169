#pragma once

#include <QHeaderView>

namespace toolkit {

class TDBGrid;

/// The titles of a grid's columns: bold, each aligned as its column says, as close to the sides as the cells' texts.
/// The one by which the rows are ordered has an arrow above its text.
class TDBGridTitles : public QHeaderView {
  Q_OBJECT
 public:
  explicit TDBGridTitles(TDBGrid& Grid);

 protected:
  void paintSection(QPainter* Painter, const QRect& Rect, int Section) const override;

 private:
  void PaintArrow(QPainter& Painter, const QRect& Title) const;

  const TDBGrid& Grid_;
};

}  // namespace toolkit
