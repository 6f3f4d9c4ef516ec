#include "workbench/cli/completion/completion_values.h"

#include "package/common/path_text.h"
#include "workbench/cli/context/project_argument.h"
#include "workbench/project/cpp/solution.h"
#include "workbench/project/project_settings.h"
#include "workbench/remote/profile/profile_entry.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/settings/known_settings.h"

#include <algorithm>
#include <exception>
#include <set>

namespace workbench {
namespace {

// A shell reads line by line, so a name with a line end cannot be handed to it.
bool CanBeTyped(const std::string& name) {
  return !name.empty() && std::none_of(name.begin(), name.end(), [](char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
  });
}

} // namespace

TCompletionValues::TCompletionValues(std::string root, std::string project)
    : FRoot(std::move(root)), FProject(std::move(project)) {}

TCompletionValues::~TCompletionValues() = default;

TSession* TCompletionValues::Session() {
  if (!FAskedForSession) {
    FAskedForSession = true;
    try {
      FSession = std::make_unique<TSession>(TSessionOptions{FRoot});
    } catch (const std::exception&) {
      FSession.reset(); // a command says what is wrong
    }
  }
  return FSession.get();
}

TOpenProject* TCompletionValues::Project() {
  if (!FAskedForProject && Session()) {
    FAskedForProject = true;
    try {
      const std::filesystem::path file = FindProject(FProject.empty() ? "." : FProject);
      if (!IsSolutionName(file))
        FOpen = &Session()->Open(file, TOpenPurpose::Look);
    } catch (const std::exception&) {
      FOpen = nullptr; // a command says what is wrong
    }
  }
  return FOpen;
}

std::vector<TCandidate> TCompletionValues::Platforms() {
  std::vector<TCandidate> platforms;
  std::set<std::string> known;
  if (const TOpenProject* project = Project()) {
    for (const TProjectPlatform& platform : project->Settings().Platforms()) {
      if (known.insert(platform.Name).second)
        platforms.push_back({platform.Name, "platform of the project"});
    }
  }
  if (Session()) {
    for (const std::string& name : Session()->Platforms().Names()) {
      if (known.insert(name).second)
        platforms.push_back({name, {}});
    }
  }
  return platforms;
}

std::vector<TCandidate> TCompletionValues::Configurations() {
  std::vector<TCandidate> configurations;
  if (const TOpenProject* project = Project()) {
    for (const auto& configuration : project->Settings().Configurations())
      configurations.push_back({configuration->GetName(), {}});
  }
  return configurations;
}

std::vector<TCandidate> TCompletionValues::Profiles() {
  std::vector<TCandidate> profiles;
  if (!Session())
    return profiles;
  for (const TProfile& profile : Session()->RemoteProfiles().Profiles().List()) {
    if (CanBeTyped(profile.Name))
      profiles.push_back({profile.Name, profile.Platform + ", " + ProfilePlace(profile)});
  }
  return profiles;
}

std::vector<TCandidate> TCompletionValues::Entries() {
  std::vector<TCandidate> entries;
  TOpenProject* project = Project();
  if (!project)
    return entries;
  std::set<std::string> known;
  for (const auto& file : project->Deployment().GetFiles()) {
    std::string name = file->GetLocalName();
    std::replace(name.begin(), name.end(), deployment::PathDelimiter, '/');
    if (CanBeTyped(name) && known.insert(name).second)
      entries.push_back({std::move(name), file->GetDeploymentClass()});
  }
  return entries;
}

std::vector<TCandidate> TCompletionValues::Classes() {
  std::vector<TCandidate> classes;
  if (!Session())
    return classes;
  for (const auto& each : Session()->ShippedClasses()) {
    if (CanBeTyped(each->GetClassId()))
      classes.push_back({each->GetClassId(), {}});
  }
  return classes;
}

std::vector<TCandidate> TCompletionValues::Settings() {
  std::vector<TCandidate> settings;
  if (!Session())
    return settings;
  for (const std::string& name : SettingNames(Session()->Platforms().Names()))
    settings.push_back({name, {}});
  return settings;
}

} // namespace workbench
