#pragma once

#include <QHeaderView>

namespace toolkit {

class TDBGrid;

/// The titles of a grid's columns: bold, each aligned as its column says, as close to the sides as the cells' texts.
/// They do nothing when they are clicked.
class TDBGridTitles : public QHeaderView {
  Q_OBJECT
 public:
  explicit TDBGridTitles(TDBGrid& Grid);

 protected:
  void paintSection(QPainter* Painter, const QRect& Rect, int Section) const override;

 private:
  const TDBGrid& Grid_;
};

}  // namespace toolkit
