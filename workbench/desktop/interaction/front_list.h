// The list that the user works with.
#pragma once

namespace workbench {

class TEditorTabs;
class TFormControls;
class TOpenProject;
class TProjectTabs;

/// Of the lists that are open side by side, the one in front. Both must outlive the object.
struct TFrontList {
  TProjectTabs& Projects;
  TEditorTabs& Tabs;

  /// Null when no list is open.
  TOpenProject* Project() const;
  /// Null when no list is open.
  TFormControls* Controls() const;
};

} // namespace workbench
