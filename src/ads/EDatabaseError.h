#pragma once

#include <stdexcept>
#include <string>

#include "ads/zulads_export.h"

namespace ads {

/// A failure of the database, or a use of a dataset that it cannot serve. `what()` holds the database's own
/// message where there is one, UTF-8.
class ZULADS_EXPORT EDatabaseError : public std::runtime_error {
 public:
  explicit EDatabaseError(const std::string& Message);
  ~EDatabaseError() override;
};

/// The connection itself is closed or has broken off, so that nothing can be read until the host has opened it again.
class ZULADS_EXPORT EConnectionLost : public EDatabaseError {
 public:
  explicit EConnectionLost(const std::string& Message);
  ~EConnectionLost() override;
};

/// A query was ended from outside before its end: by the server's administrator, by a time limit that the host has set,
/// by an interrupt, or because a cluster's node may not answer or had to take another node's change first. Nothing is
/// wrong with the query, nor with the connection.
class ZULADS_EXPORT EQueryEnded : public EDatabaseError {
 public:
  explicit EQueryEnded(const std::string& Message);
  ~EQueryEnded() override;
};

}  // namespace ads
