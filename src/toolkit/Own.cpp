#include "toolkit/Own.h"

#include <QVariant>

#include "toolkit/Form.h"

namespace toolkit {

namespace {

constexpr auto OwnProperty = "_zul_own";

}  // namespace

bool IsOwn(const QObject* Object) {
  for (; Object != nullptr; Object = Object->parent()) {
    if (qobject_cast<const TForm*>(Object) != nullptr || Object->property(OwnProperty).toBool()) return true;
  }
  return false;
}

void DeclareOwn(QObject* Window) {
  Window->setProperty(OwnProperty, true);
}

}  // namespace toolkit
