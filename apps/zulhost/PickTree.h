#pragma once

#include <QTreeWidget>
#include <QWidget>

#include "catalog/Catalog.h"

class QLineEdit;

namespace zulhost {

/// Every pick of a catalog by group, with a box that narrows them by words of the name, the function or what it picks.
/// What fits best is chosen.
class TPickTree : public QWidget {
  Q_OBJECT
 public:
  explicit TPickTree(const catalog::TCatalog& Catalog, QWidget* Parent = nullptr);

  /// Null when no pick is chosen, as when none fits the filter.
  const catalog::TPick* Pick() const;
  void Choose(const catalog::TPick& Pick);

 signals:
  void Chosen();

 private:
  void Fill(const catalog::TCatalog& Catalog);
  void Filter(const QString& Text);
  QTreeWidgetItem* FirstShown() const;

  QLineEdit* Filter_;
  QTreeWidget* Tree_;
};

}  // namespace zulhost
