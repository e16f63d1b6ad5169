#include "clusters/Balancer.h"

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QtGlobal>
#include <algorithm>
#include <cstdint>
#include <utility>

#include "ads/ServerProcess.h"

namespace {

sockaddr_in Local(int Port) {
  sockaddr_in Place = {};
  Place.sin_family = AF_INET;
  Place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  Place.sin_port = htons(static_cast<std::uint16_t>(Port));
  return Place;
}

}  // namespace

TBalancer::TBalancer(std::vector<int> Ports)
    : Port_(FreeLoopbackPort()), Listening_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)), Ports_(std::move(Ports)) {
  const sockaddr_in Place = Local(Port_);
  if (bind(Listening_, reinterpret_cast<const sockaddr*>(&Place), sizeof Place) != 0 || listen(Listening_, 5) != 0) {
    qFatal("The balancer has no port.");
  }
  Thread_ = std::thread([this] { Run(); });
}

TBalancer::~TBalancer() {
  IsEnding_ = true;
  Thread_.join();
  for (const TPair& Pair : Pairs_) Close(Pair);
  close(Listening_);
}

void TBalancer::SetPorts(std::vector<int> Ports) {
  const std::lock_guard Lock(Mutex_);
  Ports_ = std::move(Ports);
}

int TBalancer::NextPort() {
  const std::lock_guard Lock(Mutex_);
  std::rotate(Ports_.begin(), Ports_.begin() + 1, Ports_.end());
  return Ports_.back();
}

void TBalancer::Run() {
  constexpr int BetweenLooks = 20;  // milliseconds
  while (!IsEnding_) {
    std::vector<pollfd> Ends{{Listening_, POLLIN, 0}};
    for (const TPair& Pair : Pairs_) {
      Ends.push_back({Pair.Program, POLLIN, 0});
      Ends.push_back({Pair.Server, POLLIN, 0});
    }
    if (poll(Ends.data(), Ends.size(), BetweenLooks) <= 0) continue;
    std::vector<TPair> Left;
    for (std::size_t Index = 0; Index < Pairs_.size(); ++Index) {
      const TPair& Pair = Pairs_[Index];
      const bool ByProgram = Ends[2 * Index + 1].revents == 0 || Pass(Pair.Program, Pair.Server);
      const bool ByServer = Ends[2 * Index + 2].revents == 0 || Pass(Pair.Server, Pair.Program);
      if (ByProgram && ByServer) {
        Left.push_back(Pair);
      } else {
        Close(Pair);
      }
    }
    Pairs_ = std::move(Left);
    if (Ends[0].revents != 0) Accept();
  }
}

void TBalancer::Accept() {
  const TPair Pair{accept4(Listening_, nullptr, nullptr, SOCK_CLOEXEC), socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)};
  const sockaddr_in Place = Local(NextPort());
  if (connect(Pair.Server, reinterpret_cast<const sockaddr*>(&Place), sizeof Place) == 0) {
    Pairs_.push_back(Pair);
  } else {
    Close(Pair);
  }
}

bool TBalancer::Pass(int From, int To) {
  char Bytes[16384];
  const ssize_t Count = recv(From, Bytes, sizeof Bytes, 0);
  for (ssize_t Sent = 0; Sent < Count;) {
    const ssize_t More = send(To, Bytes + Sent, static_cast<std::size_t>(Count - Sent), MSG_NOSIGNAL);
    if (More <= 0) return false;
    Sent += More;
  }
  return Count > 0;
}

void TBalancer::Close(const TPair& Pair) {
  close(Pair.Program);
  close(Pair.Server);
}
