// The commands that change entries.
#include "tests/package/view/frame_world.h"

#include <stdexcept>

namespace deployment {
namespace {

using Commands = FrameWorld;
using A = TMessageAnswer;

TEST_F(Commands, ReconcileTheTargetAndShowIt) {
  Open();
  Choose("Debug", "Win32");
  Deployment.Log.clear();
  Deployment.OnReconcile = [this] { Add("made"); };
  EXPECT_TRUE(Press("tbReconcile"));
  EXPECT_EQ(Deployment.Log, TTexts{"reconcile Debug|Win32"});
  EXPECT_EQ(Names(), TTexts{"made"});
}

TEST_F(Commands, LeaveTheViewListeningWhenAReconcileFails) {
  Open();
  Deployment.OnReconcile = [] { throw TInputError("the catalog is damaged"); };
  EXPECT_THROW(Press("tbReconcile"), TInputError);
  Add("a");
  EXPECT_EQ(Names(), TTexts{"a"});
}

TEST_F(Commands, ShowWhatTheListHoldsWhenAReconcileFails) {
  Add("a");
  Open();
  Deployment.OnReconcile = [this] {
    Add("b");
    throw TInputError("an option says \"maybe\"", {"C:\\App.vproj", 7});
  };
  EXPECT_THROW(Press("tbReconcile"), TInputError);
  EXPECT_EQ(Names(), (TTexts{"a", "b"}));
  EXPECT_EQ(Tree().Notice(), "an option says \"maybe\" (C:\\App.vproj:7)");
  Deployment.OnReconcile = [] { throw std::runtime_error("the host is busy"); };
  EXPECT_THROW(Press("tbReconcile"), std::runtime_error);
  EXPECT_EQ(Names(), (TTexts{"a", "b"}));
  Deployment.OnReconcile = nullptr;
  Press("tbReconcile");
  EXPECT_EQ(Tree().Notice(), "");
}

TEST_F(Commands, AddChosenFilesForTheTarget) {
  Host.PlatformManager.Platforms[0].DefaultRemoteDir = ".\\bin";
  Dialogs.Files = {R"(C:\work\App\data\a.dat)", R"(D:\b.dat)"};
  Open();
  Choose("Debug", "Win32");
  EXPECT_TRUE(Press("tbAddFiles"));
  EXPECT_EQ(Names(), (TTexts{"a.dat", "b.dat"}));
  const auto file = Deployment.FindFile("Debug", "Win32", R"(data\a.dat)");
  ASSERT_TRUE(file);
  EXPECT_EQ(file->GetDeploymentClass(), "File");
  EXPECT_EQ(file->GetPlatforms(), TTexts{"Win32"});
  EXPECT_TRUE(file->GetEnabled("Win32"));
  EXPECT_EQ(file->GetRemoteDir("Win32"), ".\\bin");
  EXPECT_TRUE(Deployment.FindFile("Debug", "Win32", R"(D:\b.dat)"));
  const TFileOpenOptions& options = Dialogs.OpenOptions;
  EXPECT_TRUE(options.AllowMultiSelect && options.PathMustExist && options.FileMustExist &&
              options.HideReadOnly && options.Sizable);
}

TEST_F(Commands, AddFilesToTheRootConfigurationWhenNoneIsSelected) {
  Dialogs.Files = {R"(C:\work\App\a.dat)"};
  Open();
  Choose("", "Win32");
  Press("tbAddFiles");
  EXPECT_TRUE(Deployment.FindFile("Base", "Win32", "a.dat"));
}

TEST_F(Commands, AddFilesToTheProjectsPlatformWhileAllAreShown) {
  Dialogs.Files = {R"(C:\work\App\a.dat)"};
  Module->Platforms.Active = "Android";
  Open();
  Choose("Debug", "");
  Press("tbAddFiles");
  const auto file = Deployment.FindFile("Debug", "Android", "a.dat");
  ASSERT_TRUE(file);
  EXPECT_EQ(file->GetPlatforms(), TTexts{"Android"});
  EXPECT_EQ(Names(), TTexts{"a.dat"});
}

TEST_F(Commands, KeepAnEntryThatIsAddedASecondTime) {
  Add("a.dat")->SetRemoteName("Win32", "mine");
  Dialogs.Files = {R"(C:\work\App\a.dat)"};
  Open();
  Choose("Debug", "Win32");
  Press("tbAddFiles");
  EXPECT_EQ(Texts(6), TTexts{"mine"});
}

TEST_F(Commands, AddNothingWhenTheFileDialogIsCancelled) {
  Open();
  const int asked = Deployment.ListsAsked;
  Press("tbAddFiles");
  EXPECT_EQ(Deployment.ListsAsked, asked);
}

TEST_F(Commands, AddManyFilesAndRebuildOnce) {
  for (int i = 0; i < 30; ++i)
    Dialogs.Files.push_back(FullName("file" + std::to_string(i)));
  Open();
  Choose("Debug", "Win32");
  const int asked = Deployment.ListsAsked;
  Press("tbAddFiles");
  EXPECT_EQ(Nodes().size(), 30U);
  EXPECT_EQ(Deployment.ListsAsked, asked + 2);
}

TEST_F(Commands, AskBeforeAFileIsDeleted) {
  Add("a");
  Open();
  Select({"a"});
  Dialogs.Answers = {A::No};
  Press("tbDeleteFile");
  EXPECT_EQ(Names(), TTexts{"a"});
  EXPECT_EQ(SelectedNames(), TTexts{"a"});
  Dialogs.Answers = {A::Yes};
  Press("tbDeleteFile");
  EXPECT_TRUE(Nodes().empty());
  EXPECT_TRUE(Deployment.Real.FindFiles("", "", "", "").empty());
  EXPECT_EQ(Dialogs.Messages[0].Text, "Are you sure you want to delete file \"a\"?");
  EXPECT_EQ(Dialogs.Messages[0].Buttons, (std::vector{A::Yes, A::No}));
}

TEST_F(Commands, DeleteOnlyFilesOfTheUsersClasses) {
  Add("file");
  Add("service")->SetDeploymentClass("AndroidServiceOutput");
  Add("output")->SetDeploymentClass("ProjectOutput");
  Open();
  Select({"file", "service", "output"});
  Dialogs.Answers = {A::Yes, A::Yes};
  Press("tbDeleteFile");
  EXPECT_EQ(Dialogs.Messages.size(), 2U);
  EXPECT_EQ(Names(), TTexts{"output"});
  EXPECT_EQ(SelectedNames(), TTexts{"output"});
}

TEST_F(Commands, DeleteTheRestAfterYesToAll) {
  for (const std::string_view name : {"a", "b", "c", "d"})
    Add(name);
  Open();
  Select({"a", "b", "c"});
  Dialogs.Answers = {A::No, A::YesToAll};
  Press("tbDeleteFile");
  EXPECT_EQ(Dialogs.Messages.size(), 2U);
  EXPECT_EQ(Dialogs.Messages[0].Buttons, (std::vector{A::Yes, A::YesToAll, A::No, A::Cancel}));
  EXPECT_EQ(Names(), (TTexts{"a", "d"}));
}

TEST_F(Commands, StopDeletingWhenCancelled) {
  for (const std::string_view name : {"a", "b", "c"})
    Add(name);
  Open();
  Select({"a", "b", "c"});
  Dialogs.Answers = {A::Yes, A::Cancel};
  Press("tbDeleteFile");
  EXPECT_EQ(Names(), (TTexts{"b", "c"}));
  Press("tbDeleteFile");
  EXPECT_EQ(Names(), (TTexts{"b", "c"}));
}

TEST_F(Commands, DeleteAnEntryWhoseNameChangedSinceItWasAdded) {
  Add("a")->SetLocalName("b");
  Open();
  Select({"b"});
  Dialogs.Answers = {A::Yes};
  Press("tbDeleteFile");
  EXPECT_TRUE(Nodes().empty());
}

TEST_F(Commands, ChangeTheRemotePathOfTheSelection) {
  const auto a = Add("a");
  const auto b = Add("b");
  Open();
  Select({"a"});
  Dialogs.Input = "Data\\";
  EXPECT_TRUE(Press("tbChangeRemotePath"));
  EXPECT_EQ(Dialogs.Inputs, TTexts{"Remote Path|Enter the new Remote Path|.\\"});
  EXPECT_EQ(a->GetRemoteDir("Win32"), "Data\\");
  EXPECT_EQ(b->GetRemoteDir("Win32"), "");
  EXPECT_EQ(SelectedNames(), TTexts{"a"});
  Dialogs.Input.reset();
  Press("tbChangeRemotePath");
  EXPECT_EQ(a->GetRemoteDir("Win32"), "Data\\");
}

TEST_F(Commands, ChangeForAllPlatformsWhatEveryPlatformOfTheFileSays) {
  const auto a = Add("a", "Debug", {"Win32", "Android"});
  Open();
  Choose("Debug", "");
  Select({"a"});
  Dialogs.Input = "Data\\";
  Dialogs.Answers = {A::Yes};
  EXPECT_TRUE(Press("tbChangeRemotePath"));
  EXPECT_TRUE(Press("tbChangeOverwrite"));
  EXPECT_EQ(a->GetRemoteDir("Win32"), "Data\\");
  EXPECT_EQ(a->GetRemoteDir("Android"), "Data\\");
  EXPECT_FALSE(a->GetOverwrite("Win32"));
  EXPECT_FALSE(a->GetOverwrite("Android"));
  EXPECT_EQ(a->GetPlatforms(), (TTexts{"Win32", "Android"}));
  EXPECT_TRUE(Module->Modified);
}

TEST_F(Commands, ChangeNoRemotePathWhereNoSelectedFileHoldsThePlatform) {
  Add("a", "Debug", {"WIN32"});
  Open();
  Select({"a"});
  Dialogs.Input = "Data\\";
  Press("tbChangeRemotePath");
  Press("tbChangeOverwrite");
  EXPECT_TRUE(Dialogs.Inputs.empty());
  EXPECT_TRUE(Dialogs.Messages.empty());
}

TEST_F(Commands, FlipOverwriteOfEachSelectedFile) {
  const auto a = Add("a");
  const auto b = Add("b");
  b->SetOverwrite("Win32", false);
  Open();
  Select({"a", "b"});
  Dialogs.Answers = {A::Yes};
  EXPECT_TRUE(Press("tbChangeOverwrite"));
  EXPECT_FALSE(a->GetOverwrite("Win32"));
  EXPECT_TRUE(b->GetOverwrite("Win32"));
  EXPECT_EQ(SelectedNames(), (TTexts{"a", "b"}));
  EXPECT_EQ(Dialogs.Messages[0].Text,
            "Are you sure you want to change the value for the selected items ?");
  EXPECT_EQ(Dialogs.Messages[0].Buttons, (std::vector{A::Yes, A::No, A::Cancel}));
}

TEST_F(Commands, LeaveOverwriteOnNoAndOnCancel) {
  const auto a = Add("a");
  Open();
  Select({"a"});
  for (const A answer : {A::No, A::Cancel, A::None}) {
    Dialogs.Answers = {answer};
    Press("tbChangeOverwrite");
    EXPECT_TRUE(a->GetOverwrite("Win32"));
  }
}

TEST_F(Commands, OfferTheFeaturedFilesAndKeepTheUsersWish) {
  Host.Files[R"(C:\ide\ObjRepos\Deploy\featuredfiles.xml)"] =
      R"(<Catalog><Feature ProductName="Test"><Title>Client</Title>)"
      R"(<DeployFile LocalName="client.dll" Class="File"><Platform Name="Win32"/></DeployFile>)"
      R"(</Feature></Catalog>)";
  Open();
  Choose("Debug", "Win32");
  bool sawShowAuto = false;
  Forms.OnFeatureFiles = [&](IFeatureFileForm& form) {
    sawShowAuto = form.GetShowAuto();
    form.SetChecked(form.GetChildren(0).at(0), true);
    form.SetShowAuto(false);
    return TModalResult::OK;
  };
  const int asked = Deployment.ListsAsked;
  Press("tbAddFeature");
  EXPECT_TRUE(sawShowAuto);
  EXPECT_EQ(Names(), TTexts{"client.dll"});
  EXPECT_EQ(Deployment.ListsAsked, asked + 2);
  EXPECT_FALSE(Host.Settings.Booleans.at("DeploymentManager/ShowFeaturedFormAuto"));
  Press("tbAddFeature");
  EXPECT_FALSE(sawShowAuto);
}

TEST_F(Commands, LeaveTheUsersWishWhenTheFeaturedFilesAreCancelled) {
  Host.Files[R"(C:\ide\ObjRepos\Deploy\featuredfiles.xml)"] =
      R"(<Catalog><Feature ProductName="Test"><Title>Client</Title></Feature></Catalog>)";
  Open();
  Press("tbAddFeature");
  EXPECT_TRUE(Host.Settings.Booleans.empty());
}

class RevertCommand : public FrameWorld {
protected:
  RevertCommand() { Add("a"); }
  /// Presses the button; the user answers as `play` does.
  void Run(const std::function<TModalResult(IRevertToDefaultForm&)>& play) {
    Forms.OnRevertToDefault = play;
    Deployment.Log.clear();
    Press("tbRevert");
  }
};

TEST_F(RevertCommand, GoesForTheActivePlatformAndKeepsAddedFilesByDefault) {
  Open();
  Run([](IRevertToDefaultForm&) { return TModalResult::OK; });
  EXPECT_EQ(Deployment.Log, TTexts{"revert Win32 keeping"});
}

TEST_F(RevertCommand, GoesForAllPlatformsWithoutAddedFilesWhenChosen) {
  Open();
  Run([](IRevertToDefaultForm& form) {
    form.SetScope(TRevertScope::AllPlatforms);
    form.SetKeepAddedFiles(false);
    return TModalResult::OK;
  });
  EXPECT_EQ(Deployment.Log, TTexts{"revert Win32 Android dropping"});
}

TEST_F(RevertCommand, TakesTheProjectsPlatformWhileAllAreShown) {
  Module->Platforms.Active = "Android";
  Open();
  Choose("Debug", "");
  Run([](IRevertToDefaultForm&) { return TModalResult::OK; });
  EXPECT_EQ(Deployment.Log, TTexts{"revert Android keeping"});
}

TEST_F(RevertCommand, ChangesNothingWithoutOK) {
  Open();
  Run([](IRevertToDefaultForm&) { return TModalResult::Cancel; });
  Run([](IRevertToDefaultForm&) { return TModalResult::None; });
  Host.ModalForms = nullptr;
  Press("tbRevert");
  EXPECT_TRUE(Deployment.Log.empty());
}

} // namespace
} // namespace deployment
