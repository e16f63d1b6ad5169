#pragma once

#include <QLabel>

#include "toolkit/zultoolkit_export.h"

namespace toolkit {

/// A label of plain text that is cut off with an ellipsis where it does not fit, and is its tool tip then: the whole
/// text in one line, each word of its own in a label that breaks lines.
class ZULTOOLKIT_EXPORT TLabel : public QLabel {
  Q_OBJECT
 public:
  explicit TLabel(QWidget* Parent = nullptr);
  ~TLabel() override;

  /// The text as it is painted.
  QString ShownText() const;

 protected:
  bool event(QEvent* Event) override;
  void paintEvent(QPaintEvent* Event) override;

 private:
  bool IsCutOff() const;
};

}  // namespace toolkit
