// The controls of a form that nobody looks at: the command line and tests show forms with them.
#pragma once

#include "package/host/api/controls.h"
#include "workbench/controls/main_thread_queue.h"
#include "workbench/controls/memory_cell_editors.h"
#include "workbench/controls/memory_targets_combo_box.h"
#include "workbench/controls/memory_tool_bar.h"
#include "workbench/controls/memory_tree.h"
#include "workbench/controls/project_identifier.h"

#include <memory>
#include <optional>
#include <string>

namespace workbench {

class TMemoryStyle final : public deployment::IVisualStyle {
public:
  std::optional<deployment::TTextColor> GetTreeItemTextColor() const override {
    return TreeItemTextColor;
  }
  std::optional<deployment::TTextColor> TreeItemTextColor;
};

/// The controls of one form. Tool bar, target box and tree belong to the form; what is returned
/// here is null before the form made them and good as long as the form.
class TMemoryControls final : public deployment::IControls {
public:
  /// The dialogs answer questions; they must outlive the object.
  explicit TMemoryControls(deployment::IDialogs& dialogs) : FDialogs(dialogs) {}

  std::unique_ptr<deployment::IToolBar> CreateToolBar(deployment::TImageList images) override;
  std::unique_ptr<deployment::ITargetsComboBox> CreateTargetsComboBox() override;
  std::unique_ptr<deployment::IVirtualStringTree>
  CreateTree(const deployment::TTreeOptions& options,
             deployment::TVirtualTreeEvents events) override;
  deployment::ICellEditors& GetCellEditors() override { return FEditors; }
  deployment::IDialogs& GetDialogs() override { return FDialogs; }
  TMemoryStyle& GetStyle() { return FStyle; }
  const deployment::IVisualStyle& GetStyle() const override { return FStyle; }
  std::shared_ptr<deployment::IMainThreadQueue> GetMainThread() override { return FMainThread; }
  std::string GetIdentifier(const deployment::IOTAProject& project) const override {
    return ProjectIdentifier(project);
  }

  TMemoryToolBar* ToolBar() const { return FToolBar; }
  TMemoryTargetsComboBox* TargetsComboBox() const { return FTargets; }
  TMemoryTree* Tree() const { return FTree; }
  TMainThreadQueue& MainThread() { return *FMainThread; }

private:
  deployment::IDialogs& FDialogs;
  TMemoryCellEditors FEditors;
  TMemoryStyle FStyle;
  std::shared_ptr<TMainThreadQueue> FMainThread = std::make_shared<TMainThreadQueue>();
  TMemoryToolBar* FToolBar = nullptr;
  TMemoryTargetsComboBox* FTargets = nullptr;
  TMemoryTree* FTree = nullptr;
};

} // namespace workbench
