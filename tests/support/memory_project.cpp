#include "tests/support/memory_project.h"

#include "package/common/case_fold.h"
#include "tests/support/value_of.h"

#include <algorithm>

namespace deployment {
namespace {

template <class TAction>
void ForEachNotifier(std::vector<std::shared_ptr<IOTAModuleNotifier>>& notifiers, TAction action) {
  // By index, and each one shared while it runs: a listener may take itself off the list.
  for (std::size_t i = 0; i < notifiers.size(); ++i) {
    if (const auto notifier = notifiers[i])
      action(*notifier);
  }
}

} // namespace

std::vector<const IOTABuildConfiguration*> TMemoryOptions::GetConfigurations() const {
  std::vector<const IOTABuildConfiguration*> configurations{&Base, &Debug};
  configurations.insert(configurations.end(), Further.begin(), Further.end());
  return configurations;
}

std::string TMemoryOptions::GetOptionValue(std::string_view configuration,
                                           std::string_view platform,
                                           std::string_view option) const {
  return ValueOf(
      Values, std::string(configuration).append("|").append(platform).append("|").append(option));
}

std::string TMemoryOptions::GetBaseProperty(std::string_view name) const {
  return ValueOf(BaseProperties, name);
}

void TMemoryOptions::SetBaseProperty(std::string_view name, std::string_view value) {
  BaseProperties[std::string(name)] = value;
}

bool TMemoryProjectPlatforms::SetActivePlatform(std::string_view platform) {
  if (MayChange)
    Active = platform;
  return MayChange;
}

std::string TMemoryProjectPlatforms::GetProfileName(std::string_view platform) const {
  return ValueOf(Profiles, platform);
}

std::string TMemoryProjectPlatforms::GetSDKName(std::string_view platform) const {
  return ValueOf(SDKs, platform);
}

TMemoryProject::~TMemoryProject() {
  Close();
}

int TMemoryProject::AddNotifier(std::shared_ptr<IOTAModuleNotifier> notifier) {
  Notifiers.push_back(std::move(notifier));
  return static_cast<int>(Notifiers.size()) - 1;
}

void TMemoryProject::RemoveNotifier(int index) {
  if (index >= 0 && static_cast<std::size_t>(index) < Notifiers.size())
    Notifiers[static_cast<std::size_t>(index)].reset();
}

void TMemoryProject::AttachHandler(std::shared_ptr<IModuleHandler> handler) {
  Handlers.push_back(std::move(handler));
}

IProjectDeployment* TMemoryProject::GetProjectDeployment() const {
  for (const auto& handler : Handlers) {
    if (IProjectDeployment* deployment = handler->GetProjectDeployment())
      return deployment;
  }
  return GivenDeployment;
}

std::string TMemoryProject::GetProjectOption(std::string_view name) const {
  return ValueOf(ProjectOptions, name);
}

std::string TMemoryProject::GetOutputFileName(std::string_view configuration,
                                              std::string_view platform) const {
  const std::string key = std::string(configuration).append("|").append(platform);
  if (const auto found = OutputFiles.find(key); found != OutputFiles.end())
    return found->second;
  return std::string(R"(C:\work\App\)")
      .append(platform)
      .append("\\")
      .append(configuration)
      .append("\\")
      .append(ModuleName)
      .append(".exe");
}

TMemoryXMLNode* TMemoryProject::FindSection(std::string_view name) {
  const auto found = std::find_if(Sections.begin(), Sections.end(), [&](const auto& section) {
    return SameText(section->NodeName(), name);
  });
  return found == Sections.end() ? nullptr : found->get();
}

TMemoryXMLNode& TMemoryProject::AddSection(std::string_view name) {
  return *Sections.emplace_back(std::make_unique<TMemoryXMLNode>(name));
}

std::size_t TMemoryProject::NotifierCount() const {
  return static_cast<std::size_t>(std::count_if(Notifiers.begin(), Notifiers.end(),
                                                [](const auto& n) { return n != nullptr; }));
}

void TMemoryProject::RaiseAfterSave() {
  ForEachNotifier(Notifiers, [](IOTAModuleNotifier& notifier) { notifier.AfterSave(); });
}

void TMemoryProject::RaiseModuleRenamed(std::string_view oldName, std::string_view newName) {
  ForEachNotifier(Notifiers,
                  [&](IOTAModuleNotifier& notifier) { notifier.ModuleRenamed(oldName, newName); });
}

void TMemoryProject::RaiseModuleRemoved(std::string_view name) {
  ForEachNotifier(Notifiers, [&](IOTAModuleNotifier& notifier) { notifier.ModuleRemoved(name); });
}

void TMemoryProject::Close() {
  ForEachNotifier(Notifiers, [](IOTAModuleNotifier& notifier) { notifier.Destroyed(); });
  Handlers.clear();
  Notifiers.clear();
}

} // namespace deployment
