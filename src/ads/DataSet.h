#pragma once

#include <QObject>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ads/Field.h"
#include "ads/zulads_export.h"

namespace ads {

class TAdsConnection;
class TCursor;
class TStore;

/// Rows of a database, read once and kept, with a cursor that stands on one of them.
///
/// An open dataset is a snapshot: no statement, lock or transaction is left open in the database for it, however long it stays open. What other
/// connections write is seen when it is opened again. Only columns that have a field are kept.
class ZULADS_EXPORT TDataSet : public QObject {
  Q_OBJECT
 public:
  /// A place in the rows of one opening; it means nothing after the dataset was closed.
  using TBookmark = int;

  ~TDataSet() override;

  /// The connection is borrowed and must outlive the dataset's use of it.
  void SetConnection(TAdsConnection* Connection) { Connection_ = Connection; }
  TAdsConnection* Connection() const { return Connection_; }

  /// Declares a field; its object name is the dataset's followed by the field's. Only while the dataset is closed. Names are compared
  /// without regard to case; a name that is declared already throws `EDatabaseError`.
  TField* AddField(const std::string& Name, TFieldType Type, int Size = 0, TFieldKind Kind = TFieldKind::fkData);
  const std::vector<TField*>& Fields() const { return Fields_; }
  /// Throws `EDatabaseError` for a name without a field.
  TField* FieldByName(const std::string& Name) const;

  /// Reads the rows; the first becomes the current one. On an open dataset it reads anew, and the old rows stay until the new ones are there: when reading
  /// fails, `EDatabaseError` is thrown and the dataset stays just as it was, open or closed.
  void Open();
  void Close();
  bool Active() const { return Store_ != nullptr; }

  /// Both are true for a dataset without rows. `Bof` is true after opening, `First` and a `Prior` on the first row; `Eof` after a `Next` on the last row (which
  /// stays the current one).
  bool Bof() const { return Bof_; }
  bool Eof() const { return Eof_; }
  bool IsEmpty() const { return RecordCount() == 0; }
  int RecordCount() const;

  void First();
  void Last();
  void Next();
  void Prior();

  /// The position of the row that is being read, from 1; 0 without rows. A number out of range goes to the nearest row.
  int RecNo() const;
  void SetRecNo(int RecNo);

  /// Goes to the first row whose field has the value; false, staying where it is, when there is none. Nulls equal nothing.
  bool Locate(const std::string& FieldName, bool Value);
  bool Locate(const std::string& FieldName, std::int32_t Value);
  bool Locate(const std::string& FieldName, const std::string& Value);
  bool Locate(const std::string& FieldName, const char* Value) { return Locate(FieldName, std::string(Value)); }

  TBookmark GetBookmark() const { return Row_; }
  void GotoBookmark(TBookmark Bookmark) { SetRecNo(Bookmark + 1); }

  /// Between the two, moving the cursor is not shown. Calls nest; the last `EnableControls` shows where the cursor stands then.
  void DisableControls() { ++ControlsDisabled_; }
  void EnableControls();

  /// Calculates the calculated fields anew and repaints; does not read the database.
  void Refresh();

  /// The bytes of the rows in memory.
  std::size_t SnapshotBytes() const;

  std::function<void(TDataSet& Sender)> AfterOpen;
  std::function<void(TDataSet& Sender)> AfterClose;

  /// Sets the calculated fields of the row that the dataset's fields read. Called when a calculated field is wanted, once a row that is read.
  std::function<void(TDataSet& Sender)> OnCalcFields;

  /// Called about twenty times a second while rows are being read, between two of them. May run the event loop, but
  /// must not open or close this dataset. When the connection is closed in it, the reading fails.
  std::function<void()> OnProgress;

 Q_SIGNALS:
  void Opened();
  void Closed();
  void Scrolled();
  void Refreshed();

 protected:
  explicit TDataSet(QObject* Owner);

  /// The rows for `Open`.
  virtual std::unique_ptr<TCursor> OpenCursor() = 0;

  /// The most rows that `Open` keeps.
  virtual int MaxRows() const;

  /// Reads a cursor's rows into a new snapshot and makes it the dataset's. The cursor is gone when that is told.
  void Load(std::unique_ptr<TCursor> Cursor);

  TAdsConnection& RequireConnection() const;

 private:
  friend class TField;
  friend class TRowScope;

  std::vector<int> BindFields(const TCursor& Cursor);
  std::unique_ptr<TStore> ReadAll(TCursor& Cursor);
  void GoTo(int Row);
  void Calculate();
  template <typename TEquals>
  bool LocateWhere(const std::string& FieldName, TEquals Equals);
  int ReadRow() const { return ScopeRow_ >= 0 ? ScopeRow_ : Row_; }
  bool HasRow() const { return Store_ != nullptr && ReadRow() >= 0; }

  TAdsConnection* Connection_ = nullptr;
  std::vector<TField*> Fields_;
  std::unique_ptr<TStore> Store_;
  int Row_ = -1;           // from 0; -1 without rows
  int ScopeRow_ = -1;      // the row that a TRowScope reads
  int CalculatedRow_ = -1; // the row whose calculated fields are up to date
  int ControlsDisabled_ = 0;
  bool Bof_ = true;
  bool Eof_ = true;
  bool Calculating_ = false;
};

/// Lets the fields of an open dataset read another row while this object lives, for painting: the cursor does not move and nothing is told of it.
class ZULADS_EXPORT TRowScope {
 public:
  /// `Row` counts from 0 and must be one of the dataset's.
  TRowScope(TDataSet& DataSet, int Row) : DataSet_(DataSet), Before_(DataSet.ScopeRow_) { DataSet.ScopeRow_ = Row; }
  ~TRowScope() { DataSet_.ScopeRow_ = Before_; }
  TRowScope(const TRowScope&) = delete;
  TRowScope& operator=(const TRowScope&) = delete;

 private:
  TDataSet& DataSet_;
  int Before_;
};

}  // namespace ads
