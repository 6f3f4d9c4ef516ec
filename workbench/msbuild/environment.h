// The environment variables of this process as initial properties of a project.
#pragma once

#include <string>
#include <vector>

namespace workbench {

/// A name and its plain text.
struct TNamedText {
  std::string Name;
  std::string Text;
};

using TNamedTexts = std::vector<TNamedText>;

/// All environment variables whose names a property reference can hold.
TNamedTexts ProcessEnvironment();

} // namespace workbench
