#include "ads/SQLLog.h"

#include <QLoggingCategory>
#include <QScopeGuard>
#include <QString>
#include <atomic>
#include <chrono>
#include <utility>

#include "ads/Cursor.h"
#include "ads/EDatabaseError.h"

namespace ads {

namespace {

// Everything is told as a debug message, which the category lets through only when a rule of the host's says so.
Q_LOGGING_CATEGORY(SQLLog, "zul.sql", QtWarningMsg)

bool IsShownAsItIs(char32_t Character) {
  const QChar::Category Category = QChar::category(Character);
  if (Category == QChar::Separator_Line || Category == QChar::Separator_Paragraph) return false;
  return QChar::isPrint(Character);
}

// One line, whatever the text holds, so that nothing in it can pass for a message of its own. Between the texts of a
// statement the end of a line is a blank: it can be run as it is logged.
QString OneLine(std::string_view Text) {
  QString Result;
  bool InText = false;
  for (const char32_t Character : QString::fromUtf8(Text.data(), static_cast<qsizetype>(Text.size())).toUcs4()) {
    if (Character == U'\'') InText = !InText;
    if (IsShownAsItIs(Character)) {
      Result += QString::fromUcs4(&Character, 1);
    } else if (!InText && (Character == U'\n' || Character == U'\r' || Character == U'\t')) {
      Result += u' ';
    } else {
      Result += QStringLiteral("\\u{%1}").arg(static_cast<uint>(Character), 0, 16);
    }
  }
  return Result;
}

/// Hands everything on to another cursor and tells of it.
class TLoggedCursor final : public TCursor {
 public:
  explicit TLoggedCursor(std::unique_ptr<TCursor> Cursor) : Cursor_(std::move(Cursor)) {}
  ~TLoggedCursor() override {
    if (IsRunning_ && !Cursor_->IsConnected()) Unread_ = "ended with its connection";
    EndUnread();
  }
  TLoggedCursor(const TLoggedCursor&) = delete;
  TLoggedCursor& operator=(const TLoggedCursor&) = delete;

  bool IsConnected() const override { return Cursor_->IsConnected(); }

  void Check(const std::string& Sql) override {
    try {
      Cursor_->Check(Sql);
    } catch (const std::exception& Error) {
      Start();
      Tell(OneLine(Sql));
      EndAs("failed", Error.what());
      throw;
    }
  }

  std::vector<std::string> Prepare(const std::string& Sql) override {
    EndUnread();
    Start();
    Tell(OneLine(Sql));
    try {
      std::vector<std::string> Columns = Cursor_->Prepare(Sql);
      EndAs("prepared", {});
      return Columns;
    } catch (const std::exception& Error) {
      EndAs("failed", Error.what());
      throw;
    }
  }

  void Begin(const std::string& Sql) override {
    EndUnread();
    Cursor_->MindsChanges = MindsChanges;
    if (OnMakeWay) {
      Cursor_->OnMakeWay = [this] {
        Unread_ = "made way for another";
        const auto MakeWay = OnMakeWay;  // a copy, which outlives the cursor
        MakeWay();
      };
    }
    Start();
    try {
      // Told behind what is sent before it, such as the beginning of a transaction.
      const auto Told = qScopeGuard([&] { Tell(OneLine(Sql)); });
      Cursor_->Begin(Sql);
    } catch (const std::exception& Error) {
      EndAs("failed", Error.what());
      throw;
    }
  }

  bool GoOn(TTime Until, const TTakeRow& Take) override {
    try {
      Unread_ = "stopped";
      const bool HasMore = Cursor_->GoOn(Until, [&] {
        if (Rows_++ == 0) FirstRow_ = TClock::now();
        const bool WantsMore = Take();
        if (!WantsMore) Unread_ = "left, as no more rows are wanted";
        return WantsMore;
      });
      if (!HasMore) EndAs("done", {});
      return HasMore;
    } catch (const std::exception& Error) {
      EndAs("failed", Error.what());
      throw;
    }
  }

  bool IsShareable() const override { return Cursor_->IsShareable(); }
  int ColumnCount() const override { return Cursor_->ColumnCount(); }
  std::string ColumnName(int Column) const override { return Cursor_->ColumnName(Column); }
  TValueKind Kind(int Column) override { return Cursor_->Kind(Column); }
  std::int64_t Integer(int Column) override { return Cursor_->Integer(Column); }
  double Real(int Column) override { return Cursor_->Real(Column); }
  std::string_view Text(int Column) override { return Cursor_->Text(Column); }

 private:
  using TClock = std::chrono::steady_clock;

  void Start() {
    static std::atomic<unsigned> Numbers{0};
    Number_ = ++Numbers;
    Rows_ = 0;
    Unread_ = "stopped";
    IsRunning_ = true;
    Begun_ = TClock::now();
  }

  void Tell(const QString& Text) const { qCDebug(SQLLog, "[%u] %s", Number_, qUtf8Printable(Text)); }

  QString Since(TClock::time_point Time) const {
    return QString::number(std::chrono::duration<double, std::milli>(Time - Begun_).count(), 'f', 1);
  }

  void EndAs(const char* How, const std::string& Why) {
    if (!std::exchange(IsRunning_, false)) return;
    QString Text = QStringLiteral("%1 after %2 ms, %3 rows").arg(QLatin1String(How), Since(TClock::now())).arg(Rows_);
    if (Rows_ > 0) Text += QStringLiteral(", the first after %1 ms").arg(Since(FirstRow_));
    if (!Why.empty()) Text += QStringLiteral(": ") + OneLine(Why);
    Tell(Text);
  }

  void EndUnread() { EndAs(Unread_, {}); }

  std::unique_ptr<TCursor> Cursor_;
  unsigned Number_ = 0;  // by which the end of a statement is found
  bool IsRunning_ = false;
  const char* Unread_ = "";  // how it ends when nobody reads it to its end
  long long Rows_ = 0;
  TClock::time_point Begun_;
  TClock::time_point FirstRow_;
};

}  // namespace

std::unique_ptr<TCursor> Logged(std::unique_ptr<TCursor> Cursor) {
  if (!SQLLog().isDebugEnabled()) return Cursor;
  return std::make_unique<TLoggedCursor>(std::move(Cursor));
}

void LogOwn(std::string_view Sql) {
  if (SQLLog().isDebugEnabled()) qCDebug(SQLLog, "[own] %s", qUtf8Printable(OneLine(Sql)));
}

}  // namespace ads
