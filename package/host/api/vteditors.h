// Host unit Vteditors: the cell editors of the tree control.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// An editor of one cell. Made by the host for a form, owned by the tree while it is open.
class ICellEditor {
public:
  virtual ~ICellEditor() = default;
  virtual std::string GetText() const = 0;
  virtual void SetText(std::string_view text) = 0;
};

/// Runs when the editor's button is pressed; true when the press was handled.
using TEditorButtonHandler = std::function<bool(ICellEditor&)>;
/// Accepts or refuses the text of an editor.
using TEditorValidator = std::function<bool(std::string_view)>;

/// Makes editors. Implemented by the host.
class ICellEditors {
public:
  virtual ~ICellEditors() = default;
  /// Edit box with a button that shows an image of the form's image list.
  virtual std::unique_ptr<ICellEditor>
  CreateButtonEditor(int imageIndex, TEditorButtonHandler pressed, TEditorValidator validate) = 0;
  /// Combo box whose items are the user's history of that name.
  virtual std::unique_ptr<ICellEditor> CreateHistoryComboEditor(std::string_view historyName) = 0;
  virtual std::unique_ptr<ICellEditor> CreateComboEditor(std::vector<std::string> items,
                                                         TEditorValidator validate) = 0;
};

} // namespace deployment
