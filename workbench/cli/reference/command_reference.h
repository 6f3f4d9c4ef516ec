// What a command takes, as data: the same declarations that the parser reads.
#pragma once

#include "workbench/cli/context/command.h"

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// One option or argument of a command.
struct TOptionReference {
  std::vector<std::string> Names = {}; ///< "-p", "--platform"; one word without "-" for an argument
  std::string ValueName = {};          ///< such as "NAME"; empty for an option without a value
  std::vector<std::string> Choices = {}; ///< the only values there are; empty: any
  std::string Help = {};                 ///< a sentence without its stop
  std::string Default = {};              ///< worth being told; else empty
  bool IsRequired = false;
  bool IsRepeatable = false;
  bool IsHidden = false;

  bool IsArgument() const { return !Names.front().starts_with('-'); }
  bool HasName(std::string_view name) const;
  /// The longest name, without which no option is.
  const std::string& LongName() const { return Names.back(); }
};

/// One command.
struct TCommandReference {
  std::string Name;
  std::string Summary;
  std::vector<TOptionReference> Options; ///< those of its own, arguments among them, as declared
  std::string Remarks;                   ///< what the help says below the options; may be empty
};

/// What the command declares.
TCommandReference ReferenceOf(ICommand& command);
/// What every command takes, those that print a text among them.
std::vector<TOptionReference> CommonOptionReferences();

} // namespace workbench
