#pragma once

#include <QCheckBox>

#include "toolkit/zultoolkit_export.h"

namespace toolkit {

/// A check box that is 14 pixels high, whatever the style and the size of the system's fonts, and of which the whole
/// rectangle can be clicked. A caption that does not fit is its tool tip.
class ZULTOOLKIT_EXPORT TCheckBox : public QCheckBox {
  Q_OBJECT
 public:
  explicit TCheckBox(QWidget* Parent = nullptr);
  explicit TCheckBox(const QString& Caption, QWidget* Parent = nullptr);
  ~TCheckBox() override;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

  /// The pixels that there are for the caption.
  int CaptionRoom() const;

 protected:
  bool event(QEvent* Event) override;
  bool hitButton(const QPoint& Position) const override;
  void paintEvent(QPaintEvent* Event) override;
};

}  // namespace toolkit
