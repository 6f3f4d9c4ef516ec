// A project as its file describes it: the answers to everything that the package asks of it.
#pragma once

#include "package/host/api/xml.h"
#include "workbench/msbuild/environment.h"
#include "workbench/msbuild/evaluation_note.h"
#include "workbench/msbuild/msbuild_evaluation.h"
#include "workbench/msbuild/msbuild_imports.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/project/build_configuration.h"
#include "workbench/project/output_trace.h"
#include "workbench/project/project_dialect.h"
#include "workbench/project/project_layout.h"

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

/// What a project meets besides its file.
struct TProjectSurroundings {
  TNamedTexts Environment = ProcessEnvironment();
  /// Properties as a command line gives them: they win over those of the project.
  TNamedTexts Properties = {};
  /// The kind of foreign projects that is understood besides our own; null for none.
  IProjectDialect* Foreign = nullptr;
};

/// Evaluates the project for every target that is asked for and keeps the latest evaluations. An
/// empty configuration or platform in a question means the project's active one. Used on one
/// thread.
class TProjectSettings {
public:
  /// Reads the project. `projectFile` is absolute; tree, loader, table and the foreign kind must
  /// outlive the settings. Throws TInputError.
  TProjectSettings(deployment::IXMLNode& root, std::filesystem::path projectFile,
                   ILoadImports& imports, const TPlatformTable& platforms,
                   TProjectSurroundings surroundings = {});
  ~TProjectSettings();
  TProjectSettings(const TProjectSettings&) = delete;
  TProjectSettings& operator=(const TProjectSettings&) = delete;

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
  /// Full path of what a build of the target makes; empty when it makes nothing that is deployed
  /// or that is not known, which is noted.
  std::string OutputFileName(std::string_view configuration, std::string_view platform) const;
  /// Why a build of the target makes nothing to deploy, as a sentence; empty when it does.
  std::string NothingToDeploy(std::string_view configuration, std::string_view platform) const;
  /// True when a build of the target makes nothing to deploy, for certain.
  bool MakesNothing(std::string_view configuration, std::string_view platform) const;
  /// Full path of the directory that it is made in, as text without a delimiter at its end; empty
  /// when it is not known.
  std::string OutputDirectory(std::string_view configuration, std::string_view platform) const;
  /// Name of what is built, without path, prefix and extension as the table has them for the kind.
  std::string BaseName(std::string_view configuration = {}, std::string_view platform = {}) const;
  /// Name of the project file without directory and extension.
  std::string ProjectName() const { return FSource.ProjectFile.stem().string(); }
  const std::filesystem::path& ProjectFile() const { return FSource.ProjectFile; }

  std::string Personality() const;
  /// As the project names it; may be empty.
  std::string ApplicationType(std::string_view configuration = {},
                              std::string_view platform = {}) const;
  std::string FrameworkType() const;
  /// Kind of output that the options name, else the kind of the application type.
  std::string OutputKind(std::string_view configuration = {}, std::string_view platform = {}) const;
  /// A property under the active target; empty when unset.
  std::string ProjectOption(std::string_view name) const;

  /// File names of the modules that a target's output needs, or paths seen from the project.
  std::vector<std::string> RuntimePackages(std::string_view configuration,
                                           std::string_view platform) const;
  /// Throws TInputError when the property is no Boolean.
  bool HasRemoteDebugSymbols(std::string_view configuration, std::string_view platform) const;
  /// With its dot; empty when the platform has no symbol files.
  std::string SymbolExtension(std::string_view platform) const;
  /// 1 when the project does not say. Throws TInputError when the property is no integer.
  int OSXKind(std::string_view configuration, std::string_view platform) const;
  /// The name that conditions of the project's builds have for a platform.
  std::string BuildPlatformName(std::string_view platform) const;
  /// The property that holds the configuration in conditions of the project's builds.
  std::string_view ConfigurationProperty() const;
  /// The items of a target.
  const std::vector<TProjectItem>& Items(std::string_view configuration,
                                         std::string_view platform) const;
  /// Where the path of what a build of the target makes comes from, step by step: first what is
  /// written, then every property that it refers to.
  std::vector<TOutputStep> TraceOutput(std::string_view configuration,
                                       std::string_view platform) const;

  /// What was passed over so far: questions about further targets add to it.
  const TEvaluationNotes& Notes() const { return FNotes; }
  /// To be called when properties or items in the tree were changed: answers are worked out anew.
  /// The configurations stay those that were read.
  void Refresh();

private:
  TProjectTarget TargetOf(std::string_view configuration, std::string_view platform) const;
  TMSBuildEvaluation& Evaluate(std::string_view configuration, std::string_view platform) const;
  void ReadLayout();
  TEvaluationSource SourceFor(IProjectDialect& dialect, std::string_view platform) const;
  TNamedTexts GlobalsFor(IProjectDialect& dialect) const;
  bool TryLayout(IProjectDialect& dialect);
  const TBuildOutput& Output(std::string_view configuration, std::string_view platform) const;
  void AddNote(TEvaluationNote note) const;
  void AddNotes(const TEvaluationNotes& notes) const;

  struct TAnswer {
    std::unique_ptr<TMSBuildEvaluation> Evaluation;
    std::optional<TBuildOutput> Output;
    std::size_t Noted = 0; ///< notes of the evaluation that were taken over
  };

  // Imports that were read once serve every target, and so do directories.
  std::unique_ptr<TImportCache> FImports;
  std::unique_ptr<TDirectoryCache> FDirectories;
  std::unique_ptr<IProjectDialect> FOwn;
  TEvaluationSource FSource;
  const TPlatformTable& FPlatformTable;
  const TProjectSurroundings FSurroundings;
  IProjectDialect* FDialect = nullptr;
  mutable TEvaluationNotes FNotes;
  mutable std::set<std::string> FNoted; // what stands in FNotes
  TProjectLayout FLayout;
  std::unique_ptr<TConfigurationTree> FConfigurations;
  mutable std::map<TProjectTarget, TAnswer> FAnswers;
};

} // namespace workbench
