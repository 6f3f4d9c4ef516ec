// The steps of a reconcile in their order: for which targets each runs, and what it plans.
#pragma once

#include "package/host/api/reconcilejournal.h"
#include "package/reconcile/reconcile_context.h"

#include <span>

namespace deployment {

/// One step.
struct TStep {
  TReconcileStep Step;
  /// Why the step does not run for a target; TReasonCause::None when it does.
  TReasonCause (*WhyNot)(const TReconcileTarget& target);
  /// Says which files the step wants.
  void (*Plan)(TReconcileContext& context);
  /// Plans what depends on which of the wanted files other steps took; null for nothing.
  void (*Follow)(TReconcileContext& context) = nullptr;
};

/// All steps, in the order in which they run.
std::span<const TStep> ReconcileSteps();

/// Plans a whole reconcile. Asks the host and changes nothing.
void PlanReconcile(TReconcileContext& context);

// The steps, each in a file of its own.

/// Runtime packages that the project depends on.
void PlanPackages(TReconcileContext& context);
/// Debug symbols and translated resources of these packages.
void FollowPackages(TReconcileContext& context);
/// What a build of the target makes.
void PlanProjectOutput(TReconcileContext& context);
/// Debug symbols of the output. Where a target has none, those of every target go.
void PlanDebugSymbols(TReconcileContext& context);
/// The symbols go where the output goes.
void FollowOutput(TReconcileContext& context);
/// What an application bundle of OS X needs beside the program.
void PlanOSXDefaults(TReconcileContext& context);
/// What an application bundle of iOS needs beside the program.
void PlaniOSDefaults(TReconcileContext& context);
/// What an Android application package needs beside the program.
void PlanAndroidDefaults(TReconcileContext& context);
/// Icons, spotlight and settings images, launch and splash images. An option that was emptied
/// leaves the entry that is there.
void PlanPlatformArtwork(TReconcileContext& context);
/// The files of the project itself; entries of files that left it go.
void PlanProjectFiles(TReconcileContext& context);

} // namespace deployment
