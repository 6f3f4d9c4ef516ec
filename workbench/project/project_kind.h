// What kind of program a project builds, and what the project says to name it.
#pragma once

#include <string_view>

namespace workbench {

/// The personality of an MSBuild C++ project that names none.
inline constexpr std::string_view ForeignPersonality = "Corvane.Personality";
/// The personality whose options name a kind of output of their own.
inline constexpr std::string_view OutputKindPersonality = "Corvane.Personality";

/// The kind of an MSBuild C++ project's ConfigurationType; the type itself for one that builds no
/// program or library.
std::string_view ApplicationTypeOf(std::string_view configurationType);

} // namespace workbench
