#include "workbench/desktop/projects/added_rows.h"

#include "package/host/api/platformapi.h"
#include "package/host/api/platforms.h"
#include "package/host/api/view_buttons.h"
#include "workbench/desktop/controls/form_controls.h"
#include "workbench/desktop/projects/shown_target.h"
#include "workbench/session/added_file.h"
#include "workbench/session/entry_adder.h"
#include "workbench/session/session.h"

#include <vector>

namespace workbench {

using deployment::TNodeId;

void AddFolder(TOpenProject& project, const TFormControls& controls,
               const TPlatformTable& platforms, const std::filesystem::path& folder) {
  const TAddedTree tree = FilesOfTree(folder.string(), project.GivenFileName());
  const deployment::TDeploymentTarget target = ShownTarget(controls);
  std::vector<std::string> names{target.Platform};
  const auto* supported = project.Project().GetProjectPlatforms();
  if (target.Platform == deployment::sAllPlatforms && supported)
    names = supported->GetSupportedPlatforms();
  TEntryAdder adder(project, platforms);
  deployment::IProjectDeployment& deployment = project.Deployment();
  deployment.SetBlockNotification(true);
  for (const TAddedFile& file : tree.Files) {
    if (&file == &tree.Files.back())
      deployment.SetBlockNotification(false);
    adder.Add({.LocalName = file.LocalName,
               .Configuration = target.Configuration,
               .Platforms = names,
               .SubDirectory = file.SubDirectory});
  }
  deployment.SetBlockNotification(false);
}

TNewRows::TNewRows(TFormControls& controls) : QObject(&controls), FControls(&controls) {
  connect(&controls, &TFormControls::CommandStarts, this, &TNewRows::Begin);
  if (controls.ToolBar())
    connect(controls.ToolBar(), &TToolBar::Executed, this, [this](const QAction* action) {
      if (action->objectName().toStdString() == deployment::view_button::AddFiles)
        Select();
    });
}

std::size_t TNewRows::RowCount() const {
  return FControls && FControls->Tree() ? FControls->Tree()->Model().Nodes().GetChildren(0).size()
                                        : 0;
}

void TNewRows::Begin() {
  FBefore = RowCount();
}

// New entries stand behind the others, and the ids of the nodes count up with them.
void TNewRows::Select() {
  const std::size_t now = RowCount();
  if (now <= FBefore || !FControls || !FControls->Tree())
    return;
  TVirtualTree& tree = *FControls->Tree();
  tree.Flush();
  for (const TNodeId node : tree.GetSelected())
    tree.SetSelected(node, false);
  const TNodeId end = tree.Model().Nodes().EndOfNodes();
  const TNodeId first = end - static_cast<TNodeId>(now - FBefore);
  for (TNodeId node = first; node < end; ++node) {
    if (tree.Model().IndexOf(node).isValid())
      tree.SetSelected(node, true);
  }
  tree.Flush();
  const QModelIndex shown = tree.Model().IndexOf(first);
  if (!shown.isValid())
    return;
  tree.View().selectionModel()->setCurrentIndex(shown, QItemSelectionModel::NoUpdate);
  tree.View().scrollTo(shown);
}

} // namespace workbench
