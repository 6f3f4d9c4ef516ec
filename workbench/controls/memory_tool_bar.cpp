#include "workbench/controls/memory_tool_bar.h"

#include <utility>

namespace workbench {

TMemoryToolButton::TMemoryToolButton(deployment::TToolButton button)
    : FButton(std::move(button)), FEnabled(FButton.Enabled) {}

void TMemoryToolButton::Update() {
  if (FButton.OnUpdate)
    FButton.OnUpdate();
}

bool TMemoryToolButton::Press() {
  Update();
  if (!FEnabled)
    return false;
  if (FButton.Style == deployment::TToolButtonStyle::Check)
    FDown = !FDown;
  if (FButton.OnExecute)
    FButton.OnExecute();
  return true;
}

deployment::IToolButton& TMemoryToolBar::AddButton(deployment::TToolButton button) {
  return *FItems.emplace_back(std::make_unique<TMemoryToolButton>(std::move(button)));
}

std::vector<std::string_view> TMemoryToolBar::Layout() const {
  std::vector<std::string_view> names;
  for (const auto& item : FItems)
    names.push_back(item ? item->Description().Name : std::string_view());
  return names;
}

TMemoryToolButton* TMemoryToolBar::Find(std::string_view name) const {
  for (const auto& item : FItems) {
    if (item && item->Description().Name == name)
      return item.get();
  }
  return nullptr;
}

} // namespace workbench
