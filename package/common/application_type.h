// Kinds of program: from what a project calls itself to the few kinds that templates know.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// The kind of program ("Application", "Console", "Library" or "Package") behind a project's
/// application type, compared exactly. A type that is in no row, an empty one too, is its own kind.
/// The view points into a constant or into `applicationType`.
std::string_view MapApplicationType(std::string_view applicationType);

/// Every application type that is in a row, in the order of the rows.
std::vector<std::string> ApplicationTypes();

} // namespace deployment
