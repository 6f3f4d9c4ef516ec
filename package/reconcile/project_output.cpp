#include "package/reconcile/project_output.h"

#include "package/reconcile/android_defaults.h"
#include "package/reconcile/class_names.h"
#include "package/reconcile/ios_defaults.h"
#include "package/reconcile/osx_defaults.h"
#include "package/reconcile/project_files.h"

#include <array>

namespace deployment {
namespace {

using namespace class_names;

// The kind of OS X program that is an application bundle.
constexpr int OSXBundleKind = 1;

TReasonCause WhyNoOSXDefaults(const TReconcileTarget& target) {
  if (target.Platform() != "OSX32")
    return TReasonCause::WrongPlatform;
  IPlatformOptions* options = target.Project().GetPlatformOptions();
  if (!options)
    return TReasonCause::ServiceMissing;
  return options->GetOSXKind(target.Configuration(), target.Platform()) == OSXBundleKind
             ? TReasonCause::None
             : TReasonCause::WrongKind;
}

TReasonCause WhyNoMobileDefaults(const TReconcileTarget& target, bool isPlatform) {
  if (!isPlatform)
    return TReasonCause::WrongPlatform;
  if (target.IsPackage())
    return TReasonCause::WrongKind;
  return target.Project().GetPlatformOptions() ? TReasonCause::None : TReasonCause::ServiceMissing;
}

TReasonCause WhyNoiOSDefaults(const TReconcileTarget& target) {
  return WhyNoMobileDefaults(target, target.isMobilePlatform(target.Platform()) &&
                                         target.isApplePlatform());
}

TReasonCause WhyNoAndroidDefaults(const TReconcileTarget& target) {
  return WhyNoMobileDefaults(target, target.Platform() == "Android");
}

TReasonCause WhyNoProjectFiles(const TReconcileTarget& target) {
  return target.ApplicationKind() == "Application" ? TReasonCause::None : TReasonCause::WrongKind;
}

// A step behind the output: the reason why it does not run for a target, and its run.
struct TDefaultStep {
  TReconcileStep Step;
  TReasonCause (*WhyNot)(const TReconcileTarget& target);
  TReconcileResult (*Run)(TReconcileContext& context);
};

// In the order in which they run.
constexpr std::array<TDefaultStep, 4> DefaultSteps{{
    {TReconcileStep::OSXDefaults, WhyNoOSXDefaults, ReconcileOSXDefaults},
    {TReconcileStep::iOSDefaults, WhyNoiOSDefaults, ReconcileiOSDefaults},
    {TReconcileStep::AndroidDefaults, WhyNoAndroidDefaults, ReconcileAndroidDefaults},
    {TReconcileStep::ProjectFiles, WhyNoProjectFiles, ReconcileProjectFiles},
}};

std::shared_ptr<IProjectDeploymentFile> ReconcileOutputFile(TReconcileContext& context) {
  TDefaultEntry wanted{
      std::string(ProjectOutput),
      context.Output,
      {TReconcileStep::ProjectOutput, TReasonSource::OutputFile, {}, context.Output}};
  wanted.RemoteName = context.Target.GetValidRemoteName();
  return context.Entries.AddOrUpdate(wanted);
}

// Symbols are asked for by an option of the target; where they are not, those of every target go.
void ReconcileDebugSymbols(TReconcileContext& context,
                           const std::shared_ptr<IProjectDeploymentFile>& output) {
  const TReconcileTarget& target = context.Target;
  TEntryReason reason{TReconcileStep::DebugSymbols, TReasonSource::Option, "RemoteDebugSymbols",
                      "false", TReasonCause::SwitchedOff};
  const ISymbolService* service = target.SymbolService();
  const bool needed = target.NeedsRemoteDebugSymbolsFile();
  const std::string extension =
      needed && service ? service->GetDebugSymbolExtension(target.Project(), target.Platform())
                        : std::string();
  if (needed)
    reason = {TReconcileStep::DebugSymbols, TReasonSource::SymbolService, target.Platform(),
              extension, service ? TReasonCause::Empty : TReasonCause::ServiceMissing};
  if (extension.empty())
    return context.Entries.RemoveClass(DebugSymbols, reason);
  reason.Cause = TReasonCause::None;
  TDefaultEntry wanted{std::string(DebugSymbols),
                       target.ChangeFileExtension(context.Output, extension), reason};
  if (output)
    wanted.RemoteDir = GetDeploymentRemoteDir(*output, target.Platform(), context.Deployment);
  wanted.RemoteName = target.ChangeFileExtension(target.GetValidRemoteName(), extension);
  context.Entries.AddOrUpdate(wanted);
}

} // namespace

TReconcileResult ReconcileProjectOutput(TReconcileContext& context) {
  context.Output = context.Target.OutputOf(context.Target.Platform());
  ReconcileDebugSymbols(context, ReconcileOutputFile(context));
  for (const TDefaultStep& step : DefaultSteps) {
    const TReasonCause whyNot = step.WhyNot(context.Target);
    if (whyNot == TReasonCause::None)
      step.Run(context);
    else
      context.Entries.Skip({}, {},
                           {step.Step, TReasonSource::Gate, context.Target.Platform(),
                            context.Target.ApplicationKind(), whyNot});
  }
  return TReconcileResult::Reconciled;
}

} // namespace deployment
