#include "workbench/project/build_import/cmake_installers.h"

#include <fstream>
#include <unordered_map>

namespace workbench {
namespace {

namespace fs = std::filesystem;

// True when the rule in the build's file takes some files of a directory only. The reply is silent
// about that.
bool ChoosesFiles(const deployment::TErrorPlace& place) {
  std::ifstream file(place.File);
  std::string line;
  for (unsigned number = 1; std::getline(file, line); ++number) {
    if (number < place.Line)
      continue;
    for (const char* word : {"PATTERN", "REGEX", "FILES_MATCHING"}) {
      if (line.find(word) != std::string::npos)
        return true;
    }
    if (line.find(')') != std::string::npos)
      return false;
  }
  return false;
}

class TInstallers {
public:
  TInstallers(const TCMakeReplyFiles& files, const TReplyValue& model,
              const TReplyValue& configuration, std::string nameInProject,
              TInstallCollector& collector)
      : FFiles(files), FSource(model.At("paths").Text("source")), FConfiguration(configuration),
        FNameInProject(std::move(nameInProject)), FCollector(collector) {}

  void CollectDirectory(const TReplyValue& directory) {
    const std::vector<TReplyValue> installers = directory.ArrayOrNone("installers");
    for (const TReplyValue& installer : installers)
      Collect(directory, installer);
  }

private:
  void Collect(const TReplyValue& directory, const TReplyValue& installer) {
    const std::string type = installer.Text("type");
    TInstallRule rule;
    rule.Configuration = FNameInProject;
    rule.Place = PlaceOf(directory, installer);
    rule.Component = installer.TextOr("component", "Unspecified");
    rule.IsOptional = installer.BooleanOr("isOptional", false);
    rule.IsExcluded = installer.BooleanOr("isExcludeFromAll", false);
    rule.IsForAllComponents = installer.BooleanOr("isForAllComponents", false);
    if (type == "code" || type == "script")
      return FCollector.LeaveOut(rule, "the build runs a script when it installs; what that does "
                                       "is not in the list");
    const bool isTarget = type == "target";
    const bool isTree = type == "directory";
    if (!isTarget && !isTree && type != "file" && type != "fileSet")
      return FCollector.LeaveOut(rule, "a rule of the type \"" + type + "\" makes no entry");
    rule.Destination = installer.Text("destination");
    rule.IsProgram = isTarget && IsProgram(installer.Number("targetIndex"));
    if (isTree && ChoosesFiles(rule.Place))
      FCollector.LeaveOut(rule,
                          "the rule chooses files by patterns, which CMake does not tell; all "
                          "files of the directory are taken");
    for (const TReplyValue& path : installer.Array("paths")) {
      const fs::path from = path.IsText() ? path.AsText() : path.Text("from");
      const std::string name = path.IsText() ? from.filename().string() : path.Text("to");
      const fs::path full = (isTarget ? FFiles.Build : FSource) / from;
      if (isTree)
        FCollector.AddTree(rule, full, name);
      else
        FCollector.AddFile(rule, full, name);
    }
  }

  deployment::TErrorPlace PlaceOf(const TReplyValue& directory,
                                  const TReplyValue& installer) const {
    if (!installer.Has("backtrace"))
      return {(FSource / directory.At("paths").Text("source") / "CMakeLists.txt")
                  .lexically_normal()
                  .string(),
              0};
    const TReplyValue graph = directory.At("backtraceGraph");
    const TReplyValue node = graph.At("nodes").At(installer.Number("backtrace"));
    const std::string file = graph.At("files").At(node.Number("file")).AsText();
    return {(FSource / file).lexically_normal().string(),
            static_cast<unsigned>(node.NumberOr("line", 0))};
  }

  bool IsProgram(std::size_t target) {
    const auto known = FIsProgram.find(target);
    if (known != FIsProgram.end())
      return known->second;
    const TReplyValue file = FConfiguration.At("targets").At(target).At("jsonFile");
    return FIsProgram[target] = FFiles.Read(file).Text("type") == "EXECUTABLE";
  }

  const TCMakeReplyFiles& FFiles;
  const fs::path FSource;
  const TReplyValue& FConfiguration;
  const std::string FNameInProject;
  TInstallCollector& FCollector;
  std::unordered_map<std::size_t, bool> FIsProgram; // by the target's number
};

} // namespace

TReplyValue TCMakeReplyFiles::Read(const TReplyValue& name) const {
  const fs::path file = name.AsText();
  if (file.has_parent_path() || !file.has_filename())
    name.Refuse("is no name of a file");
  return TReplyValue::Read(Directory / file, "the reply of CMake");
}

void CollectCMakeInstallers(const TCMakeReplyFiles& files, const TReplyValue& model,
                            const TReplyValue& configuration, const std::string& nameInProject,
                            TInstallCollector& collector) {
  TInstallers installers(files, model, configuration, nameInProject, collector);
  for (const TReplyValue& directory : configuration.Array("directories")) {
    // A version of the code model before 2.3 tells no rules of directories.
    if (!directory.Has("jsonFile"))
      directory.Refuse("has no rules; CMake 3.21 is the first version that tells them");
    installers.CollectDirectory(files.Read(directory.At("jsonFile")));
  }
}

} // namespace workbench
