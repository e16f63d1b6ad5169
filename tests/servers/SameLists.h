#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

#include "ads/Connection.h"
#include "support/EveryDialog.h"

namespace support {

/// A connection to a sample company over which the dialogs are compared, with the name under which a difference is
/// told.
struct TCompared {
  QString Name;
  ads::TAdsConnection* Connection;
};

/// Every dialog lists the same, in the same order, over each of some connections. Compared are the rows by groups of
/// equal sort value: among themselves these may come in any order. A test program derives from this and fills `Over` in
/// its `initTestCase`.
class TSameLists : public QObject {
  Q_OBJECT

 protected:
  /// The first is what the others are compared with.
  std::vector<TCompared> Over;

  /// How many lists have been compared.
  static int Comparisons();

 private slots:
  void shouldListTheSameInEveryOrder_data();
  void shouldListTheSameInEveryOrder();
  void shouldFindTheSame_data();
  void shouldFindTheSame();
  void shouldListTheSameWithItsBoxesTurned_data();
  void shouldListTheSameWithItsBoxesTurned();
};

}  // namespace support
