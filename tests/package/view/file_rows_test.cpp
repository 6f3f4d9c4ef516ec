// Nodes with their files: boxes, selection, order.
#include "package/view/file_rows.h"
#include "tests/package/host/api/entry_world.h"
#include "workbench/controls/memory_tree.h"

namespace deployment {
namespace {

class FileRows : public EntryWorld {
protected:
  FileRows() {
    TVirtualTreeEvents events;
    events.OnSortKey = [this](TNodeId node, int) { return Rows.File(node).GetLocalName(); };
    events.OnFreeNode = [this](TNodeId node) { Rows.Free(node); };
    Rows.SetTree(std::make_unique<workbench::TMemoryTree>(TTreeOptions(), std::move(events)));
  }
  std::shared_ptr<IProjectDeploymentFile> AddRow(std::string_view name, bool checked) {
    Add(name);
    const auto file = Deployment.FindFile("Debug", "Win32", name);
    Rows.Add(file, checked);
    return file;
  }
  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const TNodeId node : Rows.Tree().GetChildren(0))
      names.push_back(Rows.File(node).GetLocalName());
    return names;
  }

  TFileStatusCache Cache;
  TFileRows Rows{Cache};
};

TEST_F(FileRows, CountCheckedFilesThatAreHere) {
  AddRow("a", true);
  AddRow("b", true);
  Cache.Store("a", {TRemoteState::NotQueried, true});
  EXPECT_EQ(Cache.DeployableRows(), 1U);
  const TNodeId node = Rows.Tree().GetChildren(0)[0];
  Rows.SetChecked(node, false);
  EXPECT_EQ(Rows.Tree().GetCheckState(node), TCheckState::Unchecked);
  EXPECT_EQ(Cache.DeployableRows(), 0U);
  Rows.SetChecked(node, true);
  Rows.SetChecked(node, true);
  EXPECT_EQ(Cache.DeployableRows(), 1U);
  Rows.Tree().Clear();
  EXPECT_EQ(Cache.DeployableRows(), 0U);
}

TEST_F(FileRows, SelectFilesAgainAndKeepOthersSelected) {
  const auto a = AddRow("a", false);
  const auto b = AddRow("b", false);
  Rows.Tree().SetSelected(Rows.Tree().GetChildren(0)[1], true);
  EXPECT_EQ(Rows.SelectedFiles(), TFileRows::TFileList{b});
  Rows.ReSelectNodes({a});
  EXPECT_EQ(Rows.SelectedFiles(), (TFileRows::TFileList{a, b}));
}

TEST_F(FileRows, SortAgainAsTheLastClickSaid) {
  AddRow("b", false);
  AddRow("a", false);
  Rows.SortAgain();
  EXPECT_EQ(Names(), (std::vector<std::string>{"b", "a"}));
  Rows.ClickHeader(1);
  EXPECT_EQ(Names(), (std::vector<std::string>{"a", "b"}));
  AddRow("0", false);
  Rows.SortAgain();
  EXPECT_EQ(Names(), (std::vector<std::string>{"0", "a", "b"}));
  Rows.ClickHeader(1);
  EXPECT_EQ(Names(), (std::vector<std::string>{"b", "a", "0"}));
  Rows.ClickHeader(2);
  EXPECT_EQ(Rows.Tree().GetSortDirection(), TSortDirection::Ascending);
}

} // namespace
} // namespace deployment
