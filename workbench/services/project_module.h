// One project that the host has open: its document, its settings and what packages attached to it.
#pragma once

#include "package/host/api/toolsapi.h"
#include "workbench/project/project_document.h"
#include "workbench/project/project_settings.h"
#include "workbench/services/project_answers.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

class TPlatformTable;
class TSettings;
class TSolution;

/// Destroyed before the package is unloaded, since it owns the handlers that the package attached.
class TProjectModule final : public deployment::IOTAProject {
public:
  /// `file` is the full path under the name that the user gave. Platforms and settings must
  /// outlive the module.
  /// `properties` are those that a command line gives every evaluation of the project, `solution`
  /// is the one that it is built with; null: the nearest that names it.
  TProjectModule(std::filesystem::path file, std::unique_ptr<TProjectDocument> document,
                 const TPlatformTable& platforms, const TSettings& userSettings,
                 TNamedTexts properties = {}, std::shared_ptr<const TSolution> solution = nullptr);
  ~TProjectModule() override;
  TProjectModule(const TProjectModule&) = delete;
  TProjectModule& operator=(const TProjectModule&) = delete;

  const std::filesystem::path& File() const { return FFile; }
  /// The document as it stands on disk, with the changes that wait for a save.
  TProjectDocument& Document();
  /// Evaluated at the first call. Throws TInputError.
  TProjectSettings& Settings();
  const TProjectSettings& Settings() const { return ReadSettings(); }
  /// What evaluations brought up so far; null before the first one.
  const TEvaluationNotes* NotesSoFar() const { return FSettings ? &FSettings->Notes() : nullptr; }
  /// Says that the pieces stand on disk now. They borrow from the present document.
  void DocumentWasSaved(std::unique_ptr<TTextPieces> pieces);
  /// The file has another name from now on, under which the project is evaluated anew; listeners of
  /// the module hear of it.
  void Rename(const std::filesystem::path& file);
  /// True when the text is what was read or saved last.
  bool IsText(std::string_view text) const;
  /// Names the profile of a platform for which the project names none; empty: there is none.
  using TDefaultProfile = std::function<std::string(std::string_view platform)>;
  void SetDefaultProfile(TDefaultProfile profile) { FDefaultProfile = std::move(profile); }
  /// The profile that the project assigns to the platform, else the platform's default one; empty
  /// for none.
  std::string ProfileName(std::string_view platform);
  void SetCurrentPlatform(std::string_view platform) { FCurrentPlatform = platform; }

  std::string GetFileName() const override { return GetProjectFileName(); }
  bool IsProjectModule() const override { return true; }
  bool IsWithoutDeployment() const override { return false; }
  deployment::ICustomProject* GetProject() override { return this; }
  int AddNotifier(std::shared_ptr<deployment::IOTAModuleNotifier> notifier) override;
  void RemoveNotifier(int index) override;
  void AttachHandler(std::shared_ptr<deployment::IModuleHandler> handler) override;

  deployment::IProjectDeployment* GetProjectDeployment() const override;
  std::string GetProjectFileName() const override { return FFile.string(); }
  std::string GetModuleName() const override { return FFile.stem().string(); }
  std::string GetBaseName(std::string_view configuration, std::string_view platform) const override;
  std::string GetPersonality() const override;
  std::string GetApplicationType(std::string_view configuration,
                                 std::string_view platform) const override;
  std::string GetNothingToDeploy(std::string_view configuration,
                                 std::string_view platform) const override;
  std::string GetFrameworkType() const override;
  std::string GetProjectOption(std::string_view name) const override;
  std::string GetCurrentPlatform() const override;
  std::string GetCurrentConfiguration() const override;
  std::string GetOutputFileName(std::string_view configuration,
                                std::string_view platform) const override;
  std::string GetOutputKind(std::string_view configuration,
                            std::string_view platform) const override;
  std::vector<std::string> GetCompleteFileList(std::string_view configuration,
                                               std::string_view platform) const override;
  bool GetModified() const override { return FModified; }
  void SetModified(bool modified) override { FModified = modified; }
  deployment::IOTAProjectOptionsConfigurations* GetOptionsConfigurations() override {
    return &FOptions;
  }
  deployment::IOTAProjectPlatforms* GetProjectPlatforms() override { return &FPlatformAnswers; }
  deployment::IPlatformOptions* GetPlatformOptions() override { return &FPlatformOptions; }
  deployment::IBuildOptions* GetBuildOptions() override { return &FBuildOptions; }
  deployment::ICorvaneCompilerOptions* GetCorvaneCompilerOptions() override {
    return &FCompilerOptions;
  }
  deployment::IProjectBuildNames* GetBuildNames() override { return &FBuildNames; }

private:
  // Settings are read when they are first asked for, which leaves the project itself unchanged.
  TProjectSettings& ReadSettings() const;
  void ReadSavedDocument();

  std::filesystem::path FFile;
  const TPlatformTable& FPlatforms;
  std::unique_ptr<TProjectDocument> FDocument;
  std::unique_ptr<TTextPieces> FSaved; // on disk but not yet in FDocument
  std::unique_ptr<ILoadImports> FImports;
  const TNamedTexts FProperties;
  std::unique_ptr<IProjectDialect> FForeign; // asked by the settings
  mutable std::unique_ptr<TProjectSettings> FSettings;
  TDefaultProfile FDefaultProfile;
  std::optional<std::string> FCurrentPlatform;
  bool FModified = false;
  std::vector<std::shared_ptr<deployment::IOTAModuleNotifier>> FNotifiers;
  std::vector<std::shared_ptr<deployment::IModuleHandler>> FHandlers;
  TOptionsConfigurations FOptions;
  TProjectPlatforms FPlatformAnswers;
  TPlatformOptions FPlatformOptions;
  TBuildOptions FBuildOptions;
  TBuildNames FBuildNames;
  TCorvaneCompilerOptions FCompilerOptions;
};

} // namespace workbench
