// Projects that are written for this system: items BuildConfiguration and TargetPlatform.
#pragma once

#include "workbench/project/project_dialect.h"

namespace workbench {

class TOwnDialect final : public IProjectDialect {
public:
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
    return std::string(platform);
  }
  std::string_view ConfigurationProperty() const override { return "Config"; }
  void Forget() override {}
};

} // namespace workbench
