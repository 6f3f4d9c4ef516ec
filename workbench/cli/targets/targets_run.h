// One command for several targets: so many at a time, and one answer for all of them.
#pragma once

#include "workbench/cli/context/command.h"
#include "workbench/cli/context/interrupt_watch.h"
#include "workbench/cli/view/targets_progress.h"
#include "workbench/remote/target/profile.h"

#include <atomic>
#include <cstddef>
#include <exception>
#include <functional>
#include <string>
#include <vector>

namespace workbench {

/// What the command does for a target, by its number.
struct TTargetsWork {
  /// Does it on a thread of its own, which other targets have at the same time; empty: nothing is
  /// done anywhere. May throw.
  std::function<void(std::size_t target)> Do;
  /// Prints what came of it on the main thread and returns the exit status. Throws as ICommand::Run
  /// does. Is not called when Do threw.
  std::function<int(std::size_t target, TCommandContext& part)> Tell;
};

/// An interrupt lets the targets that are being worked on come to an end in order, and begins no
/// others.
class TTargetsRun {
public:
  /// The context must outlive the object.
  TTargetsRun(TCommandContext& context, std::vector<TProfile> profiles, unsigned hosts);

  const std::vector<TProfile>& Profiles() const { return FProfiles; }
  /// The number of the signal that interrupted the run; 0 while none did.
  const std::atomic<int>& Cancelled() const { return FCancelled; }
  IDeployObserver& ObserverOf(std::size_t target) { return FProgress.ObserverOf(target); }
  /// The table of outcomes is not printed: the command has one of its own.
  void OmitTable() { FHasTable = false; }

  /// Does the work, prints the table or the document, and returns the highest exit status. What
  /// there is to ask about machines is asked first, one question after the other.
  int Run(const TTargetsWork& work);

  // Of a run that is over.

  int ExitOf(std::size_t target) const { return FOutcomes[target].Exit; }
  /// What it ended with, for people.
  const std::string& TextOf(std::size_t target) const { return FOutcomes[target].Text; }

private:
  struct TOutcome {
    int Exit = 0;
    TJson Document;
    std::string Text;
  };

  static std::vector<std::string> NamesOf(const TCommandContext& context,
                                          const std::vector<TProfile>& profiles);
  std::vector<std::string> Settle();
  TOutcome OutcomeOf(std::size_t target, const std::function<int(TCommandContext&)>& tell);
  void Print() const;

  TCommandContext& FContext;
  const std::vector<TProfile> FProfiles;
  const std::vector<std::string> FNames; // for people
  const unsigned FHosts;
  bool FHasTable = true;
  std::atomic<int> FCancelled = 0;
  TInterruptWatch FWatch;
  TTargetsProgress FProgress;
  std::vector<TOutcome> FOutcomes;
};

/// Throws TExitError when an interrupt ended what was being done.
void CheckNotInterrupted(const std::atomic<int>& cancelled);

} // namespace workbench
