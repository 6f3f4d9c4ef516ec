#include "workbench/services/storage_service.h"

#include "workbench/services/project_module.h"

#include <algorithm>

namespace workbench {
namespace {

TProjectDocument& DocumentOf(deployment::IOTAModule& module) {
  return dynamic_cast<TProjectModule&>(module).Document();
}

} // namespace

int TProjectFileStorage::AddNotifier(
    std::shared_ptr<deployment::IOTAProjectFileStorageNotifier> notifier) {
  FNotifiers.push_back(std::move(notifier));
  return static_cast<int>(FNotifiers.size()) - 1;
}

void TProjectFileStorage::RemoveNotifier(int index) {
  if (index >= 0 && static_cast<std::size_t>(index) < FNotifiers.size())
    FNotifiers[static_cast<std::size_t>(index)].reset();
}

std::size_t TProjectFileStorage::NotifierCount() const {
  return static_cast<std::size_t>(std::count_if(
      FNotifiers.begin(), FNotifiers.end(), [](const auto& entry) { return entry != nullptr; }));
}

deployment::IOTAProjectFileStorageNotifier* TProjectFileStorage::Owner() const {
  const auto found = std::find_if(FNotifiers.begin(), FNotifiers.end(),
                                  [](const auto& entry) { return entry != nullptr; });
  return found == FNotifiers.end() ? nullptr : found->get();
}

std::string TProjectFileStorage::SectionName() const {
  const auto* owner = Owner();
  return owner ? owner->GetName() : std::string();
}

deployment::TSectionLayout TProjectFileStorage::SectionLayout(TProjectModule& module) const {
  const auto* owner = Owner();
  TXmlElement* section = owner ? module.Document().FindSection(owner->GetName()) : nullptr;
  return section ? owner->GetLayout(*section) : deployment::TSectionLayout();
}

deployment::IXMLNode*
TProjectFileStorage::GetProjectStorageNode(deployment::IOTAModule& projectOrGroup,
                                           std::string_view name) {
  return DocumentOf(projectOrGroup).FindSection(name);
}

deployment::IXMLNode& TProjectFileStorage::AddNewSection(deployment::IOTAModule& projectOrGroup,
                                                         std::string_view name) {
  return DocumentOf(projectOrGroup).AddSection(name);
}

void TProjectFileStorage::ProjectLoaded(TProjectModule& module) {
  auto* owner = Owner();
  if (!owner)
    return;
  owner->ProjectLoaded(module, module.Document().FindSection(owner->GetName()));
  module.Document().ForgetLargeSection();
}

void TProjectFileStorage::ProjectClosing(TProjectModule& module) {
  if (auto* owner = Owner())
    owner->ProjectClosing(module);
}

void TProjectFileStorage::CreatingProject(TProjectModule& module) {
  if (auto* owner = Owner())
    owner->CreatingProject(module);
}

std::unique_ptr<TTextPieces> TProjectFileStorage::ComposeProject(TProjectModule& module) {
  auto* owner = Owner();
  if (!owner)
    return nullptr;
  return module.Document().Compose(
      [&](deployment::IXMLNode& node) { owner->ProjectSaving(module, node); });
}

} // namespace workbench
