// The output of a project and its debug symbols.
#include "package/common/class_names.h"
#include "package/reconcile/reconcile_steps.h"

namespace deployment {

using namespace class_names;

void PlanProjectOutput(TReconcileContext& context) {
  context.Output = context.Target.OutputOf(context.Target.Platform());
  TDefaultEntry wanted{
      std::string(ProjectOutput),
      context.Output,
      {TReconcileStep::ProjectOutput, TReasonSource::OutputFile, {}, context.Output}};
  wanted.RemoteName = context.Target.GetValidRemoteName();
  context.OutputWant = context.Plan.Want(std::move(wanted));
}

void PlanDebugSymbols(TReconcileContext& context) {
  const TReconcileTarget& target = context.Target;
  TEntryReason reason{TReconcileStep::DebugSymbols, TReasonSource::Option, "RemoteDebugSymbols",
                      "false", TReasonCause::SwitchedOff};
  const ISymbolService* service = target.SymbolService();
  const bool needed = target.NeedsRemoteDebugSymbolsFile();
  const std::string extension =
      service ? service->GetDebugSymbolExtension(target.Project(), target.Platform())
              : std::string();
  if (needed)
    reason = {TReconcileStep::DebugSymbols, TReasonSource::SymbolService, target.Platform(),
              extension, service ? TReasonCause::Empty : TReasonCause::ServiceMissing};
  const std::string localName =
      extension.empty() ? std::string() : target.ChangeFileExtension(context.Output, extension);
  if (!needed || extension.empty())
    return context.Plan.RemoveClass(DebugSymbols, localName, reason);
  reason.Cause = TReasonCause::None;
  TDefaultEntry wanted{std::string(DebugSymbols), localName, reason};
  wanted.RemoteName = target.ChangeFileExtension(target.GetValidRemoteName(), extension);
  context.SymbolsWant = context.Plan.Want(std::move(wanted));
}

void FollowOutput(TReconcileContext& context) {
  TReconcilePlan& plan = context.Plan;
  if (context.SymbolsWant && plan.IsLive(context.OutputWant))
    plan.SetRemoteDir(*context.SymbolsWant, plan.RemoteDirOf(context.OutputWant));
}

} // namespace deployment
