#include "package/reconcile/module_search.h"

#include "package/common/delimited_list.h"
#include "package/common/path_text.h"

#include <exception>
#include <utility>

namespace deployment {
namespace {

// Numbers of path settings, as the environment services of the personalities know them.
constexpr int LibraryPath = 1;
constexpr int ToolChainPath = 104;

constexpr std::string_view OSXPlatform = "OSX32";

} // namespace

TModuleSearch::TModuleSearch(const TReconcileTarget& target, std::string_view platform,
                             TWrongImageHandler wrongImage)
    : FTarget(target), FPlatform(platform), FWrongImage(std::move(wrongImage)) {
  // Modules of other platforms are known by their names alone.
  if (FPlatform != "Win32" && FPlatform != "Win64" && FPlatform != OSXPlatform)
    return;
  try {
    AddPlaces("$(ZELK)\\Redist\\" + FPlatform);
    if (FPlatform == "Win32")
      AddPlaces("$(ZELK)\\bin");
    if (FPlatform == "Win64")
      AddPlaces("$(ZELK)\\bin64");
    AddPersonalityPlaces();
    if (FPlatform != OSXPlatform)
      AddPlaces(FTarget.Services().GetFileUtils().GetEnvironmentVariable("PATH"));
  } catch (const std::exception&) {
    // Half of the places could lead to another module of the name than all of them.
    FPlaces.clear();
  }
}

// The macros of the project stand for its active target; those of this one come first.
std::string TModuleSearch::ExpandForTarget(std::string_view text) const {
  return FTarget.Services().GetMacroUtils().ExpandRootMacro(text, FTarget.Project(),
                                                            FTarget.Configuration(), FPlatform);
}

void TModuleSearch::AddPlaces(std::string_view list) {
  for (const std::string_view directory : SplitDelimited(list)) {
    if (directory.empty())
      continue;
    std::string place = WithTrailingDelimiter(directory);
    std::string expanded = ExpandForTarget(place);
    FPlaces.push_back({std::move(place), std::move(expanded)});
  }
}

void TModuleSearch::AddPersonalityPlaces() {
  const auto addSetting = [this](std::string_view personality, int setting) {
    if (const IEnvironmentService* service = FTarget.EnvironmentService(personality))
      AddPlaces(service->GetPathSetting(setting, FPlatform));
  };
  if (FTarget.Personality() == ArdentPersonality)
    addSetting(ArdentPersonality, LibraryPath);
  if (FTarget.Personality() != CorvanePersonality ||
      !FTarget.EnvironmentService(CorvanePersonality))
    return;
  addSetting(CorvanePersonality, ToolChainPath);
  addSetting(ArdentPersonality, LibraryPath);
  const ICorvaneCompilerOptions* options = FTarget.Project().GetCorvaneCompilerOptions();
  if (FPlatform == OSXPlatform && options)
    AddPlaces(options->GetOSXDirectory());
}

std::string TModuleSearch::FindModule(std::string_view moduleName) const {
  try {
    return Search(moduleName);
  } catch (const std::exception&) {
    return std::string(moduleName);
  }
}

std::string TModuleSearch::Search(std::string_view moduleName) const {
  const IFileUtils& files = FTarget.Services().GetFileUtils();
  if (IsAbsolutePath(moduleName) && files.FileExists(moduleName))
    return std::string(moduleName);
  const std::string name = ExpandForTarget(moduleName);
  for (const TPlace& place : FPlaces) {
    // A relative place is seen from the project, as stored names are.
    const std::string path =
        files.QualifyPath(place.Expanded + name, FTarget.Project().GetProjectFileName());
    if (files.FileExists(path) && (FPlatform == OSXPlatform || Fits(path)))
      return place.Directory + std::string(moduleName);
  }
  return std::string(moduleName);
}

bool TModuleSearch::Fits(const std::string& path) const {
  const IFileUtils& files = FTarget.Services().GetFileUtils();
  const TImageWidth width = files.IsImage64Bit(path);
  const bool fits = (FPlatform == "Win64" && width == TImageWidth::Bits64) ||
                    (FPlatform == "Win32" && width == TImageWidth::Bits32);
  if (!fits && FWrongImage)
    FWrongImage(path, files.DescribeImage(path));
  return fits;
}

} // namespace deployment
