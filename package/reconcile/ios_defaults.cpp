// What an application bundle of iOS needs beside the program.
#include "package/common/class_names.h"
#include "package/common/path_text.h"
#include "package/reconcile/reconcile_steps.h"

namespace deployment {
namespace {

using namespace class_names;

TDefaultEntry iOSFile(TReconcileContext& context, std::string_view className,
                      std::string localName) {
  return {std::string(className),
          std::move(localName),
          {TReconcileStep::iOSDefaults, TReasonSource::BesideOutput, {}, context.Output}};
}

void AddOutputWithExtension(TReconcileContext& context, std::string_view className,
                            std::string_view extension,
                            std::optional<std::string> remoteNameOnCreation = std::nullopt) {
  TDefaultEntry wanted =
      iOSFile(context, className, context.Target.ChangeFileExtension(context.Output, extension));
  wanted.RemoteNameOnCreation = std::move(remoteNameOnCreation);
  context.Plan.Want(wanted);
}

// What a real device wants, and a simulator does not.
void PlanDeviceFiles(TReconcileContext& context) {
  TDefaultEntry rules =
      iOSFile(context, ProjectiOSDeviceResourceRules, context.BesideOutput("ResourceRules.plist"));
  rules.RemoteNameOnCreation = "ResourceRules.plist";
  context.Plan.Want(rules);
  TDefaultEntry symbols = iOSFile(context, ProjectiOSDeviceDebug,
                                  context.Target.ChangeFileExtension(context.Output, ".dSYM"));
  symbols.RemoteName = ChangeExtension(context.Target.GetValidRemoteName(), "");
  context.Plan.Want(symbols);
}

// Name of the option that asks for a program of both widths; empty for other personalities.
std::string_view UniversalOption(const TReconcileTarget& target) {
  if (target.Personality() == ArdentPersonality)
    return "PXC_GenerateUniversalBinaryFile";
  if (target.Personality() == CorvanePersonality)
    return "CXC_GenerateUniversalBinaryFile";
  return {};
}

// When both devices build into one directory, the file there is the program of the target.
void WarnOfOneDirectory(TReconcileContext& context, TEntryReason reason) {
  for (const auto& entry : context.Plan.OfClass(ProjectOutput_iOS32))
    context.Plan.Leave(entry, reason);
  context.Plan.Warn("\"" + context.Output +
                    "\" is the output for iOSDevice32 and for iOSDevice64; " +
                    "without a directory for each platform no 32-bit program can go beside the " +
                    "64-bit one (" + context.Target.Configuration() + ")");
  reason.Source = TReasonSource::OtherEntry;
  reason.SourceName = ProjectOutput;
  reason.Cause = TReasonCause::FileHasOtherRole;
  context.Plan.Skip(ProjectOutput_iOS32, context.Output, reason);
}

// The 32-bit program travels beside the 64-bit one, so that the device build can join them.
void PlanUniversalOutput(TReconcileContext& context) {
  const TReconcileTarget& target = context.Target;
  const std::string_view option = UniversalOption(target);
  const std::string output = target.OutputOf("iOSDevice32");
  TEntryReason reason{TReconcileStep::iOSDefaults, TReasonSource::Option, std::string(option),
                      option.empty() ? "" : target.Option(option)};
  if (!option.empty() && target.BooleanOption(option)) {
    if (output == context.Output)
      return WarnOfOneDirectory(context, reason);
    TDefaultEntry wanted{std::string(ProjectOutput_iOS32), output, reason};
    wanted.RemoteName = target.GetValidRemoteName() + ".armv7";
    context.Plan.Want(wanted);
    return;
  }
  reason.Cause = TReasonCause::SwitchedOff;
  // Only what was listed as the 32-bit program goes, whatever it is called by now: another entry of
  // that name may be the program itself, when both devices build into one directory.
  const TDeploymentFiles present = context.Plan.OfClass(ProjectOutput_iOS32);
  for (const auto& entry : present)
    context.Plan.Leave(entry, reason);
  if (present.empty())
    context.Plan.Skip(ProjectOutput_iOS32, output, reason);
}

} // namespace

void PlaniOSDefaults(TReconcileContext& context) {
  const std::string& platform = context.Target.Platform();
  AddOutputWithExtension(context, ProjectiOSInfoPList, ".info.plist", "Info.plist");
  if (platform == "iOSDevice32" || platform == "iOSDevice64")
    PlanDeviceFiles(context);
  if (platform == "iOSDevice64" && context.Target.HasOptions())
    PlanUniversalOutput(context);
  AddOutputWithExtension(context, ProjectiOSEntitlements, ".entitlements");
}

} // namespace deployment
