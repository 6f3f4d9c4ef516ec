#include "workbench/desktop/interaction/front_list.h"

#include "workbench/desktop/projects/editor_tabs.h"
#include "workbench/desktop/projects/project_tabs.h"

namespace workbench {

TOpenProject* TFrontList::Project() const {
  return Projects.ProjectAt(Tabs.currentIndex());
}

TFormControls* TFrontList::Controls() const {
  return Tabs.ControlsAt(Tabs.currentIndex());
}

} // namespace workbench
