// A project as its file describes it: the answers to everything that the package asks of it.
#pragma once

#include "package/host/api/xml.h"
#include "workbench/msbuild/environment.h"
#include "workbench/msbuild/evaluation_note.h"
#include "workbench/msbuild/msbuild_evaluation.h"
#include "workbench/msbuild/msbuild_imports.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/project/build_configuration.h"
#include "workbench/project/project_layout.h"

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

/// Evaluates the project for every target that is asked for and keeps the latest evaluations. An
/// empty configuration or platform in a question means the project's active one. Used on one
/// thread.
class TProjectSettings {
public:
  /// Reads the project. `projectFile` is absolute; tree, loader and table must outlive the
  /// settings. Throws TInputError.
  TProjectSettings(deployment::IXMLNode& root, std::filesystem::path projectFile,
                   ILoadImports& imports, const TPlatformTable& platforms,
                   TNamedTexts environment = ProcessEnvironment());

  /// All configurations, the base one first. They live as long as the settings.
  const std::vector<std::unique_ptr<TBuildConfiguration>>& Configurations() const;
  const TBuildConfiguration& BaseConfiguration() const { return FConfigurations->Base(); }
  /// Compared exactly; null when the project has none of that name.
  const TBuildConfiguration* FindConfiguration(std::string_view name) const;
  /// The project's platforms in order; never empty.
  const std::vector<TProjectPlatform>& Platforms() const { return FLayout.Platforms; }
  /// Compared exactly; null when the project is not set up for it.
  const TProjectPlatform* FindPlatform(std::string_view name) const;
  const std::string& ActiveConfiguration() const { return FLayout.ActiveConfiguration; }
  const std::string& ActivePlatform() const { return FLayout.ActivePlatform; }

  /// The property of that name as a build of the target sees it; empty when unset.
  std::string Option(std::string_view configuration, std::string_view platform,
                     std::string_view name) const;
  /// The property of that name in a group without condition of the project file itself, as it is
  /// in the tree now; empty when unset.
  std::string BaseProperty(std::string_view name) const;

  /// Full paths of the project's files, each once, in document order.
  std::vector<std::string> CompleteFileList(std::string_view configuration = {},
                                            std::string_view platform = {}) const;
  /// Full path of what a build of the target makes.
  std::string OutputFileName(std::string_view configuration, std::string_view platform) const;
  /// Full path of the directory that it is made in, as text without a delimiter at its end.
  std::string OutputDirectory(std::string_view configuration, std::string_view platform) const;
  /// Name of what is built, without path, prefix and extension.
  std::string BaseName(std::string_view configuration = {}, std::string_view platform = {}) const;
  /// Name of the project file without directory and extension.
  std::string ProjectName() const { return FSource.ProjectFile.stem().string(); }

  std::string Personality() const;
  /// As the project names it; may be empty.
  std::string ApplicationType() const;
  std::string FrameworkType() const;
  /// Kind of output that the options name, else the kind of the application type.
  std::string OutputKind(std::string_view configuration = {}, std::string_view platform = {}) const;
  /// A property under the active target; empty when unset.
  std::string ProjectOption(std::string_view name) const;

  /// File names of the runtime packages of a target, blanks trimmed.
  std::vector<std::string> RuntimePackages(std::string_view configuration,
                                           std::string_view platform) const;
  /// Throws TInputError when the property is no Boolean.
  bool HasRemoteDebugSymbols(std::string_view configuration, std::string_view platform) const;
  /// 1 when the project does not say. Throws TInputError when the property is no integer.
  int OSXKind(std::string_view configuration, std::string_view platform) const;

  /// What was passed over when the project was read.
  const TEvaluationNotes& Notes() const { return FNotes; }
  /// To be called when properties or items in the tree were changed: answers are worked out anew.
  /// The configurations stay those that were read.
  void Refresh();

private:
  using TTarget = std::pair<std::string, std::string>;

  TMSBuildEvaluation& Evaluate(std::string_view configuration, std::string_view platform) const;
  TProjectLayout ReadLayout();
  std::string StoredOutputDirectory(const TMSBuildEvaluation& evaluation) const;
  std::string ApplicationTypeIn(const TMSBuildEvaluation& evaluation) const;
  std::string OutputKindIn(const TMSBuildEvaluation& evaluation) const;
  std::string OutputExtension(const TMSBuildEvaluation& evaluation, const TPlatform* platform,
                              std::string_view kind) const;

  // Imports that were read once serve every target.
  std::unique_ptr<TImportCache> FImports;
  TEvaluationSource FSource;
  const TPlatformTable& FPlatformTable;
  TEvaluationNotes FNotes;
  TProjectLayout FLayout;
  std::unique_ptr<TConfigurationTree> FConfigurations;
  mutable std::map<TTarget, std::unique_ptr<TMSBuildEvaluation>> FEvaluations;
};

} // namespace workbench
