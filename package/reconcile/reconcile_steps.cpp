#include "package/reconcile/reconcile_steps.h"

#include <array>

namespace deployment {
namespace {

// The kind of OS X program that is an application bundle.
constexpr int OSXBundleKind = 1;

TReasonCause Always(const TReconcileTarget& /*target*/) {
  return TReasonCause::None;
}

TReasonCause WhyNoOSXDefaults(const TReconcileTarget& target) {
  if (target.Platform() != "OSX32")
    return TReasonCause::WrongPlatform;
  IPlatformOptions* options = target.Project().GetPlatformOptions();
  if (!options)
    return TReasonCause::ServiceMissing;
  const int kind = options->GetOSXKind(target.Configuration(), target.Platform());
  return kind == OSXBundleKind ? TReasonCause::None : TReasonCause::WrongKind;
}

TReasonCause WhyNoMobileDefaults(const TReconcileTarget& target, bool isPlatform) {
  if (!isPlatform)
    return TReasonCause::WrongPlatform;
  if (target.IsPackage())
    return TReasonCause::WrongKind;
  return target.Project().GetPlatformOptions() ? TReasonCause::None : TReasonCause::ServiceMissing;
}

bool IsiOS(const TReconcileTarget& target) {
  return target.isMobilePlatform(target.Platform()) && target.isApplePlatform();
}

TReasonCause WhyNoiOSDefaults(const TReconcileTarget& target) {
  return WhyNoMobileDefaults(target, IsiOS(target));
}

TReasonCause WhyNoAndroidDefaults(const TReconcileTarget& target) {
  return WhyNoMobileDefaults(target, target.Platform() == "Android");
}

TReasonCause WhyNoArtwork(const TReconcileTarget& target) {
  return WhyNoMobileDefaults(target, IsiOS(target) || target.Platform() == "Android");
}

TReasonCause WhyNoProjectFiles(const TReconcileTarget& target) {
  return target.ApplicationKind() == "Application" ? TReasonCause::None : TReasonCause::WrongKind;
}

constexpr std::array<TStep, 8> Steps{{
    {TReconcileStep::Packages, Always, PlanPackages, FollowPackages},
    {TReconcileStep::ProjectOutput, Always, PlanProjectOutput},
    {TReconcileStep::DebugSymbols, Always, PlanDebugSymbols, FollowOutput},
    {TReconcileStep::OSXDefaults, WhyNoOSXDefaults, PlanOSXDefaults},
    {TReconcileStep::iOSDefaults, WhyNoiOSDefaults, PlaniOSDefaults},
    {TReconcileStep::AndroidDefaults, WhyNoAndroidDefaults, PlanAndroidDefaults},
    {TReconcileStep::Artwork, WhyNoArtwork, PlanPlatformArtwork},
    {TReconcileStep::ProjectFiles, WhyNoProjectFiles, PlanProjectFiles},
}};

} // namespace

std::span<const TStep> ReconcileSteps() {
  return Steps;
}

void PlanReconcile(TReconcileContext& context) {
  for (const TStep& step : Steps) {
    const TReasonCause whyNot = step.WhyNot(context.Target);
    if (whyNot == TReasonCause::None)
      step.Plan(context);
    else
      context.Plan.Skip({}, {},
                        {step.Step, TReasonSource::Gate, context.Target.Platform(),
                         context.Target.ApplicationKind(), whyNot});
  }
  // A step follows what it planned itself, so one that did not run has nothing to follow.
  for (const TStep& step : Steps) {
    if (step.Follow)
      step.Follow(context);
  }
  context.Plan.Settle();
}

} // namespace deployment
