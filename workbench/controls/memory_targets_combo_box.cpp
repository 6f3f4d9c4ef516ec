#include "workbench/controls/memory_targets_combo_box.h"

namespace workbench {

void TMemoryTargetsComboBox::SetProject(deployment::ICustomProject* project) {
  FProject = project;
  FPlatform = project ? project->GetCurrentPlatform() : std::string();
  FConfiguration = project ? project->GetCurrentConfiguration() : std::string();
}

void TMemoryTargetsComboBox::Choose(std::string_view configuration, std::string_view platform) {
  FConfiguration = configuration;
  FPlatform = platform;
  if (FOnChange)
    FOnChange();
}

} // namespace workbench
