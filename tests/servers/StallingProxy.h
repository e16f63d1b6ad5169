#pragma once

#include <QString>
#include <QTemporaryDir>
#include <atomic>
#include <cstddef>
#include <thread>
#include <utility>
#include <vector>

namespace support {

/// A way to a PostgreSQL server's socket that can go silent: then nothing arrives any more, neither answers nor new
/// connections, and nobody is told.
class TStallingProxy {
 public:
  /// `Host` is the folder of the server's socket.
  explicit TStallingProxy(const QString& Host);
  ~TStallingProxy();
  TStallingProxy(const TStallingProxy&) = delete;
  TStallingProxy& operator=(const TStallingProxy&) = delete;

  /// The folder of its own socket, which is a host name to libpq.
  QString Host() const { return Folder_.path(); }

  void Stall() { IsStalled_ = true; }
  /// Goes silent when so many more bytes have come from the server.
  void StallAfter(int Bytes) { BytesToStall_ = Bytes; }
  bool IsStalled() const { return IsStalled_; }

 private:
  void Serve();
  void Accept();
  bool Pass(std::size_t Pair, bool FromServer);

  QTemporaryDir Folder_;
  QString Server_;
  int Listening_ = -1;
  std::vector<std::pair<int, int>> Pairs_;  // the program's end and the server's
  std::atomic<bool> IsStalled_ = false;
  std::atomic<bool> IsEnding_ = false;
  std::atomic<int> BytesToStall_ = -1;
  std::thread Thread_;
};

}  // namespace support
