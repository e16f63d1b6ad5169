#pragma once

#include <QDate>
#include <QObject>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "ads/zulads_export.h"
#include "zulcommon/Currency.h"

namespace ads {

class TDataSet;
class TAdsTable;

enum class TFieldType : std::uint8_t { ftString, ftSmallint, ftInteger, ftAutoInc, ftBoolean, ftFloat, ftDate };

/// Where a field's value comes from: a column of the result, the dataset's `OnCalcFields`, or a row of another table.
enum class TFieldKind : std::uint8_t { fkData, fkCalculated, fkLookup };

/// How a value stands in its column.
enum class TAlignment : std::uint8_t { taLeftJustify, taRightJustify, taCenter };

/// One column of a dataset, as a dialog declares it.
///
/// Owned by its dataset. Its values are those of the row on which the dataset stands (or that a `TRowScope` reads). A
/// null reads as an empty text, zero, false or an invalid date; so does every field while the dataset is closed or
/// empty.
class ZULADS_EXPORT TField : public QObject {
  Q_OBJECT
 public:
  ~TField() override;

  const std::string& FieldName() const { return FieldName_; }
  TFieldType DataType() const { return DataType_; }
  TFieldKind Kind() const { return Kind_; }
  /// The characters of a text field; 0 for the others.
  int Size() const { return Size_; }
  TDataSet* DataSet() const { return DataSet_; }

  bool IsNull() const;
  /// A text as it is stored; a number in its shortest form, with a point; a date as YYYY-MM-DD; "True" or "False".
  std::string AsString() const;
  /// A floating value is rounded, halves to even; a text is read as a number where it is one.
  std::int32_t AsInteger() const;
  double AsFloat() const;
  bool AsBoolean() const;
  QDate AsDate() const;
  /// The nearest end of the range where the value does not fit.
  zulcommon::TCurrency AsCurrency() const;

  /// The value as the user sees it: by `OnGetText`, else by the display format and the user's locale.
  std::string DisplayText() const;

  /// What the column is called; the field's name until it is set.
  const std::string& DisplayLabel() const { return DisplayLabel_; }
  void SetDisplayLabel(const std::string& Label);

  /// A number format (",0.00") or a date pattern ("dd/mm/yyyy").
  const std::string& DisplayFormat() const { return DisplayFormat_; }
  void SetDisplayFormat(const std::string& Format);

  /// The characters that a column for this field is made wide enough for.
  int DisplayWidth() const;

  /// Numbers stand right, everything else left.
  TAlignment DefaultAlignment() const;

  /// Gives the text to show instead of the value's own.
  std::function<void(const TField& Sender, std::string& Text)> OnGetText;

  /// Sets the value of a calculated field of the row that is being calculated. Anywhere else than inside
  /// `OnCalcFields`, and for a field that is not calculated, throws `EDatabaseError`.
  void SetNull();
  void SetString(const std::string& Value);
  void SetInteger(std::int32_t Value);
  void SetFloat(double Value);
  void SetBoolean(bool Value);
  void SetCurrency(zulcommon::TCurrency Value);
  /// The sum or the difference of two amounts, a null being nothing: as money where all three fit, else as a floating
  /// value, and null where that is no finite number.
  void SetSum(const TField& A, const TField& B);
  void SetDifference(const TField& A, const TField& B);

  /// Makes a lookup field: its value is that of `ResultField` in the row of `Table` whose key equals this dataset's
  /// `KeyField`; null where there is no such row. The table is opened when the first value is wanted. A value is looked
  /// up once and remembered until the dataset is closed.
  void SetLookup(TField* KeyField, TAdsTable* Table, TField* ResultField);

 Q_SIGNALS:
  /// The label or the format has changed.
  void Changed();

 private:
  friend class TDataSet;
  using TValue = std::variant<std::monostate, std::string, std::int32_t, double, zulcommon::TCurrency>;
  struct TLookup;

  TField(TDataSet* DataSet, std::string Name, TFieldType Type, int Size, TFieldKind Kind);

  /// The value of a calculated or looked-up field; null for a data field.
  const TValue* OwnValue() const;
  const TValue& LookUp() const;
  TValue Value() const;
  void ForgetLookups() const;
  std::optional<zulcommon::TCurrency> FittingCurrency() const;
  void SetValue(TValue Value);
  void SetAmount(std::optional<zulcommon::TCurrency> Money, double Otherwise);
  std::optional<double> Number() const;

  TDataSet* DataSet_;
  std::string FieldName_;
  TFieldType DataType_;
  TFieldKind Kind_;
  int Size_;
  int Column_ = -1;  // of the dataset's store
  std::string DisplayLabel_;
  std::string DisplayFormat_;
  TValue Calculated_;
  std::unique_ptr<TLookup> Lookup_;
};

}  // namespace ads
