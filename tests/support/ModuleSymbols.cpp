#include "support/ModuleSymbols.h"

#include <cxxabi.h>

#include <QProcess>
#include <QRegularExpression>
#include <cstdlib>
#include <memory>

namespace support {

namespace {

std::string Demangled(const std::string& Symbol) {
  int Status = 0;
  const std::unique_ptr<char, decltype(&std::free)> Name(abi::__cxa_demangle(Symbol.c_str(), nullptr, nullptr, &Status),
                                                         &std::free);
  return Name != nullptr ? Name.get() : std::string();
}

struct TSymbol {
  std::string Symbol;
  std::string Meaning;
};

// What the module defines and exports.
const std::vector<TSymbol>& Symbols() {
  static const std::vector<TSymbol> All = [] {
    QProcess Process;
    Process.start(QStringLiteral("nm"), {"-D", "--defined-only", "--format=just-symbols", QStringLiteral(ZUL_MODULE)});
    if (!Process.waitForFinished() || Process.exitCode() != 0) qFatal("nm does not run.");
    std::vector<TSymbol> Result;
    for (const QByteArray& Line : Process.readAllStandardOutput().split('\n')) {
      const std::string Symbol = Line.trimmed().toStdString();
      if (std::string Meaning = Demangled(Symbol); !Meaning.empty()) Result.push_back({Symbol, std::move(Meaning)});
    }
    return Result;
  }();
  return All;
}

// The first group of the pattern in a symbol's meaning; empty when it does not match.
std::string Matched(const TSymbol& Symbol, const QRegularExpression& Pattern) {
  return Pattern.match(QString::fromStdString(Symbol.Meaning)).captured(1).toStdString();
}

}  // namespace

const std::vector<TExportedFunction>& ExportedPickFunctions() {
  static const std::vector<TExportedFunction> All = [] {
    static const QRegularExpression Function(QStringLiteral("^(u\\w+::Call\\w+)(?:\\[[^]]*\\])?\\("));
    std::vector<TExportedFunction> Result;
    for (const TSymbol& Each : Symbols()) {
      if (std::string Name = Matched(Each, Function); !Name.empty()) {
        Result.push_back({std::move(Name), Each.Meaning, Each.Symbol});
      }
    }
    return Result;
  }();
  return All;
}

const std::set<std::string>& ExportedDialogs() {
  static const std::set<std::string> All = [] {
    static const QRegularExpression Dialog(QStringLiteral("^(u\\w+::Tfrm\\w+)::staticMetaObject$"));
    std::set<std::string> Result;
    for (const TSymbol& Each : Symbols()) {
      if (std::string Name = Matched(Each, Dialog); !Name.empty()) Result.insert(std::move(Name));
    }
    return Result;
  }();
  return All;
}

std::string UnitOf(const std::string& Name) {
  return Name.substr(0, Name.find("::"));
}

}  // namespace support
