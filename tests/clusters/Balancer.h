#pragma once

#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

/// A port of this machine behind which stand several servers of it: each connection goes to the next one of them.
class TBalancer {
 public:
  explicit TBalancer(std::vector<int> Ports);
  ~TBalancer();
  TBalancer(const TBalancer&) = delete;
  TBalancer& operator=(const TBalancer&) = delete;

  int Port() const { return Port_; }
  /// From here on each connection goes to one of these.
  void SetPorts(std::vector<int> Ports);

 private:
  struct TPair {
    int Program, Server;
  };

  void Run();
  void Accept();
  int NextPort();
  static bool Pass(int From, int To);
  static void Close(const TPair& Pair);

  int Port_;
  int Listening_;
  std::mutex Mutex_;
  std::vector<int> Ports_;  // the next one first
  std::vector<TPair> Pairs_;
  std::atomic<bool> IsEnding_ = false;
  std::thread Thread_;
};
