#include "apps/zulhost/PickTree.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include "apps/zulhost/PickFilter.h"

namespace zulhost {

namespace {

const catalog::TPick* PickOf(const QTreeWidgetItem* Item) {
  return Item == nullptr ? nullptr : Item->data(0, Qt::UserRole).value<const catalog::TPick*>();
}

}  // namespace

TPickTree::TPickTree(const catalog::TCatalog& Catalog, QWidget* Parent)
    : QWidget(Parent), Filter_(new QLineEdit(this)), Tree_(new QTreeWidget(this)) {
  Filter_->setObjectName(QStringLiteral("Filter"));
  Filter_->setPlaceholderText(tr("Filter"));
  Filter_->setAccessibleName(tr("Filter picks"));
  Filter_->setClearButtonEnabled(true);
  Tree_->setObjectName(QStringLiteral("Picks"));
  Tree_->setAccessibleName(tr("Picks"));
  Tree_->setColumnCount(2);
  Tree_->setHeaderLabels({tr("Pick"), tr("Chooses")});
  Fill(Catalog);
  auto* Layout = new QVBoxLayout(this);
  Layout->setContentsMargins({});
  Layout->addWidget(Filter_);
  Layout->addWidget(Tree_);
  setFocusProxy(Filter_);
  connect(Filter_, &QLineEdit::textChanged, this, &TPickTree::Filter);
  connect(Tree_, &QTreeWidget::currentItemChanged, this, &TPickTree::Chosen);
  Filter({});
}

void TPickTree::Fill(const catalog::TCatalog& Catalog) {
  QTreeWidgetItem* Group = nullptr;
  for (const catalog::TPick& Pick : Catalog.All()) {
    const QString Title = QString::fromStdString(Pick.Group);
    if (Group == nullptr || Group->text(0) != Title) {
      Group = new QTreeWidgetItem(Tree_, {Title});
      Group->setFlags(Qt::ItemIsEnabled);
      Group->setFirstColumnSpanned(true);
    }
    auto* Item = new QTreeWidgetItem(Group, {QString::fromStdString(Pick.Name), QString::fromStdString(Pick.Help)});
    Item->setData(0, Qt::UserRole, QVariant::fromValue(&Pick));
    Item->setToolTip(0, QString::fromStdString(Pick.Function));
  }
  Tree_->expandAll();
  Tree_->resizeColumnToContents(0);
}

const catalog::TPick* TPickTree::Pick() const {
  const QTreeWidgetItem* Item = Tree_->currentItem();
  return Item == nullptr || Item->isHidden() ? nullptr : PickOf(Item);
}

void TPickTree::Choose(const catalog::TPick& Pick) {
  for (QTreeWidgetItemIterator Item(Tree_); *Item != nullptr; ++Item) {
    if (PickOf(*Item) == &Pick) Tree_->setCurrentItem(*Item);
  }
}

// What fits best becomes the chosen one.
void TPickTree::Filter(const QString& Text) {
  QTreeWidgetItem* Best = nullptr;
  int Least = 0;
  for (int Index = 0; Index < Tree_->topLevelItemCount(); ++Index) {
    QTreeWidgetItem* Group = Tree_->topLevelItem(Index);
    bool Any = false;
    for (int Child = 0; Child < Group->childCount(); ++Child) {
      QTreeWidgetItem* Item = Group->child(Child);
      const std::optional<int> How = Misfit(*PickOf(Item), Text);
      Item->setHidden(!How);
      Any = Any || How;
      if (!How || (Best != nullptr && *How >= Least)) continue;
      Best = Item;
      Least = *How;
    }
    Group->setHidden(!Any);
  }
  const bool Typed = !Text.trimmed().isEmpty();
  if (Typed || Pick() == nullptr) Tree_->setCurrentItem(Typed ? Best : FirstShown());
}

QTreeWidgetItem* TPickTree::FirstShown() const {
  QTreeWidgetItemIterator Item(Tree_, QTreeWidgetItemIterator::NotHidden | QTreeWidgetItemIterator::NoChildren);
  return *Item;
}

}  // namespace zulhost
