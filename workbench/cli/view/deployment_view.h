// The Deployment Manager without a window: the package's own view, worked by a command.
#pragma once

#include "workbench/cli/context/command.h"
#include "workbench/cli/context/silent_dialogs.h"
#include "workbench/cli/context/target.h"
#include "workbench/controls/memory_controls.h"
#include "workbench/services/editor_views.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// One row as the view shows it.
struct TViewRow {
  std::vector<std::string> Texts; ///< in the order of RowKeys
  bool Checked = false;
  bool Dimmed = false;
};

/// Shows one project at a time; what was shown is closed when the object goes.
class TDeploymentView final : public IEditorArea {
public:
  /// Names of the texts of a row, in the order of the view's columns; the local status is behind
  /// the remote one.
  static const std::vector<std::string>& RowKeys();

  /// The context must outlive the object.
  explicit TDeploymentView(TCommandContext& context);
  ~TDeploymentView() override;
  TDeploymentView(const TDeploymentView&) = delete;
  TDeploymentView& operator=(const TDeploymentView&) = delete;

  /// Opens the view of the project and chooses the target in it, which reconciles in memory. The
  /// platform is the active one from then on, for this run only.
  void Open(TOpenProject& project, const TTarget& target);
  /// Sorts by the text of that key. Throws TUsageError, with the keys, for another one.
  void Sort(std::string_view key, bool descending);
  /// Presses Connect and waits for the outcome. Throws TExitError with the reason.
  void Connect();
  /// Presses the button of that name; false when it is disabled.
  bool Press(std::string_view button);
  std::vector<TViewRow> Rows() const;
  /// What message boxes said since the last call.
  std::vector<std::string> TakeMessages() { return FDialogs.TakeMessages(); }

  std::unique_ptr<deployment::IControls>
  AddView(const deployment::INTACustomEditorView& view) override;
  void BringForward(const deployment::INTACustomEditorView& view) override;
  void RemoveView(const deployment::INTACustomEditorView& view) override;

private:
  TCommandContext& FContext;
  TSilentDialogs FDialogs;
  TMemoryControls* FControls = nullptr; // of the view that is shown
};

} // namespace workbench
