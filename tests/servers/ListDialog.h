#pragma once

#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "pickbase/PickCall.h"
#include "pickbase/uDocPickMultiBase.h"

namespace support {

/// What a dialog of a test lists, to be changed by it between two queries.
struct TListSource {
  TListSource() = default;
  TListSource(std::string TheSort, std::string TheFrom, std::string TheColumns = "A.ID ID")
      : Columns(std::move(TheColumns)), Sort(std::move(TheSort)), From(std::move(TheFrom)) {}

  std::string Columns = "A.ID ID";
  std::string Sort = "UPPER(A.ID)";
  std::string From = "Cust A WHERE 0=0";
  std::vector<std::string> Functions;  ///< that the query may call besides those of the dialogs
  std::string Whole;                   ///< the query but for its ORDER BY, instead of the three; it has no find line
};

/// A dialog that lists whatever a test asks for, by one text column; `TBase` is one of the two dialogs from which all
/// others derive.
template <typename TBase>
class TListDialogOf : public TBase {
 public:
  static std::unique_ptr<TListDialogOf> Create(ads::TAdsConnection* Connection, TListSource Source,
                                               std::function<void(TListDialogOf&)> BeforeFirstQuery = nullptr) {
    return TBase::template Construct<TListDialogOf>(Connection, std::move(Source), std::move(BeforeFirstQuery));
  }
  TListDialogOf(TListSource TheSource, std::function<void(TListDialogOf&)> TheBeforeFirstQuery)
      : Source(std::move(TheSource)), BeforeFirstQuery_(std::move(TheBeforeFirstQuery)) {
    this->Column(qryList_ID = this->TextField("ID", 40)).SetWidth(150);
  }

  void SetUpColumns() override {
    TBase::SetUpColumns();
    this->SetPickCaption("Row");
    this->SetAvailableCaption("Rows");
    this->SetChoices({{"ID", "", uDocPickBase::Contains("AND UPPER(A.ID)")},
                      {"Nowhere", "", uDocPickBase::Contains("AND UPPER(A.NoSuchColumn)")}},
                     0);
    if (BeforeFirstQuery_) BeforeFirstQuery_(*this);
  }

  void SetSQL() override {
    ++Queries;
    this->qryList_->AllowFunctions(Source.Functions);
    this->OpenGuarded([this](uDocPickBase::TListQuery& Query) {
      if (Source.Whole.empty()) {
        Query.Add("SELECT " + Source.Columns + ", " + Source.Sort + " SortFld");
        Query.Add("FROM " + Source.From);
        Query.Keep();
        Query.Find();
      } else {
        Query.Add(Source.Whole);
      }
      Query.OrderBy();
    });
  }

  std::string GetID() const { return qryList_ID->AsString(); }

  TListSource Source;
  ads::TField* qryList_ID;
  int Queries = 0;

 private:
  std::function<void(TListDialogOf&)> BeforeFirstQuery_;
};

using TListDialog = TListDialogOf<uDocPickBase::TDocPickBase>;
using TTickDialog = TListDialogOf<uDocPickMultiBase::TDocPickMultiBase>;

/// Does something once it is time, which is asked in a dialog's event loop. The timer is the dialog's own, so that it
/// is not held back while a query runs.
inline void Once(QObject* Dialog, std::function<bool()> IsTime, std::function<void()> Do) {
  auto* Timer = new QTimer(Dialog);
  QObject::connect(Timer, &QTimer::timeout, Timer, [Timer, IsTime = std::move(IsTime), Do = std::move(Do)] {
    if (!IsTime()) return;
    Timer->stop();
    Timer->deleteLater();
    Do();
  });
  Timer->start(20);
}

/// Does something once, after so many milliseconds of a dialog's event loop, by a timer like that of `Once`.
inline void After(QObject* Dialog, int Milliseconds, std::function<void()> Do) {
  auto* Timer = new QTimer(Dialog);
  Timer->setSingleShot(true);
  QObject::connect(Timer, &QTimer::timeout, Timer, [Timer, Do = std::move(Do)] {
    Timer->deleteLater();
    Do();
  });
  Timer->start(Milliseconds);
}

}  // namespace support
