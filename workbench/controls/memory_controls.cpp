#include "workbench/controls/memory_controls.h"

#include <string_view>
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

// The project's full path; what a name cannot hold is written as its number.
std::string TMemoryControls::GetIdentifier(const deployment::IOTAProject& project) const {
  constexpr std::string_view Digits = "0123456789ABCDEF";
  std::string identifier;
  for (const char c : project.GetFileName()) {
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) {
      identifier.push_back(c);
    } else {
      const auto code = static_cast<unsigned char>(c);
      identifier.append({'_', Digits[code >> 4], Digits[code & 0xF]});
    }
  }
  return identifier;
}

} // namespace workbench
