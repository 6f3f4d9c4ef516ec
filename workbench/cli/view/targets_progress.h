// What is shown of several targets while they are worked on.
#pragma once

#include "workbench/cli/context/output.h"
#include "workbench/deploy/deploy_observer.h"

#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace workbench {

/// At a terminal a line for each target that is being worked on, drawn anew as they go on;
/// elsewhere nothing. May be used by several threads, but for the drawing.
class TTargetsProgress {
public:
  /// `names` are those of the targets, fit for a person's eyes.
  TTargetsProgress(const TOutput& output, const std::vector<std::string>& names);
  ~TTargetsProgress();
  TTargetsProgress(const TTargetsProgress&) = delete;
  TTargetsProgress& operator=(const TTargetsProgress&) = delete;

  /// The target is begun, and has ended.
  void Begin(std::size_t target);
  void End(std::size_t target);
  /// Hears of a deploy to the target. Lives as long as the object.
  IDeployObserver& ObserverOf(std::size_t target);

  /// Draws the lines anew.
  void Draw();
  /// Takes them away, before something else is printed.
  void Clear();

private:
  class TTarget;

  void ClearLines();

  const bool FIsShown;
  std::vector<std::unique_ptr<TTarget>> FTargets;
  std::mutex FMutex;      // of standard error
  std::size_t FDrawn = 0; // lines
};

} // namespace workbench
