// zulsample: writes the sample company's database.
#include <charconv>
#include <cstdio>
#include <exception>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "apps/zulsample/Manual.h"
#include "sample/SampleCompany.h"

namespace {

constexpr int Done = 0;
constexpr int Failed = 1;
constexpr int WrongUsage = 2;

struct TUsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct TCommand {
  sample::TOptions Options;
  std::string FileName;
  std::string Address;
  bool Help = false;
  bool Version = false;
};

template <typename T>
T ReadNumber(std::string_view Option, std::string_view Text) {
  T Result = 0;
  const auto [End, Code] = std::from_chars(Text.data(), Text.data() + Text.size(), Result);
  if (Code != std::errc() || End != Text.data() + Text.size()) {
    throw TUsageError(std::string(Option) + " takes a whole number, not '" + std::string(Text) + "'.");
  }
  return Result;
}

std::int64_t ReadScale(std::string_view Text) {
  const auto Scale = ReadNumber<std::int64_t>("--scale", Text);
  if (Scale < 1 || Scale > sample::MaxScale) {
    throw TUsageError("--scale takes a number from 1 to " + std::to_string(sample::MaxScale) + ".");
  }
  return Scale;
}

void TakeFileName(TCommand& Command, std::string_view Argument) {
  if (Argument.starts_with('-')) {
    throw TUsageError("There is no option " + std::string(Argument) + ".");
  }
  if (!Command.FileName.empty()) {
    throw TUsageError("Only one file can be written.");
  }
  Command.FileName = Argument;
}

void TakeAddress(TCommand& Command, std::string_view Address) {
  const bool IsPostgreSQL = Address.starts_with("postgresql://") || Address.starts_with("postgres://");
  if (!IsPostgreSQL && !sample::IsMariaDBAddress(Address)) {
    throw TUsageError("--db takes the postgresql:// or mysql:// address of a server's database.");
  }
  Command.Address = Address;
}

void CheckTarget(const TCommand& Command) {
  if (Command.FileName.empty() && Command.Address.empty()) {
    throw TUsageError("No file is named.");
  }
  if (!Command.FileName.empty() && !Command.Address.empty()) {
    throw TUsageError("Only one database can be written: a file or a server's.");
  }
  if (Command.Options.Refresh && Command.FileName.empty()) {
    throw TUsageError("--refresh is for a file.");
  }
}

TCommand ReadCommand(std::span<char* const> Arguments) {
  TCommand Command;
  for (std::size_t At = 0; At < Arguments.size(); ++At) {
    const std::string_view Argument = Arguments[At];
    const auto Value = [&] {
      if (At + 1 == Arguments.size()) {
        throw TUsageError(std::string(Argument) + (Argument == "--db" ? " takes an address." : " takes a number."));
      }
      return std::string_view(Arguments[++At]);
    };
    if (Argument == "--help" || Argument == "-h") {
      Command.Help = true;
    } else if (Argument == "--refresh") {
      Command.Options.Refresh = true;
    } else if (Argument == "--version") {
      Command.Version = true;
    } else if (Argument == "--scale") {
      Command.Options.Scale = ReadScale(Value());
    } else if (Argument == "--seed") {
      Command.Options.Seed = ReadNumber<std::uint64_t>("--seed", Value());
    } else if (Argument == "--db") {
      TakeAddress(Command, Value());
    } else if (Argument == "--overwrite") {
      Command.Options.Overwrite = true;
    } else {
      TakeFileName(Command, Argument);
    }
  }
  if (!Command.Help && !Command.Version) {
    CheckTarget(Command);
  }
  return Command;
}

int Run(std::span<char* const> Arguments) {
  const TCommand Command = ReadCommand(Arguments);
  if (Command.Help || Command.Version) {
    const manual::TManual& Manual = zulsample::Manual();
    std::fputs((Command.Help ? manual::HelpText(Manual) : manual::VersionText(Manual)).c_str(), stdout);
  } else if (!Command.Address.empty()) {
    sample::CreateCompanyOnServer(Command.Address, Command.Options);
  } else {
    sample::CreateCompany(Command.FileName, Command.Options);
  }
  return Done;
}

}  // namespace

int main(int ArgumentCount, char* Arguments[]) {
  try {
    const std::span<char* const> All(Arguments, static_cast<std::size_t>(ArgumentCount));
    return Run(All.empty() ? All : All.subspan(1));
  } catch (const TUsageError& Error) {
    std::fprintf(stderr, "zulsample: %s\nzulsample --help says how it is used.\n", Error.what());
    return WrongUsage;
  } catch (const std::exception& Error) {
    std::fprintf(stderr, "zulsample: %s\n", Error.what());
    return Failed;
  }
}
