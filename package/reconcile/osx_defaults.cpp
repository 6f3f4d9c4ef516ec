#include "package/reconcile/osx_defaults.h"

#include "package/common/path_text.h"
#include "package/reconcile/class_names.h"

namespace deployment {
namespace {

using namespace class_names;

constexpr std::string_view IconOption = "Icns_MainIcns";

TDefaultEntry FromOutput(const TReconcileContext& context, std::string_view className,
                         std::string_view extension) {
  return {std::string(className),
          context.Target.ChangeFileExtension(context.Output, extension),
          {TReconcileStep::OSXDefaults, TReasonSource::BesideOutput, {}, context.Output}};
}

// An option that was emptied leaves the icon that is there.
void ReconcileIcon(TReconcileContext& context) {
  const std::string icon = context.Target.Option(IconOption);
  TEntryReason reason{TReconcileStep::OSXDefaults, TReasonSource::Option, std::string(IconOption),
                      icon};
  if (icon.empty()) {
    reason.Cause = TReasonCause::Empty;
    return context.Entries.Skip(ProjectOSXResource, {}, reason);
  }
  TDefaultEntry wanted{std::string(ProjectOSXResource), icon, reason};
  wanted.RemoteName = ChangeExtension(FileNamePart(context.Output), ".icns");
  context.Entries.AddOrUpdate(wanted);
}

} // namespace

TReconcileResult ReconcileOSXDefaults(TReconcileContext& context) {
  TDefaultEntry properties = FromOutput(context, ProjectOSXInfoPList, ".info.plist");
  properties.RemoteNameOnCreation = "Info.plist";
  context.Entries.AddOrUpdate(properties);
  if (context.Target.HasOptions())
    ReconcileIcon(context);
  context.Entries.AddOrUpdate(FromOutput(context, ProjectOSXEntitlements, ".entitlements"));
  return TReconcileResult::Reconciled;
}

} // namespace deployment
