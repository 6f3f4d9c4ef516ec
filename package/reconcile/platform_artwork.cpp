#include "package/reconcile/platform_artwork.h"

#include "package/reconcile/reconcile_steps.h"

#include <algorithm>
#include <array>
#include <span>

namespace deployment {
namespace {

constexpr std::string_view FamilyOption = "VerInfo_UIDeviceFamily";

struct TArtworkRow {
  std::string_view Option;
  std::string_view RemoteName;
};

// "iPone" is how projects spell these options; with another spelling the images would be lost.

// Devices of the family "iPhone".
constexpr std::array<TArtworkRow, 18> PhoneArtwork{{
    {"iPhone_AppIcon57", ""},
    {"iPhone_AppIcon114", ""},
    {"iPhone_Spotlight29", ""},
    {"iPone_Spotlight58", ""},
    {"iOS_AppStore512", ""},
    {"iOS_AppStore1024", ""},
    {"iPhone_Launch320", "Default.png"},
    {"iPhone_Launch640", "Default@2x.png"},
    {"iPhone_Launch640x1136", "Default-568h@2x.png"},
    {"iPhone_AppIcon60", ""},
    {"iPhone_AppIcon120", ""},
    {"iPhone_Spotlight40", ""},
    {"iPone_Spotlight80", ""},
    {"iPhone_Launch750", "Default-667h@2x.png"},
    {"iPhone_Launch1242", "Default-736h@3x.png"},
    {"iPhone_Launch2208", "Default-Landscape-736h@3x.png"},
    {"iPhone_AppIcon87", ""},
    {"iPhone_AppIcon180", ""},
}};

// Devices of the family "iPad".
constexpr std::array<TArtworkRow, 20> PadArtwork{{
    {"iOS_AppStore512", ""},
    {"iOS_AppStore1024", ""},
    {"iPad_AppIcon72", ""},
    {"iPad_AppIcon144", ""},
    {"iPad_SpotLight50", ""},
    {"iPad_SpotLight100", ""},
    {"iPad_Setting29", ""},
    {"iPad_Setting58", ""},
    {"iPad_Launch768", "Default~ipad.png"},
    {"iPad_Launch1024", "Default-Landscape.png"},
    {"iPad_Launch1536", "Default-Portrait@2x.png"},
    {"iPad_Launch2048", "Default-Landscape@2x.png"},
    {"iPad_AppIcon76", ""},
    {"iPad_AppIcon152", ""},
    {"iPad_SpotLight40", ""},
    {"iPad_SpotLight80", ""},
    {"iPad_Launch768x1024", "Default-Portrait~ipad.png"},
    {"iPad_Launch1024x768", "Default-Landscape~ipad.png"},
    {"iPad_Launch1536x2048", "Default-Portrait@2x~ipad.png"},
    {"iPad_Launch2048x1536", "Default-Landscape@2x~ipad.png"},
}};

// Devices of both families.
constexpr std::array<TArtworkRow, 36> PhoneAndPadArtwork{{
    {"iPhone_AppIcon57", ""},
    {"iPhone_AppIcon114", ""},
    {"iPhone_Spotlight29", ""},
    {"iPone_Spotlight58", ""},
    {"iOS_AppStore512", ""},
    {"iOS_AppStore1024", ""},
    {"iPad_AppIcon72", ""},
    {"iPad_AppIcon144", ""},
    {"iPad_SpotLight50", ""},
    {"iPad_SpotLight100", ""},
    {"iPad_Setting29", ""},
    {"iPad_Setting58", ""},
    {"iPhone_Launch320", "Default.png"},
    {"iPhone_Launch640", "Default@2x.png"},
    {"iPhone_Launch640x1136", "Default-568h@2x.png"},
    {"iPad_Launch768", "Default~ipad.png"},
    {"iPad_Launch1024", "Default-Landscape.png"},
    {"iPad_Launch1536", "Default-Portrait@2x.png"},
    {"iPad_Launch2048", "Default-Landscape@2x.png"},
    {"iPhone_AppIcon60", ""},
    {"iPhone_AppIcon120", ""},
    {"iPad_AppIcon76", ""},
    {"iPad_AppIcon152", ""},
    {"iPhone_Spotlight40", ""},
    {"iPone_Spotlight80", ""},
    {"iPad_SpotLight40", ""},
    {"iPad_SpotLight80", ""},
    {"iPad_Launch768x1024", "Default-Portrait~ipad.png"},
    {"iPad_Launch1024x768", "Default-Landscape~ipad.png"},
    {"iPad_Launch1536x2048", "Default-Portrait@2x~ipad.png"},
    {"iPad_Launch2048x1536", "Default-Landscape@2x~ipad.png"},
    {"iPhone_Launch750", "Default-667h@2x.png"},
    {"iPhone_Launch1242", "Default-736h@3x.png"},
    {"iPhone_Launch2208", "Default-Landscape-736h@3x.png"},
    {"iPhone_AppIcon87", ""},
    {"iPhone_AppIcon180", ""},
}};

// One remote name serves several densities: each class has a directory of its own.
constexpr std::array<TArtworkRow, 9> AndroidArtwork{{
    {"Android_LauncherIcon36", "ic_launcher.png"},
    {"Android_LauncherIcon48", "ic_launcher.png"},
    {"Android_LauncherIcon72", "ic_launcher.png"},
    {"Android_LauncherIcon96", "ic_launcher.png"},
    {"Android_LauncherIcon144", "ic_launcher.png"},
    {"Android_SplashImage426", "splash_image.png"},
    {"Android_SplashImage470", "splash_image.png"},
    {"Android_SplashImage640", "splash_image.png"},
    {"Android_SplashImage960", "splash_image.png"},
}};

std::span<const TArtworkRow> RowsOf(std::string_view platform, std::string_view deviceFamily) {
  if (platform == "Android")
    return AndroidArtwork;
  if (platform != "iOSSimulator" && platform != "iOSDevice32" && platform != "iOSDevice64")
    return {};
  if (deviceFamily == "iPhone")
    return PhoneArtwork;
  if (deviceFamily == "iPad")
    return PadArtwork;
  return PhoneAndPadArtwork;
}

// Tells of the images that devices of another family would show.
void SkipOtherFamilies(TReconcileContext& context, const std::string& family) {
  const TReconcileTarget& target = context.Target;
  const auto shown = RowsOf(target.Platform(), family);
  for (const TArtworkRow& row : RowsOf(target.Platform(), {})) {
    const bool isShown = std::any_of(shown.begin(), shown.end(), [&](const TArtworkRow& each) {
      return each.Option == row.Option;
    });
    if (!isShown)
      context.Plan.Skip(row.Option, target.Option(row.Option),
                        {TReconcileStep::Artwork, TReasonSource::Option, std::string(FamilyOption),
                         family, TReasonCause::OtherDevices});
  }
}

} // namespace

std::vector<TArtworkFileData> GetPlatformArtWork(std::string_view platform,
                                                 std::string_view deviceFamily) {
  std::vector<TArtworkFileData> artwork;
  for (const TArtworkRow& row : RowsOf(platform, deviceFamily))
    artwork.push_back({row.Option, row.RemoteName});
  return artwork;
}

void PlanPlatformArtwork(TReconcileContext& context) {
  const TReconcileTarget& target = context.Target;
  if (!target.HasOptions())
    return;
  const std::string family = target.Option(FamilyOption);
  if (context.Plan.IsExplained())
    SkipOtherFamilies(context, family);
  for (const TArtworkFileData& image : GetPlatformArtWork(target.Platform(), family)) {
    const std::string option(image.ClassName);
    const std::string file = target.Option(option);
    TEntryReason reason{TReconcileStep::Artwork, TReasonSource::Option, option, file};
    if (file.empty()) {
      reason.Cause = TReasonCause::Empty;
      context.Plan.Skip(option, {}, reason);
      continue;
    }
    context.Plan.Want(
        {option, file, reason, /*EnabledOnCreation=*/true, std::string(image.RemoteName)});
  }
}

} // namespace deployment
