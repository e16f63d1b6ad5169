// An ODBC driver that is SQLite's, which it is linked to, but for two things: it names another server, as the
// environment variable ZUL_ODBC_SERVER says, and it appends every text that it is given to run, a zero byte behind
// each, to the file that ZUL_ODBC_RECORD names. A driver manager finds all other functions in the driver behind it.
#include <dlfcn.h>
#include <sql.h>
#include <sqlext.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#define ZUL_DRIVER_EXPORT extern "C" __attribute__((visibility("default")))

namespace {

template <typename TFunction>
TFunction* Behind(const char* Name) {
  return reinterpret_cast<TFunction*>(dlsym(RTLD_NEXT, Name));
}

void Record(const SQLCHAR* Text, SQLINTEGER Length) {
  const auto* Bytes = reinterpret_cast<const char*>(Text);
  const std::size_t Count = Length == SQL_NTS ? std::strlen(Bytes) : static_cast<std::size_t>(Length);
  if (std::FILE* File = std::fopen(std::getenv("ZUL_ODBC_RECORD"), "ab")) {
    std::fwrite(Bytes, 1, Count, File);
    std::fputc('\0', File);
    std::fclose(File);
  }
}

}  // namespace

ZUL_DRIVER_EXPORT SQLRETURN SQL_API SQLExecDirect(SQLHSTMT Statement, SQLCHAR* Text, SQLINTEGER Length) {
  Record(Text, Length);
  return Behind<decltype(SQLExecDirect)>("SQLExecDirect")(Statement, Text, Length);
}

ZUL_DRIVER_EXPORT SQLRETURN SQL_API SQLPrepare(SQLHSTMT Statement, SQLCHAR* Text, SQLINTEGER Length) {
  Record(Text, Length);
  return Behind<decltype(SQLPrepare)>("SQLPrepare")(Statement, Text, Length);
}

ZUL_DRIVER_EXPORT SQLRETURN SQL_API SQLGetInfo(SQLHDBC Connection, SQLUSMALLINT Kind, SQLPOINTER Value,
                                               SQLSMALLINT Room, SQLSMALLINT* Length) {
  if (Kind != SQL_DBMS_NAME) return Behind<decltype(SQLGetInfo)>("SQLGetInfo")(Connection, Kind, Value, Room, Length);
  const char* Server = std::getenv("ZUL_ODBC_SERVER");
  if (Value != nullptr) std::snprintf(static_cast<char*>(Value), static_cast<std::size_t>(Room), "%s", Server);
  if (Length != nullptr) *Length = static_cast<SQLSMALLINT>(std::strlen(Server));
  return SQL_SUCCESS;
}
