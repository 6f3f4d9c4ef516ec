#include "package/host/api/file_columns.h"
#include "workbench/desktop/list/row_list.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QTest>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace workbench {
namespace {

using deployment::TNodeId;
using TTexts = std::vector<std::string>;

namespace file_column = deployment::file_column;

struct TSampleRow {
  std::string Path;
  std::string Name;
  std::string Class;
  std::string Status = "Same";
  bool IsHere = true;
};

class TRowListTest : public ::testing::Test {
protected:
  TRowList& Make(std::vector<TSampleRow> rows) {
    FSamples = std::move(rows);
    deployment::TVirtualTreeEvents events;
    events.OnGetText = [this](TNodeId node, int column) { return TextOf(node, column); };
    events.OnPaintText = [this](TNodeId node, int, deployment::TTextColor& color) {
      if (!FSamples[node - 1].IsHere)
        color = deployment::TTextColor::ButtonShadow;
    };
    FTree = std::make_unique<TVirtualTree>(
        deployment::TTreeOptions{.CheckBoxes = true, .MultiSelect = true, .FullRowSelect = true},
        std::move(events), nullptr);
    std::vector<deployment::TTreeColumn> columns;
    for (const deployment::TFileColumn& column : deployment::FileColumns) {
      if (column.Width > 0)
        columns.push_back({column.Title, column.Width});
    }
    FTree->SetColumns(columns);
    FRows = new TRowList(*FTree);
    AddAll();
    return *FRows;
  }
  void AddAll() {
    FTree->BeginUpdate();
    FTree->Clear();
    for (std::size_t i = 0; i < FSamples.size(); ++i)
      FTree->SetCheckState(FTree->AddNode(0, deployment::TCheckType::CheckBox),
                           deployment::TCheckState::Checked);
    FTree->EndUpdate();
  }
  // Names of the rows that show, a heading before those that stand below it.
  TTexts Shown(const QModelIndex& parent = {}) {
    TTreeModel& model = FTree->Model();
    TTexts names;
    for (int row = 0; row < model.rowCount(parent); ++row) {
      const QModelIndex index = model.index(row, 0, parent);
      if (!TTreeModel::IsHeading(index)) {
        names.push_back(
            index.siblingAtColumn(file_column::LocalName).data().toString().toStdString());
        continue;
      }
      names.push_back("[" + index.data().toString().toStdString() + "]");
      const TTexts below = Shown(index);
      names.insert(names.end(), below.begin(), below.end());
    }
    return names;
  }
  TTexts Filtered(const char* text) {
    TRowFilter filter = FRows->Filter();
    filter.Text = text;
    FRows->SetFilter(filter);
    return Shown();
  }

  std::vector<TSampleRow> FSamples;
  std::unique_ptr<TVirtualTree> FTree;
  TRowList* FRows = nullptr;

private:
  std::string TextOf(TNodeId node, int column) const {
    const TSampleRow& row = FSamples[node - 1];
    switch (column) {
    case file_column::LocalPath:
      return row.Path;
    case file_column::LocalName:
      return row.Name;
    case file_column::Type:
      return row.Class;
    case file_column::RemotePath:
      return ".\\";
    case file_column::RemoteName:
      return "remote-" + row.Name;
    case file_column::RemoteStatus:
      return row.Status;
    case file_column::Overwrite:
      return "Always";
    default:
      return {};
    }
  }
};

const std::vector<TSampleRow>& SampleRows() {
  static const std::vector<TSampleRow> rows{
      {.Path = "data\\", .Name = "levels.dat", .Class = "File"},
      {.Path = "", .Name = "Tide.exe", .Class = "ProjectOutput", .Status = "Older"},
      {.Path = "Data\\", .Name = "Grün.txt", .Class = "File", .Status = "Not Found"},
      {.Path = "data\\", .Name = "gone.bin", .Class = "File", .IsHere = false}};
  return rows;
}

TEST_F(TRowListTest, ShowsTheRowsThatHaveEveryWord) {
  Make(SampleRows());
  EXPECT_EQ(Filtered("levels"), (TTexts{"levels.dat"}));
  EXPECT_EQ(Filtered("DATA remote"), (TTexts{"levels.dat", "Grün.txt", "gone.bin"}));
  EXPECT_EQ(Filtered("data missing"), (TTexts{"gone.bin"}));
  EXPECT_EQ(Filtered("GRÜN"), (TTexts{"Grün.txt"}));
  EXPECT_EQ(Filtered("project output"), (TTexts{"Tide.exe"}));
  EXPECT_EQ(Filtered("nothing"), TTexts());
  EXPECT_EQ(Filtered("  ").size(), 4U);
}

TEST_F(TRowListTest, FindsNoWordAcrossTwoCells) {
  Make(SampleRows());
  EXPECT_EQ(Filtered("dat.\\"), TTexts());
  EXPECT_EQ(Filtered("data\\levels"), (TTexts{"levels.dat"}));
}

TEST_F(TRowListTest, ShowsRowsOfAStateAndOfAClass) {
  TRowList& rows = Make(SampleRows());
  rows.ToggleState(TRowState::ToCopy);
  EXPECT_EQ(Shown(), (TTexts{"Tide.exe", "Grün.txt"}));
  rows.SetFilter({.States = {TRowState::ToCopy}, .Class = "File"});
  EXPECT_EQ(Shown(), (TTexts{"Grün.txt"}));
  rows.ToggleState(TRowState::ToCopy);
  EXPECT_EQ(Shown(), (TTexts{"levels.dat", "Grün.txt", "gone.bin"}));
}

TEST_F(TRowListTest, CountsTheStatesOfAllRows) {
  TRowList& rows = Make(SampleRows());
  FTree->SetCheckState(1, deployment::TCheckState::Unchecked);
  rows.ToggleState(TRowState::Same);
  const TRowIndex::TCounts& counts = rows.Index()->Counts();
  EXPECT_EQ(counts, (TRowIndex::TCounts{0, 2, 0, 0, 1, 1, 0}));
  EXPECT_TRUE(rows.Index()->IsConnected());
}

TEST_F(TRowListTest, GroupsRowsBelowHeadingsInOrder) {
  TRowList& rows = Make(SampleRows());
  const QAbstractItemModelTester tester(&FTree->Model(),
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  rows.SetGrouping(TGrouping::Class);
  EXPECT_EQ(Shown(), (TTexts{"[File]", "levels.dat", "Grün.txt", "gone.bin", "[Project Output]",
                             "Tide.exe"}));
  rows.SetGrouping(TGrouping::State);
  EXPECT_EQ(Shown(), (TTexts{"[same]", "levels.dat", "[to copy]", "Tide.exe", "Grün.txt",
                             "[missing here]", "gone.bin"}));
  EXPECT_EQ(Filtered("data"), (TTexts{"[same]", "levels.dat", "[to copy]", "Grün.txt",
                                      "[missing here]", "gone.bin"}));
  rows.SetGrouping(TGrouping::None);
  EXPECT_EQ(Shown(), (TTexts{"levels.dat", "Grün.txt", "gone.bin"}));
}

TEST_F(TRowListTest, HeadingsAreNeitherSelectedNorFoldedOpenAgain) {
  TRowList& rows = Make(SampleRows());
  FTree->View().show();
  rows.SetGrouping(TGrouping::Class);
  TTreeView& view = FTree->View();
  const QModelIndex heading = FTree->Model().index(0, 0);
  EXPECT_TRUE(view.isExpanded(heading));
  EXPECT_FALSE(heading.flags() & Qt::ItemIsSelectable);
  view.collapse(heading);
  AddAll();
  EXPECT_FALSE(view.isExpanded(FTree->Model().index(0, 0)));
  EXPECT_TRUE(view.isExpanded(FTree->Model().index(1, 0)));
}

TEST_F(TRowListTest, WhatDoesNotShowIsNotSelectedAndNotPartOfAll) {
  Make(SampleRows());
  for (TNodeId node = 1; node <= 4; ++node)
    FTree->SetSelected(node, true);
  Filtered("data");
  EXPECT_EQ(FTree->GetSelected(), (std::vector<TNodeId>{1, 3, 4}));
  EXPECT_EQ(FTree->GetChildren(0), (std::vector<TNodeId>{1, 3, 4}));
  Filtered("");
  EXPECT_EQ(FTree->GetChildren(0).size(), 4U);
}

TEST_F(TRowListTest, FiltersRowsThatWereMadeAnew) {
  Make(SampleRows());
  EXPECT_EQ(Filtered("levels"), (TTexts{"levels.dat"}));
  FSamples.push_back({.Path = "data\\", .Name = "levels.bak", .Class = "File"});
  AddAll();
  EXPECT_EQ(Shown(), (TTexts{"levels.dat", "levels.bak"}));
  EXPECT_EQ(FRows->ShownCount(), 2);
}

} // namespace
} // namespace workbench
