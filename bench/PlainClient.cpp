#include "PlainClient.h"

#include <benchmark/benchmark.h>
#include <libpq-fe.h>
#include <sqlite3.h>

#include <QtGlobal>

#include "Opening.h"
#include "sample/store/MariaDBSink.h"

namespace bench {

namespace {

// Reads the values as a program does that uses them.
class TReading {
 public:
  ~TReading() { benchmark::DoNotOptimize(Sum_); }
  TReading() = default;
  TReading(const TReading&) = delete;
  TReading& operator=(const TReading&) = delete;

  void Read(const char* Text, std::int64_t Length) {
    Run_.Bytes += Length;
    Sum_ += Text != nullptr ? static_cast<unsigned char>(*Text) : 0;
  }
  void EndRow() { ++Run_.Rows; }
  TPlainRun Result() {
    Run_.Seconds = SecondsSince(Start_);
    return Run_;
  }

 private:
  TClock::time_point Start_ = TClock::now();
  TPlainRun Run_;
  std::size_t Sum_ = 0;
};

class TPlainSQLite : public TPlainClient {
 public:
  explicit TPlainSQLite(const std::string& FileName) {
    if (sqlite3_open(FileName.c_str(), &Handle_) != SQLITE_OK) Fail();
  }
  ~TPlainSQLite() override { sqlite3_close(Handle_); }

  void Execute(const std::string& Sql) override {
    if (sqlite3_exec(Handle_, Sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail();
  }

  TPlainRun Run(const std::string& Sql, int Columns) override {
    const double Before = ProcessorSeconds();
    TReading Reading;
    sqlite3_stmt* Statement = Prepare(Sql);
    while (sqlite3_step(Statement) == SQLITE_ROW) {
      for (int Column = 0; Column < Columns; ++Column) {
        const auto* Text = reinterpret_cast<const char*>(sqlite3_column_text(Statement, Column));
        Reading.Read(Text, sqlite3_column_bytes(Statement, Column));
      }
      Reading.EndRow();
    }
    sqlite3_finalize(Statement);
    TPlainRun Result = Reading.Result();
    Result.ProcessorSeconds = ProcessorSeconds() - Before;
    return Result;
  }

  std::int64_t Number(const std::string& Sql) override {
    sqlite3_stmt* Statement = Prepare(Sql);
    if (sqlite3_step(Statement) != SQLITE_ROW) Fail();
    const std::int64_t Result = sqlite3_column_int64(Statement, 0);
    sqlite3_finalize(Statement);
    return Result;
  }

 private:
  sqlite3_stmt* Prepare(const std::string& Sql) {
    sqlite3_stmt* Statement = nullptr;
    if (sqlite3_prepare_v2(Handle_, Sql.c_str(), -1, &Statement, nullptr) != SQLITE_OK) Fail();
    return Statement;
  }
  void Fail() const { qFatal("%s", sqlite3_errmsg(Handle_)); }

  sqlite3* Handle_ = nullptr;
};

class TPlainPostgreSQL : public TPlainClient {
 public:
  explicit TPlainPostgreSQL(const std::string& Address) : Handle_(PQconnectdb(Address.c_str())) {
    if (PQstatus(Handle_) != CONNECTION_OK) qFatal("%s", PQerrorMessage(Handle_));
  }
  ~TPlainPostgreSQL() override { PQfinish(Handle_); }

  void Execute(const std::string& Sql) override { PQclear(Ask(Sql, PGRES_COMMAND_OK)); }

  TPlainRun Run(const std::string& Sql, int Columns) override {
    TReading Reading;
    PGresult* Rows = Ask(Sql, PGRES_TUPLES_OK);
    for (int Row = 0; Row < PQntuples(Rows); ++Row) {
      for (int Column = 0; Column < Columns; ++Column) {
        Reading.Read(PQgetvalue(Rows, Row, Column), PQgetlength(Rows, Row, Column));
      }
      Reading.EndRow();
    }
    PQclear(Rows);
    return Reading.Result();
  }

  std::int64_t Number(const std::string& Sql) override {
    PGresult* Rows = Ask(Sql, PGRES_TUPLES_OK);
    const std::int64_t Result = std::stoll(PQgetvalue(Rows, 0, 0));
    PQclear(Rows);
    return Result;
  }

 private:
  PGresult* Ask(const std::string& Sql, ExecStatusType Wanted) {
    PGresult* Result = PQexec(Handle_, Sql.c_str());
    if (PQresultStatus(Result) != Wanted) qFatal("%s: %s", Sql.c_str(), PQresultErrorMessage(Result));
    return Result;
  }

  PGconn* Handle_;
};

class TPlainMariaDB : public TPlainClient {
 public:
  explicit TPlainMariaDB(const std::string& Address) : Handle_(sample::OpenMariaDB(Address)) {}

  void Execute(const std::string& Sql) override {
    Send(Sql);
    if (MYSQL_RES* Rows = mysql_store_result(Handle_.get())) mysql_free_result(Rows);
  }

  TPlainRun Run(const std::string& Sql, int Columns) override {
    TReading Reading;
    Send(Sql);
    MYSQL_RES* Rows = mysql_use_result(Handle_.get());
    if (Rows == nullptr) Fail(Sql);
    while (const MYSQL_ROW Row = mysql_fetch_row(Rows)) {
      const unsigned long* Lengths = mysql_fetch_lengths(Rows);
      for (int Column = 0; Column < Columns; ++Column) {
        Reading.Read(Row[Column], static_cast<std::int64_t>(Lengths[Column]));
      }
      Reading.EndRow();
    }
    if (mysql_errno(Handle_.get()) != 0) Fail(Sql);
    mysql_free_result(Rows);
    return Reading.Result();
  }

  std::int64_t Number(const std::string& Sql) override {
    Send(Sql);
    MYSQL_RES* Rows = mysql_store_result(Handle_.get());
    const MYSQL_ROW Row = Rows == nullptr ? nullptr : mysql_fetch_row(Rows);
    if (Row == nullptr || Row[0] == nullptr) Fail(Sql);
    const std::int64_t Result = std::stoll(Row[0]);
    mysql_free_result(Rows);
    return Result;
  }

 private:
  void Send(const std::string& Sql) {
    if (mysql_real_query(Handle_.get(), Sql.data(), Sql.size()) != 0) Fail(Sql);
  }
  void Fail(const std::string& Sql) const { qFatal("%s: %s", Sql.c_str(), mysql_error(Handle_.get())); }

  sample::TMariaDBHandle Handle_;
};

}  // namespace

std::unique_ptr<TPlainClient> PlainSQLite(const std::string& FileName) {
  return std::make_unique<TPlainSQLite>(FileName);
}

std::unique_ptr<TPlainClient> PlainPostgreSQL(const std::string& Address) {
  return std::make_unique<TPlainPostgreSQL>(Address);
}

std::unique_ptr<TPlainClient> PlainMariaDB(const std::string& Address) {
  return std::make_unique<TPlainMariaDB>(Address);
}

}  // namespace bench
