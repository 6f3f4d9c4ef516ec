// The entries of a project's deployment: files and classes, added, found and removed.
#include "package/common/class_names.h"
#include "package/model/deployment_module_handler.h"

#include <algorithm>
#include <utility>

namespace deployment {

std::shared_ptr<IProjectDeploymentFile>
TDeploymentModuleHandler::CreateFile(std::string_view configuration, std::string_view platform,
                                     std::string_view localName) {
  return std::make_shared<TDeploymentFile>(configuration, platform, localName);
}

std::shared_ptr<IProjectDeploymentFile>
TDeploymentModuleHandler::AddFile(std::string_view configuration, std::string_view platform,
                                  std::string_view localName) {
  auto file = std::make_shared<TDeploymentFile>(configuration, platform, localName);
  StoreFile({configuration, platform, localName}, file);
  return file;
}

void TDeploymentModuleHandler::AddFileEntry(std::string_view configuration,
                                            std::string_view platform,
                                            const std::shared_ptr<IProjectDeploymentFile>& file) {
  auto entry = std::dynamic_pointer_cast<TDeploymentFile>(file);
  CheckOwner(entry.get());
  const std::string_view localName = entry->GetLocalName();
  StoreFile({configuration, platform, localName}, std::move(entry));
}

void TDeploymentModuleHandler::StoreFile(const TFileKey& key,
                                         std::shared_ptr<TDeploymentFile> file) {
  TDeploymentFile& added = *file;
  // Kept until listeners know: the key may be made of the texts of the entry that goes.
  const auto replaced = FFiles.Add(key, std::move(file));
  Notify(added, TDeploymentItemAction::Added);
}

TDeploymentFiles TDeploymentModuleHandler::GetFiles() {
  EnsureDefaultDeployment();
  return FFiles.Files();
}

std::shared_ptr<IProjectDeploymentFile> TDeploymentModuleHandler::GetFile(std::string_view key) {
  return FindFile(key, {}, {});
}

std::shared_ptr<IProjectDeploymentFile>
TDeploymentModuleHandler::GetFile(std::string_view configuration, std::string_view platform) {
  return FindFile(configuration, platform, {});
}

std::shared_ptr<IProjectDeploymentFile>
TDeploymentModuleHandler::FindFile(std::string_view configuration, std::string_view platform,
                                   std::string_view localName) {
  EnsureDefaultDeployment();
  return FFiles.Get({configuration, platform, localName});
}

TDeploymentFiles TDeploymentModuleHandler::FindFiles(std::string_view localName,
                                                     std::string_view configuration,
                                                     std::string_view platform,
                                                     std::string_view className) {
  return FFiles.Find({localName, configuration, platform, className});
}

void TDeploymentModuleHandler::NotifyRemoved(
    const std::shared_ptr<TDeploymentFile>& removed) const {
  if (removed)
    Notify(*removed, TDeploymentItemAction::Removed);
}

void TDeploymentModuleHandler::RemoveFile(std::string_view configuration, std::string_view platform,
                                          std::string_view localName) {
  NotifyRemoved(FFiles.Remove(TFileKey{configuration, platform, localName}));
}

void TDeploymentModuleHandler::RemoveFileEntry(const IProjectDeploymentFile& file) {
  if (const auto* entry = dynamic_cast<const TDeploymentFile*>(&file))
    NotifyRemoved(FFiles.Remove(*entry));
}

void TDeploymentModuleHandler::RemoveFilesOfClass(std::string_view className) {
  // A listener may have taken an entry out meanwhile; then nothing is left to remove.
  for (const auto& file : FFiles.FilesOfClass(className))
    RemoveFileEntry(*file);
}

std::shared_ptr<IProjectDeploymentClass> TDeploymentModuleHandler::CreateClass() {
  return std::make_shared<TDeploymentClass>();
}

void TDeploymentModuleHandler::AddClass(
    const std::shared_ptr<IProjectDeploymentClass>& deploymentClass) {
  auto added = std::dynamic_pointer_cast<TDeploymentClass>(deploymentClass);
  CheckOwner(added.get());
  if (added->GetOwner())
    DropFormerId(*added);
  if (const auto* present = FClasses.Find(added->GetClassId()))
    (*present)->SetOwner(nullptr);
  added->SetOwner(this);
  FClasses.Set(added->GetClassId(), added);
}

// A class that is added anew after its id changed is held under its new id alone.
void TDeploymentModuleHandler::DropFormerId(const TDeploymentClass& held) {
  const auto pair = std::find_if(FClasses.begin(), FClasses.end(),
                                 [&](const auto& each) { return each.Value.get() == &held; });
  if (pair != FClasses.end() && pair->Key != held.GetClassId())
    FClasses.Remove(std::string(pair->Key));
}

TDeploymentClasses TDeploymentModuleHandler::GetClasses() const {
  TDeploymentClasses classes;
  classes.reserve(FClasses.Count());
  for (const auto& pair : FClasses)
    classes.push_back(pair.Value);
  return classes;
}

std::shared_ptr<IProjectDeploymentClass>
TDeploymentModuleHandler::FindClass(std::string_view classId) const {
  const auto* found = FClasses.Find(classId);
  return found ? *found : nullptr;
}

void TDeploymentModuleHandler::Clear() {
  FFiles.Clear();
  ClearClasses();
}

void TDeploymentModuleHandler::Clear(std::span<const std::string> platforms) {
  for (const auto& file : FFiles.Files()) {
    if (file->GetDeploymentClass() == class_names::File)
      continue;
    for (const std::string& platform : platforms)
      file->RemovePlatform(platform);
  }
  ClearClasses();
}

void TDeploymentModuleHandler::ClearClasses() {
  for (const auto& pair : FClasses)
    pair.Value->SetOwner(nullptr);
  FClasses.Clear();
}

} // namespace deployment
