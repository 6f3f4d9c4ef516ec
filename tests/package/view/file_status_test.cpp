// The status of files: remote names, time stamps, macros, and the words for what was found.
#include "package/host/api/file_columns.h"
#include "tests/package/view/frame_world.h"

namespace deployment {
namespace {

constexpr int Local = file_column::LocalStatus;
constexpr int Remote = file_column::RemoteStatus;

class FileStatus : public FrameWorld {
protected:
  /// Opens with one file "a.dat" that both sides may have, and connects.
  void OpenConnected(int localSeconds, int remoteSeconds) {
    Add("a.dat");
    Exists("a.dat");
    Deployment.SetProjectRoot("Win32", "App\\");
    Profiles.Local[FullName("a.dat")] = TimeOf(localSeconds);
    Profiles.Remote["App\\a.dat"] = TimeOf(remoteSeconds);
    Open();
    Choose("Debug", "Win32");
    Connect();
  }
};

TEST_F(FileStatus, OfEqualTimesIsSameOnBothSides) {
  OpenConnected(10, 10);
  EXPECT_EQ(Text("a.dat", Local), "Same");
  EXPECT_EQ(Text("a.dat", Remote), "Same");
}

TEST_F(FileStatus, OfALocalFileOneSecondNewerIsNewerHereAndOlderThere) {
  OpenConnected(11, 10);
  EXPECT_EQ(Text("a.dat", Local), "Newer");
  EXPECT_EQ(Text("a.dat", Remote), "Older");
}

TEST_F(FileStatus, OfALocalFileOneSecondOlderIsOlderHereAndNewerThere) {
  OpenConnected(9, 10);
  EXPECT_EQ(Text("a.dat", Local), "Older");
  EXPECT_EQ(Text("a.dat", Remote), "Newer");
}

TEST_F(FileStatus, OfAFileThatTheTargetDoesNotHaveIsNotFoundOnBothSides) {
  OpenConnected(9, 10);
  Profiles.Remote.clear();
  Frame->RefreshFiles();
  EXPECT_EQ(Text("a.dat", Local), "Not Found");
  EXPECT_EQ(Text("a.dat", Remote), "Not Found");
}

TEST_F(FileStatus, OfAFileThatNothingCanBeSaidAboutIsUnknownAndNotMissing) {
  OpenConnected(9, 10);
  Profiles.Remote.clear();
  Profiles.Unknown = {"App\\a.dat"};
  Frame->RefreshFiles();
  EXPECT_EQ(Text("a.dat", Local), "Unknown");
  EXPECT_EQ(Text("a.dat", Remote), "Unknown");
}

TEST_F(FileStatus, OfALocalFileThatCannotBeExaminedIsUnknownAndDimmed) {
  OpenConnected(9, 10);
  Profiles.Local.clear();
  Frame->RefreshFiles();
  EXPECT_EQ(Text("a.dat", Local), "Unknown");
  EXPECT_EQ(Text("a.dat", Remote), "Unknown");
  EXPECT_EQ(Tree().TextColor(NodeOf("a.dat"), 0), TTextColor::ButtonShadow);
}

TEST_F(FileStatus, OfAFailedLocalQuestionKeepsTheStatusFromBefore) {
  OpenConnected(10, 10);
  Profiles.Local.clear();
  Frame->UpdateFileCache(*Deployment.Real.FindFile("Debug", "Win32", "a.dat"));
  EXPECT_EQ(Text("a.dat", Local), "Same");
}

TEST_F(FileStatus, IsNotConnectedWithoutAConnection) {
  Add("a.dat");
  Open();
  EXPECT_EQ(Text("a.dat", Local), "Not Connected");
  EXPECT_EQ(Text("a.dat", Remote), "Not Connected");
  EXPECT_TRUE(Profiles.Asked.empty());
}

TEST_F(FileStatus, OfASharedLocalNameIsThatOfTheEntryProcessedLast) {
  const auto first = Add("a.dat", "Debug");
  const auto second = Add("a.dat", "Base");
  first->SetRemoteName("Win32", "first.dat");
  second->SetRemoteName("Win32", "second.dat");
  Profiles.Local[FullName("a.dat")] = TimeOf(10);
  Profiles.Remote["App\\second.dat"] = TimeOf(20);
  Open();
  Choose("Debug", "Win32");
  Connect();
  EXPECT_EQ(Texts(Local), (TTexts{"Older", "Older"}));
}

TEST_F(FileStatus, GoesByTheLocalNameExactly) {
  Add("A.dat", "Debug");
  Add("a.dat", "Debug");
  Profiles.Local[FullName("a.dat")] = TimeOf(10);
  Profiles.Local[FullName("A.dat")] = TimeOf(10);
  Profiles.Remote["App\\a.dat"] = TimeOf(10);
  Open();
  Choose("Debug", "Win32");
  Connect();
  EXPECT_EQ(Texts(Local), (TTexts{"Not Found", "Same"}));
}

TEST_F(FileStatus, IsAskedForInOneRunOfQuestions) {
  Add("a.dat");
  Add("b.dat");
  Open();
  Choose("Debug", "Win32");
  Connect();
  EXPECT_EQ(Profiles.Log, (TTexts{"begin lab", "end lab"}));
  EXPECT_EQ(Profiles.Asked, (TTexts{"App\\a.dat", "App\\b.dat"}));
}

TEST_F(FileStatus, IsAskedForUnderTheEffectiveDirectoryAndTheRemoteName) {
  const auto file = Add("a.dat");
  file->SetRemoteDir("Win32", "Assets\\");
  file->SetRemoteName("Win32", "b.dat");
  const auto home = Add("c.dat");
  home->SetRemoteDir("Win32", "~\\bin");
  Deployment.SetProjectRoot("Win32", "MyApp\\");
  Open();
  Choose("Debug", "Win32");
  Connect();
  EXPECT_EQ(Profiles.Asked, (TTexts{"MyApp\\Assets\\b.dat", "~\\bin\\c.dat"}));
}

TEST_F(FileStatus, IsAskedForBelowARootThatIsANameAlone) {
  Add("a.dat")->SetRemoteDir("Win32", "Assets");
  Deployment.SetProjectRoot("Win32", "MyApp");
  Open();
  Choose("Debug", "Win32");
  Connect();
  EXPECT_EQ(Profiles.Asked, TTexts{"MyApp\\Assets\\a.dat"});
}

TEST_F(FileStatus, IsAskedForUnderTheMacrosOfTheTarget) {
  const auto file = Add(R"($(Config)\a.dat)");
  Exists(R"(Debug\a.dat)");
  file->SetRemoteDir("Win32", R"($(Config)\)");
  file->SetRemoteName("Win32", "$(Platform).txt");
  Open();
  Choose("Debug", "Win32");
  Connect();
  EXPECT_EQ(Profiles.Asked, TTexts{R"(App\Debug\Win32.txt)"});
  EXPECT_EQ(Tree().TextColor(Nodes()[0], 0), TTextColor::Default);
}

TEST_F(FileStatus, TakesTheDirectoryOfTheClass) {
  const auto added = Deployment.CreateClass();
  added->SetClassId("File");
  added->SetRemoteDir("Win32", "Data");
  Deployment.AddClass(added);
  Add("a.dat");
  Deployment.SetProjectRoot("Win32", "MyApp\\");
  Open();
  Choose("Debug", "Win32");
  Connect();
  EXPECT_EQ(Profiles.Asked, TTexts{"MyApp\\Data\\a.dat"});
}

TEST_F(FileStatus, KeepsTheOldWordsWhereTheActivePlatformHasNoProfile) {
  OpenConnected(10, 10);
  Module->Platforms.Profiles.clear();
  Profiles.Remote.clear();
  Frame->RefreshFiles();
  EXPECT_EQ(Text("a.dat", Local), "Same");
}

TEST_F(FileStatus, IsUnknownForAllWhenTheProfileIsGone) {
  OpenConnected(10, 10);
  Profiles.Profiles.clear();
  Frame->RefreshFiles();
  EXPECT_EQ(Text("a.dat", Local), "Unknown");
}

TEST_F(FileStatus, GoesThroughTheProfileOfTheProjectsActivePlatform) {
  OpenConnected(10, 10);
  Profiles.Profiles["other"] = std::make_shared<TMemoryProfile>("other");
  Module->Platforms.Profiles["Android"] = "other";
  Module->Platforms.Active = "Android";
  Profiles.Log.clear();
  Frame->RefreshFiles();
  EXPECT_EQ(Profiles.Log, (TTexts{"begin other", "end other"}));
}

TEST_F(FileStatus, FindsLocalFilesThroughTheMacrosOfTheTarget) {
  Add(R"($(Platform)\$(Configuration)\a.dat)");
  Add(R"($(Nobody)\b.dat)");
  Exists(R"(Win32\Debug\a.dat)");
  Open();
  Choose("Debug", "Win32");
  EXPECT_EQ(Tree().TextColor(NodeOf("a.dat"), 0), TTextColor::Default);
  EXPECT_EQ(Tree().TextColor(NodeOf("b.dat"), 0), TTextColor::ButtonShadow);
  EXPECT_EQ(Texts(0), (TTexts{R"($(Platform)\$(Configuration)\)", R"($(Nobody)\)"}));
}

TEST_F(FileStatus, ExpandsTheKitOfTheAssignedProfileOrTheDefaultOne) {
  TMemoryAndroidSDK sdk;
  sdk.NDKBasePath = R"($(ZELK)\ndk)";
  Profiles.Profiles["phone"] = std::make_shared<TMemoryProfile>("phone", &sdk);
  Host.Files[R"(C:\ide\ndk\gdbserver)"] = "content";
  Add(R"($(NDKBasePath)\gdbserver)", "Debug", {"Android"});
  Module->CurrentPlatform = "Android";
  Open();
  EXPECT_EQ(Frame->GetName(), "DeploymentFrame_C_3A_5Cwork_5CApp_5CApp_2Evproj");
  Choose("Debug", "Android");
  EXPECT_EQ(Tree().TextColor(NodeOf("gdbserver"), 0), TTextColor::ButtonShadow);
  Profiles.Defaults["Android"] = "phone";
  Frame->RefreshFiles();
  EXPECT_EQ(Tree().TextColor(NodeOf("gdbserver"), 0), TTextColor::Default);
  Profiles.Defaults.clear();
  Module->Platforms.Profiles["Android"] = "phone";
  Frame->RefreshFiles();
  EXPECT_EQ(Tree().TextColor(NodeOf("gdbserver"), 0), TTextColor::Default);
}

TEST_F(FileStatus, ComposesRemoteDirectoriesAsTheHostDoes) {
  EXPECT_EQ(TDeploymentFrame::FixPath("Assets\\", "MyApp\\"), "MyApp\\Assets\\");
  EXPECT_EQ(TDeploymentFrame::FixPath("~\\bin", "MyApp\\"), "~\\bin\\");
}

} // namespace
} // namespace deployment
