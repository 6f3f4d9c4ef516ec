// Property functions of numbers, versions and the system.
#include "package/common/case_fold.h"
#include "workbench/msbuild/property_functions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <compare>

namespace workbench {
namespace {

using TCall = TFunctionCall;
using TValue = TPropertyValue;

double Divided(double left, double right) {
  if (right == 0)
    throw TFunctionError("a number is divided by zero");
  return left / right;
}

bool AreWhole(const TCall& call) {
  return call.Number(0) == std::trunc(call.Number(0)) &&
         call.Number(1) == std::trunc(call.Number(1));
}

// Two whole numbers are divided as such.
TValue Divide(const TCall& call) {
  const double quotient = Divided(call.Number(0), call.Number(1));
  return NumberValue(AreWhole(call) ? std::trunc(quotient) : quotient);
}

TValue Modulo(const TCall& call) {
  Divided(call.Number(0), call.Number(1));
  return NumberValue(std::fmod(call.Number(0), call.Number(1)));
}

std::uint32_t Bits(const TCall& call, std::size_t argument) {
  return static_cast<std::uint32_t>(call.Integer(argument));
}

TValue BitValue(std::uint32_t bits) {
  return static_cast<std::int64_t>(static_cast<std::int32_t>(bits));
}

// Versions as conditions of a build compare them: a "v" in front is left out, and so is what stands
// behind "-" or "+"; missing parts are 0.
TVersionNumber ComparableVersion(std::string text) {
  if (text.starts_with('v') || text.starts_with('V'))
    text.erase(0, 1);
  text.erase(std::min(text.find_first_of("-+"), text.size()));
  if (text.find('.') == std::string::npos)
    text += ".0";
  TVersionNumber version = VersionOf(text);
  std::ranges::replace(version, -1, 0);
  return version;
}

std::strong_ordering CompareVersions(const TCall& call) {
  return ComparableVersion(call.Text(0)) <=> ComparableVersion(call.Text(1));
}

template <std::size_t Part>
TValue VersionPart(const TCall& call) {
  return static_cast<std::int64_t>(std::get<TVersionNumber>(call.Self)[Part]);
}

TValue VersionText(const TCall& call) {
  TVersionNumber version = std::get<TVersionNumber>(call.Self);
  const std::int64_t wanted = call.Has(0) ? call.Integer(0) : 4;
  if (wanted < 0 || wanted > 4)
    throw TFunctionError("a version has no " + std::to_string(wanted) + " parts");
  for (std::size_t i = static_cast<std::size_t>(wanted); i < version.size(); ++i)
    version[i] = -1;
  return TextOf(version);
}

TValue NewVersion(const TCall& call) {
  if (call.Arguments.size() == 1)
    return VersionOf(call.Arguments[0]);
  TVersionNumber version{-1, -1, -1, -1};
  for (std::size_t i = 0; i < call.Arguments.size(); ++i) {
    const std::int64_t part = call.Integer(i);
    if (part < 0 || part > INT32_MAX)
      throw TFunctionError("a part of a version is out of range");
    version[i] = static_cast<int>(part);
  }
  return version;
}

TValue ParseWhole(const TCall& call) {
  return call.Integer(0);
}

TValue EnvironmentVariable(const TCall& call) {
  if (call.Context.Environment) {
    for (const TNamedText& variable : *call.Context.Environment) {
      if (deployment::SameText(variable.Name, call.Text(0)))
        return variable.Text;
    }
  }
  return std::string();
}

constexpr std::array NumberFunctionsTable = std::to_array<TPropertyFunction>({
    {"MSBuild", "Add", 2, 2,
     [](const TCall& call) -> TValue { return NumberValue(call.Number(0) + call.Number(1)); }},
    {"MSBuild", "Subtract", 2, 2,
     [](const TCall& call) -> TValue { return NumberValue(call.Number(0) - call.Number(1)); }},
    {"MSBuild", "Multiply", 2, 2,
     [](const TCall& call) -> TValue { return NumberValue(call.Number(0) * call.Number(1)); }},
    {"MSBuild", "Divide", 2, 2, Divide},
    {"MSBuild", "Modulo", 2, 2, Modulo},
    {"MSBuild", "BitwiseAnd", 2, 2,
     [](const TCall& call) -> TValue { return BitValue(Bits(call, 0) & Bits(call, 1)); }},
    {"MSBuild", "BitwiseOr", 2, 2,
     [](const TCall& call) -> TValue { return BitValue(Bits(call, 0) | Bits(call, 1)); }},
    {"MSBuild", "BitwiseXor", 2, 2,
     [](const TCall& call) -> TValue { return BitValue(Bits(call, 0) ^ Bits(call, 1)); }},
    {"MSBuild", "BitwiseNot", 1, 1,
     [](const TCall& call) -> TValue { return BitValue(~Bits(call, 0)); }},
    {"MSBuild", "IsOSPlatform", 1, 1,
     [](const TCall& call) -> TValue { return deployment::SameText(call.Text(0), "Windows"); }},
    {"MSBuild", "IsOsUnixLike", 0, 0, [](const TCall&) -> TValue { return false; }},
    {"MSBuild", "VersionEquals", 2, 2,
     [](const TCall& call) -> TValue { return std::is_eq(CompareVersions(call)); }},
    {"MSBuild", "VersionNotEquals", 2, 2,
     [](const TCall& call) -> TValue { return std::is_neq(CompareVersions(call)); }},
    {"MSBuild", "VersionGreaterThan", 2, 2,
     [](const TCall& call) -> TValue { return std::is_gt(CompareVersions(call)); }},
    {"MSBuild", "VersionGreaterThanOrEquals", 2, 2,
     [](const TCall& call) -> TValue { return std::is_gteq(CompareVersions(call)); }},
    {"MSBuild", "VersionLessThan", 2, 2,
     [](const TCall& call) -> TValue { return std::is_lt(CompareVersions(call)); }},
    {"MSBuild", "VersionLessThanOrEquals", 2, 2,
     [](const TCall& call) -> TValue { return std::is_lteq(CompareVersions(call)); }},
    {"System.Math", "Abs", 1, 1,
     [](const TCall& call) -> TValue { return NumberValue(std::abs(call.Number(0))); }},
    {"System.Math", "Floor", 1, 1,
     [](const TCall& call) -> TValue { return NumberValue(std::floor(call.Number(0))); }},
    {"System.Math", "Ceiling", 1, 1,
     [](const TCall& call) -> TValue { return NumberValue(std::ceil(call.Number(0))); }},
    {"System.Math", "Truncate", 1, 1,
     [](const TCall& call) -> TValue { return NumberValue(std::trunc(call.Number(0))); }},
    {"System.Math", "Round", 1, 1,
     [](const TCall& call) -> TValue { return NumberValue(std::nearbyint(call.Number(0))); }},
    {"System.Math", "Max", 2, 2,
     [](const TCall& call)
         -> TValue { return NumberValue(std::max(call.Number(0), call.Number(1))); }},
    {"System.Math", "Min", 2, 2,
     [](const TCall& call)
         -> TValue { return NumberValue(std::min(call.Number(0), call.Number(1))); }},
    {"System.Math", "Pow", 2, 2,
     [](const TCall& call)
         -> TValue { return NumberValue(std::pow(call.Number(0), call.Number(1))); }},
    {"System.Int32", "Parse", 1, 1, ParseWhole},
    {"System.Int64", "Parse", 1, 1, ParseWhole},
    {"System.UInt32", "Parse", 1, 1, ParseWhole},
    {"System.UInt64", "Parse", 1, 1, ParseWhole},
    {"System.Convert", "ToInt32", 1, 1, ParseWhole},
    {"System.Convert", "ToInt64", 1, 1, ParseWhole},
    {"System.Double", "Parse", 1, 1,
     [](const TCall& call) -> TValue { return NumberValue(call.Number(0)); }},
    {"System.Version", "Parse", 1, 1,
     [](const TCall& call) -> TValue { return VersionOf(call.Arguments[0]); }},
    {"System.Version", "new", 1, 4, NewVersion},
    {"version", "Major", 0, 0, VersionPart<0>},
    {"version", "Minor", 0, 0, VersionPart<1>},
    {"version", "Build", 0, 0, VersionPart<2>},
    {"version", "Revision", 0, 0, VersionPart<3>},
    {"version", "ToString", 0, 1, VersionText},
    {"System.Environment", "GetEnvironmentVariable", 1, 1, EnvironmentVariable},
});

} // namespace

std::span<const TPropertyFunction> NumberFunctions() {
  return NumberFunctionsTable;
}

} // namespace workbench
