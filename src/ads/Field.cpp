#include "ads/Field.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <unordered_map>

#include "ads/DataSet.h"
#include "ads/EDatabaseError.h"
#include "ads/Store.h"
#include "ads/StoredDate.h"
#include "ads/Table.h"
#include "zulcommon/DisplayFormats.h"
#include "zulcommon/TypedValues.h"

namespace ads {

struct TField::TLookup {
  TField* KeyField;
  TAdsTable* Table;
  TField* ResultField;
  std::unordered_map<std::string, TValue> Found;
};

TField::TField(TDataSet* DataSet, std::string Name, TFieldType Type, int Size, TFieldKind Kind)
    : QObject(DataSet),
      DataSet_(DataSet),
      FieldName_(std::move(Name)),
      DataType_(Type),
      Kind_(Kind),
      Size_(Size),
      DisplayLabel_(FieldName_) {
  setObjectName(DataSet->objectName() + QString::fromStdString(FieldName_));
}

TField::~TField() = default;

void TField::SetDisplayLabel(const std::string& Label) {
  DisplayLabel_ = Label;
  Q_EMIT Changed();
}

void TField::SetDisplayFormat(const std::string& Format) {
  DisplayFormat_ = Format;
  Q_EMIT Changed();
}

int TField::DisplayWidth() const {
  switch (DataType_) {
    case TFieldType::ftString:
      return Size_;
    case TFieldType::ftBoolean:
      return 5;
    case TFieldType::ftDate: {
      const std::string Longest = zulcommon::FormatShortDate(QDate(2000, 12, 30));
      return std::max(10, static_cast<int>(QString::fromStdString(Longest).size()));
    }
    default:
      return 10;
  }
}

TAlignment TField::DefaultAlignment() const {
  switch (DataType_) {
    case TFieldType::ftSmallint:
    case TFieldType::ftInteger:
    case TFieldType::ftAutoInc:
    case TFieldType::ftFloat:
      return TAlignment::taRightJustify;
    default:
      return TAlignment::taLeftJustify;
  }
}

const TField::TValue* TField::OwnValue() const {
  static const TValue Null;
  if (Kind_ == TFieldKind::fkData) return nullptr;
  if (!DataSet_->HasRow()) return &Null;
  if (Kind_ == TFieldKind::fkCalculated) {
    DataSet_->Calculate();
    return &Calculated_;
  }
  return Lookup_ ? &LookUp() : &Null;
}

// A key that was looked up once is remembered with its answer, also that there is no such row.
const TField::TValue& TField::LookUp() const {
  static const TValue Null;
  if (Lookup_->KeyField->IsNull()) return Null;
  const std::string Key = Lookup_->KeyField->AsString();
  const auto [Entry, Fresh] = Lookup_->Found.try_emplace(Key);
  if (!Fresh) return Entry->second;
  try {
    if (!Lookup_->Table->Active()) Lookup_->Table->Open();
    if (Lookup_->Table->FindKey(Key)) Entry->second = Lookup_->ResultField->Value();
  } catch (...) {
    Lookup_->Found.erase(Entry);
    throw;
  }
  return Entry->second;
}

// A calculated value is taken as it is: money stays money.
TField::TValue TField::Value() const {
  if (const TValue* Own = OwnValue()) return *Own;
  if (IsNull()) return {};
  if (DataType_ == TFieldType::ftString) return AsString();
  if (DataType_ == TFieldType::ftFloat) return AsFloat();
  return AsInteger();
}

void TField::SetLookup(TField* KeyField, TAdsTable* Table, TField* ResultField) {
  if (Kind_ != TFieldKind::fkLookup) throw EDatabaseError("Field " + FieldName_ + " is no lookup field.");
  Lookup_ = std::make_unique<TLookup>(TLookup{KeyField, Table, ResultField, {}});
}

void TField::ForgetLookups() const {
  Lookup_->Found.clear();
  Lookup_->Table->Close();
}

bool TField::IsNull() const {
  if (const TValue* Own = OwnValue()) return std::holds_alternative<std::monostate>(*Own);
  return !DataSet_->HasRow() || DataSet_->Store_->IsNull(DataSet_->ReadRow(), Column_);
}

// The value of a field that is not text, as a number; nothing for null.
std::optional<double> TField::Number() const {
  if (const TValue* Own = OwnValue()) {
    if (const auto* Whole = std::get_if<std::int32_t>(Own)) return *Whole;
    if (const auto* Real = std::get_if<double>(Own)) return *Real;
    if (const auto* Money = std::get_if<zulcommon::TCurrency>(Own)) return Money->ToDouble();
    if (const auto* Text = std::get_if<std::string>(Own)) return zulcommon::ReadNumber(*Text);
    return std::nullopt;
  }
  if (IsNull()) return std::nullopt;
  const TStore& Store = *DataSet_->Store_;
  const int Row = DataSet_->ReadRow();
  switch (DataType_) {
    case TFieldType::ftString:
      return zulcommon::ReadNumber(Store.Text(Row, Column_));
    case TFieldType::ftFloat:
      return Store.Real(Row, Column_);
    default:
      return Store.Integer(Row, Column_);
  }
}

std::string TField::AsString() const {
  if (IsNull()) return {};
  if (DataType_ == TFieldType::ftString) {
    if (const TValue* Own = OwnValue()) return std::get<std::string>(*Own);
    return std::string(DataSet_->Store_->Text(DataSet_->ReadRow(), Column_));
  }
  if (DataType_ == TFieldType::ftBoolean) return AsBoolean() ? "True" : "False";
  if (DataType_ == TFieldType::ftDate) return zulcommon::FormatDate("yyyy-mm-dd", AsDate());
  if (DataType_ != TFieldType::ftFloat) return std::to_string(AsInteger());
  std::array<char, 32> Buffer;
  const auto Result = std::to_chars(Buffer.data(), Buffer.data() + Buffer.size(), AsFloat());
  return std::string(Buffer.data(), Result.ptr);
}

std::int32_t TField::AsInteger() const {
  const double Value = std::nearbyint(Number().value_or(0));
  using TLimits = std::numeric_limits<std::int32_t>;
  if (!(Value >= TLimits::min() && Value <= TLimits::max())) return 0;
  return static_cast<std::int32_t>(Value);
}

double TField::AsFloat() const {
  return Number().value_or(0);
}

bool TField::AsBoolean() const {
  if (DataType_ == TFieldType::ftString) return AsString() == "True";
  return Number().value_or(0) != 0;
}

QDate TField::AsDate() const {
  if (DataType_ == TFieldType::ftDate) {
    return IsNull() ? QDate() : QDate::fromJulianDay(AsInteger());
  }
  return DataType_ == TFieldType::ftString ? ReadStoredDate(AsString()) : QDate();
}

zulcommon::TCurrency TField::AsCurrency() const {
  return FittingCurrency().value_or(zulcommon::TCurrency::FromDouble(AsFloat()));
}

std::optional<zulcommon::TCurrency> TField::FittingCurrency() const {
  if (const TValue* Own = OwnValue()) {
    if (const auto* Money = std::get_if<zulcommon::TCurrency>(Own)) return *Money;
  }
  return zulcommon::TCurrency::Fitting(AsFloat());
}

std::string TField::DisplayText() const {
  if (OnGetText) {
    std::string Text;
    OnGetText(*this, Text);
    return Text;
  }
  if (IsNull()) return {};
  switch (DataType_) {
    case TFieldType::ftString:
    case TFieldType::ftBoolean:
      return AsString();
    case TFieldType::ftDate:
      return DisplayFormat_.empty() ? zulcommon::FormatShortDate(AsDate())
                                    : zulcommon::FormatShownDate(DisplayFormat_, AsDate());
    case TFieldType::ftFloat:
      if (const TValue* Own = OwnValue()) {
        if (const auto* Money = std::get_if<zulcommon::TCurrency>(Own)) {
          return zulcommon::FormatNumber(DisplayFormat_, *Money);
        }
      }
      return zulcommon::FormatNumber(DisplayFormat_, AsFloat());
    default:
      return DisplayFormat_.empty() ? AsString() : zulcommon::FormatNumber(DisplayFormat_, AsFloat());
  }
}

void TField::SetValue(TValue Value) {
  if (Kind_ != TFieldKind::fkCalculated || !DataSet_->Calculating_) {
    throw EDatabaseError("Field " + FieldName_ + " is not being calculated.");
  }
  Calculated_ = std::move(Value);
}

void TField::SetNull() {
  SetValue({});
}
void TField::SetString(const std::string& Value) {
  SetValue(Value);
}
void TField::SetInteger(std::int32_t Value) {
  SetValue(Value);
}
void TField::SetFloat(double Value) {
  SetValue(Value);
}
void TField::SetBoolean(bool Value) {
  SetValue(std::int32_t{Value});
}
void TField::SetCurrency(zulcommon::TCurrency Value) {
  SetValue(Value);
}

void TField::SetSum(const TField& A, const TField& B) {
  const auto MoneyA = A.FittingCurrency();
  const auto MoneyB = B.FittingCurrency();
  const bool Fit = MoneyA && MoneyB;
  SetAmount(Fit ? zulcommon::TCurrency::Sum(*MoneyA, *MoneyB) : std::nullopt, A.AsFloat() + B.AsFloat());
}

void TField::SetDifference(const TField& A, const TField& B) {
  const auto MoneyA = A.FittingCurrency();
  const auto MoneyB = B.FittingCurrency();
  const bool Fit = MoneyA && MoneyB;
  SetAmount(Fit ? zulcommon::TCurrency::Difference(*MoneyA, *MoneyB) : std::nullopt, A.AsFloat() - B.AsFloat());
}

void TField::SetAmount(std::optional<zulcommon::TCurrency> Money, double Otherwise) {
  if (Money) return SetCurrency(*Money);
  if (std::isfinite(Otherwise)) return SetFloat(Otherwise);
  SetNull();
}

}  // namespace ads
