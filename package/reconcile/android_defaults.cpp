// What an Android application package needs beside the program.
#include "package/common/case_fold.h"
#include "package/common/class_names.h"
#include "package/reconcile/reconcile_steps.h"

#include <array>
#include <utility>

namespace deployment {
namespace {

using namespace class_names;

constexpr std::string_view SplashOption = "IncludeAndroid_Splash";
constexpr std::string_view SplashImageFile = "splash_image_def.xml";
constexpr std::string_view SplashStylesFile = "styles.xml";
constexpr std::string_view BuildTypeOption = "BT_BuildType";
constexpr std::string_view NDKMacro = "$(NDKBasePath)";

struct TBuildTypeFile {
  std::string_view ClassName;
  std::string_view LocalNameFormat; ///< "%s" stands for the build type
};

constexpr std::string_view BuildTypeMark = "%s";

// The native activity library of each processor family.
constexpr std::array<TBuildTypeFile, 3> NativeLibraries{{
    {AndroidLibnativeX86File, R"($(ZELK)\lib\android\%s\x86\libnative-activity.so)"},
    {AndroidLibnativeArmeabiFile, R"($(ZELK)\lib\android\%s\armeabi\libnative-activity.so)"},
    {AndroidLibnativeMipsFile, R"($(ZELK)\lib\android\%s\mips\libnative-activity.so)"},
}};

bool IsDebugBuild(const TReconcileTarget& target) {
  return SameText(target.Option(BuildTypeOption), "Debug");
}

bool HasTools(const TReconcileTarget& target) {
  return target.Services().GetAndroidToolServices() && target.HasOptions();
}

void AddBesideOutput(TReconcileContext& context, std::string_view className, std::string_view name,
                     std::optional<std::string> remoteName = std::nullopt) {
  context.Plan.Want(
      {std::string(className),
       context.BesideOutput(name),
       {TReconcileStep::AndroidDefaults, TReasonSource::BesideOutput, {}, context.Output},
       /*EnabledOnCreation=*/true,
       std::move(remoteName)});
}

void PlanSplash(TReconcileContext& context) {
  const std::string value = context.Target.Option(SplashOption);
  if (SameText(value, "true")) {
    AddBesideOutput(context, AndroidSplashImageDef, SplashImageFile);
    AddBesideOutput(context, AndroidSplashStyles, SplashStylesFile);
    return;
  }
  const TEntryReason off{TReconcileStep::AndroidDefaults, TReasonSource::Option,
                         std::string(SplashOption), value, TReasonCause::SwitchedOff};
  context.Plan.RemoveClass(AndroidSplashImageDef, context.BesideOutput(SplashImageFile), off);
  context.Plan.RemoveClass(AndroidSplashStyles, context.BesideOutput(SplashStylesFile), off);
}

const IAndroidSDK* FindSDK(const TReconcileTarget& target) {
  const IPlatformSDKServices* services = target.Services().GetSDKServices();
  if (!services)
    return nullptr;
  const IOTAProjectPlatforms* platforms = target.Project().GetProjectPlatforms();
  const std::string name = platforms ? platforms->GetSDKName(target.Platform()) : std::string();
  const IPlatformSDK* sdk =
      name.empty() ? services->GetDefaultSDK(target.Platform()) : services->FindSDK(name);
  return sdk ? services->AsAndroidSDK(*sdk) : nullptr;
}

// The first macro of the name, in any case, replaced by the directory of the kit.
std::string DebuggerServerOf(const IAndroidSDK& sdk) {
  std::string path = sdk.GetDebuggerServerPath();
  for (std::size_t i = 0; i + NDKMacro.size() <= path.size(); ++i) {
    if (SameText(std::string_view(path).substr(i, NDKMacro.size()), NDKMacro))
      return path.replace(i, NDKMacro.size(), sdk.GetNDKBasePath());
  }
  return path;
}

void PlanGDBServer(TReconcileContext& context) {
  const TReconcileTarget& target = context.Target;
  TEntryReason reason{TReconcileStep::AndroidDefaults, TReasonSource::Option,
                      std::string(BuildTypeOption), target.Option(BuildTypeOption),
                      TReasonCause::SwitchedOff};
  std::string path;
  if (IsDebugBuild(target)) {
    const IAndroidSDK* sdk = FindSDK(target);
    path = sdk ? DebuggerServerOf(*sdk) : std::string();
    reason = {TReconcileStep::AndroidDefaults, TReasonSource::SDK, sdk ? sdk->GetName() : "", path,
              sdk ? TReasonCause::Empty : TReasonCause::NotFound};
  }
  if (path.empty())
    return context.Plan.RemoveClass(AndroidGDBServer, {}, reason);
  reason.Cause = TReasonCause::None;
  context.Plan.Want({std::string(AndroidGDBServer), path, reason});
}

// An entry whose file depends on the build type. It keeps the remote name that it was made with.
void AddAndroidFile(TReconcileContext& context, std::string_view localNameFormat,
                    const std::string& remoteName, std::string_view className) {
  if (!HasTools(context.Target))
    return;
  std::string localName(localNameFormat);
  if (const std::size_t mark = localName.find(BuildTypeMark); mark != std::string::npos)
    localName.replace(mark, BuildTypeMark.size(),
                      IsDebugBuild(context.Target) ? "debug" : "release");
  if (localName.empty())
    return;
  context.Plan.Want({std::string(className),
                     localName,
                     {TReconcileStep::AndroidDefaults, TReasonSource::IDEFile,
                      std::string(BuildTypeOption), context.Target.Option(BuildTypeOption)},
                     /*EnabledOnCreation=*/true,
                     remoteName});
}

} // namespace

void PlanAndroidDefaults(TReconcileContext& context) {
  AddBesideOutput(context, ProjectAndroidManifest, "AndroidManifest.xml");
  if (context.Target.HasOptions()) {
    PlanSplash(context);
    PlanGDBServer(context);
  }
  if (HasTools(context.Target))
    AddBesideOutput(context, AndroidClassesDexFile, "classes.dex", "classes.dex");
  for (const TBuildTypeFile& library : NativeLibraries)
    AddAndroidFile(context, library.LocalNameFormat, context.Target.GetValidRemoteName(),
                   library.ClassName);
}

} // namespace deployment
