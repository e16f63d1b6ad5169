// What a grid's user gets to read besides what is painted: tool tips, the row as text, what assistive programs say.
#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>

#include "toolkit/CellText.h"
#include "toolkit/DBGrid.h"
#include "toolkit/DBGridAccessible.h"
#include "toolkit/DBGridModel.h"
#include "toolkit/Form.h"
#include "zulcommon/StringTable.h"

namespace toolkit {

namespace {

// More of a memo than this would cover the screen.
constexpr qsizetype LongestToolTip = 2000;

constexpr int YesText = 65530;
constexpr int NoText = 65531;

QString ToolTip(const QString& Text) {
  return QStringLiteral("<qt>%1</qt>").arg(Text.left(LongestToolTip).toHtmlEscaped());
}

// A line of its own for each row, a tab between two values.
QString OneLine(QString Text) {
  return Text.replace(u'\n', u' ').replace(u'\r', u' ').replace(u'\t', u' ');
}

}  // namespace

QString TDBGrid::CellToolTip(const QModelIndex& Index) const {
  const QString Text = Index.data(Qt::DisplayRole).toString();
  const bool Tells = !IsTick(Index.column()) && IsCut(font(), Columns_[Index.column()]->Width(), Text);
  return Tells ? ToolTip(Text) : QString();
}

bool TDBGrid::IsTick(int Column) const {
  const ads::TField* Field = Columns_[Column]->Field();
  return Field != nullptr && Field->DataType() == ads::TFieldType::ftBoolean && !Field->OnGetText;
}

bool TDBGrid::AccessibleChecked(const QModelIndex& Index) const {
  if (DataSet_ == nullptr || Index.row() >= DataSet_->KnownRows()) return false;
  const ads::TRowScope Scope(*DataSet_, Index.row());
  try {
    return Columns_[Index.column()]->Field()->AsBoolean();
  } catch (const std::exception&) {
    return false;  // the grid reports it when it paints the cell
  }
}

QString TDBGrid::AccessibleTitle(int Column) const {
  return QString::fromStdString(Columns_[Column]->AccessibleTitle());
}

QString TDBGrid::AccessibleValue(const QModelIndex& Index) const {
  if (!IsTick(Index.column())) return Index.data(Qt::DisplayRole).toString();
  return QString::fromStdString(zulcommon::LoadZULResString(AccessibleChecked(Index) ? YesText : NoText));
}

QString TDBGrid::AccessibleCell(const QModelIndex& Index) const {
  const QString Value = AccessibleValue(Index);
  return IsTick(Index.column()) ? AccessibleTitle(Index.column()) + ": " + Value : Value;
}

// Columns without a title show pictures of what another one says.
QString TDBGrid::AccessibleRow(int Row) const {
  QStringList Parts;
  for (int Column = 0; Column < Model_->columnCount(); ++Column) {
    const QString Title = AccessibleTitle(Column).trimmed();
    const QString Value = AccessibleValue(Model_->index(Row, Column));
    if (!Title.isEmpty() && !Value.isEmpty()) Parts.append(Title + ": " + Value);
  }
  return Parts.join(QStringLiteral(", "));
}

void TDBGrid::TellToggled() {
  if (!QAccessible::isActive() || !currentIndex().isValid()) return;
  QAccessible::State Changed;
  Changed.checked = true;
  QAccessibleStateChangeEvent Event(this, Changed);
  Event.setChild(TGridAccessible::ChildIndex(*this, currentIndex().row(), currentIndex().column()));
  QAccessible::updateAccessibility(&Event);
}

void TDBGrid::TellCurrentRow() {
  if (!QAccessible::isActive() || !currentIndex().isValid()) return;
  QAccessibleEvent Event(this, QAccessible::Focus);
  Event.setChild(TGridAccessible::ChildIndex(*this, currentIndex().row(), currentIndex().column()));
  QAccessible::updateAccessibility(&Event);
}

QString TDBGrid::TitleToolTip(int Column) const {
  const QString Title = QString::fromStdString(Columns_[Column]->Title());
  return IsCut(TForm::TitleFont(), Columns_[Column]->Width(), Title) ? ToolTip(Title) : QString();
}

void TDBGrid::CopyRow() const {
  if (!currentIndex().isValid()) return;
  QStringList Values;
  for (int Column = 0; Column < Model_->columnCount(); ++Column) {
    Values.append(OneLine(currentIndex().siblingAtColumn(Column).data().toString()));
  }
  QGuiApplication::clipboard()->setText(Values.join(u'\t'));
}

}  // namespace toolkit
