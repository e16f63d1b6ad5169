// What a grid's user gets to read besides what is painted: tool tips, and the row as text.
#include <QClipboard>
#include <QGuiApplication>

#include "toolkit/CellText.h"
#include "toolkit/DBGrid.h"
#include "toolkit/DBGridModel.h"
#include "toolkit/Form.h"

namespace toolkit {

namespace {

// More of a memo than this would cover the screen.
constexpr qsizetype LongestToolTip = 2000;

QString ToolTip(const QString& Text) {
  return QStringLiteral("<qt>%1</qt>").arg(Text.left(LongestToolTip).toHtmlEscaped());
}

// A line of its own for each row, a tab between two values.
QString OneLine(QString Text) {
  return Text.replace(u'\n', u' ').replace(u'\r', u' ').replace(u'\t', u' ');
}

}  // namespace

QString TDBGrid::CellToolTip(const QModelIndex& Index) const {
  const TColumn& Column = *Columns_[Index.column()];
  const QString Text = Index.data(Qt::DisplayRole).toString();
  const bool IsTick = Column.Field() != nullptr && Column.Field()->DataType() == ads::TFieldType::ftBoolean &&
                      !Column.Field()->OnGetText;
  return IsTick || !IsCut(font(), Column.Width(), Text) ? QString() : ToolTip(Text);
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
