#include "apps/zulhost/ArgsPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>

namespace zulhost {

using catalog::TArg;
using catalog::TArgKind;
using catalog::TArgs;

namespace {

QString Shown(const std::string& Text) {
  return QString::fromStdString(Text);
}

// "filter-by-entity" is asked for as "Filter by entity".
QString InWords(const std::string& ArgName) {
  QString Text = Shown(ArgName);
  Text.replace(u'-', u' ');
  return Text.left(1).toUpper() + Text.mid(1);
}

void Name(QWidget* Widget, const TArg& Arg) {
  Widget->setObjectName(Shown(Arg.Name));
  Widget->setAccessibleName(Shown(Arg.Name));
  Widget->setAccessibleDescription(Shown(Arg.Help));
  Widget->setToolTip(Shown(Arg.Help));
}

}  // namespace

TArgsPanel::TArgsPanel(const catalog::TPick& Pick, QWidget* Parent) : QWidget(Parent), Pick_(Pick) {
  auto* Layout = new QFormLayout(this);
  if (Pick.Args.empty()) Layout->addRow(new QLabel(tr("This function takes nothing but the connection."), this));
  for (const TArg& Arg : Pick.Args) {
    Editors_.push_back(CreateEditor(Arg));
    Layout->addRow(InWords(Arg.Name) + ':', Editors_.back().Widget);
    auto* Help = new QLabel(Shown(Arg.Help), this);
    Help->setTextFormat(Qt::PlainText);
    Help->setWordWrap(true);
    Layout->addRow(QString(), Help);
  }
  Show(TArgs(Pick.Args));
}

TArgsPanel::TEditor TArgsPanel::CreateEditor(const TArg& Arg) {
  switch (Arg.Kind) {
    case TArgKind::Boolean:
      return CreateBox(Arg);
    case TArgKind::Choice:
      return CreateChoice(Arg);
    case TArgKind::Choices:
      return CreateChoices(Arg);
    case TArgKind::Text:
    case TArgKind::Integer:
      break;
  }
  return CreateLine(Arg);
}

TArgsPanel::TEditor TArgsPanel::CreateLine(const TArg& Arg) {
  auto* Line = new QLineEdit(this);
  Name(Line, Arg);
  const bool IsText = Arg.Kind == TArgKind::Text;
  return {Line, [Line] { return Line->text().toStdString(); },
          [Line, IsText, Name = Arg.Name](const TArgs& Args) {
            Line->setText(IsText ? Shown(Args.Text(Name)) : QString::number(Args.Integer(Name)));
          }};
}

TArgsPanel::TEditor TArgsPanel::CreateBox(const TArg& Arg) {
  auto* Box = new QCheckBox(this);
  Name(Box, Arg);
  return {Box, [Box] { return std::string(Box->isChecked() ? "yes" : "no"); },
          [Box, Name = Arg.Name](const TArgs& Args) { Box->setChecked(Args.Boolean(Name)); }};
}

TArgsPanel::TEditor TArgsPanel::CreateChoice(const TArg& Arg) {
  auto* Combo = new QComboBox(this);
  Name(Combo, Arg);
  for (const std::string& Value : Arg.Values) Combo->addItem(Shown(Value));
  return {Combo, [Combo] { return Combo->currentText().toStdString(); },
          [Combo, Name = Arg.Name](const TArgs& Args) { Combo->setCurrentIndex(Args.Choice(Name)); }};
}

TArgsPanel::TEditor TArgsPanel::CreateChoices(const TArg& Arg) {
  auto* Group = new QWidget(this);
  Name(Group, Arg);
  auto* Layout = new QVBoxLayout(Group);
  Layout->setContentsMargins({});
  std::vector<QCheckBox*> Boxes;
  for (const std::string& Value : Arg.Values) {
    Boxes.push_back(new QCheckBox(Shown(Value), Group));
    Boxes.back()->setObjectName(Shown(Value));
    Boxes.back()->setAccessibleName(Shown(Arg.Name + " " + Value));
    Layout->addWidget(Boxes.back());
  }
  const auto Read = [Boxes] {
    QStringList Ticked;
    for (const QCheckBox* Box : Boxes) {
      if (Box->isChecked()) Ticked.append(Box->text());
    }
    return Ticked.join(QLatin1Char(',')).toStdString();
  };
  return {Group, Read, [Boxes, Name = Arg.Name](const TArgs& Args) {
            const std::vector<int> Chosen = Args.Choices(Name);
            for (int Index = 0; Index < static_cast<int>(Boxes.size()); ++Index) {
              const bool On = std::find(Chosen.begin(), Chosen.end(), Index) != Chosen.end();
              Boxes[static_cast<std::size_t>(Index)]->setChecked(On);
            }
          }};
}

TArgs TArgsPanel::Args() const {
  TArgs Result(Pick_.Args);
  for (std::size_t Index = 0; Index < Editors_.size(); ++Index) {
    Result.Set(Pick_.Args[Index].Name, Editors_[Index].Read());
  }
  return Result;
}

void TArgsPanel::Show(const TArgs& Args) {
  for (const TEditor& Editor : Editors_) Editor.Show(Args);
}

}  // namespace zulhost
