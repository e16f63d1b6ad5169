#include "support/PickDriver.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <algorithm>

namespace support {

using uDocPickBase::TDocPickBase;

namespace {

constexpr int PollInterval = 2;
constexpr qint64 LongestWait = 60000;

}  // namespace

bool DrivePick(const std::function<bool()>& Call, const std::function<void(TDocPickBase& Dialog)>& Drive) {
  QTimer Timer;
  QElapsedTimer Waited;
  Waited.start();
  bool Driven = false;
  QObject::connect(&Timer, &QTimer::timeout, &Timer, [&] {
    auto* Dialog = dynamic_cast<TDocPickBase*>(QApplication::activeModalWidget());
    if (Dialog == nullptr || !Dialog->isVisible() || !Dialog->isActiveWindow()) {
      if (Waited.elapsed() > LongestWait) qFatal("No pick dialog came up.");
      return;
    }
    Timer.stop();
    Driven = true;
    Drive(*Dialog);
    if (Dialog->isVisible()) Dialog->reject();
  });
  Timer.start(PollInterval);
  const bool Result = Call();
  Timer.stop();
  if (!Driven) qWarning("The pick showed no dialog.");
  return Result;
}

TErrorBoxes::TErrorBoxes() : Timer_(new QTimer) {
  QObject::connect(Timer_, &QTimer::timeout, Timer_, [this] { Answer(); });
  Timer_->start(PollInterval);
}

TErrorBoxes::~TErrorBoxes() {
  delete Timer_;
}

void TErrorBoxes::Answer() {
  auto* Box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (Box == nullptr || !Box->isVisible()) return;
  Messages_.push_back(Box->text().toStdString());
  QTest::mouseClick(Box->button(QMessageBox::Ok), Qt::LeftButton);
}

void TypeFind(TDocPickBase& Dialog, const QString& Text) {
  Dialog.edFind->setFocus();
  Dialog.edFind->selectAll();
  if (Text.isEmpty()) {
    QTest::keyClick(Dialog.edFind, Qt::Key_Delete);
    return;
  }
  // Qt Test can type printable ASCII only, and that slowly.
  const bool Typable = std::all_of(Text.begin(), Text.end(),
                                   [](QChar Letter) { return Letter.unicode() >= 0x20 && Letter.unicode() < 0x7F; });
  if (Text.size() < 100 && Typable) {
    QTest::keyClicks(Dialog.edFind, Text);
  } else {
    Dialog.edFind->insert(Text);
  }
  QTest::keyClick(Dialog.edFind, Qt::Key_Return);
}

void ChooseFindBy(TDocPickBase& Dialog, int Index) {
  QTest::mouseClick(Dialog.rgFindBy->Button(Index), Qt::LeftButton, {}, QPoint(6, 7));
}

void ChooseOrderBy(TDocPickBase& Dialog, int Index) {
  QTest::mouseClick(Dialog.rgOrderBy->Button(Index), Qt::LeftButton, {}, QPoint(6, 7));
}

void ClickBox(QCheckBox* Box) {
  QTest::mouseClick(Box, Qt::LeftButton, {}, QPoint(6, Box->height() / 2));
}
void ClickOK(TDocPickBase& Dialog) {
  QTest::mouseClick(Dialog.bbnOK, Qt::LeftButton);
}
void ClickCancel(TDocPickBase& Dialog) {
  QTest::mouseClick(Dialog.bbnCancel, Qt::LeftButton);
}

void DoubleClickRow(TDocPickBase& Dialog, int Row) {
  const QRect Cell = Dialog.dbgAvail->visualRect(Dialog.dbgAvail->model()->index(Row, 0));
  QTest::mouseClick(Dialog.dbgAvail->viewport(), Qt::LeftButton, {}, Cell.center());
  QTest::mouseDClick(Dialog.dbgAvail->viewport(), Qt::LeftButton, {}, Cell.center());
}

std::vector<std::string> SqlLines(const TDocPickBase& Dialog) {
  return {Dialog.qryList_->SQL()->begin(), Dialog.qryList_->SQL()->end()};
}

std::vector<std::string> Items(const toolkit::TRadioGroup& Group) {
  return {Group.Items().begin(), Group.Items().end()};
}

std::vector<std::string> ColumnNames(const TDocPickBase& Dialog) {
  std::vector<std::string> Names;
  for (const toolkit::TColumn* Column : Dialog.dbgAvail->Columns()) Names.push_back(Column->Field()->FieldName());
  return Names;
}

namespace {

std::vector<std::string> AllRows(TDocPickBase& Dialog, const std::function<std::string()>& Read) {
  std::vector<std::string> Texts;
  for (int Row = 0; Row < Dialog.qryList_->RecordCount(); ++Row) {
    const ads::TRowScope Scope(*Dialog.qryList_, Row);
    Texts.push_back(Read());
  }
  return Texts;
}

}  // namespace

std::vector<std::string> Column(TDocPickBase& Dialog, const std::string& FieldName) {
  const ads::TField* Field = Dialog.qryList_->FieldByName(FieldName);
  return AllRows(Dialog, [Field] { return Field->AsString(); });
}

std::vector<std::string> ShownColumn(TDocPickBase& Dialog, const std::string& FieldName) {
  const ads::TField* Field = Dialog.qryList_->FieldByName(FieldName);
  return AllRows(Dialog, [Field] { return Field->DisplayText(); });
}

}  // namespace support
