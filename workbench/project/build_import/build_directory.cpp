#include "workbench/project/build_import/build_directory.h"

#include "workbench/project/build_import/cmake_reply.h"
#include "workbench/project/build_import/meson_plan.h"
#include "workbench/text/visible_text.h"

namespace workbench {

TInstallPlan ReadBuildDirectory(const std::filesystem::path& directory,
                                const std::vector<std::string>& components, bool mayRun) {
  const std::filesystem::path full = std::filesystem::absolute(directory).lexically_normal();
  if (IsMesonBuild(full))
    return ReadMesonPlan(full, components);
  if (!IsCMakeBuild(full))
    throw deployment::TInputError("this is no build directory of CMake or Meson: it has neither a "
                                  "CMakeCache.txt nor a directory meson-info",
                                  {full.string(), 0});
  if (!HasCMakeReply(full)) {
    if (!mayRun)
      throw deployment::TInputError(
          "CMake has not told the install rules of this directory yet, and a "
          "dry run does not ask it",
          {full.string(), 0});
    AskCMake(full);
  }
  return ReadCMakeReply(full, components);
}

} // namespace workbench
