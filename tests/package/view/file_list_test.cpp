// The file list: columns, texts, order and dimming.
#include "package/host/api/file_columns.h"
#include "tests/package/view/frame_world.h"

namespace deployment {
namespace {

using FileList = FrameWorld;
using namespace file_column;

TEST_F(FileList, HasNineColumns) {
  Open();
  TTexts columns;
  for (const TTreeColumn& column : Tree().Columns())
    columns.push_back(std::string(column.Title) + " " + std::to_string(column.Width));
  EXPECT_EQ(columns, (TTexts{"Local Path 150", "Local Name 150", "Type 100", "Configuration 80",
                             "Platforms 100", "Remote Path 150", "Remote Name 150",
                             "Remote Status 128", "Overwrite 120"}));
}

TEST_F(FileList, ShowsAnEntryCellByCell) {
  const auto file = Add(R"(data\levels.dat)", "Debug", {"Win32", "Android"});
  file->SetRemoteDir("Win32", "Assets\\");
  file->SetRemoteName("Win32", "l.dat");
  file->SetOverwrite("Win32", false);
  Open();
  TTexts texts;
  for (int column = 0; column <= 8; ++column)
    texts.push_back(Tree().Text(Nodes()[0], column));
  EXPECT_EQ(texts, (TTexts{"data\\", "levels.dat", "File", "Debug", "[Win32,Android]", "Assets\\",
                           "l.dat", "Not Connected", "Never"}));
  EXPECT_EQ(Tree().Text(Nodes()[0], 9), "");
}

TEST_F(FileList, NamesPlatformsInTheProjectsOrder) {
  Module->Platforms.Supported = {"Android", "iOSDevice64"};
  Add("a", "Debug", {"iOSDevice64", "Android"});
  Open();
  Choose("Debug", "Android");
  EXPECT_EQ(Text("a", file_column::Platforms), "[Android,iOSDevice64]");
}

TEST_F(FileList, LeavesTheListOfPlatformsOpenWithoutProjectPlatforms) {
  Add("a");
  Open();
  Module->HasPlatforms = false;
  EXPECT_EQ(Text("a", file_column::Platforms), "[");
}

TEST_F(FileList, ShowsAnEmptyListForAFileThatNoProjectPlatformHolds) {
  Module->Platforms.Supported = {"Android"};
  Add("a", "Debug", {"Win32"});
  Open();
  EXPECT_EQ(Text("a", file_column::Platforms), "[]");
}

TEST_F(FileList, ShowsADotForTheTopOfTheTarget) {
  Add("a");
  Open();
  EXPECT_EQ(Text("a", RemotePath), ".\\");
}

TEST_F(FileList, ShowsTheDirectoryOfTheClassAndWithoutADeploymentTheOwnOne) {
  const auto added = Deployment.CreateClass();
  added->SetClassId("File");
  added->SetRemoteDir("Win32", "Data\\");
  Deployment.AddClass(added);
  Add("a");
  Add("b")->SetRemoteDir("Win32", "Own\\");
  Open();
  EXPECT_EQ(Texts(RemotePath), (TTexts{"Data\\", "Own\\"}));
  Module->GivenDeployment = nullptr;
  EXPECT_EQ(Texts(RemotePath), (TTexts{".\\", "Own\\"}));
  Module->GivenDeployment = &Deployment;
}

TEST_F(FileList, StaysInTheOrderOfTheDeploymentUntilAHeaderIsClicked) {
  Add("b");
  Add("a");
  Open();
  Frame->RefreshFiles();
  EXPECT_EQ(Names(), (TTexts{"b", "a"}));
}

TEST_F(FileList, SortsUpAndThenDownByTheClickedColumn) {
  Add("b");
  Add("C");
  Add("a");
  Open();
  Tree().ClickHeader(LocalName);
  EXPECT_EQ(Names(), (TTexts{"a", "b", "C"}));
  Tree().ClickHeader(LocalName);
  EXPECT_EQ(Names(), (TTexts{"C", "b", "a"}));
  EXPECT_EQ(Tree().GetSortDirection(), TSortDirection::Descending);
  Tree().ClickHeader(Type);
  EXPECT_EQ(Tree().GetSortColumn(), Type);
  EXPECT_EQ(Tree().GetSortDirection(), TSortDirection::Ascending);
  Tree().ClickHeader(LocalName);
  EXPECT_EQ(Names(), (TTexts{"a", "b", "C"}));
}

TEST_F(FileList, SortsLettersBeyondAsciiIgnoringCase) {
  Add("Ä");
  Add("ж");
  Add("Ж2");
  Add("ä2");
  Open();
  Tree().ClickHeader(LocalName);
  EXPECT_EQ(Names(), (TTexts{"Ä", "ä2", "ж", "Ж2"}));
}

TEST_F(FileList, IgnoresOtherMouseButtonsOnTheHeader) {
  Add("b");
  Add("a");
  Open();
  Tree().ClickHeader(LocalName, TMouseButton::Right);
  Tree().ClickHeader(LocalName, TMouseButton::Middle);
  EXPECT_EQ(Names(), (TTexts{"b", "a"}));
  EXPECT_EQ(Tree().GetSortColumn(), -1);
}

TEST_F(FileList, AppliesTheLastSortAfterEveryRebuild) {
  Add("b");
  Open();
  Tree().ClickHeader(LocalName);
  Tree().ClickHeader(LocalName);
  Add("a");
  Add("c");
  EXPECT_EQ(Names(), (TTexts{"c", "b", "a"}));
}

TEST_F(FileList, LeavesTiesInTheirOrder) {
  Add("b");
  Add("a");
  Open();
  Tree().ClickHeader(Type);
  EXPECT_EQ(Names(), (TTexts{"b", "a"}));
  Tree().ClickHeader(Type);
  EXPECT_EQ(Names(), (TTexts{"b", "a"}));
}

TEST_F(FileList, SortsOverwrittenFilesFirst) {
  Add("never")->SetOverwrite("Win32", false);
  Add("always");
  Open();
  Tree().ClickHeader(Overwrite);
  EXPECT_EQ(Names(), (TTexts{"always", "never"}));
  Tree().ClickHeader(Overwrite);
  EXPECT_EQ(Names(), (TTexts{"never", "always"}));
}

TEST_F(FileList, SortsStatusByItsWordsNotByItsNumbers) {
  for (const std::string name : {"same", "older", "newer", "missing", "unknown"}) {
    Add(name);
    Profiles.Local[FullName(name)] = TimeOf(10);
    Profiles.Remote["App\\" + name] = TimeOf(10);
  }
  Profiles.Remote["App\\older"] = TimeOf(9);
  Profiles.Remote["App\\newer"] = TimeOf(11);
  Profiles.Remote.erase("App\\missing");
  Profiles.Local.erase(FullName("unknown"));
  Open();
  Choose("Debug", "Win32");
  Connect();
  Tree().ClickHeader(RemoteStatus);
  EXPECT_EQ(Texts(RemoteStatus), (TTexts{"Newer", "Not Found", "Older", "Same", "Unknown"}));
  Tree().SortTree(LocalStatus, TSortDirection::Descending);
  EXPECT_EQ(Texts(LocalStatus), (TTexts{"Unknown", "Same", "Older", "Not Found", "Newer"}));
}

TEST_F(FileList, DimsRowsWithoutTheirLocalFileInEveryColumn) {
  Add("there");
  Add("gone");
  Exists("there");
  Open();
  for (int column = 0; column <= 8; ++column) {
    EXPECT_EQ(Tree().TextColor(NodeOf("there"), column), TTextColor::Default);
    EXPECT_EQ(Tree().TextColor(NodeOf("gone"), column), TTextColor::ButtonShadow);
  }
}

TEST_F(FileList, DimsWithTheShadowColourUnlessTheStyleHasNoColour) {
  Add("gone");
  Open();
  auto& style = Controls.GetStyle().TreeItemTextColor;
  style = TTextColor::Other;
  EXPECT_EQ(Tree().TextColor(NodeOf("gone"), 0), TTextColor::ButtonShadow);
  style = TTextColor::NoColor;
  EXPECT_EQ(Tree().TextColor(NodeOf("gone"), 0), TTextColor::NoColor);
  style.reset();
  EXPECT_EQ(Tree().TextColor(NodeOf("gone"), 0), TTextColor::ButtonShadow);
}

TEST_F(FileList, DimsARowThatTheCacheDoesNotKnow) {
  Add("a");
  Exists("a");
  Profiles.Remote["App\\a"] = TimeOf(10);
  Open();
  Choose("Debug", "Win32");
  Connect();
  EXPECT_EQ(Text("a", RemoteStatus), "Unknown");
  EXPECT_EQ(Tree().TextColor(NodeOf("a"), 0), TTextColor::ButtonShadow);
}

} // namespace
} // namespace deployment
