#include "workbench/services/macro_utils.h"

#include "package/common/case_fold.h"
#include "package/common/delimited_list.h"
#include "workbench/files/machine_path.h"
#include "workbench/services/variable_references.h"

namespace workbench {
namespace {

using deployment::SameText;

constexpr std::string_view RootMacro = "ZELK";

std::optional<std::string> ValueOf(std::string_view name, std::string_view parameters) {
  for (const std::string_view item : deployment::SplitDelimited(parameters)) {
    const std::size_t sign = item.find('=');
    if (sign != std::string_view::npos && SameText(item.substr(0, sign), name))
      return std::string(item.substr(sign + 1));
  }
  return std::nullopt;
}

std::optional<std::string> ValueOf(std::string_view name, deployment::ICustomProject& project,
                                   std::string_view configuration, std::string_view platform) {
  if (SameText(name, RootMacro))
    return std::nullopt;
  if (SameText(name, "Config") || SameText(name, "Configuration"))
    return std::string(configuration);
  if (SameText(name, "Platform"))
    return std::string(platform);
  const auto* options = project.GetOptionsConfigurations();
  std::string value = options ? options->GetOptionValue(configuration, platform, name) : "";
  return value.empty() ? std::nullopt : std::optional(std::move(value));
}

} // namespace

TMacroUtils::TMacroUtils(const std::filesystem::path& root) : FRoot(ToStoredPath(root)) {}

std::string TMacroUtils::ExpandMacros(std::string_view text, std::string_view parameters) const {
  return ReplaceVariables(
      text, [parameters](std::string_view name) { return ValueOf(name, parameters); });
}

std::string TMacroUtils::ExpandRootMacro(std::string_view text, std::string_view parameters) const {
  return ExpandRoot(ExpandMacros(text, parameters));
}

std::string TMacroUtils::ExpandRootMacro(std::string_view text, deployment::ICustomProject& project,
                                         std::string_view configuration,
                                         std::string_view platform) const {
  return ExpandRoot(ReplaceVariables(text, [&](std::string_view name) {
    return ValueOf(name, project, configuration, platform);
  }));
}

std::string TMacroUtils::ExpandRoot(std::string_view text) const {
  return ReplaceVariables(text, [this](std::string_view name) {
    return SameText(name, RootMacro) ? std::optional(FRoot) : std::nullopt;
  });
}

} // namespace workbench
