// A deployment for tests of the view: a real one behind it, and a note of what was asked.
#pragma once

#include "package/model/deployment_module_handler.h"
#include "package/model/deployment_storage.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace deployment {

/// A project without defaults.
struct TNoDefaults : IDeploymentStorage {
  void ReadDefaultDeployment(ICustomProject&, IProjectDeployment&) override {}
  void WriteMSB(ICustomProject&, IProjectDeployment&) override {}
};

/// Reconcile and Revert are noted, and do what the test says; everything else is real.
class TRecordingDeployment final : public IProjectDeployment {
public:
  TRecordingDeployment(IOTAModule& module, VelmorIDEServices& services)
      : Real(module, services, FStorage) {}

  std::shared_ptr<IProjectDeploymentFile> CreateFile(std::string_view configuration,
                                                     std::string_view platform,
                                                     std::string_view localName) override {
    return Real.CreateFile(configuration, platform, localName);
  }
  std::shared_ptr<IProjectDeploymentFile> AddFile(std::string_view configuration,
                                                  std::string_view platform,
                                                  std::string_view localName) override {
    return Real.AddFile(configuration, platform, localName);
  }
  void AddFileEntry(std::string_view configuration, std::string_view platform,
                    const std::shared_ptr<IProjectDeploymentFile>& file) override {
    Real.AddFileEntry(configuration, platform, file);
  }
  TDeploymentFiles GetFiles() override {
    ++ListsAsked;
    return Real.GetFiles();
  }
  std::shared_ptr<IProjectDeploymentFile> GetFile(std::string_view key) override {
    return Real.GetFile(key);
  }
  std::shared_ptr<IProjectDeploymentFile> GetFile(std::string_view configuration,
                                                  std::string_view platform) override {
    return Real.GetFile(configuration, platform);
  }
  std::shared_ptr<IProjectDeploymentFile> FindFile(std::string_view configuration,
                                                   std::string_view platform,
                                                   std::string_view localName) override {
    return Real.FindFile(configuration, platform, localName);
  }
  TDeploymentFiles FindFiles(std::string_view localName, std::string_view configuration,
                             std::string_view platform, std::string_view className) override {
    return Real.FindFiles(localName, configuration, platform, className);
  }
  void RemoveFile(std::string_view configuration, std::string_view platform,
                  std::string_view localName) override {
    Real.RemoveFile(configuration, platform, localName);
  }
  void RemoveFileEntry(const IProjectDeploymentFile& file) override { Real.RemoveFileEntry(file); }
  void RemoveFilesOfClass(std::string_view className) override {
    Real.RemoveFilesOfClass(className);
  }
  std::shared_ptr<IProjectDeploymentClass> CreateClass() override { return Real.CreateClass(); }
  void AddClass(const std::shared_ptr<IProjectDeploymentClass>& added) override {
    Real.AddClass(added);
  }
  TDeploymentClasses GetClasses() const override { return Real.GetClasses(); }
  std::shared_ptr<IProjectDeploymentClass> FindClass(std::string_view classId) const override {
    return Real.FindClass(classId);
  }
  void SetProjectRoot(std::string_view platform, std::string_view name) override {
    Real.SetProjectRoot(platform, name);
  }
  std::string GetProjectRoot(std::string_view platform) const override {
    return Real.GetProjectRoot(platform);
  }
  const TOrderedDictionary<std::string>& GetProjectRoots() const override {
    return Real.GetProjectRoots();
  }
  std::string GetRemoteBaseDir(std::string_view platform) const override {
    return Real.GetRemoteBaseDir(platform);
  }
  void ModuleRenamed(std::string_view oldName, std::string_view newName) override {
    Real.ModuleRenamed(oldName, newName);
  }
  void ModuleRemoved(std::string_view name) override { Real.ModuleRemoved(name); }
  const TOrderedDictionary<std::string>& GetRenamedModules() const override {
    return Real.GetRenamedModules();
  }
  const std::vector<std::string>& GetRemovedModules() const override {
    return Real.GetRemovedModules();
  }
  int AddNotifier(std::shared_ptr<IProjectDeploymentNotifier> notifier) override {
    ++Listeners;
    return Real.AddNotifier(std::move(notifier));
  }
  void RemoveNotifier(int index) override {
    --Listeners;
    Real.RemoveNotifier(index);
  }
  void SetBlockNotification(bool block) override { Real.SetBlockNotification(block); }
  void Clear() override { Real.Clear(); }
  void Clear(std::span<const std::string> platforms) override { Real.Clear(platforms); }
  bool IsEmpty() const override { return Real.IsEmpty(); }
  TReconcileResult Reconcile(std::string_view configuration, std::string_view platform,
                             bool /*reconcileInternally*/) override {
    return Reconcile(configuration, platform);
  }
  TReconcileResult Reconcile(std::string_view configuration, std::string_view platform) override {
    Log.push_back(std::string("reconcile ").append(configuration).append("|").append(platform));
    if (OnReconcile)
      OnReconcile();
    return TReconcileResult::Reconciled;
  }
  TReconcileResult Reconcile(std::string_view configuration, std::string_view platform,
                             bool /*reconcileInternally*/, IReconcileJournal&) override {
    return Reconcile(configuration, platform);
  }
  void Revert(std::span<const std::string> platforms, bool keepAddedFiles) override {
    std::string text = "revert";
    for (const std::string& platform : platforms)
      text.append(" ").append(platform);
    Log.push_back(text.append(keepAddedFiles ? " keeping" : " dropping"));
  }
  void SaveToDeployProj() override { Real.SaveToDeployProj(); }

  std::vector<std::string> Log;
  std::function<void()> OnReconcile;
  int ListsAsked = 0; ///< how often all files were asked for
  int Listeners = 0;  ///< that are registered now

private:
  TNoDefaults FStorage;

public:
  TDeploymentModuleHandler Real;
};

} // namespace deployment
