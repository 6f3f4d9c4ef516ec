#include "workbench/session/session.h"

#include "package/host/api/deploymentapi.h"
#include "workbench/files/file_reader.h"
#include "workbench/files/file_saver.h"
#include "workbench/services/app_strings.h"
#include "workbench/services/ide_services.h"
#include "workbench/session/open_project.h"
#include "workbench/session/package_loader.h"

#include <algorithm>
#include <exception>
#include <list>
#include <utility>

namespace workbench {
namespace {

constexpr std::string_view EmptyProject =
    "<Project xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\"/>";

// A root without a table of its own has the platforms that everybody has.
TPlatformTable ReadPlatforms(const std::filesystem::path& root) {
  const std::filesystem::path file = root / "ObjRepos" / "Deploy" / "platforms.xml";
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored))
    return TPlatformTable::BuiltIn();
  TXmlReader reader(
      [&file](const TReserveMemory& reserve) {
        return ReadWholeFileInto(file, reserve, MaximumFileSize, "platform table");
      },
      file.string());
  return TPlatformTable::FromXml(reader.Root());
}

// Programs of such a platform are packed in a folder here and go to no machine.
bool IsStaged(const TPlatformTable& platforms, const std::string& platform,
              const std::string& personality) {
  const TPlatform* facts = platforms.FindPlatform(platform);
  return platform == "Android" || (facts && !facts->RequiresProfile(personality) &&
                                   !facts->PersonalityRequiresProfile(personality));
}

void CopyAttributes(const deployment::IXMLNode& from, deployment::IXMLNode& to) {
  for (std::size_t i = 0; i < from.AttributeCount(); ++i)
    to.SetAttribute(from.AttributeName(i), *from.GetAttribute(from.AttributeName(i)));
}

} // namespace

struct TSession::TParts {
  explicit TParts(const TSessionOptions& options)
      : Root(FindRoot(options.Root)), Platforms(ReadPlatforms(Root)),
        Services(Root, Platforms, UserSettingsFile()), Package(Services) {}

  // Destroyed from below: projects go before the package, the package before the services.
  std::filesystem::path Root;
  TPlatformTable Platforms;
  TIDEServices Services;
  TPackageLoader Package;
  std::unique_ptr<TProjectModule> Scratch; // carries the classes that ship with the workbench
  std::list<std::unique_ptr<TOpenProjectFile>> Projects;
};

TSession::TSession(const TSessionOptions& options) : FParts(std::make_unique<TParts>(options)) {
  try {
    FParts->Package.Package().Start();
    FParts->Package.Package().IDERegister();
    FParts->Services.GetEvents().MainFormCreated().Raise();
  } catch (const std::exception& error) {
    // The package goes with this object, and its own error with it.
    throw deployment::TInputError(std::string("the package could not be started: ") + error.what());
  }
}

TSession::~TSession() {
  FParts->Projects.clear();
  FParts->Services.GetEditorViewServices()->CloseAll();
  FParts->Scratch.reset();
  FParts->Package.Package().Stop();
}

TOpenProject& TSession::Open(const std::filesystem::path& file, TOpenPurpose purpose) {
  FParts->Projects.push_back(
      std::make_unique<TOpenProjectFile>(FParts->Services, FParts->Platforms, file, purpose));
  return *FParts->Projects.back();
}

void TSession::Close(TOpenProject& project) {
  FParts->Projects.remove_if([&project](const auto& open) { return open.get() == &project; });
}

void TSession::Create(const std::filesystem::path& file, std::string_view projectText) {
  TIDEServices& services = FParts->Services;
  const std::string section = services.GetProjectFileStorage().SectionName();
  TProjectModule module(std::filesystem::absolute(file),
                        std::make_unique<TProjectDocument>(projectText, file.string(), section),
                        FParts->Platforms, services.GetSettings());
  services.GetModuleHandlerGauntlet().AttachHandlers(module);
  services.GetProjectFileStorage().CreatingProject(module);
  const auto pieces = module.Document().Compose([&](deployment::IXMLNode& node) {
    if (TXmlElement* created = module.Document().FindSection(section))
      CopyAttributes(*created, node);
  });
  TSaveRequest request;
  request.Target = file;
  const std::vector<std::string_view> unchanged{projectText};
  request.Content = pieces ? std::span<const std::string_view>(pieces->Pieces()) : unchanged;
  SaveFile(request);
}

void TSession::SetEditorArea(IEditorArea* area) {
  FParts->Services.GetEditorViewServices()->SetEditorArea(area);
}

void TSession::CloseViews() {
  FParts->Services.GetEditorViewServices()->CloseAll();
}

void TSession::ShowDeployment(TOpenProject& project) {
  auto* service = FParts->Services.GetExtensions()->DeploymentService();
  if (!service)
    throw deployment::TInputError("the package offers no Deployment Manager");
  service->DeployManagerProject(project.SharedProject());
}

void TSession::SetModalForms(deployment::IModalForms* forms) {
  FParts->Services.SetModalForms(forms);
}

const TPlatformTable& TSession::Platforms() const {
  return FParts->Platforms;
}

TRemoteProfileServices& TSession::RemoteProfiles() {
  return *FParts->Services.GetRemoteProfileServices();
}

TSettings& TSession::Settings() {
  return FParts->Services.GetSettings();
}

deployment::TEntryPaths TSession::PathsOf(TOpenProject& project,
                                          const deployment::TDeploymentTarget& target) {
  const auto base = IsStaged(FParts->Platforms, target.Platform, project.Settings().Personality())
                        ? deployment::TRemoteBase::None
                        : deployment::TRemoteBase::ProjectRoot;
  return deployment::TEntryPaths(project.Project(), project.Deployment(), target,
                                 deployment::TEntryPathServices::Of(FParts->Services), base);
}

const std::filesystem::path& TSession::Root() const {
  return FParts->Root;
}

void TSession::CheckInstallation() const {
  RequireShippedDirectory(FParts->Root);
}

void TSession::RequireDefaults() const {
  RequireShippedFile(FParts->Services.GetAppStrings(), DefaultsFile);
}

std::vector<std::shared_ptr<deployment::IProjectDeploymentClass>> TSession::ShippedClasses() {
  RequireDefaults();
  if (!FParts->Scratch) {
    TIDEServices& services = FParts->Services;
    auto scratch = std::make_unique<TProjectModule>(
        std::filesystem::path(),
        std::make_unique<TProjectDocument>(EmptyProject, std::string(),
                                           services.GetProjectFileStorage().SectionName()),
        FParts->Platforms, services.GetSettings());
    services.GetModuleHandlerGauntlet().AttachHandlers(*scratch);
    scratch->GetProjectDeployment()->GetFiles();
    FParts->Scratch = std::move(scratch);
  }
  return FParts->Scratch->GetProjectDeployment()->GetClasses();
}

} // namespace workbench
