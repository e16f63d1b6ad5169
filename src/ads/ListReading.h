#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ads/Connection.h"
#include "ads/Cursor.h"
#include "ads/Store.h"

namespace ads {

/// The reading of one list: its first page, if there is one, and then the whole, whose first rows are found to be those
/// of the page. It can be asked to go on in portions, be interrupted and gone on with at any time.
///
/// Rows of equal sort values may come in another order the second time. So the last ones of the page that share a value
/// are left out of it, and the rows that stand for the page in the whole are compared as a set. They differ when
/// somebody has written in between; then the whole takes the place of what is there, once it is read.
class TListReading {
 public:
  using TTime = TCursor::TTime;

  enum class TState : std::uint8_t {
    Going,     ///< there may be more rows
    Complete,  ///< all rows are there
    Replaced,  ///< all rows are there, and they are not those that were there before: take `TakeReplacement`
  };

  /// What is kept of a row: columns by name, each as a type.
  struct TColumn {
    std::string Name;
    TFieldType Type;
  };

  /// The connection is borrowed. A page that is asked for has `PageRows` rows and the one more that tells that there
  /// are more. A list that is shown early, before it is complete, is read again when the host disturbs that, and makes
  /// way for other queries on the connection; else a disturbance is an exception.
  TListReading(const TAdsConnection& Connection, TListStatements Statements, std::vector<TColumn> Columns, int PageRows,
               int MostRows, bool IsShownEarly);
  ~TListReading();
  TListReading(const TListReading&) = delete;
  TListReading& operator=(const TListReading&) = delete;

  /// Goes on until about `Until`; earlier when the page is read. Throws `EDatabaseError`, also when the connection was
  /// closed.
  TState GoOn(TTime Until);

  /// The rows so far. They belong to the list, which may be shown, from `CanBeShown` on.
  const std::shared_ptr<TStore>& Rows() const { return Rows_; }
  bool CanBeShown() const { return Phase_ == TPhase::Whole && Rows_->RowCount() > 0; }
  std::shared_ptr<TStore> TakeReplacement() { return std::move(Fresh_); }

  /// Leaves nothing open in the database. What was read stays, and the next `GoOn` begins to read the whole anew.
  void Pause();

  /// Whether nobody else may use the connection at present.
  bool IsAlone() const;

 private:
  enum class TPhase { Page, Whole };
  enum class TManner { Shared, Alone, Silent };

  void RequireConnected() const;
  TState ReadOn(TTime Until);
  TState ReadPage(TTime Until);
  TState ReadWhole(TTime Until);
  void Begin(const std::string& Sql);
  void Bind();
  void BindSort();
  std::shared_ptr<TStore> NewStore() const;
  bool TakePageRow();
  bool TakeRow();
  std::string SortKey();
  void EndPage();
  void ReadAgain();

  const TAdsConnection& Connection_;
  TListStatements Statements_;
  std::vector<TColumn> Columns_;
  int PageRows_;
  int MostRows_;
  bool IsShownEarly_;
  TManner Manner_ = TManner::Shared;
  TPhase Phase_;
  std::unique_ptr<TCursor> Cursor_;
  bool HasBegun_ = false;         // the statement of this phase
  std::vector<int> Sources_;      // the cursor's column of each kept one; empty until it is known
  std::vector<int> SortSources_;  // and of each that the list is sorted by
  std::shared_ptr<TStore> Rows_;
  std::string LastKey_;  // of the page's last row
  int RowsOfLastKey_ = 0;
  std::shared_ptr<TStore> Fresh_;  // rows of the whole that stand for those that are there, or replace them
  int Known_ = 0;                  // so many are there
  std::uint64_t KnownSum_ = 0;
  std::uint64_t FreshSum_ = 0;
  bool IsReplacing_ = false;
};

/// For rows of the store `Before`: where rows of the same values stand in `After`, and -1 for one that is there no
/// more. Of several equal ones the first stands for the first.
std::vector<int> PlacesIn(const TStore& Before, const TStore& After);

}  // namespace ads
