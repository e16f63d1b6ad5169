#pragma once

#include <QGroupBox>

#include "toolkit/zultoolkit_export.h"

namespace toolkit {

/// A group box whose frame begins beside its title, in every style: what is placed from 15 pixels below the top on
/// stands inside of it. (Some styles put the title above the frame, which then runs through the first of the
/// components.)
class ZULTOOLKIT_EXPORT TGroupBox : public QGroupBox {
  Q_OBJECT
 public:
  explicit TGroupBox(QWidget* Parent = nullptr);
  ~TGroupBox() override;

  /// The pixels that there are for the title.
  int CaptionRoom() const;

 protected:
  bool event(QEvent* Event) override;
  void paintEvent(QPaintEvent* Event) override;
};

}  // namespace toolkit
