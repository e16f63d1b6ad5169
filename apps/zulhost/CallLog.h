#pragma once

#include <QTableWidget>
#include <string>

#include "catalog/Catalog.h"

namespace zulhost {

/// What became of one call.
struct TCallRecord {
  std::string Function;
  std::string Args;
  catalog::TResult Result;
  std::string Exception;  ///< its message; empty when the function returned
  qint64 Milliseconds = 0;

  /// "true", "false" or "exception".
  std::string Outcome() const;
  /// The keys, each in quotation marks.
  std::string Keys() const;
};

/// A table of the calls, the newest last.
class TCallLog : public QTableWidget {
  Q_OBJECT
 public:
  explicit TCallLog(QWidget* Parent = nullptr);

  void Add(const TCallRecord& Record);
};

}  // namespace zulhost
