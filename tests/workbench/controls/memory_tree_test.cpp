#include "workbench/controls/memory_tree.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace workbench {
namespace {

using deployment::TCheckState;
using deployment::TCheckType;
using deployment::TNodeId;
using deployment::TSortDirection;

/// A tree whose texts stand in a vector, by node.
class MemoryTree : public testing::Test {
protected:
  deployment::TVirtualTreeEvents Events() {
    deployment::TVirtualTreeEvents events;
    events.OnGetText = [this](TNodeId node, int) { return Texts[node]; };
    events.OnCompareNodes = [this](TNodeId first, TNodeId second, int) {
      ++Compared;
      return Texts[first].compare(Texts[second]);
    };
    events.OnFreeNode = [this](TNodeId node) { Freed.push_back(node); };
    return events;
  }
  TNodeId Add(TMemoryTree& tree, const std::string& text, TNodeId parent = 0) {
    const TNodeId node = tree.AddNode(parent, TCheckType::CheckBox);
    Texts.resize(node + 1);
    Texts[node] = text;
    return node;
  }
  std::string Order(const TMemoryTree& tree, TNodeId parent = 0) {
    std::string order;
    for (const TNodeId node : tree.GetChildren(parent))
      order += tree.Text(node, 0);
    return order;
  }

  std::vector<std::string> Texts;
  std::vector<TNodeId> Freed;
  int Compared = 0;
};

TEST_F(MemoryTree, CountsNodesFromOneAndStartsOverAfterClear) {
  TMemoryTree tree({}, Events());
  EXPECT_EQ(Add(tree, "a"), 1U);
  EXPECT_EQ(Add(tree, "b"), 2U);
  tree.SetSelected(2, true);
  tree.Clear();
  EXPECT_EQ(Freed, (std::vector<TNodeId>{1, 2}));
  EXPECT_EQ(tree.SelectedCount(), 0U);
  EXPECT_EQ(Add(tree, "c"), 1U);
  EXPECT_EQ(tree.GetCheckState(1), TCheckState::Unchecked);
}

TEST_F(MemoryTree, FreesWhatIsLeftWhenItGoes) {
  {
    TMemoryTree tree({}, Events());
    const TNodeId parent = Add(tree, "a");
    Add(tree, "b", parent);
    Add(tree, "c");
    tree.DeleteNode(parent);
    EXPECT_EQ(Freed, (std::vector<TNodeId>{2, 1}));
  }
  EXPECT_EQ(Freed, (std::vector<TNodeId>{2, 1, 3}));
}

TEST_F(MemoryTree, KeepsItsOrderWhenNodesAreDeleted) {
  TMemoryTree tree({}, Events());
  for (const char letter : std::string("abcdefgh"))
    Add(tree, std::string(1, letter));
  for (const TNodeId node : std::vector<TNodeId>{2, 4, 6, 8, 1})
    tree.DeleteNode(node);
  EXPECT_EQ(Order(tree), "ceg");
  Add(tree, "x");
  EXPECT_EQ(Order(tree), "cegx");
}

TEST_F(MemoryTree, SortsInBothDirectionsAndKeepsTies) {
  auto events = Events();
  events.OnCompareNodes = [this](TNodeId first, TNodeId second, int) {
    return Texts[first][0] - Texts[second][0];
  };
  TMemoryTree tree({}, events);
  for (const std::string text : {"b1", "a1", "b2", "a2"})
    Add(tree, text);
  tree.SortTree(0, TSortDirection::Ascending);
  EXPECT_EQ(Order(tree), "a1a2b1b2");
  tree.SortTree(0, TSortDirection::Descending);
  EXPECT_EQ(Order(tree), "b1b2a1a2");
}

TEST_F(MemoryTree, AsksOncePerNodeWhereThereIsASortKey) {
  auto events = Events();
  int asked = 0;
  events.OnSortKey = [&](TNodeId node, int) {
    ++asked;
    return Texts[node];
  };
  TMemoryTree tree({}, events);
  for (const std::string text : {"longer than eight b", "longer than eight a", "", "\xC3\xA4", "z"})
    Add(tree, text);
  tree.SortTree(0, TSortDirection::Ascending);
  EXPECT_EQ(Order(tree), "longer than eight alonger than eight bz\xC3\xA4");
  EXPECT_EQ(asked, 5);
  EXPECT_EQ(Compared, 0);
}

TEST_F(MemoryTree, ListsTheSelectionInItsOrder) {
  TMemoryTree tree({}, Events());
  for (const std::string text : {"c", "a", "b"})
    Add(tree, text);
  tree.SetSelected(2, true);
  tree.SetSelected(1, true);
  EXPECT_EQ(tree.GetSelected(), (std::vector<TNodeId>{1, 2}));
  tree.SortTree(0, TSortDirection::Ascending);
  EXPECT_EQ(tree.GetSelected(), (std::vector<TNodeId>{2, 1}));
  tree.DeleteNode(2);
  EXPECT_EQ(tree.GetSelected(), std::vector<TNodeId>{1});
  tree.SetSelected(1, false);
  EXPECT_EQ(tree.SelectedCount(), 0U);
}

TEST_F(MemoryTree, ChangesABoxOnlyWhereTheFormAllowsIt) {
  auto events = Events();
  bool allowed = false;
  events.OnChecking = [&](TNodeId) { return allowed; };
  TMemoryTree tree({}, events);
  Add(tree, "a");
  EXPECT_FALSE(tree.ClickCheck(1));
  EXPECT_EQ(tree.GetCheckState(1), TCheckState::Unchecked);
  allowed = true;
  EXPECT_TRUE(tree.ClickCheck(1));
  EXPECT_EQ(tree.GetCheckState(1), TCheckState::Checked);
}

TEST_F(MemoryTree, EndsAnEditOnlyWithATextThatTheEditorAccepts) {
  auto events = Events();
  TMemoryCellEditors editors;
  std::vector<std::string> steps;
  events.OnCreateEditor = [&](TNodeId, int) {
    return editors.CreateComboEditor({}, [](std::string_view text) { return text != "bad"; });
  };
  events.OnNewText = [&](TNodeId, int, std::string_view text) { steps.emplace_back(text); };
  events.OnEdited = [&](TNodeId, int) { steps.emplace_back("edited"); };
  TMemoryTree tree({.Editable = true}, events);
  Add(tree, "old");
  EXPECT_EQ(tree.BeginEdit(1, 0)->GetText(), "old");
  EXPECT_FALSE(tree.Edit(1, 0, "bad"));
  EXPECT_TRUE(tree.Edit(1, 0, "new"));
  EXPECT_FALSE(tree.EndEdit());
  EXPECT_EQ(steps, (std::vector<std::string>{"new", "edited"}));
  tree.BeginEdit(1, 0);
  tree.DeleteNode(1);
  EXPECT_FALSE(tree.EndEdit());
}

TEST_F(MemoryTree, OpensNoEditorUnlessItIsEditable) {
  auto events = Events();
  TMemoryCellEditors editors;
  events.OnCreateEditor = [&](TNodeId, int) { return editors.CreateHistoryComboEditor("h"); };
  TMemoryTree tree({}, events);
  Add(tree, "a");
  EXPECT_EQ(tree.BeginEdit(1, 0), nullptr);
}

} // namespace
} // namespace workbench
