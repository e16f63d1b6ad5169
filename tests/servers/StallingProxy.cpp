#include "servers/StallingProxy.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QFile>
#include <algorithm>
#include <cstring>

namespace support {

namespace {

sockaddr_un AddressIn(const QString& Folder) {
  sockaddr_un Address{};
  Address.sun_family = AF_UNIX;
  const QByteArray Path = QFile::encodeName(Folder) + "/.s.PGSQL.5432";
  if (static_cast<std::size_t>(Path.size()) >= sizeof Address.sun_path) qFatal("The socket's path is too long.");
  std::memcpy(Address.sun_path, Path.constData(), static_cast<std::size_t>(Path.size()));
  return Address;
}

template <typename TCall>
void Require(TCall Call, int Socket, const sockaddr_un& Address) {
  if (Call(Socket, reinterpret_cast<const sockaddr*>(&Address), static_cast<socklen_t>(sizeof Address)) != 0) {
    qFatal("The proxy has no socket.");
  }
}

}  // namespace

TStallingProxy::TStallingProxy(const QString& Host)
    : Server_(Host), Listening_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  Require(bind, Listening_, AddressIn(Folder_.path()));
  if (listen(Listening_, 5) != 0) qFatal("The proxy cannot listen.");
  Thread_ = std::thread([this] { Serve(); });
}

TStallingProxy::~TStallingProxy() {
  IsEnding_ = true;
  Thread_.join();
  for (const auto& [Program, Server] : Pairs_) {
    close(Program);
    close(Server);
  }
  close(Listening_);
}

void TStallingProxy::Serve() {
  constexpr int BetweenLooks = 5;  // milliseconds
  while (!IsEnding_) {
    if (IsStalled_) {
      poll(nullptr, 0, BetweenLooks);
      continue;
    }
    std::vector<pollfd> Ends{{Listening_, POLLIN, 0}};
    for (const auto& [Program, Server] : Pairs_) {
      Ends.push_back({Program, POLLIN, 0});
      Ends.push_back({Server, POLLIN, 0});
    }
    if (poll(Ends.data(), Ends.size(), BetweenLooks) <= 0) continue;
    bool AreThere = true;
    for (std::size_t End = 1; End < Ends.size() && AreThere && !IsStalled_; ++End) {
      if (Ends[End].revents != 0) AreThere = Pass((End - 1) / 2, End % 2 == 0);
    }
    if (AreThere && Ends[0].revents != 0) Accept();
  }
}

void TStallingProxy::Accept() {
  const int Program = accept4(Listening_, nullptr, nullptr, SOCK_CLOEXEC);
  const int Server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  Require(connect, Server, AddressIn(Server_));
  Pairs_.emplace_back(Program, Server);
}

// Whether both ends are still there.
bool TStallingProxy::Pass(std::size_t Pair, bool FromServer) {
  const auto [Program, Server] = Pairs_[Pair];
  const int From = FromServer ? Server : Program;
  const int To = FromServer ? Program : Server;
  char Bytes[4096];
  const ssize_t Count = recv(From, Bytes, sizeof Bytes, 0);
  if (Count <= 0) {
    close(Program);
    close(Server);
    Pairs_.erase(Pairs_.begin() + static_cast<std::ptrdiff_t>(Pair));
    return false;
  }
  for (ssize_t Sent = 0; Sent < Count;) {
    const ssize_t More = send(To, Bytes + Sent, static_cast<std::size_t>(Count - Sent), MSG_NOSIGNAL);
    if (More <= 0) break;
    Sent += More;
  }
  if (FromServer && BytesToStall_ >= 0) {
    BytesToStall_ = std::max(0, BytesToStall_ - static_cast<int>(Count));
    if (BytesToStall_ == 0) IsStalled_ = true;
  }
  return true;
}

}  // namespace support
