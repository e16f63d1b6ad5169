#pragma once

#include <QObject>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ads/Field.h"
#include "ads/zulads_export.h"

class QTimer;

namespace ads {

class TAdsConnection;
class TListReading;
class TStore;
class TTrial;
struct TListStatements;

/// Rows of a database, read once and kept, with a cursor that stands on one of them.
///
/// An open dataset is a snapshot: no statement, lock or transaction is left open in the database for it once its rows
/// are in, however long it stays open. What other connections write is seen when it is opened again. Only columns that
/// have a field are kept.
///
/// A long list may show its first rows early (`SetFirstRowsFirst`) and read the rest in the event loop. To code it is
/// the whole list all the same: whoever asks for rows that are not there yet, or for their number, waits for all.
class ZULADS_EXPORT TDataSet : public QObject {
  Q_OBJECT
 public:
  /// A place in the rows of one opening; it means nothing after the dataset was closed.
  using TBookmark = int;

  ~TDataSet() override;

  /// The connection is borrowed and must outlive the dataset's use of it.
  void SetConnection(TAdsConnection* Connection) { Connection_ = Connection; }
  TAdsConnection* Connection() const { return Connection_; }

  /// Declares a field; its object name is the dataset's followed by the field's. Only while the dataset is closed.
  /// Names are compared without regard to case; a name that is declared already throws `EDatabaseError`.
  TField* AddField(const std::string& Name, TFieldType Type, int Size = 0, TFieldKind Kind = TFieldKind::fkData);
  const std::vector<TField*>& Fields() const { return Fields_; }
  /// Throws `EDatabaseError` for a name without a field.
  TField* FieldByName(const std::string& Name) const;

  /// Reads the rows; the first becomes the current one. On an open dataset it reads anew, and the old rows stay until
  /// the new ones are there: when reading fails, `EDatabaseError` is thrown and the dataset stays just as it was, open
  /// or closed. So it does when the reading was stopped (`Stop`): false then.
  bool Open();
  void Close();

  /// Whether `Open` is done as soon as the first rows of a long list are known. They are the first of the whole list,
  /// in its order. The rest is read while the event loop runs, by portions of some milliseconds, and told by `Grown`;
  /// the reading statement stays open for so long. Not to be changed while the dataset is open.
  void SetFirstRowsFirst(bool Early) { FirstRowsFirst_ = Early; }

  /// Whether its rows are read even while a `TTrial` of its connection lives.
  void SetReadInTrials(bool Read) { IsReadInTrials_ = Read; }

  /// Whether all rows are there.
  bool IsComplete() const { return Reading_ == nullptr; }
  /// The number of rows that are there already; waits for none.
  int KnownRows() const;
  /// Waits for the rest of the rows. False, some rows then being still to come, when it was stopped, and when a waiting
  /// for rows of this dataset is under way already, in whose `OnProgress` this is called. Throws `EDatabaseError`.
  bool ReadToEnd();
  /// Ends the waiting in whose `OnProgress` this is called: the `Open` or `ReadToEnd` gives back soon.
  void Stop() { IsStopped_ = true; }
  /// Whether rows are being waited for.
  bool IsWaiting() const { return IsWaiting_; }
  /// What is there is the whole list from now on.
  void GiveUpRest();
  /// Lets go of the connection and the state of the data in the midst of the rest, which is read anew, and checked to
  /// be the rest of what is there, when it is wanted, or with `Rest` in the event loop.
  enum class TRest { WhenWanted, InEventLoop };
  void LetGo(TRest Rest);
  bool Active() const { return Store_ != nullptr; }

  /// Both are true for a dataset without rows. `Bof` is true after opening, `First` and a `Prior` on the first row;
  /// `Eof` after a `Next` on the last row (which stays the current one).
  bool Bof() const { return Bof_; }
  bool Eof() const { return Eof_; }
  bool IsEmpty() const { return KnownRows() == 0; }
  int RecordCount() const;

  void First();
  void Last();
  void Next();
  void Prior();

  /// The position of the row that is being read, from 1; 0 without rows. A number out of range goes to the nearest row.
  int RecNo() const;
  void SetRecNo(int RecNo);

  /// Goes to the first row whose field has the value; false, staying where it is, when there is none. Nulls equal
  /// nothing.
  bool Locate(const std::string& FieldName, bool Value);
  bool Locate(const std::string& FieldName, std::int32_t Value);
  bool Locate(const std::string& FieldName, const std::string& Value);
  bool Locate(const std::string& FieldName, const char* Value) { return Locate(FieldName, std::string(Value)); }

  TBookmark GetBookmark() const { return Row_; }
  void GotoBookmark(TBookmark Bookmark) { SetRecNo(Bookmark + 1); }

  /// Between the two, moving the cursor is not shown. Calls nest; the last `EnableControls` shows where the cursor
  /// stands then.
  void DisableControls() { ++ControlsDisabled_; }
  void EnableControls();

  /// Calculates the calculated fields anew and repaints; does not read the database.
  void Refresh();

  /// The bytes of the rows in memory.
  std::size_t SnapshotBytes() const;

  std::function<void(TDataSet& Sender)> AfterOpen;
  std::function<void(TDataSet& Sender)> AfterClose;

  /// Sets the calculated fields of the row that the dataset's fields read. Called when a calculated field is wanted,
  /// once a row that is read.
  std::function<void(TDataSet& Sender)> OnCalcFields;

  /// Called some twenty times a second or more while rows are waited for. May run the event loop, but must not open or
  /// close this dataset. When the connection is closed in it, the reading fails.
  std::function<void()> OnProgress;

  /// Called when nobody else may use the connection for a while, as in the midst of the rows of most servers; what it
  /// gives is kept for so long.
  std::function<std::shared_ptr<void>()> HoldOthers;

  /// Called when the rest of the rows could not be read in the event loop; the dataset stays with those that are there.
  std::function<void(const std::string& Message)> OnRestFailed;

 Q_SIGNALS:
  void Opened();
  void Closed();
  void Scrolled();
  void Refreshed();
  /// More rows are there, or all of them.
  void Grown();
  /// All rows are there, and the early ones have changed: where each of them stands now, -1 for one that is gone. The
  /// current row is the same one as before, or its neighbour.
  void Replaced(const std::vector<int>& NewPlaces);

 protected:
  explicit TDataSet(QObject* Owner);

  /// What `Open` reads; a page of so many rows is asked for unless `PageRows` is 0.
  virtual TListStatements Statements(int PageRows) const = 0;

  /// The most rows that `Open` keeps.
  virtual int MaxRows() const;

  /// Reads other rows and makes them the dataset's. The cursor is gone when that is told. False when it was stopped.
  bool Load(TListStatements Statements);

  TAdsConnection& RequireConnection() const;

 private:
  friend class TField;
  friend class TRowScope;

  class TWaiting;

  std::vector<std::string> DataFieldNames() const;
  bool Read(TListStatements Statements);
  bool LoadInTrial(TTrial& Trial, TListStatements Statements);
  bool ReadInTrial(TTrial& Trial, const TListStatements& Statements);
  std::unique_ptr<TListReading> NewReading(TListStatements Statements) const;
  bool ReadUntilShown(TListReading& Reading, bool& IsComplete);
  void Show(std::unique_ptr<TListReading> Reading, bool IsComplete);
  bool KeepWaiting(const TListReading& Reading);
  void HoldWhile(const TListReading& Reading);
  void ReadRestInTurn();
  void ReadPortion(std::chrono::steady_clock::time_point Until);
  void Replace();
  void ScheduleRest();
  void GoTo(int Row);
  void Calculate();
  template <typename TEquals>
  bool LocateWhere(const std::string& FieldName, TEquals Equals);
  int ReadRow() const { return ScopeRow_ >= 0 ? ScopeRow_ : Row_; }
  bool HasRow() const { return Store_ != nullptr && ReadRow() >= 0; }

  TAdsConnection* Connection_ = nullptr;
  std::vector<TField*> Fields_;
  std::shared_ptr<TStore> Store_;
  bool FirstRowsFirst_ = false;
  bool IsReadInTrials_ = false;
  std::unique_ptr<TListReading> Reading_;  // of rows that are still to come
  std::shared_ptr<void> Held_;             // what `HoldOthers` gave
  QTimer* RestTimer_ = nullptr;            // made when it is wanted
  int ToldRows_ = 0;                       // so many were told by `Grown`
  std::chrono::steady_clock::time_point ToldAt_;
  bool IsWaiting_ = false;
  bool IsStopped_ = false;
  int Row_ = -1;            // from 0; -1 without rows
  int ScopeRow_ = -1;       // the row that a TRowScope reads
  int CalculatedRow_ = -1;  // the row whose calculated fields are up to date
  int ControlsDisabled_ = 0;
  bool Bof_ = true;
  bool Eof_ = true;
  bool Calculating_ = false;
};

/// Lets the fields of an open dataset read another row while this object lives, for painting: the cursor does not move
/// and nothing is told of it.
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
