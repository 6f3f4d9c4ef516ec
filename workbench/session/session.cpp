#include "workbench/session/session.h"

#include "package/host/api/default_deployment.h"
#include "package/host/api/deploymentapi.h"
#include "workbench/files/file_reader.h"
#include "workbench/files/file_saver.h"
#include "workbench/files/user_directories.h"
#include "workbench/project/project_identity.h"
#include "workbench/services/app_strings.h"
#include "workbench/services/ide_services.h"
#include "workbench/session/open_project.h"
#include "workbench/session/package_loader.h"

#include <algorithm>
#include <exception>
#include <list>
#include <optional>
#include <utility>

namespace workbench {
namespace {

constexpr const char* PlatformFileName = "platforms.xml";
constexpr std::string_view EmptyProject =
    "<Project xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\"/>";

// Nothing where there is no such file; one that is there and cannot be read is an error.
std::optional<TPlatformTable> ReadPlatformTable(const std::filesystem::path& file) {
  std::error_code ignored;
  if (std::filesystem::status(file, ignored).type() == std::filesystem::file_type::not_found)
    return std::nullopt;
  TXmlReader reader(
      [&file](const TReserveMemory& reserve) {
        return ReadWholeFileInto(file, reserve, MaximumFileSize, "platform table");
      },
      file.string());
  return TPlatformTable::FromXml(reader.Root());
}

// A root without a table of its own has the platforms that everybody has; the user's own table
// adds to them.
TPlatformTable ReadPlatforms(const std::filesystem::path& root) {
  TPlatformTable table = ReadPlatformTable(root / "ObjRepos" / "Deploy" / PlatformFileName)
                             .value_or(TPlatformTable::BuiltIn());
  const std::filesystem::path user = UserConfigDirectory();
  if (!user.empty()) {
    if (auto added = ReadPlatformTable(user / PlatformFileName))
      table.Overlay(std::move(*added));
  }
  return table;
}

void CopyAttributes(const deployment::IXMLNode& from, deployment::IXMLNode& to) {
  for (std::size_t i = 0; i < from.AttributeCount(); ++i)
    to.SetAttribute(from.AttributeName(i), *from.GetAttribute(from.AttributeName(i)));
}

} // namespace

struct TSession::TImpl {
  explicit TImpl(const TSessionOptions& options)
      : Root(FindRoot(options.Root)), Properties(options.Properties),
        Platforms(ReadPlatforms(Root)), Services(Root, Platforms, UserSettingsFile()),
        Package(Services) {}

  // Destroyed from below: projects go before the package, the package before the services.
  std::filesystem::path Root;
  TNamedTexts Properties;
  TPlatformTable Platforms;
  TIDEServices Services;
  TPackageLoader Package;
  std::unique_ptr<TProjectModule> Scratch; // carries the classes that ship with the workbench
  std::list<std::unique_ptr<TOpenProjectFile>> Projects;

  auto Find(const TOpenProject& project) {
    return std::ranges::find(Projects, &project,
                             [](const auto& open) -> const TOpenProject* { return open.get(); });
  }

  void CheckFree(const TOpenProject& project, const std::filesystem::path& file) const {
    for (const auto& open : Projects) {
      if (open.get() != &project && IsSameProject(open->GivenFileName(), file))
        throw deployment::TInputError("a project of that name is open", {file.string(), 0});
    }
  }

  void RaiseRenamed(TOpenProject& project, const std::string& oldName) {
    const std::string newName = project.Project().GetProjectFileName();
    Services.GetProjectEvents()->EvProjectRenamed().Raise(oldName, newName);
  }

  // The other project whose view goes by the name of this one; null for none.
  TOpenProjectFile* ShownInsteadOf(const TOpenProject& project) {
    const auto found = std::ranges::find_if(Projects, [&project](const auto& open) {
      return open.get() != &project && open->IsShown() &&
             IsSameProject(open->GivenFileName(), project.GivenFileName());
    });
    return found == Projects.end() ? nullptr : found->get();
  }
};

TSession::TSession(const TSessionOptions& options) : FImpl(std::make_unique<TImpl>(options)) {
  try {
    FImpl->Package.Package().Start();
    FImpl->Package.Package().IDERegister();
    FImpl->Services.GetEvents().MainFormCreated().Raise();
  } catch (const std::exception& error) {
    // The package goes with this object, and its own error with it.
    throw deployment::TInputError(std::string("the package could not be started: ") + error.what());
  }
}

TSession::~TSession() {
  FImpl->Projects.clear();
  FImpl->Services.GetEditorViewServices()->CloseAll();
  FImpl->Scratch.reset();
  FImpl->Package.Package().Stop();
}

TOpenProject& TSession::Open(const std::filesystem::path& file, TOpenPurpose purpose,
                             std::shared_ptr<const TSolution> solution) {
  FImpl->Projects.push_back(std::make_unique<TOpenProjectFile>(
      FImpl->Services, FImpl->Platforms, file, purpose, FImpl->Properties, std::move(solution)));
  return *FImpl->Projects.back();
}

TSaveReport TSession::SaveAs(TOpenProject& project, const std::filesystem::path& file,
                             bool overwrite) {
  FImpl->CheckFree(project, file);
  TOpenProjectFile& open = **FImpl->Find(project);
  const std::string oldName = project.Project().GetProjectFileName();
  const bool written = open.SaveAs(file, overwrite).ProjectWritten;
  FImpl->RaiseRenamed(project, oldName);
  TSaveReport report = open.ExportAfterSave();
  report.ProjectWritten = written;
  return report;
}

void TSession::Rename(TOpenProject& project, const std::filesystem::path& file) {
  FImpl->CheckFree(project, file);
  const std::string oldName = project.Project().GetProjectFileName();
  (*FImpl->Find(project))->Rename(file);
  FImpl->RaiseRenamed(project, oldName);
}

// Views close when they hear of a project of their name, which would be the view of another one.
void TSession::Close(TOpenProject& project) {
  const auto found = FImpl->Find(project);
  if (found == FImpl->Projects.end())
    return;
  if (FImpl->ShownInsteadOf(project))
    (*found)->CloseInSilence();
  FImpl->Projects.erase(found);
}

TOpenProject* TSession::FindOpen(const std::filesystem::path& file) {
  const auto found = std::ranges::find_if(FImpl->Projects, [&file](const auto& open) {
    return IsSameProject(open->GivenFileName(), file);
  });
  return found == FImpl->Projects.end() ? nullptr : found->get();
}

void TSession::Create(const std::filesystem::path& file, std::string_view projectText) {
  TIDEServices& services = FImpl->Services;
  const std::string section = services.GetProjectFileStorage().SectionName();
  TProjectModule module(std::filesystem::absolute(file),
                        std::make_unique<TProjectDocument>(projectText, file.string(), section),
                        FImpl->Platforms, services.GetSettings());
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
  FImpl->Services.GetEditorViewServices()->SetEditorArea(area);
}

void TSession::CloseViews() {
  FImpl->Services.GetEditorViewServices()->CloseAll();
}

deployment::IOTADeploymentService& TSession::DeploymentService() {
  auto* service = FImpl->Services.GetExtensions()->DeploymentService();
  if (!service)
    throw deployment::TInputError("the package offers no Deployment Manager");
  return *service;
}

std::optional<deployment::TInputError>
TSession::ShowDeployment(TOpenProject& project, const deployment::TShowRequest& request) {
  if (const TOpenProjectFile* shown = FImpl->ShownInsteadOf(project))
    throw deployment::TInputError("the project is shown already, as " +
                                      shown->GivenFileName().string(),
                                  {project.GivenFileName().string(), 0});
  auto problem = DeploymentService().ShowDeployment(project.SharedProject(), request);
  (*FImpl->Find(project))->SetShown();
  return problem;
}

void TSession::SetModalForms(deployment::IModalForms* forms) {
  FImpl->Services.SetModalForms(forms);
}

const TPlatformTable& TSession::Platforms() const {
  return FImpl->Platforms;
}

TRemoteProfileServices& TSession::RemoteProfiles() {
  return *FImpl->Services.GetRemoteProfileServices();
}

TSettings& TSession::Settings() {
  return FImpl->Services.GetSettings();
}

deployment::TEntryPaths TSession::PathsOf(TOpenProject& project,
                                          const deployment::TDeploymentTarget& target) {
  const auto base = FImpl->Platforms.IsStaged(target.Platform, project.Settings().Personality())
                        ? deployment::TRemoteBase::None
                        : deployment::TRemoteBase::ProjectRoot;
  return deployment::TEntryPaths(project.Project(), project.Deployment(), target,
                                 deployment::TEntryPathServices::Of(FImpl->Services), base);
}

const std::filesystem::path& TSession::Root() const {
  return FImpl->Root;
}

void TSession::CheckInstallation() const {
  RequireShippedDirectory(FImpl->Root);
}

void TSession::RequireDefaults() const {
  RequireShippedFile(FImpl->Services.GetAppStrings(), DefaultsFile);
}

std::vector<std::shared_ptr<deployment::IProjectDeploymentClass>> TSession::ShippedClasses() {
  RequireDefaults();
  if (!FImpl->Scratch) {
    TIDEServices& services = FImpl->Services;
    auto scratch = std::make_unique<TProjectModule>(
        std::filesystem::path(),
        std::make_unique<TProjectDocument>(EmptyProject, std::string(),
                                           services.GetProjectFileStorage().SectionName()),
        FImpl->Platforms, services.GetSettings());
    services.GetModuleHandlerGauntlet().AttachHandlers(*scratch);
    deployment::EnsureDefaultDeployment(*scratch->GetProjectDeployment());
    FImpl->Scratch = std::move(scratch);
  }
  return FImpl->Scratch->GetProjectDeployment()->GetClasses();
}

} // namespace workbench
