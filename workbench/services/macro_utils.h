// "$(NAME)" in stored texts, expanded by parameters, by the root and by a project.
#pragma once

#include "package/host/api/macroutils.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace workbench {

/// Names of macros are compared ignoring case. A value may hold the root macro, which is expanded
/// after the others.
class TMacroUtils : public deployment::IMacroUtils {
public:
  explicit TMacroUtils(const std::filesystem::path& root);

  std::string ExpandMacros(std::string_view text, std::string_view parameters) const override;
  std::string ExpandRootMacro(std::string_view text, std::string_view parameters) const override;
  /// Knows "Config", "Configuration" and "Platform" of the target, and the project's options for
  /// it by their names.
  std::string ExpandRootMacro(std::string_view text, deployment::ICustomProject& project,
                              std::string_view configuration,
                              std::string_view platform) const override;

private:
  std::string ExpandRoot(std::string_view text) const;

  std::string FRoot;
};

} // namespace workbench
