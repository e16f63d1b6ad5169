#pragma once

#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>
#include <utility>

#include "servers/ListDialog.h"

namespace support {

/// Has a dialog run a query that takes very long, and stops it by Escape after so many milliseconds. How long the stop
/// took, or -1 when the query was not under way.
template <typename TDialog>
qint64 StopQuery(TDialog& Dialog, const TListSource& Source, int Milliseconds) {
  const TListSource Before = std::exchange(Dialog.Source, Source);
  QElapsedTimer Clock;
  bool WasWaiting = false;
  After(&Dialog, Milliseconds, [&] {
    WasWaiting = Dialog.qryList_->IsWaiting();
    Clock.start();
    QTest::keyClick(Dialog.edFind, Qt::Key_Escape);
  });
  QTest::mouseClick(Dialog.ckbDesc, Qt::LeftButton, {}, QPoint(6, Dialog.ckbDesc->height() / 2));
  const qint64 Took = Clock.isValid() ? Clock.elapsed() : -1;
  Dialog.Source = Before;
  return WasWaiting ? Took : -1;
}

}  // namespace support
