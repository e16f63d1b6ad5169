#include "ads/MariaDBTalk.h"

#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>

#include <QString>
#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <thread>
#include <utility>

#include "ads/Waiting.h"

namespace ads {

namespace {

constexpr my_socket NoSocket = -1;

// What a second connection to the same server needs, copied from the first one.
class TSecondConnection {
 public:
  TSecondConnection(const MYSQL* First, std::string Sql)
      : Sql_(std::move(Sql)),
        Host_(Text(First->host)),
        User_(Text(First->user)),
        Password_(Text(First->passwd)),
        Socket_(Text(First->unix_socket)),
        Port_(First->port),
        Flags_(First->client_flag & (CLIENT_SSL | CLIENT_COMPRESS)),
        Thread_(First->thread_id),
        UsesTLS_(First->options.use_ssl),
        Keys_{Text(First->options.ssl_key), Text(First->options.ssl_cert), Text(First->options.ssl_ca),
              Text(First->options.ssl_capath), Text(First->options.ssl_cipher)} {
    for (std::size_t Index = 0; Index < TextOptions.size(); ++Index) {
      const char* Value = nullptr;
      if (mysql_get_option(const_cast<MYSQL*>(First), TextOptions[Index], &Value) == 0) Texts_[Index] = Text(Value);
    }
    mysql_get_option(const_cast<MYSQL*>(First), MYSQL_OPT_SSL_VERIFY_SERVER_CERT, &Verifies_);
    mysql_get_option(const_cast<MYSQL*>(First), MYSQL_OPT_PROTOCOL, &Protocol_);
    // A name may stand for several servers; but a certificate is made out to the name.
    if (!Verifies_) Host_ = PeerOf(First).value_or(Host_);
  }

  // A connection that cannot be made kills nothing; who waits for the statement's end does what follows then.
  bool Kill() const {
    MYSQL* Second = mysql_init(nullptr);
    if (Second == nullptr) return false;
    bool IsHeard = false;
    SetOptions(Second);
    if (mysql_real_connect(Second, Host_.c_str(), OrNull(User_), OrNull(Password_), nullptr, Port_, OrNull(Socket_),
                           Flags_) != nullptr &&
        IsAtStatement(Second)) {
      const std::string Sql = "KILL QUERY " + std::to_string(Thread_);
      IsHeard = mysql_real_query(Second, Sql.data(), Sql.size()) == 0;
    }
    mysql_close(Second);
    return IsHeard;
  }

 private:
  static constexpr std::array TextOptions = {MYSQL_PLUGIN_DIR,      MYSQL_DEFAULT_AUTH,      MYSQL_OPT_SSL_CRL,
                                             MYSQL_OPT_SSL_CRLPATH, MARIADB_OPT_TLS_VERSION, MYSQL_SET_CHARSET_NAME,
                                             MYSQL_OPT_BIND};

  static std::string Text(const char* Value) { return Value == nullptr ? "" : Value; }
  static const char* OrNull(const std::string& Value) { return Value.empty() ? nullptr : Value.c_str(); }

  // The address to which a connection goes; none where it goes by a file.
  static std::optional<std::string> PeerOf(const MYSQL* First) {
    sockaddr_storage Address = {};
    auto* Peer = reinterpret_cast<sockaddr*>(&Address);
    socklen_t Size = sizeof Address;
    char Digits[NI_MAXHOST];
    if (getpeername(mysql_get_socket(const_cast<MYSQL*>(First)), Peer, &Size) != 0) return {};
    if (Peer->sa_family != AF_INET && Peer->sa_family != AF_INET6) return {};
    if (getnameinfo(Peer, Size, Digits, sizeof Digits, nullptr, 0, NI_NUMERICHOST) != 0) return {};
    return Digits;
  }

  // What answers may be another server than the first connection's, by a balancer between, and have given the number
  // to somebody else; and the first one's statement may have come to its end.
  bool IsAtStatement(MYSQL* Second) const {
    const std::string Sql =
        "SET STATEMENT character_set_results=utf8mb4 FOR SELECT info FROM "
        "information_schema.processlist WHERE id = " +
        std::to_string(Thread_);
    if (mysql_real_query(Second, Sql.data(), Sql.size()) != 0) return false;
    const std::unique_ptr<MYSQL_RES, decltype(&mysql_free_result)> Result(mysql_store_result(Second),
                                                                          &mysql_free_result);
    if (Result == nullptr) return false;
    const MYSQL_ROW Row = mysql_fetch_row(Result.get());
    if (Row == nullptr || Row[0] == nullptr) return false;
    constexpr std::size_t Told = 65535;  // bytes of a statement
    const std::string_view Running = Row[0];
    return Running == Sql_ || (Running.size() >= Told && Sql_.starts_with(Running));
  }

  void SetOptions(MYSQL* Second) const {
    constexpr unsigned Seconds = 2;
    mysql_options(Second, MYSQL_OPT_CONNECT_TIMEOUT, &Seconds);
    mysql_options(Second, MYSQL_OPT_READ_TIMEOUT, &Seconds);
    mysql_options(Second, MYSQL_OPT_WRITE_TIMEOUT, &Seconds);
    for (std::size_t Index = 0; Index < TextOptions.size(); ++Index) {
      if (!Texts_[Index].empty()) mysql_options(Second, TextOptions[Index], Texts_[Index].c_str());
    }
    if (Protocol_ != 0) mysql_options(Second, MYSQL_OPT_PROTOCOL, &Protocol_);
    if (!UsesTLS_) return;
    mysql_ssl_set(Second, OrNull(Keys_[0]), OrNull(Keys_[1]), OrNull(Keys_[2]), OrNull(Keys_[3]), OrNull(Keys_[4]));
    mysql_options(Second, MYSQL_OPT_SSL_VERIFY_SERVER_CERT, &Verifies_);
  }

  std::string Sql_;
  std::string Host_, User_, Password_, Socket_;
  unsigned Port_;
  unsigned long Flags_;
  unsigned long Thread_;
  bool UsesTLS_;
  std::array<std::string, 5> Keys_;
  std::array<std::string, TextOptions.size()> Texts_;
  my_bool Verifies_ = 0;
  unsigned Protocol_ = 0;
};

}  // namespace

// A connection that was lost is not opened again in the midst of this, although the host may have allowed that for
// its own statements: what it had set up would be missing.
TMariaDBTalk::TMariaDBTalk(MYSQL* Handle) : Handle_(Handle) {
  my_bool CanWait = 0;
  mysql_get_option(Handle_, MYSQL_OPT_NONBLOCK, &CanWait);
  if (!CanWait) mysql_options(Handle_, MYSQL_OPT_NONBLOCK, nullptr);
  mysql_get_option(Handle_, MYSQL_OPT_RECONNECT, &Reconnects_);
  constexpr my_bool Never = 0;
  if (Reconnects_) mysql_options(Handle_, MYSQL_OPT_RECONNECT, &Never);
}

TMariaDBTalk::~TMariaDBTalk() {
  LetWait();
  if (Handle_ != nullptr && Reconnects_) mysql_options(Handle_, MYSQL_OPT_RECONNECT, &Reconnects_);
}

bool TMariaDBTalk::IsLost() const {
  return mysql_get_socket(Handle_) == NoSocket;
}

bool TMariaDBTalk::IsBusy() const {
  return Handle_->status != MYSQL_STATUS_READY || mysql_more_results(Handle_) != 0;
}

// Behind TLS the library reads from the socket as it finds it, and would wait there for the whole answer.
void TMariaDBTalk::ForbidWaiting() {
  if (IsUnblocked_ || mysql_get_ssl_cipher(Handle_) == nullptr) return;
  const int Flags = fcntl(mysql_get_socket(Handle_), F_GETFL);
  IsUnblocked_ =
      Flags >= 0 && (Flags & O_NONBLOCK) == 0 && fcntl(mysql_get_socket(Handle_), F_SETFL, Flags | O_NONBLOCK) == 0;
}

void TMariaDBTalk::LetWait() {
  if (!std::exchange(IsUnblocked_, false) || Handle_ == nullptr || IsLost()) return;
  const int Flags = fcntl(mysql_get_socket(Handle_), F_GETFL);
  if (Flags >= 0) fcntl(mysql_get_socket(Handle_), F_SETFL, Flags & ~O_NONBLOCK);
}

void TMariaDBTalk::DropResult() {
  Result_.reset();
  LetWait();
}

void TMariaDBTalk::Send(std::string Sql) {
  Sql_ = std::move(Sql);
  ForbidWaiting();
  IsRow_ = false;
  Note(mysql_real_query_start(&Code_, Handle_, Sql_.data(), Sql_.size()));
}

void TMariaDBTalk::AskRow() {
  IsRow_ = true;
  Handle_->net.last_errno = 0;  // of a use that was refused since
  Note(mysql_fetch_row_start(&Row_, Result_.get()));
}

void TMariaDBTalk::Note(int Wait) {
  Wait_ = Wait;
  if (Wait_ != 0) Status_ = std::exchange(Handle_->status, MYSQL_STATUS_QUERY_SENT);
  if ((Wait_ & MYSQL_WAIT_TIMEOUT) == 0) return;
  TimesOut_ = std::chrono::steady_clock::now() + std::chrono::milliseconds(mysql_get_timeout_value_ms(Handle_));
}

void TMariaDBTalk::Resume(int Events) {
  Handle_->status = Status_;
  Handle_->net.last_errno = 0;
  Note(IsRow_ ? mysql_fetch_row_cont(&Row_, Result_.get(), Events) : mysql_real_query_cont(&Code_, Handle_, Events));
}

bool TMariaDBTalk::Await(TTime Until) {
  while (Wait_ != 0) {
    pollfd Socket{mysql_get_socket(Handle_), 0, 0};
    if ((Wait_ & MYSQL_WAIT_READ) != 0) Socket.events |= POLLIN;
    if ((Wait_ & MYSQL_WAIT_WRITE) != 0) Socket.events |= POLLOUT;
    if ((Wait_ & MYSQL_WAIT_EXCEPT) != 0) Socket.events |= POLLPRI;
    const bool HasLimit = (Wait_ & MYSQL_WAIT_TIMEOUT) != 0;
    const int Ready = poll(&Socket, 1, MillisecondsUntil(HasLimit ? std::min(Until, TimesOut_) : Until));
    if (Ready > 0) {
      Resume(Wait_ & ~MYSQL_WAIT_TIMEOUT);
    } else if (Ready == 0 && HasLimit && std::chrono::steady_clock::now() >= TimesOut_) {
      Resume(MYSQL_WAIT_TIMEOUT);
    } else if (Ready == 0) {
      return false;
    }
  }
  return true;
}

// In UTF-8, or in the session's character set where a text could not even be taken apart.
std::string TMariaDBTalk::Message() const {
  const QByteArrayView Bytes(mysql_error(Handle_));
  QStringDecoder Decoder(QStringDecoder::Utf8);
  const QString Text = Decoder.decode(Bytes);
  return (Decoder.hasError() ? QString::fromLatin1(Bytes) : Text).trimmed().toStdString();
}

MYSQL_RES* TMariaDBTalk::TakeResult() {
  Row_ = nullptr;
  Result_.reset(mysql_use_result(Handle_));
  return Result_.get();
}

std::shared_future<bool> TMariaDBTalk::Cancel() const {
  std::promise<bool> Heard;
  std::shared_future<bool> Result = Heard.get_future().share();
  std::thread(
      [](const TSecondConnection& Second, std::promise<bool> Done) {
        const bool IsHeard = Second.Kill();
        mysql_thread_end();
        Done.set_value(IsHeard);
      },
      TSecondConnection(Handle_, Sql_), std::move(Heard))
      .detach();
  return Result;
}

bool TMariaDBTalk::Drain(TTime Until) {
  constexpr unsigned RowsBetweenClockReads = 256;
  if (!Await(Until)) return false;
  if (!IsRow_ && Code_ == 0 && Result_ == nullptr) TakeResult();
  if (Result_ == nullptr) return true;
  if (IsRow_ && Row_ == nullptr) return true;
  for (unsigned Rows = 1;; ++Rows) {
    AskRow();
    if (!Await(Until)) return false;
    if (Row_ == nullptr) return true;
    if (Rows % RowsBetweenClockReads == 0 && std::chrono::steady_clock::now() >= Until) return false;
  }
}

void TMariaDBTalk::Cut() {
  constexpr std::chrono::milliseconds Moment(100);
  if (IsLost()) return;
  shutdown(mysql_get_socket(Handle_), SHUT_RDWR);
  if (Wait_ == 0 && Result_ == nullptr) Send("DO 0");  // notices it
  Drain(std::chrono::steady_clock::now() + Moment);
  Wait_ = 0;
}

void TMariaDBTalk::Abandon() {
  if (Result_ != nullptr) Result_->handle = nullptr;
  Handle_ = nullptr;
}

}  // namespace ads
