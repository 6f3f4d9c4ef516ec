// Which files have a row for a target.
#include "tests/package/view/frame_world.h"

namespace deployment {
namespace {

class RowFilter : public FrameWorld {
protected:
  RowFilter() { Module->Options.Further = {&Release, &Lite}; }

  TMemoryConfiguration Release{"Release", &Module->Options.Base};
  TMemoryConfiguration Lite{"Lite", &Module->Options.Debug};
};

TEST_F(RowFilter, ListsTheFilesOfThePlatformIgnoringCase) {
  Add("a", "Debug", {"Win32"});
  Add("b", "Debug", {"Android"});
  Add("c", "Debug", {"WIN32"});
  Open();
  EXPECT_EQ(Names(), (TTexts{"a", "c"}));
  Choose("Debug", "Android");
  EXPECT_EQ(Names(), TTexts{"b"});
}

TEST_F(RowFilter, ListsForAllPlatformsWhatAnyProjectPlatformHolds) {
  Add("a", "Debug", {"Win32"});
  Add("b", "Debug", {"Android"});
  Add("c", "Debug", {"OSX32"});
  Open();
  Choose("Debug", "");
  EXPECT_EQ(Names(), (TTexts{"a", "b"}));
}

TEST_F(RowFilter, ListsNothingForAllPlatformsOfAProjectWithoutPlatforms) {
  Add("a");
  Open();
  Module->HasPlatforms = false;
  Choose("Debug", "");
  EXPECT_TRUE(Nodes().empty());
}

TEST_F(RowFilter, TakesAnEmptyConfigurationForTheRootOne) {
  Add("a", "");
  Open();
  Choose("Debug", "Win32");
  EXPECT_EQ(Names(), TTexts{"a"});
  Choose("Base", "Win32");
  EXPECT_EQ(Names(), TTexts{"a"});
  Module->Options.Base.Platforms = {"Android"};
  Choose("Debug", "Win32");
  EXPECT_TRUE(Nodes().empty());
}

TEST_F(RowFilter, ListsWhatTheSelectedConfigurationInheritsFromAndWhatInheritsFromIt) {
  Release.Platforms = Lite.Platforms = {"Win32"};
  Add("base", "Base");
  Add("debug", "debug");
  Add("lite", "Lite");
  Add("release", "Release");
  Open();
  Choose("Debug", "Win32");
  EXPECT_EQ(Names(), (TTexts{"base", "debug", "lite"}));
  Choose("Lite", "Win32");
  EXPECT_EQ(Names(), (TTexts{"base", "debug", "lite"}));
  Choose("Release", "Win32");
  EXPECT_EQ(Names(), (TTexts{"base", "release"}));
  Choose("Base", "Win32");
  EXPECT_EQ(Names(), (TTexts{"base", "debug", "lite", "release"}));
}

TEST_F(RowFilter, AsksTheConfigurationAtWhichTheWalkEndsForThePlatform) {
  Add("lite", "Lite");
  Lite.Platforms = {};
  Open();
  Choose("Debug", "WIN32");
  EXPECT_EQ(Names(), TTexts{"lite"});
  Module->Options.Debug.Platforms = {"Android"};
  Lite.Platforms = {"Win32"};
  Choose("Debug", "Win32");
  EXPECT_TRUE(Nodes().empty());
}

TEST_F(RowFilter, TakesAnyPlatformOfTheConfigurationForAllPlatforms) {
  Add("a", "Debug");
  Open();
  Module->Options.Debug.Platforms = {"OSX32"};
  Choose("Debug", "");
  EXPECT_EQ(Names(), TTexts{"a"});
  Module->Options.Debug.Platforms = {};
  Choose("Debug", "");
  EXPECT_TRUE(Nodes().empty());
}

TEST_F(RowFilter, LeavesOutAConfigurationThatTheProjectDoesNotHave) {
  Add("a", "Gone");
  Open();
  Choose("Debug", "Win32");
  EXPECT_TRUE(Nodes().empty());
}

TEST_F(RowFilter, LeavesOutAllWithoutBuildConfigurations) {
  Add("a");
  Module->HasOptions = false;
  Open();
  EXPECT_TRUE(Nodes().empty());
}

TEST_F(RowFilter, ChecksTheBoxesOfEnabledFiles) {
  Add("on");
  Add("off")->SetEnabled("Win32", false);
  Open();
  EXPECT_TRUE(IsChecked("on"));
  EXPECT_FALSE(IsChecked("off"));
}

TEST_F(RowFilter, KeepsTheOrderOfTheDeployment) {
  Add("c");
  Add("a");
  Add("b");
  Open();
  EXPECT_EQ(Names(), (TTexts{"c", "a", "b"}));
}

} // namespace
} // namespace deployment
