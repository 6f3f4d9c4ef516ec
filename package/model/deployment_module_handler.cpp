#include "package/model/deployment_module_handler.h"

#include "package/model/section_names.h"
#include "package/reconcile/deploy_module_reconciler.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace deployment {
namespace {

constexpr std::string_view SideFileImport = "$(MSBuildProjectName).deployproj";
constexpr std::string_view SideFileCondition = "Exists('$(MSBuildProjectName).deployproj')";

} // namespace

// Stands in the module's list in place of the deployment, which the module owns already: a share
// in that list would keep the deployment alive for as long as it listens.
class TDeploymentModuleHandler::TModuleListener : public IOTAModuleNotifier {
public:
  explicit TModuleListener(TDeploymentModuleHandler& deployment) : FDeployment(&deployment) {}

  void Detach() { FDeployment = nullptr; }

  void AfterSave() override {
    if (!FDeployment)
      return;
    FDeployment->FRenamedModules.Clear();
    FDeployment->FRemovedModules.clear();
  }
  void ModuleRenamed(std::string_view oldName, std::string_view newName) override {
    if (FDeployment)
      FDeployment->ModuleRenamed(oldName, newName);
  }
  void ModuleRemoved(std::string_view name) override {
    if (FDeployment)
      FDeployment->ModuleRemoved(name);
  }
  void Destroyed() override {
    if (FDeployment)
      FDeployment->FModule = nullptr;
  }

private:
  TDeploymentModuleHandler* FDeployment;
};

bool TDeploymentModuleHandler::CanHandleModule(const IOTAModule& module) {
  return module.IsProjectModule() && !module.IsWithoutDeployment();
}

std::shared_ptr<TDeploymentModuleHandler>
TDeploymentModuleHandler::Attach(IOTAModule& module, VelmorIDEServices& services,
                                 IDeploymentStorage& storage) {
  auto deployment = std::make_shared<TDeploymentModuleHandler>(module, services, storage);
  deployment->StartListening();
  module.AttachHandler(deployment);
  return deployment;
}

TDeploymentModuleHandler::TDeploymentModuleHandler(IOTAModule& module, VelmorIDEServices& services,
                                                   IDeploymentStorage& storage)
    : FServices(services), FStorage(storage), FModule(&module) {}

TDeploymentModuleHandler::~TDeploymentModuleHandler() {
  FNotifiers.ForEach([](IProjectDeploymentNotifier& notifier) { notifier.Destroyed(); });
  if (FModuleListener) {
    FModuleListener->Detach();
    if (FModule)
      FModule->RemoveNotifier(FModuleNotifierIndex);
  }
  // Whoever still shares an entry may go on changing it.
  TDeploymentModuleHandler::Clear();
}

void TDeploymentModuleHandler::StartListening() {
  FModuleListener = std::make_shared<TModuleListener>(*this);
  FModuleNotifierIndex = FModule->AddNotifier(FModuleListener);
}

ICustomProject* TDeploymentModuleHandler::Project() const {
  return FModule ? FModule->GetProject() : nullptr;
}

void TDeploymentModuleHandler::EnsureDefaultDeployment() {
  ICustomProject* project = Project();
  if (!FEnsureDefaultDeployment || !project)
    return;
  // Cleared first: what reads the defaults may ask for the files. After an error the next call
  // meets the same error instead of taking half of the defaults for the whole.
  FEnsureDefaultDeployment = false;
  try {
    ReadDefaultsUnlessStored(*project);
    FServices.GetProjectFileUtils().EnsureImport(*project, SideFileImport, SideFileCondition);
  } catch (...) {
    FEnsureDefaultDeployment = true;
    throw;
  }
}

void TDeploymentModuleHandler::ReadDefaultsUnlessStored(ICustomProject& project) {
  IOTAProjectFileStorage& sections = FServices.GetProjectFileStorage();
  IXMLNode* section = sections.GetProjectStorageNode(*FModule, DeploymentSectionName);
  if (section && section->HasChildren())
    return;
  if (!section)
    sections.AddNewSection(*FModule, DeploymentSectionName);
  FStorage.ReadDefaultDeployment(project, *this);
  if (FBlockNotification)
    return;
  const std::string name = project.GetModuleName();
  FNotifiers.ForEach([&](IProjectDeploymentNotifier& notifier) { notifier.Loaded(name); });
}

void TDeploymentModuleHandler::Notify(IProjectDeploymentItem& item,
                                      TDeploymentItemAction action) const {
  if (FBlockNotification)
    return;
  FNotifiers.ForEach(
      [&](IProjectDeploymentNotifier& notifier) { notifier.ItemChanged(item, action); });
}

void TDeploymentModuleHandler::ItemModified(IProjectDeploymentItem& item) {
  Notify(item, TDeploymentItemAction::Modified);
}

void TDeploymentModuleHandler::FileFieldChanging(TDeploymentFile& file, TFileField field,
                                                 std::string_view newValue) {
  FFiles.FileFieldChanging(file, field, newValue);
}

int TDeploymentModuleHandler::AddNotifier(std::shared_ptr<IProjectDeploymentNotifier> notifier) {
  return FNotifiers.Add(std::move(notifier));
}

void TDeploymentModuleHandler::RemoveNotifier(int index) {
  FNotifiers.Remove(index);
}

void TDeploymentModuleHandler::CheckOwner(const TDeploymentItem* item) const {
  if (!item)
    throw std::invalid_argument("the entry was not made by a deployment");
  if (item->GetOwner() && item->GetOwner() != this)
    throw std::invalid_argument("the entry belongs to another deployment");
}

void TDeploymentModuleHandler::SetProjectRoot(std::string_view platform, std::string_view name) {
  FProjectDirs.Set(platform, std::string(name));
}

std::string TDeploymentModuleHandler::GetProjectRoot(std::string_view platform) const {
  const std::string* name = FProjectDirs.Find(platform);
  return name ? *name : std::string();
}

std::string TDeploymentModuleHandler::GetRemoteBaseDir(std::string_view platform) const {
  std::string name = GetProjectRoot(platform);
  const ICustomProject* project = Project();
  return name.empty() && project ? project->GetModuleName() : name;
}

void TDeploymentModuleHandler::ModuleRenamed(std::string_view oldName, std::string_view newName) {
  FRenamedModules.Set(oldName, std::string(newName));
}

void TDeploymentModuleHandler::ModuleRemoved(std::string_view name) {
  FRemovedModules.emplace_back(name);
}

TReconcileResult TDeploymentModuleHandler::RunReconciler(std::string_view configuration,
                                                         std::string_view platform,
                                                         bool reconcileInternally,
                                                         IReconcileJournal* journal) {
  ICustomProject* project = Project();
  if (!project)
    return TReconcileResult::CannotReconcile;
  return TDeployModuleReconciler(*project, platform, configuration, reconcileInternally, FServices,
                                 journal)
      .Reconcile();
}

TReconcileResult TDeploymentModuleHandler::Reconcile(std::string_view configuration,
                                                     std::string_view platform,
                                                     bool reconcileInternally) {
  return RunReconciler(configuration, platform, reconcileInternally, nullptr);
}

TReconcileResult TDeploymentModuleHandler::Reconcile(std::string_view configuration,
                                                     std::string_view platform,
                                                     bool reconcileInternally,
                                                     IReconcileJournal& journal) {
  return RunReconciler(configuration, platform, reconcileInternally, &journal);
}

TReconcileResult TDeploymentModuleHandler::Reconcile(std::string_view configuration,
                                                     std::string_view platform) {
  return RunReconciler(configuration, platform, /*reconcileInternally=*/false, nullptr);
}

void TDeploymentModuleHandler::SaveToDeployProj() {
  if (ICustomProject* project = Project())
    FStorage.WriteMSB(*project, *this);
}

} // namespace deployment
