// What other tools say of a build: solutions, and the reply of CMake. What is taken from them fits
// a list, and what is remembered of a build reads back.
#include "fuzz/fuzz_input.h"
#include "fuzz/scratch_directory.h"
#include "package/common/errors.h"
#include "workbench/project/build_import/build_record.h"
#include "workbench/project/build_import/cmake_reply.h"
#include "workbench/project/cpp/solution.h"

#include <array>

namespace workbench::fuzz {
namespace {

void CheckSolution(std::string_view text) {
  const std::filesystem::path file = "/tree/solution.sln";
  try {
    const TSolution solution = TSolution::Parse(text, file);
    for (const TSolutionProject& project : solution.Projects()) {
      Require(project.File.is_absolute(), "a project of a solution has a full path");
      Require(solution.FindProject(project.File) == &project, "a project is found by its file");
      const TSolutionTarget target{"Debug", "Win32"};
      const auto same = solution.TargetOf(project, project, target);
      Require(!same || same->Configuration.find('|') == std::string::npos,
              "a configuration ends at the bar");
    }
  } catch (const deployment::TInputError& error) {
    Require(error.Place().File == file, "a refusal names the solution");
  }
}

void CheckPlan(const TInstallPlan& plan) {
  Require(!plan.Configurations.empty(), "a build has a configuration");
  for (const TInstalledFile& file : plan.Files) {
    const std::filesystem::path directory = file.Directory;
    Require(directory.is_relative(), "a destination is below the prefix", file.Directory);
    for (const auto& part : directory)
      Require(part != "..", "a destination does not climb", file.Directory);
    Require(!file.Name.empty() && file.Name.find_first_of("/\\") == std::string::npos,
            "a file has a name of its own", file.Name);
    Require(!file.Component.empty(), "a file counts to a component");
  }
  std::vector<TWarning> warnings;
  const TBuildRecord record{"build", "Linux64", {"Runtime"}, TakenFiles(plan, "/work", warnings)};
  const TBuildRecord again = RecordFrom(ItemsOf(record), {"input", 1});
  Require(again.Files == record.Files && again.Components == record.Components &&
              again.Directory == record.Directory && again.Platform == record.Platform,
          "what is remembered of a build reads back");
}

// Rules for whole directories, and names that lead out of the scratch directory, would be looked
// for on this machine.
bool LooksAround(std::string_view text) {
  return text.find("\"directory\"") != std::string_view::npos ||
         text.find("\"/") != std::string_view::npos || text.find("..") != std::string_view::npos ||
         text.find('\\') != std::string_view::npos;
}

// The input is the files of a reply, one on each line; the first one is the index.
void CheckReply(TFuzzInput input) {
  static const TScratchDirectory scratch;
  static const auto reply = scratch.Directory(".cmake/api/v1/reply");
  constexpr std::array<const char*, 4> Names{"index-1.json", "model.json", "directory.json",
                                             "target.json"};
  scratch.Write("CMakeCache.txt", "\nCMAKE_INSTALL_PREFIX:PATH=/usr\n");
  for (const char* name : Names)
    TScratchDirectory::WriteFile(reply / name, input.Line());
  try {
    CheckPlan(ReadCMakeReply(scratch.Path(), {}));
  } catch (const deployment::TInputError& error) {
    Require(!error.Place().File.empty(), "a refusal names the file", error.what());
  }
}

} // namespace
} // namespace workbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace workbench::fuzz;
  const std::string_view text = TFuzzInput(data, size).Rest();
  if (!text.starts_with('{'))
    CheckSolution(text);
  else if (!LooksAround(text))
    CheckReply(TFuzzInput(data, size));
  return 0;
}
