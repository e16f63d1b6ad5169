#include "sample/store/SQLiteSink.h"

#include <stdexcept>

#include "sample/store/Dates.h"

namespace sample {

namespace {

[[noreturn]] void Fail(sqlite3* Handle) {
  throw std::runtime_error(std::string("The database reports: ") + sqlite3_errmsg(Handle));
}

template <typename... T>
struct TOverloaded : T... {
  using T::operator()...;
};
template <typename... T>
TOverloaded(T...) -> TOverloaded<T...>;

}  // namespace

TSQLiteHandle OpenNewFile(const std::string& FileName) {
  sqlite3* Raw = nullptr;
  const int Code = sqlite3_open_v2(FileName.c_str(), &Raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  TSQLiteHandle Handle(Raw);
  if (Code != SQLITE_OK) {
    throw std::runtime_error("Cannot create " + FileName + ": " + sqlite3_errstr(Code) + ".");
  }
  return Handle;
}

void Execute(sqlite3* Handle, const std::string& Sql) {
  if (sqlite3_exec(Handle, Sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    Fail(Handle);
  }
}

TSQLiteSink::TSQLiteSink(sqlite3* Handle) : Handle_(Handle) {
  Execute(Handle_,
          "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE; "
          "PRAGMA cache_size = -65536; PRAGMA threads = 2; BEGIN");
}

void TSQLiteSink::CreateTable(const TTable& Table) {
  Execute(Handle_, Table.Sql);
}

void TSQLiteSink::BeginRows(const TTable& Table, const std::vector<std::string>& Columns) {
  std::string Names;
  std::string Places;
  for (const std::string& Column : Columns) {
    Names += (Names.empty() ? "\"" : ", \"") + Column + "\"";
    Places += Places.empty() ? "?" : ", ?";
  }
  const std::string Sql = "INSERT INTO \"" + Table.Name + "\" (" + Names + ") VALUES (" + Places + ")";
  sqlite3_stmt* Raw = nullptr;
  if (sqlite3_prepare_v2(Handle_, Sql.c_str(), -1, &Raw, nullptr) != SQLITE_OK) {
    Fail(Handle_);
  }
  Insert_.reset(Raw);
}

void TSQLiteSink::AddRow(std::span<const TValue> Values) {
  int Position = 0;
  for (const TValue& Value : Values) {
    Bind(++Position, Value);
  }
  if (sqlite3_step(Insert_.get()) != SQLITE_DONE) {
    Fail(Handle_);
  }
  sqlite3_reset(Insert_.get());
}

void TSQLiteSink::Bind(int Position, const TValue& Value) {
  sqlite3_stmt* const Insert = Insert_.get();
  const auto BindText = [&](std::string_view Text, sqlite3_destructor_type Lifetime) {
    // A view of nothing has no address, and a text without an address would be stored as null.
    const char* const Start = Text.data() != nullptr ? Text.data() : "";
    return sqlite3_bind_text64(Insert, Position, Start, Text.size(), Lifetime, SQLITE_UTF8);
  };
  const int Code =
      std::visit(TOverloaded{[&](std::monostate) { return sqlite3_bind_null(Insert, Position); },
                             [&](bool Flag) { return sqlite3_bind_int(Insert, Position, Flag ? 1 : 0); },
                             [&](std::int64_t Number) { return sqlite3_bind_int64(Insert, Position, Number); },
                             [&](double Number) { return sqlite3_bind_double(Insert, Position, Number); },
                             [&](std::string_view Text) { return BindText(Text, SQLITE_STATIC); },
                             [&](TDate Date) { return BindText(DateText(Date), SQLITE_TRANSIENT); }},
                 Value.Content());
  if (Code != SQLITE_OK) {
    Fail(Handle_);
  }
}

void TSQLiteSink::EndRows() {
  Insert_.reset();
}

void TSQLiteSink::CreateIndex(const TIndex& Index) {
  Execute(Handle_, Index.Sql);
}

void TSQLiteSink::Finish() {
  Execute(Handle_, "COMMIT");
}

}  // namespace sample
