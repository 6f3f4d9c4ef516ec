// Editing in the cells, and the boxes.
#include "package/host/api/file_columns.h"
#include "tests/package/view/frame_world.h"

namespace deployment {
namespace {

using Editing = FrameWorld;
using CheckBoxes = FrameWorld;
using namespace file_column;
using workbench::TCellEditorKind;

TEST_F(Editing, IsForFourColumns) {
  Add("a");
  Open();
  std::vector<int> columns;
  for (int column = 0; column <= 99; ++column) {
    if (Tree().BeginEdit(NodeOf("a"), column))
      columns.push_back(column);
  }
  EXPECT_EQ(columns, (std::vector<int>{4, 5, 6, 8}));
}

TEST_F(Editing, OffersAnEditorForEachColumn) {
  Add("a");
  Open();
  const TNodeId node = NodeOf("a");
  EXPECT_EQ(Tree().BeginEdit(node, 4)->Kind, TCellEditorKind::Button);
  EXPECT_EQ(Tree().BeginEdit(node, 4)->ImageIndex, 6);
  EXPECT_EQ(Tree().BeginEdit(node, 4)->GetText(), "[Win32]");
  EXPECT_EQ(Tree().BeginEdit(node, 5)->Kind, TCellEditorKind::HistoryCombo);
  EXPECT_EQ(Tree().BeginEdit(node, 5)->HistoryName, "hlDeploymentMgrRemotePath");
  EXPECT_EQ(Tree().BeginEdit(node, 6)->Kind, TCellEditorKind::Combo);
  EXPECT_EQ(Tree().BeginEdit(node, 6)->Items, TTexts{""});
  EXPECT_EQ(Tree().BeginEdit(node, 8)->Kind, TCellEditorKind::Combo);
  EXPECT_EQ(Tree().BeginEdit(node, 8)->Items, (TTexts{"Always", "Never"}));
}

TEST_F(Editing, WritesDirectoryAndNameForTheActivePlatform) {
  const auto file = Add("a", "Debug", {"Win32", "Android"});
  Open();
  EXPECT_TRUE(Tree().Edit(NodeOf("a"), RemotePath, "Data\\"));
  EXPECT_TRUE(Tree().Edit(NodeOf("a"), RemoteName, "b"));
  EXPECT_EQ(file->GetRemoteDir("Win32"), "Data\\");
  EXPECT_EQ(file->GetRemoteName("Win32"), "b");
  EXPECT_EQ(file->GetRemoteDir("Android"), "");
  EXPECT_EQ(file->GetRemoteName("Android"), "a");
  EXPECT_TRUE(Module->Modified);
}

TEST_F(Editing, SetsOverwriteForAlwaysInAnyCaseAndClearsItForAnythingElse) {
  const auto file = Add("a");
  Open();
  for (const std::string text : {"Never", "Yes", "", "always "}) {
    file->SetOverwrite("Win32", true);
    EXPECT_TRUE(Tree().Edit(NodeOf("a"), Overwrite, text));
    EXPECT_FALSE(file->GetOverwrite("Win32")) << text;
  }
  EXPECT_TRUE(Tree().Edit(NodeOf("a"), Overwrite, "always"));
  EXPECT_TRUE(file->GetOverwrite("Win32"));
}

TEST_F(Editing, DoesNotRebuildTheRows) {
  Add("a");
  Open();
  const int asked = Deployment.ListsAsked;
  Tree().Edit(NodeOf("a"), RemotePath, "Data\\");
  EXPECT_EQ(Deployment.ListsAsked, asked);
  EXPECT_EQ(Deployment.Listeners, 1);
}

TEST_F(Editing, ChangesNothingByTheTextOfThePlatformsEditor) {
  const auto file = Add("a");
  Open();
  EXPECT_TRUE(Tree().Edit(NodeOf("a"), file_column::Platforms, "[Android]"));
  EXPECT_EQ(file->GetPlatforms(), TTexts{"Win32"});
  EXPECT_TRUE(Module->Modified);
}

TEST_F(Editing, AsksForTheStatusOfTheRowAnew) {
  const auto file = Add("a");
  Profiles.Local[FullName("a")] = TimeOf(10);
  Profiles.Remote["App\\b"] = TimeOf(10);
  Open();
  Choose("Debug", "Win32");
  Connect();
  EXPECT_EQ(Text("a", RemoteStatus), "Not Found");
  Tree().Edit(NodeOf("a"), RemoteName, "b");
  EXPECT_EQ(Text("a", RemoteStatus), "Same");
  Module->Platforms.Profiles.clear();
  Tree().Edit(NodeOf("a"), RemoteName, "c");
  EXPECT_EQ(Text("a", RemoteStatus), "Same");
}

TEST_F(Editing, OpensThePlatformDialogFromTheButton) {
  const auto file = Add("a");
  Open();
  Forms.OnSelectPlatforms = [](ISelectForm& form) {
    form.SetChecked(1, true);
    return TModalResult::OK;
  };
  const int asked = Deployment.ListsAsked;
  auto* editor = Tree().BeginEdit(NodeOf("a"), 4);
  ASSERT_NE(editor, nullptr);
  EXPECT_TRUE(editor->PressButton());
  EXPECT_EQ(editor->GetText(), "[Win32,Android]");
  EXPECT_EQ(file->GetPlatforms(), (TTexts{"Win32", "Android"}));
  EXPECT_EQ(Deployment.ListsAsked, asked);
  EXPECT_EQ(Deployment.Listeners, 1);
  Forms.OnSelectPlatforms = nullptr;
  EXPECT_FALSE(editor->PressButton());
  EXPECT_TRUE(Tree().EndEdit());
}

TEST_F(CheckBoxes, SwitchAllProjectPlatformsOfTheFileAtOnce) {
  const auto file = Add("a", "Debug", {"Win32", "Android", "OSX32"});
  Open();
  EXPECT_TRUE(Tree().ClickCheck(NodeOf("a")));
  EXPECT_FALSE(file->GetEnabled("Win32"));
  EXPECT_FALSE(file->GetEnabled("Android"));
  EXPECT_TRUE(file->GetEnabled("OSX32"));
  EXPECT_FALSE(IsChecked("a"));
  EXPECT_TRUE(Module->Modified);
  EXPECT_EQ(Deployment.Listeners, 1);
}

TEST_F(CheckBoxes, FollowTheFileNotTheBox) {
  const auto file = Add("a");
  Open();
  Frame->BeginUpdateNotifier();
  file->SetEnabled("Win32", false);
  Frame->EndUpdateNotifier();
  EXPECT_TRUE(IsChecked("a"));
  Tree().ClickCheck(NodeOf("a"));
  EXPECT_TRUE(file->GetEnabled("Win32"));
  EXPECT_TRUE(IsChecked("a"));
}

TEST_F(CheckBoxes, EnableDeployWhileOneCheckedFileIsThere) {
  Add("gone");
  Add("there");
  Exists("there");
  Open();
  EXPECT_TRUE(IsEnabled("tbDeploy"));
  Tree().ClickCheck(NodeOf("there"));
  EXPECT_FALSE(IsEnabled("tbDeploy"));
  Tree().ClickCheck(NodeOf("there"));
  EXPECT_TRUE(IsEnabled("tbDeploy"));
  Host.Files.clear();
  Frame->RefreshFiles();
  EXPECT_FALSE(IsEnabled("tbDeploy"));
}

TEST_F(CheckBoxes, CountForEveryRowOfASharedLocalName) {
  Add("a", "Debug");
  Add("a", "Base");
  Exists("a");
  Open();
  Choose("Debug", "Win32");
  Tree().ClickCheck(Nodes()[0]);
  EXPECT_TRUE(IsEnabled("tbDeploy"));
  Tree().ClickCheck(Nodes()[1]);
  EXPECT_FALSE(IsEnabled("tbDeploy"));
}

TEST_F(CheckBoxes, EnableDeployWhenAnEditFindsTheFile) {
  Module->Platforms.Profiles["Win32"] = "lab";
  Add("a");
  Open();
  EXPECT_FALSE(IsEnabled("tbDeploy"));
  Exists("a");
  Tree().Edit(NodeOf("a"), RemoteName, "b");
  EXPECT_TRUE(IsEnabled("tbDeploy"));
}

TEST_F(CheckBoxes, OfAllRowsTouchTheActivePlatformOnly) {
  const auto a = Add("a", "Debug", {"Win32", "Android"});
  const auto b = Add("b", "Debug", {"Win32", "Android"});
  Open();
  Select({"b"});
  EXPECT_TRUE(Press("tbUncheckAll"));
  EXPECT_FALSE(a->GetEnabled("Win32"));
  EXPECT_TRUE(a->GetEnabled("Android"));
  EXPECT_FALSE(IsChecked("a"));
  EXPECT_FALSE(IsChecked("b"));
  EXPECT_EQ(SelectedNames(), TTexts{"b"});
  EXPECT_TRUE(Module->Modified);
  EXPECT_TRUE(Press("tbCheckAll"));
  EXPECT_TRUE(a->GetEnabled("Win32"));
  EXPECT_TRUE(IsChecked("b"));
  EXPECT_EQ(SelectedNames(), TTexts{"b"});
}

TEST_F(CheckBoxes, OfTheSelectionLeaveTheOtherRows) {
  const auto a = Add("a");
  const auto b = Add("b");
  Open();
  Select({"b"});
  EXPECT_TRUE(Press("tbUncheckSelection"));
  EXPECT_TRUE(a->GetEnabled("Win32"));
  EXPECT_FALSE(b->GetEnabled("Win32"));
  EXPECT_EQ(SelectedNames(), TTexts{"b"});
  EXPECT_TRUE(Press("tbCheckSelection"));
  EXPECT_TRUE(b->GetEnabled("Win32"));
}

TEST_F(CheckBoxes, OfAllPlatformsReachEveryPlatformOfTheFileAndNoOther) {
  const auto a = Add("a", "Debug", {"Win32", "Android", "OSX32"});
  Open();
  Choose("Debug", "");
  EXPECT_TRUE(IsChecked("a"));
  EXPECT_TRUE(Press("tbUncheckAll"));
  EXPECT_FALSE(IsChecked("a"));
  EXPECT_EQ(a->GetPlatforms(), (TTexts{"Win32", "Android", "OSX32"}));
  for (const std::string& platform : a->GetPlatforms())
    EXPECT_FALSE(a->GetEnabled(platform)) << platform;
  EXPECT_TRUE(Module->Modified);
  EXPECT_TRUE(Press("tbCheckAll"));
  EXPECT_TRUE(IsChecked("a"));
  EXPECT_TRUE(a->GetEnabled("OSX32"));
}

TEST_F(CheckBoxes, OfAllPlatformsAreOffWhileOnePlatformIs) {
  const auto a = Add("a", "Debug", {"Win32", "Android"});
  a->SetEnabled("Android", false);
  Open();
  Choose("Debug", "");
  EXPECT_FALSE(IsChecked("a"));
  EXPECT_TRUE(Tree().ClickCheck(NodeOf("a")));
  EXPECT_TRUE(a->GetEnabled("Android"));
  EXPECT_TRUE(IsChecked("a"));
  EXPECT_TRUE(Tree().ClickCheck(NodeOf("a")));
  EXPECT_FALSE(a->GetEnabled("Win32"));
}

TEST_F(Editing, ForAllPlatformsReachesEveryPlatformOfTheFile) {
  const auto file = Add("a", "Debug", {"Win32", "Android"});
  Open();
  Choose("Debug", "");
  EXPECT_TRUE(Tree().Edit(NodeOf("a"), RemotePath, "Data\\"));
  EXPECT_TRUE(Tree().Edit(NodeOf("a"), RemoteName, "b"));
  EXPECT_TRUE(Tree().Edit(NodeOf("a"), Overwrite, "Never"));
  for (const std::string platform : {"Win32", "Android"}) {
    EXPECT_EQ(file->GetRemoteDir(platform), "Data\\");
    EXPECT_EQ(file->GetRemoteName(platform), "b");
    EXPECT_FALSE(file->GetOverwrite(platform));
  }
  EXPECT_EQ(file->GetPlatforms(), (TTexts{"Win32", "Android"}));
  EXPECT_EQ(Text("a", RemotePath), "Data\\");
  EXPECT_EQ(Text("a", RemoteName), "b");
  EXPECT_EQ(Text("a", Overwrite), "Never");
  EXPECT_TRUE(Module->Modified);
}

TEST_F(CheckBoxes, RebuildTheRowsOnceForManyFiles) {
  for (int i = 0; i < 20; ++i)
    Add("file" + std::to_string(i));
  Open();
  const int asked = Deployment.ListsAsked;
  Press("tbUncheckAll");
  EXPECT_EQ(Deployment.ListsAsked, asked + 2);
  EXPECT_EQ(Deployment.Listeners, 1);
}

TEST_F(CheckBoxes, ReselectionKeepsOtherRowsSelected) {
  const auto a = Add("a");
  Add("b");
  Open();
  Select({"b"});
  Frame->ReSelectNodes({a});
  EXPECT_EQ(SelectedNames(), (TTexts{"a", "b"}));
}

} // namespace
} // namespace deployment
