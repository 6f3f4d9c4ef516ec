#include "package/reconcile/platform_artwork.h"
#include "tests/package/reconcile/reconcile_world.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TTexts = std::vector<std::string>;
using TRows = std::vector<std::pair<std::string, std::string>>;

const TRows Phone{
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
};

const TRows Pad{
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
};

const TRows PhoneAndPad{
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
};

const TRows AndroidImages{
    {"Android_LauncherIcon36", "ic_launcher.png"},  {"Android_LauncherIcon48", "ic_launcher.png"},
    {"Android_LauncherIcon72", "ic_launcher.png"},  {"Android_LauncherIcon96", "ic_launcher.png"},
    {"Android_LauncherIcon144", "ic_launcher.png"}, {"Android_SplashImage426", "splash_image.png"},
    {"Android_SplashImage470", "splash_image.png"}, {"Android_SplashImage640", "splash_image.png"},
    {"Android_SplashImage960", "splash_image.png"},
};

TRows RowsOf(std::string_view platform, std::string_view family) {
  TRows rows;
  for (const TArtworkFileData& image : GetPlatformArtWork(platform, family)) {
    EXPECT_EQ(image.DeploymentFile, nullptr);
    rows.emplace_back(image.ClassName, image.RemoteName);
  }
  return rows;
}

TEST(PlatformArtwork, GoesByTheFamilyOfTheDevicesOnIOS) {
  for (const char* platform : {"iOSSimulator", "iOSDevice32", "iOSDevice64"}) {
    EXPECT_EQ(RowsOf(platform, "iPhone"), Phone);
    EXPECT_EQ(RowsOf(platform, "iPad"), Pad);
    EXPECT_EQ(RowsOf(platform, ""), PhoneAndPad);
    EXPECT_EQ(RowsOf(platform, "iphone"), PhoneAndPad);
  }
}

TEST(PlatformArtwork, IsOneForAllFamiliesOnAndroid) {
  EXPECT_EQ(RowsOf("Android", ""), AndroidImages);
  EXPECT_EQ(RowsOf("Android", "iPad"), AndroidImages);
}

TEST(PlatformArtwork, IsForMobilePlatformsOnly) {
  EXPECT_EQ(RowsOf("Win32", ""), TRows{});
  EXPECT_EQ(RowsOf("OSX32", "iPhone"), TRows{});
}

TEST(PlatformArtwork, ListsEveryOptionThatNamesAnImage) {
  TReconcileWorld world;
  for (const auto& [option, ignored] : PhoneAndPad)
    world.SetOption("iOSDevice64", option, "art\\" + option + ".png");
  world.Reconcile("Debug", "iOSDevice64");
  TTexts expected;
  for (const auto& [option, name] : PhoneAndPad)
    expected.push_back(option + " | art\\" + option + ".png |  | " + name);
  const TTexts lines = world.Lines("Debug", "iOSDevice64");
  ASSERT_GE(lines.size(), expected.size());
  EXPECT_EQ(TTexts(lines.end() - static_cast<std::ptrdiff_t>(expected.size()), lines.end()),
            expected);
}

TEST(PlatformArtwork, ReadsTheFamilyOfTheTarget) {
  TReconcileWorld world;
  world.SetOption("iOSSimulator", "VerInfo_UIDeviceFamily", "iPad");
  world.SetOption("iOSSimulator", "iPhone_AppIcon57", "57.png");
  world.SetOption("iOSSimulator", "iPad_AppIcon72", "72.png");
  world.Reconcile("Debug", "iOSSimulator");
  EXPECT_EQ(world.LinesOf("iP", "Debug", "iOSSimulator"), TTexts{"iPad_AppIcon72 | 72.png |  | "});
}

TEST(PlatformArtwork, LeavesAnEntryWhoseOptionWasCleared) {
  TReconcileWorld world;
  world.SetOption("Android", "Android_LauncherIcon36", "36.png");
  world.Reconcile("Debug", "Android");
  world.SetOption("Android", "Android_LauncherIcon36", "");
  EXPECT_EQ(world.ChangesOf("Debug", "Android"), TTexts{});
  EXPECT_EQ(world.LinesOf("Android_", "Debug", "Android"),
            TTexts{"Android_LauncherIcon36 | 36.png |  | ic_launcher.png"});
}

TEST(PlatformArtwork, ChangesTheLocalNameAlone) {
  TReconcileWorld world;
  world.SetOption("Android", "Android_LauncherIcon36", "36.png");
  world.Reconcile("Debug", "Android");
  const auto icon = world.Entry("Android_LauncherIcon36", "Debug", "Android");
  icon->SetRemoteName("Android", "mine.png");
  icon->SetEnabled("Android", false);
  world.SetOption("Android", "Android_LauncherIcon36", "new.png");
  EXPECT_EQ(world.ChangesOf("Debug", "Android"), TTexts{"modified new.png"});
  EXPECT_EQ(world.LinesOf("Android_", "Debug", "Android"),
            TTexts{"Android_LauncherIcon36 | new.png |  | mine.png | off"});
}

TEST(PlatformArtwork, KnowsTheOptionsAsTheyAreSpelled) {
  TReconcileWorld world;
  world.SetOption("iOSDevice64", "iPhone_Spotlight58", "58.png");
  world.SetOption("iOSDevice64", "iPone_Spotlight80", "80.png");
  world.Reconcile("Debug", "iOSDevice64");
  EXPECT_EQ(world.LinesOf("iP", "Debug", "iOSDevice64"),
            TTexts{"iPone_Spotlight80 | 80.png |  | "});
}

} // namespace
} // namespace deployment
