// Host unit Controls: makes the controls of one form. Whoever shows a form hands them to it.
#pragma once

#include "package/host/api/dialogs.h"
#include "package/host/api/idetargetscombobox.h"
#include "package/host/api/idevirtualtrees.h"
#include "package/host/api/mainthread.h"
#include "package/host/api/toolbars.h"
#include "package/host/api/toolsapi.h"
#include "package/host/api/vteditors.h"

#include <memory>
#include <optional>
#include <string>

namespace deployment {

/// The colours in which the host draws.
class IVisualStyle {
public:
  virtual ~IVisualStyle() = default;
  /// Text colour of an item of a tree; nothing when the style does not tell.
  virtual std::optional<TTextColor> GetTreeItemTextColor() const = 0;
};

/// Implemented by the host for each form; outlives the form. What it makes is shown in the order of
/// making, from top to bottom, and belongs to the form.
class IControls {
public:
  virtual ~IControls() = default;
  virtual std::unique_ptr<IToolBar> CreateToolBar(TImageList images) = 0;
  virtual std::unique_ptr<ITargetsComboBox> CreateTargetsComboBox() = 0;
  virtual std::unique_ptr<IVirtualStringTree> CreateTree(const TTreeOptions& options,
                                                         TVirtualTreeEvents events) = 0;
  virtual ICellEditors& GetCellEditors() = 0;
  virtual IDialogs& GetDialogs() = 0;
  virtual const IVisualStyle& GetStyle() const = 0;
  virtual std::shared_ptr<IMainThreadQueue> GetMainThread() = 0;
  /// A text that no other open project has; may stand in the name of a component.
  virtual std::string GetIdentifier(const IOTAProject& project) const = 0;
};

} // namespace deployment
