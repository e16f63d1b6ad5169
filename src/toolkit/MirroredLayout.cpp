#include "toolkit/MirroredLayout.h"

#include <QWidget>

namespace toolkit {

void TMirroredLayout::Mirror() {
  Mirrored_ = !Mirrored_;
  for (const QWidget* Container : Containers_) {
    for (QWidget* Child : Container->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
      if (!Child->isWindow()) Child->move(Container->width() - Child->x() - Child->width(), Child->y());
    }
  }
}

TMirroredLayout::TScope::TScope(TMirroredLayout& Layout) : Layout_(Layout) {
  if (++Layout_.Depth_ == 1 && Layout_.Mirrored_) Layout_.Mirror();
}

TMirroredLayout::TScope::~TScope() {
  if (--Layout_.Depth_ == 0 && Layout_.Containers_.front()->isRightToLeft()) Layout_.Mirror();
}

}  // namespace toolkit
