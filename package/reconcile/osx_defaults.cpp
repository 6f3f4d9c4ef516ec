// What an application bundle of OS X needs beside the program.
#include "package/common/class_names.h"
#include "package/common/path_text.h"
#include "package/reconcile/reconcile_steps.h"

namespace deployment {
namespace {

using namespace class_names;

constexpr std::string_view IconOption = "Icns_MainIcns";

TDefaultEntry OSXFile(const TReconcileContext& context, std::string_view className,
                      std::string_view extension) {
  return {std::string(className),
          context.Target.ChangeFileExtension(context.Output, extension),
          {TReconcileStep::OSXDefaults, TReasonSource::BesideOutput, {}, context.Output}};
}

// An option that was emptied leaves the icon that is there.
void PlanIcon(TReconcileContext& context) {
  const std::string icon = context.Target.Option(IconOption);
  TEntryReason reason{TReconcileStep::OSXDefaults, TReasonSource::Option, std::string(IconOption),
                      icon};
  if (icon.empty()) {
    reason.Cause = TReasonCause::Empty;
    return context.Plan.Skip(ProjectOSXResource, {}, reason);
  }
  TDefaultEntry wanted{std::string(ProjectOSXResource), icon, reason};
  wanted.RemoteName = ChangeExtension(FileNamePart(context.Output), ".icns");
  context.Plan.Want(wanted);
}

} // namespace

void PlanOSXDefaults(TReconcileContext& context) {
  TDefaultEntry properties = OSXFile(context, ProjectOSXInfoPList, ".info.plist");
  properties.RemoteNameOnCreation = "Info.plist";
  context.Plan.Want(properties);
  if (context.Target.HasOptions())
    PlanIcon(context);
  context.Plan.Want(OSXFile(context, ProjectOSXEntitlements, ".entitlements"));
}

} // namespace deployment
