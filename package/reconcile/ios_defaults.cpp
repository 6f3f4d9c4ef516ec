#include "package/reconcile/ios_defaults.h"

#include "package/common/path_text.h"
#include "package/reconcile/class_names.h"
#include "package/reconcile/platform_artwork.h"

namespace deployment {
namespace {

using namespace class_names;

TDefaultEntry FromOutput(TReconcileContext& context, std::string_view className,
                         std::string localName) {
  return {std::string(className),
          std::move(localName),
          {TReconcileStep::iOSDefaults, TReasonSource::BesideOutput, {}, context.Output}};
}

void AddOutputWithExtension(TReconcileContext& context, std::string_view className,
                            std::string_view extension,
                            std::optional<std::string> remoteNameOnCreation = std::nullopt) {
  TDefaultEntry wanted =
      FromOutput(context, className, context.Target.ChangeFileExtension(context.Output, extension));
  wanted.RemoteNameOnCreation = std::move(remoteNameOnCreation);
  context.Entries.AddOrUpdate(wanted);
}

// What a real device wants, and a simulator does not.
void ReconcileDeviceFiles(TReconcileContext& context) {
  TDefaultEntry rules = FromOutput(context, ProjectiOSDeviceResourceRules,
                                   context.BesideOutput("ResourceRules.plist"));
  rules.RemoteNameOnCreation = "ResourceRules.plist";
  context.Entries.AddOrUpdate(rules);
  TDefaultEntry symbols = FromOutput(context, ProjectiOSDeviceDebug,
                                     context.Target.ChangeFileExtension(context.Output, ".dSYM"));
  symbols.RemoteName = ChangeExtension(context.Target.GetValidRemoteName(), "");
  context.Entries.AddOrUpdate(symbols);
}

// Name of the option that asks for a program of both widths; empty for other personalities.
std::string_view UniversalOption(const TReconcileTarget& target) {
  if (target.Personality() == ArdentPersonality)
    return "PXC_GenerateUniversalBinaryFile";
  if (target.Personality() == CorvanePersonality)
    return "CXC_GenerateUniversalBinaryFile";
  return {};
}

// The 32-bit program travels beside the 64-bit one, so that the device build can join them.
void ReconcileUniversalOutput(TReconcileContext& context) {
  const TReconcileTarget& target = context.Target;
  const std::string_view option = UniversalOption(target);
  const std::string output = target.OutputOf("iOSDevice32");
  TEntryReason reason{TReconcileStep::iOSDefaults, TReasonSource::Option, std::string(option),
                      option.empty() ? "" : target.Option(option)};
  if (!option.empty() && target.BooleanOption(option)) {
    TDefaultEntry wanted{std::string(ProjectOutput_iOS32), output, reason};
    wanted.RemoteName = target.GetValidRemoteName() + ".armv7";
    context.Entries.AddOrUpdate(wanted);
    return;
  }
  reason.Cause = TReasonCause::SwitchedOff;
  const auto entry = context.Deployment.FindFile(target.Configuration(), target.Platform(), output);
  if (entry)
    context.Entries.Remove(entry, reason);
  else
    context.Entries.Skip(ProjectOutput_iOS32, output, reason);
}

} // namespace

TReconcileResult ReconcileiOSDefaults(TReconcileContext& context) {
  const std::string& platform = context.Target.Platform();
  AddOutputWithExtension(context, ProjectiOSInfoPList, ".info.plist", "Info.plist");
  if (platform == "iOSDevice32" || platform == "iOSDevice64")
    ReconcileDeviceFiles(context);
  if (platform == "iOSDevice64" && context.Target.HasOptions())
    ReconcileUniversalOutput(context);
  AddOutputWithExtension(context, ProjectiOSEntitlements, ".entitlements");
  return ReconcilePlatformArtwork(context);
}

} // namespace deployment
