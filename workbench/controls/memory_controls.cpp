#include "workbench/controls/memory_controls.h"

#include <utility>

namespace workbench {

std::unique_ptr<deployment::IToolBar>
TMemoryControls::CreateToolBar(deployment::TImageList images) {
  auto toolBar = std::make_unique<TMemoryToolBar>(images);
  FToolBar = toolBar.get();
  return toolBar;
}

std::unique_ptr<deployment::ITargetsComboBox> TMemoryControls::CreateTargetsComboBox() {
  auto targets = std::make_unique<TMemoryTargetsComboBox>();
  FTargets = targets.get();
  return targets;
}

std::unique_ptr<deployment::IVirtualStringTree>
TMemoryControls::CreateTree(const deployment::TTreeOptions& options,
                            deployment::TVirtualTreeEvents events) {
  auto tree = std::make_unique<TMemoryTree>(options, std::move(events));
  FTree = tree.get();
  return tree;
}

} // namespace workbench
