// Editing in the cells of the rows.
#pragma once

#include "package/host/api/forms.h"
#include "package/host/api/vteditors.h"
#include "package/view/frame_context.h"

#include <functional>
#include <memory>
#include <string_view>

namespace deployment {

class IProjectDeploymentFile;

class TCellEditing {
public:
  /// Lets the user choose the platforms of a file; true when the choice was confirmed.
  using TChoosePlatforms = std::function<bool(IProjectDeploymentFile&)>;

  TCellEditing(const TFrameContext& frame, TChoosePlatforms choosePlatforms)
      : FFrame(frame), FChoosePlatforms(std::move(choosePlatforms)) {}

  /// May cells of the column be edited?
  static bool IsEditable(int column);
  /// The editor for a cell; null for a column that is not edited.
  std::unique_ptr<ICellEditor> CreateEditor(TNodeId node, int column);
  /// Writes the text that an editor was left with to the file of the row.
  void NewText(TNodeId node, int column, std::string_view text);
  /// The node goes away.
  void Forget(TNodeId node);

private:
  bool EditorButtonPressed(ICellEditor& editor);

  const TFrameContext& FFrame;
  TChoosePlatforms FChoosePlatforms;
  TNodeId FEditingNode = 0; ///< 0: none
};

} // namespace deployment
