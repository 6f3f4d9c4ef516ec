// For tests of the storage: a host, the storage manager and one project with its deployment.
#pragma once

#include "package/model/deployment_module_handler.h"
#include "package/model/deployment_storage_manager.h"
#include "tests/support/memory_host.h"
#include "tests/support/memory_project.h"
#include "tests/support/memory_xml.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

struct TStoredDeployment {
  TStoredDeployment() { TDeploymentModuleHandler::Attach(Project, Host, Storage); }

  IProjectDeployment& Deployment() { return *Project.GetProjectDeployment(); }

  /// Plays the opening of a project with this section.
  void Load(std::string_view section) {
    LoadedSection = ParseMemoryXML(section, "App.vproj");
    Storage.ProjectLoaded(Project, LoadedSection.get());
  }
  /// Plays the opening of a project without a section.
  void LoadNothing() { Storage.ProjectLoaded(Project, nullptr); }
  /// Plays a save; what the section then is.
  std::string Save() {
    TMemoryXMLNode node("Deployment");
    Storage.ProjectSaving(Project, node);
    return node.ToText();
  }
  /// All files, without making sure of the defaults.
  TDeploymentFiles Files() { return Deployment().FindFiles("", "", "", ""); }
  std::vector<std::string> LocalNames() {
    std::vector<std::string> names;
    for (const auto& file : Files())
      names.push_back(file->GetLocalName());
    return names;
  }

  TMemoryHost Host;
  TDeploymentStorageManager Storage{Host};
  std::unique_ptr<TMemoryXMLNode> LoadedSection;
  TMemoryProject Project; // last: it closes first
};

/// "file:line: sentence" of the TInputError that the action throws; empty when it throws none.
template <class TAction>
std::string ErrorOf(TAction action) {
  try {
    action();
  } catch (const TInputError& error) {
    return error.Place().File + ":" + std::to_string(error.Place().Line) + ": " + error.what();
  }
  return {};
}

} // namespace deployment
