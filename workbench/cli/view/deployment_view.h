// The Deployment Manager without a window: the package's own view, worked by a command.
#pragma once

#include "workbench/cli/context/command.h"
#include "workbench/cli/context/silent_dialogs.h"
#include "workbench/cli/context/target.h"
#include "workbench/controls/memory_controls.h"
#include "workbench/remote/target/seen_files.h"
#include "workbench/services/editor_views.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// One row as the view shows it.
struct TViewRow {
  std::vector<std::string> Texts; ///< in the order of deployment::FileColumns
  bool Checked = false;
  bool Dimmed = false;

  /// The local name as the entry stores it: the columns show its directory and its name.
  std::string StoredName() const;
};

/// Shows one project at a time; what was shown is closed when the object goes.
class TDeploymentView final : public IEditorArea {
public:
  /// The context must outlive the object.
  explicit TDeploymentView(TCommandContext& context);
  ~TDeploymentView() override;
  TDeploymentView(const TDeploymentView&) = delete;
  TDeploymentView& operator=(const TDeploymentView&) = delete;

  /// Opens the view of the project for the target, which reconciles in memory. The platform is the
  /// active one from then on, for this run only. Throws TInputError when the target cannot be
  /// computed.
  void Open(TOpenProject& project, const TTarget& target);
  /// The same, and connects before the rows are built. Throws TExitError with the reason when that
  /// fails.
  void OpenConnected(TOpenProject& project, const TTarget& target);
  /// What the target was asked about for the rows, for others that ask the same.
  TSeenFiles& Seen() { return FSeen; }
  /// Sorts by the text of that key. Throws TUsageError, with the keys, for another one.
  void Sort(std::string_view key, bool descending);
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
  void Show(TOpenProject& project, const TTarget& target, bool connect);

  TCommandContext& FContext;
  TSilentDialogs FDialogs;
  TSeenFiles FSeen;
  TMemoryControls* FControls = nullptr; // of the view that is shown
};

} // namespace workbench
