// The functions that a property may call: "$(Name.Replace('a', 'b'))", "$([MSBuild]::Add(1, 2))".
// None of them runs anything, reads a file's content or asks the network.
#pragma once

#include "workbench/msbuild/environment.h"
#include "workbench/msbuild/values/property_value.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string_view>

namespace workbench {

/// What a function may know of the evaluation that calls it.
struct TFunctionContext {
  std::filesystem::path ProjectDirectory; ///< relative paths start here
  std::filesystem::path ThisDirectory;    ///< of the file that holds the call
  const TNamedTexts* Environment = nullptr;
};

/// One call. A method of a value has it as Self.
struct TFunctionCall {
  const TPropertyValue& Self;
  const std::vector<TPropertyValue>& Arguments;
  const TFunctionContext& Context;

  bool Has(std::size_t argument) const { return argument < Arguments.size(); }
  std::string Text(std::size_t argument) const { return TextOf(Arguments[argument]); }
  double Number(std::size_t argument) const { return NumberOf(Arguments[argument]); }
  std::int64_t Integer(std::size_t argument) const { return IntegerOf(Arguments[argument]); }
};

/// A row of the table.
struct TPropertyFunction {
  std::string_view Owner; ///< the type in front of "::"; of methods: "text", "version" or "list"
  std::string_view Name;
  std::size_t LeastArguments;
  std::size_t MostArguments;
  /// Throws TFunctionError.
  TPropertyValue (*Call)(const TFunctionCall& call);
};

/// Most arguments of a call.
inline constexpr std::size_t MostFunctionArguments = 32;
/// Longest text that a function takes or gives.
inline constexpr std::size_t LongestFunctionText = std::size_t{1024} * 1024;

/// The function of that name, ignoring case, which takes so many arguments; one that takes another
/// number when there is no such; null when there is none of the name.
const TPropertyFunction* FindPropertyFunction(std::string_view owner, std::string_view name,
                                              std::size_t arguments);
/// The owner of a value's methods.
std::string_view MethodOwner(const TPropertyValue& value);

/// The parts of the table.
std::span<const TPropertyFunction> TextFunctions();
std::span<const TPropertyFunction> PathFunctions();
std::span<const TPropertyFunction> NumberFunctions();

} // namespace workbench
