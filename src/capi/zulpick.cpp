#include "capi/zulpick.h"

#include <QSqlDatabase>
#include <QString>
#include <algorithm>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "ads/EDatabaseError.h"
#include "catalog/Catalog.h"
#include "catalog/Near.h"
#include "pickbase/UserInterface.h"
#include "zulcommon/Text.h"

struct zul_result {
  using TRow = std::vector<std::string>;

  int Code = ZUL_OK;
  std::string Message = {};
  std::vector<std::string> Names = {};  ///< of a row's values
  std::vector<TRow> Rows = {};
  std::string Text = {};
};

namespace {

// There must be memory for the answer that there is none: the message is short enough to stand in the object itself.
zul_result OutOfMemory{ZUL_ERROR_MEMORY, "Out of memory."};

/// What the caller gave cannot be taken.
class ERefused : public std::runtime_error {
 public:
  ERefused(int Code, const std::string& Message) : std::runtime_error(Message), Code_(Code) {}
  int Code() const { return Code_; }

 private:
  int Code_;
};

// A message may hold what a server said in another encoding.
std::string ShownText(const char* Text) {
  return zulcommon::IsUtf8(Text) ? Text : QString::fromUtf8(Text).toStdString();
}

zul_result Failure(int Code, const char* Message) {
  return {Code, ShownText(Message)};
}

/// The exception that is being handled, as a result.
zul_result CaughtFailure() {
  try {
    throw;
  } catch (const ERefused& Error) {
    return Failure(Error.Code(), Error.what());
  } catch (const catalog::EArgGivenTwice& Error) {
    return Failure(ZUL_ERROR_ARGUMENT_TWICE, Error.what());
  } catch (const catalog::EArgError& Error) {
    return Failure(ZUL_ERROR_VALUE, Error.what());
  } catch (const pickbase::ENoApplication& Error) {
    return Failure(ZUL_ERROR_APPLICATION, Error.what());
  } catch (const pickbase::EOtherThread& Error) {
    return Failure(ZUL_ERROR_THREAD, Error.what());
  } catch (const ads::EQueryEnded& Error) {
    return Failure(ZUL_ERROR_QUERY_ENDED, Error.what());
  } catch (const ads::EConnectionLost& Error) {
    return Failure(ZUL_ERROR_LOST, Error.what());
  } catch (const ads::EDatabaseError& Error) {
    return Failure(ZUL_ERROR_DATABASE, Error.what());
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& Error) {
    return Failure(ZUL_ERROR_OTHER, Error.what());
  } catch (...) {
    return Failure(ZUL_ERROR_OTHER, "Something was thrown that is no std::exception.");
  }
}

/// Runs what makes a result; whatever it throws becomes one, too.
template <typename TMake>
zul_result* Answer(TMake Make) noexcept {
  try {
    try {
      return new zul_result(Make());
    } catch (...) {
      return new zul_result(CaughtFailure());
    }
  } catch (...) {  // there is no memory for what went wrong
    return &OutOfMemory;
  }
}

std::string Given(const char* Text, const std::string& What) {
  if (Text == nullptr) throw ERefused(ZUL_ERROR_NULL, What + " is null.");
  if (!zulcommon::IsUtf8(Text)) throw ERefused(ZUL_ERROR_UTF8, What + " is not UTF-8.");
  return Text;
}

zul_result List(std::vector<std::string> Names, std::vector<zul_result::TRow> Rows, int Code = ZUL_OK) {
  std::string Text;
  for (std::size_t Row = 0; Row < Rows.size(); ++Row) Text += (Row == 0 ? "" : "\n") + Rows[Row].front();
  return {Code, {}, std::move(Names), std::move(Rows), std::move(Text)};
}

const catalog::TPick& FindPick(const char* GivenName) {
  const std::string Name = Given(GivenName, "The pick's name");
  const catalog::TPick* Pick = catalog::FullCatalog().Find(Name);
  if (Pick != nullptr) return *Pick;
  throw ERefused(ZUL_ERROR_PICK, catalog::NoSuchPick(catalog::FullCatalog(), Name));
}

void SetArgument(catalog::TArgs& Args, const catalog::TPick& Pick, const std::string& Name, const std::string& Value) {
  try {
    Args.Set(Name, Value);
  } catch (const catalog::EUnknownArg&) {
    std::vector<std::string> Names;
    for (const catalog::TArg& Each : Pick.Args) Names.push_back(Each.Name);
    throw ERefused(ZUL_ERROR_ARGUMENT, "The pick " + Pick.Name + " has no argument \"" + Name + "\"." +
                                           catalog::DidYouMean(catalog::NearNames(Name, Names)));
  }
}

catalog::TArgs ReadArguments(const catalog::TPick& Pick, const char* const* Names, const char* const* Values,
                             std::size_t Count) {
  catalog::TArgs Args(Pick.Args);
  if (Count > 0 && Names == nullptr) throw ERefused(ZUL_ERROR_NULL, "The array of the arguments' names is null.");
  if (Count > 0 && Values == nullptr) throw ERefused(ZUL_ERROR_NULL, "The array of the arguments' values is null.");
  for (std::size_t Index = 0; Index < Count; ++Index) {
    const std::string Name = Given(Names[Index], "The name of argument " + std::to_string(Index + 1));
    SetArgument(Args, Pick, Name, Given(Values[Index], "The value of " + Name));
  }
  return Args;
}

QSqlDatabase FindConnection(const char* GivenName) {
  const QString Name = GivenName == nullptr ? QString::fromLatin1(QSqlDatabase::defaultConnection)
                                            : QString::fromStdString(Given(GivenName, "The connection's name"));
  const std::string Quoted = '"' + Name.toStdString() + '"';
  if (!QSqlDatabase::contains(Name)) {
    throw ERefused(ZUL_ERROR_CONNECTION, GivenName == nullptr ? "Qt has no default database connection."
                                                              : "Qt has no database connection " + Quoted + ".");
  }
  // Qt keeps a connection from other threads by giving back one that was never made.
  const QSqlDatabase Database = QSqlDatabase::database(Name, false);
  if (Database.driverName().isEmpty()) {
    throw ERefused(ZUL_ERROR_THREAD, "The database connection " + Quoted + " belongs to another thread.");
  }
  return Database;
}

/// The keys that the caller is to get: what else the outputs hold when nothing was chosen says nothing.
std::vector<zul_result::TRow> KeyRows(const catalog::TPick& Pick, const catalog::TResult& Result) {
  const bool HasInOut =
      std::any_of(Pick.Args.begin(), Pick.Args.end(), [](const catalog::TArg& Arg) { return Arg.InOut; });
  std::vector<zul_result::TRow> Rows;
  if (!Result.Chosen && !HasInOut) return Rows;
  for (const std::string& Key : Result.Keys) {
    if (!zulcommon::IsUtf8(Key)) throw ERefused(ZUL_ERROR_UTF8, "The key that was chosen is not UTF-8.");
    Rows.push_back({Key});
  }
  return Rows;
}

zul_result CallPick(const catalog::TPick& Pick, const catalog::TArgs& Args, const QSqlDatabase& Database) {
  const bool WasOpen = Database.isOpen();
  ads::TAdsConnection Connection(Database);
  try {
    const catalog::TResult Result = Pick.Call(&Connection, Args);
    return List({"key"}, KeyRows(Pick, Result), Result.Chosen ? ZUL_OK : ZUL_NOTHING_CHOSEN);
  } catch (const ads::EConnectionLost& Error) {
    if (WasOpen) throw;
    throw ERefused(ZUL_ERROR_NOT_OPEN, Error.what());
  }
}

const char* KindName(catalog::TArgKind Kind) {
  switch (Kind) {
    case catalog::TArgKind::Text:
      return "text";
    case catalog::TArgKind::Boolean:
      return "boolean";
    case catalog::TArgKind::Integer:
      return "integer";
    case catalog::TArgKind::Choice:
      return "choice";
    case catalog::TArgKind::Choices:
      return "choices";
  }
  return "";
}

std::string ValueLines(const catalog::TArg& Arg) {
  if (Arg.Kind == catalog::TArgKind::Boolean) return "yes\nno";
  std::string Lines;
  for (const std::string& Value : Arg.Values) Lines += (Lines.empty() ? "" : "\n") + Value;
  return Lines;
}

}  // namespace

const char* zul_version() noexcept {
  return ZUL_VERSION;
}

int zul_version_number() noexcept {
  return ZUL_VERSION_MAJOR * 10000 + ZUL_VERSION_MINOR * 100 + ZUL_VERSION_PATCH;
}

zul_result* zul_pick(const char* connection, const char* pick, const char* const* names, const char* const* values,
                     size_t count) noexcept {
  return Answer([&] {
    const catalog::TPick& Pick = FindPick(pick);
    const catalog::TArgs Args = ReadArguments(Pick, names, values, count);
    pickbase::RequireUserInterface();
    return CallPick(Pick, Args, FindConnection(connection));
  });
}

zul_result* zul_list_picks() noexcept {
  return Answer([] {
    std::vector<zul_result::TRow> Rows;
    for (const catalog::TPick& Pick : catalog::FullCatalog().All()) Rows.push_back({Pick.Name, Pick.Group, Pick.Help});
    return List({"name", "group", "help"}, std::move(Rows));
  });
}

zul_result* zul_list_arguments(const char* pick) noexcept {
  return Answer([&] {
    std::vector<zul_result::TRow> Rows;
    for (const catalog::TArg& Arg : FindPick(pick).Args) {
      Rows.push_back({Arg.Name, KindName(Arg.Kind), Arg.Help, ValueLines(Arg), Arg.Default, Arg.InOut ? "yes" : "no"});
    }
    return List({"name", "kind", "help", "values", "default", "in-out"}, std::move(Rows));
  });
}

int zul_result_code(const zul_result* result) noexcept {
  return result == nullptr ? int{ZUL_ERROR_NULL} : result->Code;
}

const char* zul_result_message(const zul_result* result) noexcept {
  return result == nullptr ? "The result is null." : result->Message.c_str();
}

const char* zul_result_text(const zul_result* result) noexcept {
  return result == nullptr ? "" : result->Text.c_str();
}

size_t zul_result_count(const zul_result* result) noexcept {
  return result == nullptr ? 0 : result->Rows.size();
}

const char* zul_result_value(const zul_result* result, size_t row, const char* name) noexcept {
  if (result == nullptr || name == nullptr || row >= result->Rows.size()) return nullptr;
  const auto Found = std::find(result->Names.begin(), result->Names.end(), name);
  if (Found == result->Names.end()) return nullptr;
  return result->Rows[row][static_cast<std::size_t>(Found - result->Names.begin())].c_str();
}

void zul_result_free(zul_result* result) noexcept {
  if (result != &OutOfMemory) delete result;
}
