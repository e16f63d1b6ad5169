#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ads/Connection.h"
#include "ads/zulads_export.h"

namespace ads {

/// A statement that a dataset would read, and what the server says of it.
struct TTriedStatement {
  std::string Source;                ///< in the dialogs' SQL
  std::string Sent;                  ///< in the server's
  std::vector<std::string> Columns;  ///< of its result; empty where the server does not tell them unless it is run
  std::string Failure;               ///< the server's message; empty when it takes the statement
};

/// While it lives, datasets over a connection read nothing: every statement that they would read is only prepared by
/// the server, once for each text, and they open without rows. Datasets of `TDataSet::SetReadInTrials` are read as
/// ever, but open without rows, too, when that fails. What the gate refuses and a lost connection are exceptions as
/// ever.
///
/// One at a time for a connection, which must outlive it.
class ZULADS_EXPORT TTrial {
 public:
  explicit TTrial(TAdsConnection& Connection);
  ~TTrial();
  TTrial(const TTrial&) = delete;
  TTrial& operator=(const TTrial&) = delete;

  /// Told of a statement each time a dataset would read it. What is thrown reaches who opens the dataset.
  std::function<void(const TTriedStatement& Statement)> OnTried;
  /// Told of one that was really read, and how many rows it gave.
  std::function<void(const TTriedStatement& Statement, int Rows)> OnRead;

  /// So many different texts were prepared.
  int Prepared() const { return static_cast<int>(Known_.size()); }

  // For datasets.
  void Try(const TListStatements& Statements, const std::vector<std::string>& Fields);
  void MakeWay();
  void TellRead(const TListStatements& Statements, int Rows) const;
  void TellFailed(const TListStatements& Statements, const std::string& Message) const;

 private:
  const TTriedStatement& Prepare(const std::string& Source, const std::string& Sent);

  TAdsConnection& Connection_;
  std::unique_ptr<TCursor> Cursor_;               // by which the statements are prepared
  std::map<std::string, TTriedStatement> Known_;  // by the text that is sent
};

}  // namespace ads
