// Life of the frame: binding, the target box, what it hears, and its end.
#include "tests/package/view/frame_world.h"

namespace deployment {
namespace {

using DeploymentFrame = FrameWorld;

// Status and rows each ask for the list.
constexpr int ListsOfOneBuild = 2;

TEST_F(DeploymentFrame, MakesItsControlsBeforeItHasAProject) {
  Frame = std::make_unique<TDeploymentFrame>(Host, Controls, Threads);
  EXPECT_EQ(Frame->GetName(), "");
  const TTreeOptions& options = Tree().Options();
  EXPECT_TRUE(options.CheckBoxes && options.MultiSelect && options.FullRowSelect &&
              options.Incremental && options.ColumnsResize && options.SortGlyphs &&
              options.VerticalLines && options.HintsAsTooltip && options.StrongUnfocused &&
              options.Editable);
  EXPECT_EQ(options.EditDelay, std::chrono::milliseconds(100));
  EXPECT_EQ(Profiles.Notifiers.size(), 1U);
  EXPECT_EQ(Host.PlatformManager.Added.Handlers.size(), 1U);
  EXPECT_EQ(Host.PlatformManager.Removed.Handlers.size(), 1U);
}

TEST_F(DeploymentFrame, DoesNothingOnCommandsWithoutAProject) {
  Frame = std::make_unique<TDeploymentFrame>(Host, Controls, Threads);
  for (const std::string_view name : Controls.ToolBar()->Layout()) {
    if (!name.empty() && name != "tbConnect")
      Press(name);
  }
  Choose("Debug", "Win32");
  EXPECT_TRUE(Dialogs.Messages.empty());
  EXPECT_TRUE(Nodes().empty());
}

TEST_F(DeploymentFrame, ReconcilesAndShowsTheProjectItIsBoundTo) {
  Add("a");
  Open();
  EXPECT_EQ(Deployment.Log, TTexts{"reconcile |Win32"});
  EXPECT_EQ(Names(), TTexts{"a"});
  EXPECT_EQ(Controls.TargetsComboBox()->Project(), Module.get());
  EXPECT_EQ(Deployment.Listeners, 1);
  EXPECT_EQ(Frame->GetName(), "DeploymentFrame_C_3A_5Cwork_5CApp_5CApp_2Evproj");
}

TEST_F(DeploymentFrame, BuildsTheRowsOnceForAReconcileThatAddsManyEntries) {
  Deployment.OnReconcile = [this] {
    for (int i = 0; i < 50; ++i)
      Add("file" + std::to_string(i));
  };
  Open();
  EXPECT_EQ(Nodes().size(), 50U);
  EXPECT_EQ(Deployment.ListsAsked, 2);
}

TEST_F(DeploymentFrame, OpensForATargetWithOneReconcileAndOneBuildOfItsRows) {
  Add("a", "Debug", {"Android"});
  Add("b", "Debug", {"Win32"});
  Open(TShowRequest{{"Debug", "Android"}});
  EXPECT_EQ(Deployment.Log, TTexts{"reconcile Debug|Android"});
  EXPECT_EQ(Deployment.ListsAsked, ListsOfOneBuild);
  EXPECT_EQ(Names(), TTexts{"a"});
  EXPECT_EQ(Controls.TargetsComboBox()->GetSelectedPlatform(), "Android");
  EXPECT_EQ(Controls.TargetsComboBox()->GetSelectedConfiguration(), "Debug");
}

TEST_F(DeploymentFrame, OpensForAllPlatformsByNameOrByNone) {
  Add("a", "Debug", {"Android"});
  for (const std::string platform : {"All Platforms", ""}) {
    Deployment.Log.clear();
    Open(TShowRequest{{"Debug", platform}});
    EXPECT_EQ(Deployment.Log, TTexts{"reconcile Debug|All Platforms"});
    EXPECT_EQ(Names(), TTexts{"a"});
    EXPECT_EQ(Controls.TargetsComboBox()->GetSelectedPlatform(), "");
    Frame.reset();
  }
}

TEST_F(DeploymentFrame, OpensConnectedWithOneBuildOfItsRows) {
  NeedProfile();
  Add("a");
  Profiles.Local[FullName("a")] = TimeOf(10);
  Profiles.Remote["App\\a"] = TimeOf(10);
  Open(TShowRequest{{"Debug", "Win32"}, /*Connect=*/true});
  EXPECT_TRUE(Button("tbConnect").GetDown());
  FinishConnect();
  EXPECT_EQ(Text("a", 7), "Same");
  EXPECT_EQ(Deployment.Log.size(), 1U);
  EXPECT_EQ(Deployment.ListsAsked, ListsOfOneBuild);
}

TEST_F(DeploymentFrame, ShowsItsRowsWhenItCannotConnectAtOnce) {
  NeedProfile();
  Add("a");
  Add("b", "Debug", {"Android"});
  Profiles.OnConnect = [](const IOTARemoteProfile&, std::string&) { return false; };
  Open(TShowRequest{{"Debug", "Win32"}, /*Connect=*/true});
  FinishConnect();
  EXPECT_FALSE(Button("tbConnect").GetDown());
  EXPECT_EQ(Names(), TTexts{"a"});
  Frame.reset();
  Open(TShowRequest{{"Debug", "Android"}, /*Connect=*/true});
  EXPECT_FALSE(Button("tbConnect").GetDown());
  EXPECT_EQ(Names(), TTexts{"b"});
}

TEST_F(DeploymentFrame, TurnsToAnotherTargetWhenItIsAskedTo) {
  Add("a", "Debug", {"Android"});
  Open();
  Frame->ShowTarget({{"Debug", "Android"}});
  EXPECT_EQ(Deployment.Log.back(), "reconcile Debug|Android");
  EXPECT_EQ(Names(), TTexts{"a"});
}

TEST_F(DeploymentFrame, OpensWithWhatTheListHoldsWhenTheTargetCannotBeComputed) {
  Add("a");
  Deployment.OnReconcile = [] { throw TInputError("the option says \"maybe\""); };
  Open();
  EXPECT_EQ(Names(), TTexts{"a"});
  EXPECT_EQ(Tree().Notice(), "the option says \"maybe\"");
  ASSERT_TRUE(Frame->TargetProblem());
  EXPECT_STREQ(Frame->TargetProblem()->what(), "the option says \"maybe\"");
  EXPECT_EQ(Deployment.Listeners, 1);
  EXPECT_THROW(Choose("Debug", "Win32"), TInputError);
  EXPECT_EQ(Names(), TTexts{"a"});
  Frame->ShowTarget({{"Debug", "Win32"}});
  EXPECT_EQ(Names(), TTexts{"a"});
  Deployment.OnReconcile = nullptr;
  Choose("Debug", "Win32");
  EXPECT_FALSE(Frame->TargetProblem());
  EXPECT_EQ(Tree().Notice(), "");
}

TEST_F(DeploymentFrame, StaysEmptyWithoutADeployment) {
  Module->GivenDeployment = nullptr;
  Open();
  EXPECT_TRUE(Nodes().empty());
  for (const std::string_view name : Controls.ToolBar()->Layout()) {
    if (!name.empty() && name != "tbConnect")
      Press(name);
  }
  Choose("Debug", "Win32");
  EXPECT_TRUE(Dialogs.Messages.empty());
  EXPECT_FALSE(Module->Modified);
}

TEST_F(DeploymentFrame, ShowsTheChosenTarget) {
  Add("a", "Debug", {"Android"});
  Open();
  Deployment.Log.clear();
  Choose("Debug", "Android");
  EXPECT_EQ(Deployment.Log, TTexts{"reconcile Debug|Android"});
  EXPECT_EQ(Names(), TTexts{"a"});
}

TEST_F(DeploymentFrame, CallsAllPlatformsByNameAndDoesNotDeployToThem) {
  Add("a");
  Exists("a");
  Open();
  EXPECT_TRUE(IsEnabled("tbDeploy"));
  Deployment.Log.clear();
  Choose("Debug", "");
  EXPECT_EQ(Deployment.Log, TTexts{"reconcile Debug|All Platforms"});
  EXPECT_FALSE(IsEnabled("tbDeploy"));
}

TEST_F(DeploymentFrame, DoesNotDeployToAllPlatformsWhenAFileIsEnabledForThem) {
  Add("a", "Debug", {"Win32", "All"});
  Exists("a");
  Open();
  Choose("Debug", "");
  EXPECT_TRUE(IsChecked("a"));
  EXPECT_FALSE(IsEnabled("tbDeploy"));
  Choose("Debug", "Win32");
  EXPECT_TRUE(IsEnabled("tbDeploy"));
}

TEST_F(DeploymentFrame, DoesNotDeployToAllPlatformsWithoutADeployment) {
  Module->GivenDeployment = nullptr;
  Open();
  Choose("Debug", "Win32");
  EXPECT_TRUE(Button("tbDeploy").GetEnabled());
  Choose("Debug", "");
  EXPECT_FALSE(Button("tbDeploy").GetEnabled());
}

TEST_F(DeploymentFrame, RebuildsTheRowsWhenAnEntryChanges) {
  Open();
  Add("a");
  EXPECT_EQ(Names(), TTexts{"a"});
  const int filled = Controls.TargetsComboBox()->Repopulations();
  Deployment.RemoveFilesOfClass("File");
  EXPECT_TRUE(Nodes().empty());
  EXPECT_GT(Controls.TargetsComboBox()->Repopulations(), filled);
}

TEST_F(DeploymentFrame, FillsOnlyTheTargetBoxWhenAPlatformComesOrGoes) {
  Open();
  const int filled = Controls.TargetsComboBox()->Repopulations();
  const int asked = Deployment.ListsAsked;
  Host.PlatformManager.Added.Raise(*Module, "OSX32");
  Host.PlatformManager.Removed.Raise(*Module, "OSX32");
  EXPECT_EQ(Controls.TargetsComboBox()->Repopulations(), filled + 2);
  EXPECT_EQ(Deployment.ListsAsked, asked);
}

TEST_F(DeploymentFrame, StaysAsItIsOnEventsThatShowNothing) {
  Add("a");
  Open();
  const int asked = Deployment.ListsAsked;
  IOTARemoteProfileNotifier& profiles = *Profiles.Notifiers.begin()->second;
  profiles.RemoteProfileAdded(*Profiles.Profiles["lab"]);
  profiles.RemoteProfileRenamed(*Profiles.Profiles["lab"], "old");
  profiles.RemoteProfileChanged(*Profiles.Profiles["lab"]);
  profiles.RemoteProfileRemoved(*Profiles.Profiles["lab"]);
  profiles.AfterDeploy(true, nullptr);
  profiles.AfterRun(true, nullptr);
  dynamic_cast<IProjectDeploymentNotifier&>(profiles).Loaded("App");
  EXPECT_EQ(Deployment.ListsAsked, asked);
  EXPECT_EQ(Names(), TTexts{"a"});
}

TEST_F(DeploymentFrame, TakesItselfOffEveryListWhenItGoes) {
  Open();
  Frame.reset();
  EXPECT_EQ(Deployment.Listeners, 0);
  EXPECT_TRUE(Profiles.Notifiers.empty());
  EXPECT_TRUE(Host.PlatformManager.Added.Handlers.empty());
  EXPECT_TRUE(Host.PlatformManager.Removed.Handlers.empty());
}

TEST_F(DeploymentFrame, DoesNotUnregisterFromADeploymentThatWentFirst) {
  Open();
  Frame->Destroyed();
  Frame.reset();
  EXPECT_EQ(Deployment.Listeners, 1);
}

TEST_F(DeploymentFrame, HearsNothingInsideItsOwnBracket) {
  Open();
  Frame->BeginUpdateNotifier();
  Frame->BeginUpdateNotifier();
  EXPECT_EQ(Deployment.Listeners, 0);
  Add("a");
  EXPECT_TRUE(Nodes().empty());
  Frame->EndUpdateNotifier();
  Frame->EndUpdateNotifier();
  EXPECT_EQ(Deployment.Listeners, 1);
  Add("b");
  EXPECT_EQ(Names(), (TTexts{"a", "b"}));
}

TEST_F(DeploymentFrame, WorksInAHostWithoutRemoteProfiles) {
  Host.ProfileServices = nullptr;
  NeedProfile();
  Add("a");
  Exists("a");
  Open();
  ASSERT_TRUE(Press("tbConnect"));
  FinishConnect();
  EXPECT_FALSE(Button("tbConnect").GetDown());
  EXPECT_TRUE(Press("tbDeploy"));
  Tree().Edit(NodeOf("a"), 5, "x");
  EXPECT_EQ(Text("a", 5), "x");
}

TEST_F(DeploymentFrame, LetsGoOfItsFilesWithTheirRows) {
  const std::weak_ptr<IProjectDeploymentFile> file = Add("a");
  Open();
  Deployment.Real.RemoveFilesOfClass("File");
  EXPECT_TRUE(file.expired());
}

TEST_F(DeploymentFrame, KeepsTheListTrueForStrangeNames) {
  const std::string longName(4000, 'x');
  for (const std::string& name : {std::string("a b,[c].dat"), std::string("Ж ä.dat"), longName})
    Add("dir\\" + name);
  Add("");
  Open();
  EXPECT_EQ(Names(), (TTexts{"a b,[c].dat", "Ж ä.dat", longName, ""}));
  for (int column = 0; column <= 8; ++column)
    Tree().ClickHeader(column);
  EXPECT_EQ(Nodes().size(), 4U);
}

} // namespace
} // namespace deployment
