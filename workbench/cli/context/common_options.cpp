#include "workbench/cli/context/common_options.h"

#include <array>

namespace workbench {
namespace {

constexpr std::array<TExitStatusText, 10> Statuses{{
    {"0", "done, or nothing to do"},
    {"1", "the work failed"},
    {"2", "wrong usage"},
    {"3", "an input cannot be read"},
    {"4", "the project cannot be reconciled here"},
    {"5", "no connection"},
    {"6", "the project's commands have no consent"},
    {"7", "--check: something would change"},
    {"8", "the target is not what was expected"},
    {"130, 143", "interrupted"},
}};

} // namespace

void AddCommonOptions(IOptions& declared, TCommonOptions& options) {
  declared.Text("-c,--config", options.Configuration, "Build configuration; \"\" is \"Base\"")
      .ValueName("NAME");
  declared.Text("-p,--platform", options.Platform, "Target platform, or \"all\"").ValueName("NAME");
  declared.Flag("--json", options.Json, "Print one JSON document");
  declared.Flag("-q,--quiet", options.Quiet,
                "Print the document of --json and errors only; ask nothing");
  declared.Flag("--no-color", options.NoColor, "Print without colours");
  declared
      .Texts("--property", options.Properties,
             "Evaluate the project as a build that is given this property; repeatable")
      .ValueName("NAME=VALUE");
  declared.Text("--root", options.Root, "Directory that holds ObjRepos").ValueName("DIR");
}

std::span<const TExitStatusText> ExitStatusTexts() {
  return Statuses;
}

std::string ExitStatusLine() {
  std::string line = "Exit status: ";
  for (const TExitStatusText& each : Statuses) {
    line.append(each.Status).append(" ").append(each.Meaning);
    line += &each == &Statuses.back() ? "." : "; ";
  }
  return line;
}

} // namespace workbench
