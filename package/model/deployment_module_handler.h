// The deployment of one project: its files, classes and roots, and the listeners that hear of them.
#pragma once

#include "package/common/ordered_dictionary.h"
#include "package/host/api/deploymentapi.h"
#include "package/host/api/docmodul.h"
#include "package/host/api/ideservices.h"
#include "package/host/api/toolsapi.h"
#include "package/model/deployment_class.h"
#include "package/model/deployment_file_list.h"
#include "package/model/deployment_item.h"
#include "package/model/deployment_notifiers.h"
#include "package/model/deployment_storage.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// Attached to one project module and destroyed with it. GetFile, GetFiles and FindFile make sure
/// of the default deployment first, and throw what reading it throws; the next call tries again.
/// FindFiles with four empty arguments walks the files without that step.
class TDeploymentModuleHandler final : public IProjectDeployment,
                                       public IModuleHandler,
                                       private IDeploymentItemOwner {
public:
  /// True for the modules that get a deployment: projects, but not groups of projects.
  static bool CanHandleModule(const IOTAModule& module);
  /// Makes the deployment of a module, gives it to the module and listens to the module.
  static std::shared_ptr<TDeploymentModuleHandler>
  Attach(IOTAModule& module, VelmorIDEServices& services, IDeploymentStorage& storage);

  /// Services and storage must outlive the object.
  TDeploymentModuleHandler(IOTAModule& module, VelmorIDEServices& services,
                           IDeploymentStorage& storage);
  TDeploymentModuleHandler(const TDeploymentModuleHandler&) = delete;
  TDeploymentModuleHandler& operator=(const TDeploymentModuleHandler&) = delete;
  ~TDeploymentModuleHandler() override;

  IProjectDeployment* GetProjectDeployment() override { return this; }

  std::shared_ptr<IProjectDeploymentFile> CreateFile(std::string_view configuration,
                                                     std::string_view platform,
                                                     std::string_view localName) override;
  std::shared_ptr<IProjectDeploymentFile> AddFile(std::string_view configuration,
                                                  std::string_view platform,
                                                  std::string_view localName) override;
  void AddFileEntry(std::string_view configuration, std::string_view platform,
                    const std::shared_ptr<IProjectDeploymentFile>& file) override;
  TDeploymentFiles GetFiles() override;
  std::shared_ptr<IProjectDeploymentFile> GetFile(std::string_view key) override;
  std::shared_ptr<IProjectDeploymentFile> GetFile(std::string_view configuration,
                                                  std::string_view platform) override;
  std::shared_ptr<IProjectDeploymentFile> FindFile(std::string_view configuration,
                                                   std::string_view platform,
                                                   std::string_view localName) override;
  TDeploymentFiles FindFiles(std::string_view localName, std::string_view configuration,
                             std::string_view platform, std::string_view className) override;
  void RemoveFile(std::string_view configuration, std::string_view platform,
                  std::string_view localName) override;
  void RemoveFileEntry(const IProjectDeploymentFile& file) override;
  void RemoveFilesOfClass(std::string_view className) override;

  std::shared_ptr<IProjectDeploymentClass> CreateClass() override;
  void AddClass(const std::shared_ptr<IProjectDeploymentClass>& deploymentClass) override;
  TDeploymentClasses GetClasses() const override;
  std::shared_ptr<IProjectDeploymentClass> FindClass(std::string_view classId) const override;

  void SetProjectRoot(std::string_view platform, std::string_view name) override;
  std::string GetProjectRoot(std::string_view platform) const override;
  const TOrderedDictionary<std::string>& GetProjectRoots() const override { return FProjectDirs; }
  std::string GetRemoteBaseDir(std::string_view platform) const override;

  void ModuleRenamed(std::string_view oldName, std::string_view newName) override;
  void ModuleRemoved(std::string_view name) override;
  const TOrderedDictionary<std::string>& GetRenamedModules() const override {
    return FRenamedModules;
  }
  const std::vector<std::string>& GetRemovedModules() const override { return FRemovedModules; }

  int AddNotifier(std::shared_ptr<IProjectDeploymentNotifier> notifier) override;
  void RemoveNotifier(int index) override;
  void SetBlockNotification(bool block) override { FBlockNotification = block; }

  void Clear() override;
  void Clear(std::span<const std::string> platforms) override;
  bool IsEmpty() const override { return FFiles.IsEmpty() && FClasses.IsEmpty(); }

  TReconcileResult Reconcile(std::string_view configuration, std::string_view platform,
                             bool reconcileInternally) override;
  TReconcileResult Reconcile(std::string_view configuration, std::string_view platform) override;
  TReconcileResult Reconcile(std::string_view configuration, std::string_view platform,
                             bool reconcileInternally, IReconcileJournal& journal) override;
  void Revert(std::span<const std::string> platforms, bool keepAddedFiles) override;
  void SaveToDeployProj() override;

private:
  class TModuleListener;

  void ItemModified(IProjectDeploymentItem& item) override;
  void FileFieldChanging(TDeploymentFile& file, TFileField field,
                         std::string_view newValue) override;

  // The project behind the module; null once the module is gone.
  ICustomProject* Project() const;
  void StartListening();
  void Notify(IProjectDeploymentItem& item, TDeploymentItemAction action) const;
  TReconcileResult RunReconciler(std::string_view configuration, std::string_view platform,
                                 bool reconcileInternally, IReconcileJournal* journal);
  void DropPlatforms(std::span<const std::string> platforms, bool keepAddedFiles);
  void ReconcileConfigurations(std::span<const std::string> platforms);
  void EnsureDefaultDeployment();
  void ReadDefaultsUnlessStored(ICustomProject& project);
  void StoreFile(const TFileKey& key, std::shared_ptr<TDeploymentFile> file);
  void NotifyRemoved(const std::shared_ptr<TDeploymentFile>& removed) const;
  void CheckOwner(const TDeploymentItem* item) const;
  void DropFormerId(const TDeploymentClass& held);
  void ClearClasses();
  void ReplaceClasses(const TDeploymentClasses& classes);

  VelmorIDEServices& FServices;
  IDeploymentStorage& FStorage;
  IOTAModule* FModule; ///< null once the module is gone
  int FModuleNotifierIndex = -1;
  std::shared_ptr<TModuleListener> FModuleListener;
  TDeploymentNotifiers FNotifiers;
  TDeploymentFileList FFiles{*this};
  TOrderedDictionary<std::shared_ptr<TDeploymentClass>> FClasses;
  TOrderedDictionary<std::string> FProjectDirs;
  TOrderedDictionary<std::string> FRenamedModules;
  std::vector<std::string> FRemovedModules;
  bool FBlockNotification = false;
  bool FEnsureDefaultDeployment = true;
};

} // namespace deployment
