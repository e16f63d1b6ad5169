#include <QFontMetrics>
#include <algorithm>
#include <cmath>
#include <utility>

#include "toolkit/CellText.h"
#include "toolkit/DBGrid.h"
#include "toolkit/EListError.h"
#include "toolkit/Form.h"

namespace toolkit {

namespace {

// Texts up to this many characters are codes, mostly of capital letters, which are wider than digits.
constexpr int LongestCode = 12;

}  // namespace

TColumn::TColumn(TDBGrid* Grid, ads::TField* Field) : Grid_(Grid) {
  Show(Field);
}

TColumn::~TColumn() {
  QObject::disconnect(FieldChanged_);
}

void TColumn::Show(ads::TField* Field) {
  QObject::disconnect(FieldChanged_);
  Field_ = Field;
  if (Field != nullptr) FieldChanged_ = QObject::connect(Field, &ads::TField::Changed, Grid_, [this] { Changed(); });
}

void TColumn::Changed() {
  Grid_->ColumnsChanged();
}

TColumn& TColumn::SetField(ads::TField* Field) {
  Show(Field);
  Changed();
  return *this;
}

int TColumn::Width() const {
  if (Width_) return *Width_;
  // Advances are fractions of a pixel: rounded down, a text that just fits would be cut off.
  const int Characters = Field_ != nullptr ? Field_->DisplayWidth() : 0;
  const bool IsCode = Field_ != nullptr && Field_->DataType() == ads::TFieldType::ftString && Characters <= LongestCode;
  const double CharactersWidth = Characters * QFontMetricsF(TForm::FormFont()).horizontalAdvance(IsCode ? u'D' : u'0');
  const double TitleWidth = QFontMetricsF(TForm::TitleFont()).horizontalAdvance(QString::fromStdString(Title()));
  return static_cast<int>(std::ceil(std::max(CharactersWidth, TitleWidth))) + 2 * CellTextMargin;
}

TColumn& TColumn::SetWidth(int Width) {
  Width_ = std::max(Width, 0);
  Changed();
  return *this;
}

TAlignment TColumn::Alignment() const {
  if (Alignment_) return *Alignment_;
  return Field_ != nullptr ? Field_->DefaultAlignment() : TAlignment::taLeftJustify;
}

TColumn& TColumn::SetAlignment(TAlignment Alignment) {
  Alignment_ = Alignment;
  Changed();
  return *this;
}

TColumn& TColumn::SetTitleAlignment(TAlignment Alignment) {
  TitleAlignment_ = Alignment;
  Changed();
  return *this;
}

TColumn& TColumn::SetAccessibleTitle(std::string AccessibleTitle) {
  AccessibleTitle_ = std::move(AccessibleTitle);
  return *this;
}

TColumn& TColumn::SetCheckable(bool Checkable) {
  Checkable_ = Checkable;
  return *this;
}

std::string TColumn::Title() const {
  return Field_ != nullptr ? Field_->DisplayLabel() : std::string();
}

int TColumn::Index() const {
  const auto& Columns = Grid_->Columns();
  return static_cast<int>(std::find(Columns.begin(), Columns.end(), this) - Columns.begin());
}

TColumn* TDBGridColumns::operator[](int Index) const {
  if (Index < 0 || Index >= Count()) throw EListError(Index);
  return Columns_[static_cast<std::size_t>(Index)];
}

}  // namespace toolkit
