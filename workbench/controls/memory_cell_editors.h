// Cell editors without a window: what they were made with, and the text in them.
#pragma once

#include "package/host/api/vteditors.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

enum class TCellEditorKind { Button, HistoryCombo, Combo };

/// An editor; the user's part is played through the public members.
class TMemoryCellEditor final : public deployment::ICellEditor {
public:
  explicit TMemoryCellEditor(TCellEditorKind kind) : Kind(kind) {}

  std::string GetText() const override { return Text; }
  void SetText(std::string_view text) override { Text = text; }

  /// What the form answered to the press; false for an editor without a button.
  bool PressButton() { return Pressed && Pressed(*this); }
  bool Accepts(std::string_view text) const { return !Validate || Validate(text); }

  TCellEditorKind Kind;
  int ImageIndex = -1; ///< of a button editor
  std::string HistoryName;
  std::vector<std::string> Items;
  deployment::TEditorButtonHandler Pressed;
  deployment::TEditorValidator Validate;
  std::string Text;
};

class TMemoryCellEditors final : public deployment::ICellEditors {
public:
  std::unique_ptr<deployment::ICellEditor>
  CreateButtonEditor(int imageIndex, deployment::TEditorButtonHandler pressed,
                     deployment::TEditorValidator validate) override {
    auto editor = std::make_unique<TMemoryCellEditor>(TCellEditorKind::Button);
    editor->ImageIndex = imageIndex;
    editor->Pressed = std::move(pressed);
    editor->Validate = std::move(validate);
    return editor;
  }
  std::unique_ptr<deployment::ICellEditor>
  CreateHistoryComboEditor(std::string_view historyName) override {
    auto editor = std::make_unique<TMemoryCellEditor>(TCellEditorKind::HistoryCombo);
    editor->HistoryName = historyName;
    return editor;
  }
  std::unique_ptr<deployment::ICellEditor>
  CreateComboEditor(std::vector<std::string> items,
                    deployment::TEditorValidator validate) override {
    auto editor = std::make_unique<TMemoryCellEditor>(TCellEditorKind::Combo);
    editor->Items = std::move(items);
    editor->Validate = std::move(validate);
    return editor;
  }
};

} // namespace workbench
