// The tool bar of a frame: each command with its button, its words, its guard and its action.
#pragma once

#include "package/host/api/toolbars.h"
#include "package/view/entry_commands.h"
#include "package/view/remote_commands.h"

#include <array>
#include <cstddef>
#include <memory>

namespace deployment {

/// The commands in the order of the tool bar.
enum class TFrameAction : std::size_t {
  Reconcile,
  Add,
  Delete,
  AddFeature,
  Deploy,
  Connect,
  ResetDefault,
  CheckAll,
  UncheckAll,
  CheckSelection,
  UncheckSelection,
  ChangeRemotePath,
  ChangeOverwrite,
};
inline constexpr std::size_t FrameActionCount = 13;

class TFrameCommands {
public:
  TFrameCommands(const TFrameContext& frame, TRemoteCommands::TOnTerminate onTerminate)
      : FFrame(frame), FEntries(frame), FRemote(frame, std::move(onTerminate)) {}

  /// Makes the buttons; to be called before anything else.
  void CreateToolBar();
  IToolButton& Button(TFrameAction action) const;
  /// Runs the command as its button does, also while that is disabled.
  void Execute(TFrameAction action);

  TEntryCommands& Entries() { return FEntries; }
  TRemoteCommands& Remote() { return FRemote; }

private:
  struct TCommand;

  static const std::array<TCommand, FrameActionCount>& Commands();
  bool HasSelection() const;

  const TFrameContext& FFrame;
  TEntryCommands FEntries;
  TRemoteCommands FRemote;
  std::unique_ptr<IToolBar> FToolBar;
  std::array<IToolButton*, FrameActionCount> FButtons{}; ///< the tool bar's
};

} // namespace deployment
