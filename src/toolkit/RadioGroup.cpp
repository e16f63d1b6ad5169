#include "toolkit/RadioGroup.h"

#include <QButtonGroup>
#include <QEvent>
#include <QPainter>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QStyleOptionButton>
#include <algorithm>

#include "toolkit/ChoicePainting.h"
#include "toolkit/EventGuard.h"

namespace toolkit {

namespace {

constexpr int ButtonsLeft = 6;
constexpr int ButtonsTop = 15;
constexpr int ButtonsRight = 2;  // from the buttons to the group's right side: its frame
constexpr int ButtonHeight = 14;

}  // namespace

const std::string& TRadioItems::operator[](int Index) const {
  if (Index < 0 || Index >= Count()) throw EListError(Index);
  return Captions_[static_cast<std::size_t>(Index)];
}

int TRadioItems::IndexOf(const std::string& Caption) const {
  const auto Found = std::find(begin(), end(), Caption);
  return Found == end() ? -1 : static_cast<int>(Found - begin());
}

void TRadioItems::Add(const std::string& Caption) {
  Captions_.push_back(Caption);
  Group_->Rebuild();
}

void TRadioItems::Put(int Index, const std::string& Caption) {
  if (Index < 0 || Index >= Count()) throw EListError(Index);
  Captions_[static_cast<std::size_t>(Index)] = Caption;
  Group_->Rebuild();
}

void TRadioItems::Clear() {
  Captions_.clear();
  Group_->Rebuild();
}

void TRadioItems::Assign(const TRadioItems& Other) {
  Captions_ = Other.Captions_;
  Group_->Rebuild();
}

class TRadioGroup::TChoice : public QRadioButton {
 public:
  explicit TChoice(QWidget* Parent) : QRadioButton(Parent) {}

  void SetCaption(QString Caption) {
    setText(Caption.replace(u'&', QStringLiteral("&&")));  // not a mnemonic, for assistive programs either
    UpdateToolTip();
  }

  void UpdateToolTip() { setToolTip(ChoiceToolTip(*this, text())); }

 protected:
  // A caption that fits has no tool tip, not even that of the group's title.
  bool event(QEvent* Event) override {
    if (Event->type() == QEvent::ToolTip && toolTip().isEmpty()) return true;
    return QRadioButton::event(Event);
  }

  bool hitButton(const QPoint& Position) const override { return rect().contains(Position); }

  void paintEvent(QPaintEvent*) override {
    QPainter Painter(this);
    QStyleOptionButton Option;
    initStyleOption(&Option);
    PaintChoice(Painter, *this, Option, QStyle::PE_IndicatorRadioButton, text());
  }
};

TRadioGroup::TRadioGroup(QWidget* Parent) : TGroupBox(Parent), Items_(this), Buttons_(new QButtonGroup(this)) {
  // Only a widget that takes the focus has a place in the tab order. The group's is where its buttons stand, present
  // and future ones; it hands the focus to one of them.
  setFocusPolicy(Qt::ClickFocus);
  connect(this, &QObject::objectNameChanged, this, &TRadioGroup::NameButtons);
  connect(Buttons_, &QButtonGroup::idToggled, this, [this](int Index, bool Checked) {
    if (Checked && !Checking_) Chosen(Index);
  });
}

TRadioGroup::~TRadioGroup() = default;

TRadioGroup::TChoice* TRadioGroup::Choice(int Index) const {
  return static_cast<TChoice*>(Buttons_->button(Index));
}

QRadioButton* TRadioGroup::Button(int Index) const {
  if (Index < 0 || Index >= Items_.Count()) throw EListError(Index);
  return Choice(Index);
}

int TRadioGroup::ChoiceRoom() const {
  return Items_.Count() > 0 ? ChoiceTextRect(*Choice(0)).width() : 0;
}

int TRadioGroup::ItemIndex() const {
  return ItemIndex_;
}

void TRadioGroup::SetItemIndex(int Index) {
  const int Wanted = std::clamp(Index, -1, Items_.Count() - 1);
  if (Wanted == ItemIndex_) return;
  Check(Wanted);
  Chosen(Wanted);
}

// As many buttons as items. The ones that stay are kept, because this may run while one of them is handling its click;
// for the same reason one too many goes only when that is over.
void TRadioGroup::Rebuild() {
  while (Buttons_->buttons().size() < Items_.Count()) {
    const int Index = static_cast<int>(Buttons_->buttons().size());
    auto* Fresh = new TChoice(this);
    if (testAttribute(Qt::WA_SetFont)) Fresh->setFont(font());  // under a style sheet it would not inherit it
    setTabOrder(Index > 0 ? static_cast<QWidget*>(Choice(Index - 1)) : this, Fresh);
    Buttons_->addButton(Fresh, Index);
    Fresh->setVisible(true);
  }
  while (Buttons_->buttons().size() > Items_.Count()) {
    QAbstractButton* Surplus = Buttons_->button(static_cast<int>(Buttons_->buttons().size()) - 1);
    Buttons_->removeButton(Surplus);
    Surplus->setParent(nullptr);
    Surplus->deleteLater();
  }
  ItemIndex_ = std::min(ItemIndex_, Items_.Count() - 1);
  Check(ItemIndex_);
  NameButtons();
  PlaceButtons();
  for (int Index = 0; Index < Items_.Count(); ++Index) Choice(Index)->SetCaption(QString::fromStdString(Items_[Index]));
}

void TRadioGroup::NameButtons() {
  for (int Index = 0; Index < Items_.Count(); ++Index) {
    Choice(Index)->setObjectName(objectName() + QString::number(Index));
  }
}

void TRadioGroup::PlaceButtons() {
  for (int Index = 0; Index < Items_.Count(); ++Index) {
    const QRect Place(ButtonsLeft, ButtonsTop + Index * ButtonHeight, width() - ButtonsLeft - ButtonsRight,
                      ButtonHeight);
    Choice(Index)->setGeometry(QStyle::visualRect(layoutDirection(), rect(), Place));
    Choice(Index)->UpdateToolTip();
  }
}

// Shows the choice on the buttons, and makes exactly one of them a tab stop: the one that has the focus when the group
// is given it.
void TRadioGroup::Check(int Index) {
  const QScopedValueRollback Guard(Checking_, true);
  Buttons_->setExclusive(false);
  for (int Other = 0; Other < Items_.Count(); ++Other) {
    Choice(Other)->setChecked(Other == Index);
    Choice(Other)->setFocusPolicy(Other == std::max(Index, 0) ? Qt::StrongFocus : Qt::ClickFocus);
  }
  Buttons_->setExclusive(true);
  setFocusProxy(Items_.Count() > 0 ? Choice(std::max(Index, 0)) : nullptr);
}

void TRadioGroup::Chosen(int Index) {
  ItemIndex_ = Index;
  Check(Index);
  if (OnClick) Guarded(this, std::function(OnClick));
}

void TRadioGroup::resizeEvent(QResizeEvent* Event) {
  TGroupBox::resizeEvent(Event);
  PlaceButtons();
}

void TRadioGroup::changeEvent(QEvent* Event) {
  TGroupBox::changeEvent(Event);
  switch (Event->type()) {
    case QEvent::FontChange:
    case QEvent::StyleChange:
    case QEvent::LayoutDirectionChange:
      return PlaceButtons();
    default:
      return;
  }
}

}  // namespace toolkit
