// Which entries belong to a target. What is listed is tested with the rows of the view as well.
#include "package/host/api/platforms.h"
#include "package/host/api/target_entries.h"
#include "tests/package/host/api/entry_world.h"

namespace deployment {
namespace {

class TargetEntries : public EntryWorld {
protected:
  using TNames = std::vector<std::string>;

  TargetEntries() {
    Module->Options.Further = {&Release, &Lite};
    Release.Platforms = Lite.Platforms = {"Win32"};
  }
  TNames Listed(const TDeploymentTarget& target) {
    TTargetEntries entries(*Module, target);
    return NamesOf([&](const IProjectDeploymentFile& file) { return entries.IsListed(file); });
  }
  TNames Deployed(const TDeploymentTarget& target) {
    TTargetEntries entries(*Module, target);
    return NamesOf([&](const IProjectDeploymentFile& file) { return entries.IsDeployed(file); });
  }

  TMemoryConfiguration Release{"Release", &Module->Options.Base};
  TMemoryConfiguration Lite{"Lite", &Module->Options.Debug};

private:
  template <class TTest>
  TNames NamesOf(TTest passes) {
    TNames names;
    for (const auto& file : Deployment.GetFiles()) {
      if (passes(*file))
        names.push_back(file->GetLocalName());
    }
    return names;
  }
};

TEST_F(TargetEntries, AreDeployedFromTheConfigurationAndFromWhatItInherits) {
  Add("none", "");
  Add("base", "Base");
  Add("debug", "DEBUG");
  Add("lite", "Lite");
  Add("release", "Release");
  EXPECT_EQ(Deployed({"Debug", "Win32"}), (TNames{"none", "base", "debug"}));
  EXPECT_EQ(Deployed({"Lite", "Win32"}), (TNames{"none", "base", "debug", "lite"}));
  EXPECT_EQ(Deployed({"Base", "Win32"}), (TNames{"none", "base"}));
}

TEST_F(TargetEntries, OfAnInheritingConfigurationAreListedAndNotDeployed) {
  Add("lite", "Lite");
  EXPECT_EQ(Listed({"Debug", "Win32"}), TNames{"lite"});
  EXPECT_EQ(Deployed({"Debug", "Win32"}), TNames());
}

TEST_F(TargetEntries, ThatAreSwitchedOffAreListedAndNotDeployed) {
  Add("off").SetEnabled("Win32", false);
  EXPECT_EQ(Listed({"Debug", "Win32"}), TNames{"off"});
  EXPECT_EQ(Deployed({"Debug", "Win32"}), TNames());
}

// The fallback record enables a file for every platform, and makes it a file of none.
TEST_F(TargetEntries, ThatAreNotListedAreNotDeployed) {
  Add("all", "Debug", {std::string(FallbackPlatform)});
  Add("gone", "Gone");
  EXPECT_TRUE(Deployment.GetFiles()[0]->GetEnabled("Win32"));
  EXPECT_EQ(Listed({"Debug", "Win32"}), TNames());
  EXPECT_EQ(Deployed({"Debug", "Win32"}), TNames());
}

TEST_F(TargetEntries, AreNotDeployedFromAConfigurationThatIsNotSetUpForThePlatform) {
  Add("debug");
  Add("base", "Base");
  Module->Options.Debug.Platforms = {"Android"};
  EXPECT_EQ(Deployed({"Debug", "Win32"}), TNames{"base"});
  EXPECT_EQ(Deployed({"Debug", "Win32"}), Listed({"Debug", "Win32"}));
}

TEST_F(TargetEntries, AreNotDeployedToAllPlatforms) {
  Add("a", "Debug", {"Win32", std::string(sAllPlatforms)});
  EXPECT_EQ(Listed({"Debug", std::string(sAllPlatforms)}), TNames{"a"});
  EXPECT_EQ(Deployed({"Debug", std::string(sAllPlatforms)}), TNames());
}

TEST_F(TargetEntries, AreOfThePlatformIgnoringCaseAndHoldItExactly) {
  const IProjectDeploymentFile& file = Add("a", "Debug", {"WIN32"});
  EXPECT_TRUE(IsFileInPlatform("Win32", file));
  EXPECT_FALSE(IsFileInPlatform("Android", file));
  EXPECT_TRUE(IsFileInPlatform("", file));
  EXPECT_TRUE(IsFileInPlatform(sAllPlatforms, file));
  EXPECT_FALSE(HoldsPlatform(file, "Win32"));
  EXPECT_TRUE(HoldsPlatform(file, "WIN32"));
}

} // namespace
} // namespace deployment
