#include "workbench/controls/memory_targets_combo_box.h"

#include "package/host/api/platforms.h"

namespace workbench {

void TMemoryTargetsComboBox::SetProject(deployment::ICustomProject* project) {
  FProject = project;
  FPlatform = project ? project->GetCurrentPlatform() : std::string();
  FConfiguration = project ? project->GetCurrentConfiguration() : std::string();
}

void TMemoryTargetsComboBox::Select(const deployment::TDeploymentTarget& target) {
  FConfiguration = target.Configuration;
  FPlatform = target.Platform == deployment::sAllPlatforms ? std::string() : target.Platform;
}

void TMemoryTargetsComboBox::Choose(std::string_view configuration, std::string_view platform) {
  Select({std::string(configuration), std::string(platform)});
  if (FOnChange)
    FOnChange();
}

} // namespace workbench
