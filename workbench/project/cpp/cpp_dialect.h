// C++ projects of other makers (.vcxproj): what a build of them would see.
#pragma once

#include "workbench/project/cpp/cpp_build_system.h"
#include "workbench/project/cpp/solution.h"
#include "workbench/project/project_dialect.h"
#include "workbench/project/project_settings.h"

#include <map>
#include <memory>
#include <optional>

namespace workbench {

/// Knows the names of platforms in such projects: "x64" is our Win64.
std::string PlatformFromCpp(std::string_view name);
std::string PlatformToCpp(std::string_view name);

class TCppDialect final : public IProjectDialect {
public:
  /// Referenced projects are loaded with the loader; both must outlive the object. `properties`
  /// are those of the command line, which count for referenced projects too. `solution` is the one
  /// that projects are built with; null: the nearest that names a project.
  TCppDialect(ILoadImports& imports, const TPlatformTable& platforms, TNamedTexts properties = {},
              std::shared_ptr<const TSolution> solution = nullptr);

  bool Claims(deployment::IXMLNode& root, const std::filesystem::path& file) const override;
  void Prepare(TEvaluationSource& source, const TPlatform* platform,
               std::string_view platformName) override;
  TNamedTexts Globals(const std::filesystem::path& file, const TNamedTexts& environment,
                      TEvaluationNotes& notes) override;
  TNamedTexts TargetProperties(const TProjectTarget& target) const override;
  bool ReadLayout(TMSBuildEvaluation& evaluation, const TOutsideProperties& given,
                  std::string_view lastPlatform, TProjectLayout& layout,
                  TEvaluationNotes& notes) const override;
  std::string Personality(const TMSBuildEvaluation& evaluation) const override;
  TBuildOutput Output(TMSBuildEvaluation& evaluation, const TPlatform* platform,
                      const std::filesystem::path& file) const override;
  void TraceOutput(TMSBuildEvaluation& evaluation, TOutputTrace& trace) const override;
  TExpanded OutputDirectory(const TMSBuildEvaluation& evaluation) const override;
  std::vector<std::string> Files(TMSBuildEvaluation& evaluation,
                                 TEvaluationNotes& notes) const override;
  std::vector<std::string> Packages(const TProjectSettings& settings, const TProjectTarget& target,
                                    TEvaluationNotes& notes) override;
  bool HasRemoteDebugSymbols(TMSBuildEvaluation& evaluation) const override;
  std::string SymbolExtension(const TPlatform* platform,
                              std::string_view personality) const override;
  std::string BuildPlatformName(std::string_view platform) const override {
    return PlatformToCpp(platform);
  }
  std::string_view ConfigurationProperty() const override { return "Configuration"; }
  void Forget() override;

  /// The solution that a project is built with; found at the first call. Good until Forget.
  const TFoundSolution& SolutionOf(const std::filesystem::path& project);

private:
  friend class TReferencedLibraries;

  // A project that another one refers to; null settings for one that cannot be read.
  struct TReference {
    std::shared_ptr<deployment::IXMLDocument> Document;
    std::unique_ptr<TProjectSettings> Settings;
    std::string Trouble;
  };

  // Null when there is no such project; what is wrong with one that cannot be read is noted.
  const TProjectSettings* Referenced(const std::filesystem::path& file, TEvaluationNotes& notes);

  ILoadImports& FImports;
  const TPlatformTable& FPlatforms;
  const TNamedTexts FProperties;
  const TFoundSolution FGivenSolution;
  TCppBuildSystem FBuildSystem;
  std::map<std::filesystem::path, TFoundSolution> FSolutions;
  std::map<std::filesystem::path, std::unique_ptr<TReference>> FReferences;
};

} // namespace workbench
