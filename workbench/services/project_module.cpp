#include "workbench/services/project_module.h"

#include "package/host/api/deploymentapi.h"
#include "workbench/project/cpp/cpp_dialect.h"
#include "workbench/project/import_loader.h"
#include "workbench/settings/settings_store.h"

#include <utility>

namespace workbench {
TProjectModule::TProjectModule(std::filesystem::path file,
                               std::unique_ptr<TProjectDocument> document,
                               const TPlatformTable& platforms, const TSettings& userSettings,
                               TNamedTexts properties, std::shared_ptr<const TSolution> solution)
    : FFile(std::move(file)), FPlatforms(platforms), FDocument(std::move(document)),
      FImports(std::make_unique<TImportLoader>()), FProperties(std::move(properties)),
      FForeign(
          std::make_unique<TCppDialect>(*FImports, FPlatforms, FProperties, std::move(solution))),
      FOptions(*this), FPlatformAnswers(*this), FPlatformOptions(*this), FBuildOptions(*this),
      FBuildNames(*this), FCompilerOptions(userSettings) {}

TProjectModule::~TProjectModule() {
  for (std::size_t i = 0; i < FNotifiers.size(); ++i) {
    if (const auto notifier = FNotifiers[i])
      notifier->Destroyed();
  }
}

TProjectDocument& TProjectModule::Document() {
  if (FSaved)
    ReadSavedDocument();
  return *FDocument;
}

TProjectSettings& TProjectModule::Settings() {
  if (FSaved)
    ReadSavedDocument();
  return ReadSettings();
}

TProjectSettings& TProjectModule::ReadSettings() const {
  if (!FSettings)
    FSettings = std::make_unique<TProjectSettings>(
        FDocument->Root(), FFile, *FImports, FPlatforms,
        TProjectSurroundings{ProcessEnvironment(), FProperties, FForeign.get()});
  return *FSettings;
}

void TProjectModule::DocumentWasSaved(std::unique_ptr<TTextPieces> pieces) {
  FSaved = std::move(pieces);
  FModified = false;
  for (std::size_t i = 0; i < FNotifiers.size(); ++i) {
    if (const auto notifier = FNotifiers[i])
      notifier->AfterSave();
  }
}

void TProjectModule::Rename(const std::filesystem::path& file) {
  const std::string oldName = FFile.string();
  FFile = file;
  FSettings.reset();
  for (std::size_t i = 0; i < FNotifiers.size(); ++i) {
    if (const auto notifier = FNotifiers[i])
      notifier->ModuleRenamed(oldName, FFile.string());
  }
}

std::string TProjectModule::ProfileName(std::string_view platform) {
  const TProjectPlatform* found = Settings().FindPlatform(platform);
  std::string name = found ? found->Profile : std::string();
  return name.empty() && FDefaultProfile ? FDefaultProfile(platform) : name;
}

bool TProjectModule::IsText(std::string_view text) const {
  if (!FSaved)
    return text == FDocument->Bytes();
  for (const std::string_view piece : FSaved->Pieces()) {
    if (!text.starts_with(piece))
      return false;
    text.remove_prefix(piece.size());
  }
  return text.empty();
}

// What stands on disk becomes the document that the next save starts from.
void TProjectModule::ReadSavedDocument() {
  std::string text;
  for (const std::string_view piece : FSaved->Pieces())
    text += piece;
  auto document =
      std::make_unique<TProjectDocument>(text, FDocument->Name(), FDocument->LargeSectionName());
  document->ForgetLargeSection();
  FSettings.reset();
  FForeign->Forget();
  FSaved.reset();
  FDocument = std::move(document);
}

int TProjectModule::AddNotifier(std::shared_ptr<deployment::IOTAModuleNotifier> notifier) {
  FNotifiers.push_back(std::move(notifier));
  return static_cast<int>(FNotifiers.size()) - 1;
}

void TProjectModule::RemoveNotifier(int index) {
  if (index >= 0 && static_cast<std::size_t>(index) < FNotifiers.size())
    FNotifiers[static_cast<std::size_t>(index)].reset();
}

void TProjectModule::AttachHandler(std::shared_ptr<deployment::IModuleHandler> handler) {
  FHandlers.push_back(std::move(handler));
}

deployment::IProjectDeployment* TProjectModule::GetProjectDeployment() const {
  for (const auto& handler : FHandlers) {
    if (auto* deployment = handler->GetProjectDeployment())
      return deployment;
  }
  return nullptr;
}

std::string TProjectModule::GetBaseName(std::string_view configuration,
                                        std::string_view platform) const {
  return ReadSettings().BaseName(configuration, platform);
}

std::string TProjectModule::GetPersonality() const {
  return ReadSettings().Personality();
}

std::string TProjectModule::GetApplicationType(std::string_view configuration,
                                               std::string_view platform) const {
  return ReadSettings().ApplicationType(configuration, platform);
}

std::string TProjectModule::GetNothingToDeploy(std::string_view configuration,
                                               std::string_view platform) const {
  return ReadSettings().NothingToDeploy(configuration, platform);
}

std::string TProjectModule::GetFrameworkType() const {
  return ReadSettings().FrameworkType();
}

std::string TProjectModule::GetProjectOption(std::string_view name) const {
  return ReadSettings().ProjectOption(name);
}

std::string TProjectModule::GetCurrentPlatform() const {
  return FCurrentPlatform.value_or(ReadSettings().ActivePlatform());
}

std::string TProjectModule::GetCurrentConfiguration() const {
  return ReadSettings().ActiveConfiguration();
}

std::string TProjectModule::GetOutputFileName(std::string_view configuration,
                                              std::string_view platform) const {
  return ReadSettings().OutputFileName(configuration, platform);
}

std::string TProjectModule::GetOutputKind(std::string_view configuration,
                                          std::string_view platform) const {
  return ReadSettings().OutputKind(configuration, platform);
}

std::vector<std::string> TProjectModule::GetCompleteFileList(std::string_view configuration,
                                                             std::string_view platform) const {
  return ReadSettings().CompleteFileList(configuration, platform);
}

} // namespace workbench
