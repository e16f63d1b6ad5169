#include "apps/zulhost/CallLog.h"

#include <QHeaderView>

namespace zulhost {

namespace {

QString Shown(const std::string& Text) {
  return QString::fromStdString(Text);
}

}  // namespace

std::string TCallRecord::Outcome() const {
  if (!Exception.empty()) return "exception";
  return Result.Chosen ? "true" : "false";
}

std::string TCallRecord::Keys() const {
  std::string Text;
  for (const std::string& Key : Result.Keys) Text += (Text.empty() ? "\"" : ", \"") + Key + "\"";
  return Text;
}

TCallLog::TCallLog(QWidget* Parent) : QTableWidget(0, 6, Parent) {
  setObjectName(QStringLiteral("Log"));
  setAccessibleName(tr("Log of the calls"));
  setHorizontalHeaderLabels(
      {tr("Function"), tr("Arguments"), tr("Result"), tr("Keys"), tr("Milliseconds"), tr("Exception")});
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(SelectRows);
  setTabKeyNavigation(false);
  setWordWrap(false);
  verticalHeader()->hide();
  horizontalHeader()->setStretchLastSection(true);
  const int Widths[] = {230, 180, 70, 160, 90};
  for (int Column = 0; Column < 5; ++Column) setColumnWidth(Column, Widths[Column]);
}

void TCallLog::Add(const TCallRecord& Record) {
  const int Row = rowCount();
  insertRow(Row);
  const QString Texts[] = {Shown(Record.Function),
                           Shown(Record.Args),
                           Shown(Record.Outcome()),
                           Shown(Record.Keys()),
                           QString::number(Record.Milliseconds),
                           Shown(Record.Exception)};
  for (int Column = 0; Column < columnCount(); ++Column) {
    auto* Item = new QTableWidgetItem(Texts[Column]);
    Item->setToolTip(Texts[Column]);
    setItem(Row, Column, Item);
  }
  setCurrentCell(Row, 0);
  scrollToBottom();
}

}  // namespace zulhost
