// The deploy command.
#include "tests/package/view/frame_world.h"

namespace deployment {
namespace {

using A = TMessageAnswer;

class Deploying : public FrameWorld {
protected:
  Deploying() {
    Module->Platforms.Profiles["Win32"] = "lab";
    Add("a", "Debug", {"Win32", "Android"});
    Exists("a");
  }
  void OpenFor(std::string_view platform) {
    Open();
    Choose("Debug", platform);
    Profiles.Log.clear();
  }
};

TEST_F(Deploying, HandsTheProjectToItsProfile) {
  OpenFor("Win32");
  const int asked = Deployment.ListsAsked;
  EXPECT_TRUE(Press("tbDeploy"));
  EXPECT_EQ(Profiles.Log, TTexts{"deploy Debug|Win32 final"});
  EXPECT_TRUE(Dialogs.Messages.empty());
  EXPECT_GT(Deployment.ListsAsked, asked);
}

TEST_F(Deploying, AsksBeforeItChangesTheActivePlatform) {
  Module->Platforms.Active = "Android";
  OpenFor("Win32");
  Dialogs.Answers = {A::No};
  Press("tbDeploy");
  EXPECT_EQ(Dialogs.Messages[0].Text, "The active platform is \"Android\". Would you like to set "
                                      "the \"Win32\" platform as the active platform?");
  EXPECT_TRUE(Profiles.Log.empty());
  EXPECT_EQ(Module->Platforms.Active, "Android");
  Dialogs.Answers = {A::Yes};
  Press("tbDeploy");
  EXPECT_EQ(Module->Platforms.Active, "Win32");
  EXPECT_EQ(Profiles.Log, TTexts{"deploy Debug|Win32 final"});
}

TEST_F(Deploying, DoesNotAskWhereTheActivePlatformIsFixed) {
  Module->Platforms.Active = "Android";
  Module->Platforms.MayChange = false;
  OpenFor("Win32");
  Press("tbDeploy");
  EXPECT_TRUE(Dialogs.Messages.empty());
  EXPECT_EQ(Profiles.Log, TTexts{"deploy Debug|Win32 final"});
}

TEST_F(Deploying, NeedsNoProfileForAndroid) {
  Module->Platforms.Profiles.clear();
  Module->Platforms.Active = "Android";
  OpenFor("Android");
  Press("tbDeploy");
  EXPECT_TRUE(Dialogs.Messages.empty());
  EXPECT_EQ(Profiles.Log, TTexts{"deploy Debug|Android final"});
}

TEST_F(Deploying, OffersToMakeAProfileWhereOneIsMissing) {
  Module->Platforms.Profiles.clear();
  OpenFor("Win32");
  Dialogs.Answers = {A::No};
  Press("tbDeploy");
  EXPECT_EQ(Dialogs.Messages[0].Text,
            "A connection profile is required for deployment. Would you like to create one and "
            "assign it to the \"Win32\" platform?");
  EXPECT_TRUE(Profiles.Log.empty());
  Dialogs.Answers = {A::Yes};
  Press("tbDeploy");
  EXPECT_EQ(Profiles.Log, TTexts{"create for Win32"});
  Dialogs.Answers = {A::Yes};
  Profiles.OnCreate = [this] {
    Module->Platforms.Profiles["Win32"] = "lab";
    return true;
  };
  Press("tbDeploy");
  EXPECT_EQ(Profiles.Log,
            (TTexts{"create for Win32", "create for Win32", "deploy Debug|Win32 final"}));
}

TEST_F(Deploying, DoesNothingWithoutProjectPlatforms) {
  OpenFor("Win32");
  Module->HasPlatforms = false;
  EXPECT_TRUE(Press("tbDeploy"));
  EXPECT_TRUE(Profiles.Log.empty());
}

TEST_F(Deploying, IsOffWithoutACheckedFileThatIsThere) {
  Host.Files.clear();
  OpenFor("Win32");
  EXPECT_FALSE(Press("tbDeploy"));
  EXPECT_TRUE(Profiles.Log.empty());
}

} // namespace
} // namespace deployment
