#pragma once

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "catalog/zulcatalog_export.h"
#include "toolkit/Set.h"

namespace catalog {

enum class TArgKind { Text, Boolean, Integer, Choice, Choices };

/// One input argument of a pick function, as a user of the programs gives it.
struct TArg {
  std::string Name;  ///< an option's name without its hyphens, such as "entity"
  TArgKind Kind = TArgKind::Text;
  std::string Help;                 ///< one line
  std::vector<std::string> Values;  ///< of a choice: in the order of the enumeration's ordinals
  std::string Default;              ///< as it would be typed
  bool InOut = false;               ///< the key goes to the same argument, which keeps this text when nothing is chosen
  /// A value for which the sample company has something to list, where the default would list nothing or an error.
  std::string Example;
};

ZULCATALOG_EXPORT TArg TextArg(std::string Name, std::string Help, std::string Default = {});
ZULCATALOG_EXPORT TArg InOutArg(std::string Name, std::string Help);
ZULCATALOG_EXPORT TArg BooleanArg(std::string Name, std::string Help, bool Default = false);
ZULCATALOG_EXPORT TArg IntegerArg(std::string Name, std::string Help, std::int32_t Default = 0);
ZULCATALOG_EXPORT TArg ChoiceArg(std::string Name, std::string Help, std::vector<std::string> Values,
                                 std::string Default);
/// Any number of the values, given as "one,other".
ZULCATALOG_EXPORT TArg ChoicesArg(std::string Name, std::string Help, std::vector<std::string> Values,
                                  std::string Default = {});

/// The argument with an example.
ZULCATALOG_EXPORT TArg Such(TArg Arg, std::string Example);

/// What somebody gave for an argument does not do; `what()` says why, ready to be shown.
class ZULCATALOG_EXPORT EArgError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// It was given for an argument that there is not.
class ZULCATALOG_EXPORT EUnknownArg : public EArgError {
 public:
  using EArgError::EArgError;
};

/// It was given for an argument that has its value already.
class ZULCATALOG_EXPORT EArgGivenTwice : public EArgError {
 public:
  using EArgError::EArgError;
};

/// The one way of writing a value that was given for the argument. Throws `EArgError` for what is no value of it.
ZULCATALOG_EXPORT std::string CheckedValue(const TArg& Arg, const std::string& Value);

/// The values of one call's arguments. The definitions are borrowed and must live longer.
class ZULCATALOG_EXPORT TArgs {
 public:
  /// Every argument at its default.
  explicit TArgs(const std::vector<TArg>& Definitions);
  explicit TArgs(std::vector<TArg>&&) = delete;  // they would be gone at once

  /// Throws `EUnknownArg` for a name that there is not, `EArgGivenTwice` for one that was set already, and `EArgError`
  /// for a value that is none.
  void Set(const std::string& Name, const std::string& Value);

  // Each throws `std::logic_error` for an argument that there is not or that is of another kind.
  const std::string& Text(const std::string& Name) const;
  bool Boolean(const std::string& Name) const;
  std::int32_t Integer(const std::string& Name) const;
  int Choice(const std::string& Name) const;                ///< index of the value
  std::vector<int> Choices(const std::string& Name) const;  ///< indexes, ascending

  /// A choice as the enumeration whose ordinals are the indexes of its values.
  template <typename TEnum>
  TEnum Enum(const std::string& Name) const {
    return static_cast<TEnum>(Choice(Name));
  }
  template <typename TEnum>
  toolkit::TSet<TEnum> EnumSet(const std::string& Name) const {
    toolkit::TSet<TEnum> Result;
    for (const int Index : Choices(Name)) Result.Include(static_cast<TEnum>(Index));
    return Result;
  }

  /// The arguments that are not at their default, as options; texts in quotation marks.
  std::string Describe() const;

 private:
  const TArg* Find(const std::string& Name) const;
  const std::string& Value(const std::string& Name, TArgKind Kind) const;

  const std::vector<TArg>& Definitions_;
  std::map<std::string, std::string> Set_;  // in the one way of writing each value
};

}  // namespace catalog
