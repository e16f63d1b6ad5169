#include "toolkit/RadioGroup.h"

#include <QButtonGroup>
#include <QEvent>
#include <QPainter>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QStyle>
#include <QStyleOptionButton>
#include <algorithm>

#include "toolkit/EventGuard.h"

namespace toolkit {

namespace {

constexpr int ButtonsLeft = 6;
constexpr int ButtonsTop = 15;
constexpr int ButtonsRight = 2;  // from the buttons to the group's right side: its frame
constexpr int ButtonHeight = 14;
constexpr int IndicatorSize = 12;
constexpr int TextLeft = 15;

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

// A radio button that paints itself as closely as the column's width and the 14 pixels between two of them ask for; the
// styles' own indicator and spacing take a third of the column.
class TRadioGroup::TChoice : public QRadioButton {
 public:
  explicit TChoice(QWidget* Parent) : QRadioButton(Parent) {}

  void SetCaption(const QString& Caption) {
    Caption_ = Caption;
    QString Text = Caption;
    setText(Text.replace(u'&', QStringLiteral("&&")));  // not a mnemonic, for assistive programs either
    UpdateToolTip();
  }

  void UpdateToolTip() {
    const bool Fits = fontMetrics().horizontalAdvance(Caption_) <= TextRect().width();
    setToolTip(Fits ? QString() : Caption_.toHtmlEscaped());
  }

 protected:
  bool hitButton(const QPoint& Position) const override { return rect().contains(Position); }

  void paintEvent(QPaintEvent*) override {
    QPainter Painter(this);
    QStyleOptionButton Option;
    initStyleOption(&Option);
    Option.rect = QRect(0, (height() - IndicatorSize) / 2, IndicatorSize, IndicatorSize);
    style()->drawPrimitive(QStyle::PE_IndicatorRadioButton, &Option, &Painter, this);
    const QString Shown = fontMetrics().elidedText(Caption_, Qt::ElideRight, TextRect().width());
    style()->drawItemText(&Painter, TextRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, palette(),
                          isEnabled(), Shown, QPalette::WindowText);
    if (hasFocus()) PaintFocus(Painter, Option, Shown);
  }

 private:
  QRect TextRect() const { return rect().adjusted(TextLeft, 0, 0, 0); }

  void PaintFocus(QPainter& Painter, const QStyleOptionButton& Button, const QString& Shown) const {
    QStyleOptionFocusRect Option;
    Option.initFrom(this);
    Option.state = Button.state;
    Option.backgroundColor = palette().color(QPalette::Window);
    Option.rect = TextRect();
    Option.rect.setWidth(std::min(Option.rect.width(), fontMetrics().horizontalAdvance(Shown) + 1));
    Option.rect.adjust(-1, 0, 0, 0);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &Option, &Painter, this);
  }

  QString Caption_;
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
    Choice(Index)->setGeometry(ButtonsLeft, ButtonsTop + Index * ButtonHeight, width() - ButtonsLeft - ButtonsRight,
                               ButtonHeight);
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
  if (Event->type() == QEvent::FontChange || Event->type() == QEvent::StyleChange) PlaceButtons();
}

}  // namespace toolkit
