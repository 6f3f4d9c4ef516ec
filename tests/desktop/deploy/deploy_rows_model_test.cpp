#include "workbench/desktop/deploy/deploy_rows_model.h"
#include "workbench/desktop/window/appearance.h"
#include "workbench/desktop/window/contrast.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QElapsedTimer>
#include <QPalette>
#include <QSignalSpy>
#include <QStyle>
#include <set>

namespace workbench {
namespace {

using TKind = TRowChoice::TKind;

TDeployRow PlannedRow(const std::string& name, TDeployAction action, TFileState state) {
  return {.LocalName = name,
          .RemoteFile = "/t/" + name,
          .Action = action,
          .State = state,
          .SizeHere = 10,
          .SizeThere = 20};
}

std::vector<TDeployRow> MixedRows() {
  return {PlannedRow("same", TDeployAction::Unchanged, TFileState::Same),
          PlannedRow("new", TDeployAction::Copied, TFileState::New),
          PlannedRow("fix", TDeployAction::Refused, TFileState::ChangedThere),
          PlannedRow("mode", TDeployAction::Mode, TFileState::Same)};
}

std::vector<TLeftOver> TwoLeftOvers() {
  return {{.RecordPath = "old", .Target = {"/t", "old"}, .LocalName = "old"},
          {.RecordPath = "hot",
           .Target = {"/t", "hot"},
           .LocalName = "hot",
           .State = TFileState::LeftOverChanged}};
}

class DeployRowsModel : public ::testing::Test {
protected:
  void ShowMixed(const TRowChoices& choices = {}) {
    FModel.ShowPlan(MixedRows(), TwoLeftOvers(), choices);
  }
  QModelIndex Find(const char* name) const {
    for (int row = 0; row < FModel.rowCount(); ++row)
      if (FModel.Row(row).Row.LocalName == name)
        return FModel.index(row, 0);
    return {};
  }
  QVariant Box(const char* name) const { return Find(name).data(Qt::CheckStateRole); }
  bool Tick(const char* name, bool on) {
    return FModel.setData(Find(name), on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
  }

  TDeployRowsModel FModel{nullptr};
  QAbstractItemModelTester FTester{&FModel, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(DeployRowsModel, TicksWhatTheRunDoesAndLeavesLeftOversAndConflictsUnticked) {
  ShowMixed();
  EXPECT_EQ(Box("new").toInt(), Qt::Checked);
  EXPECT_EQ(Box("mode").toInt(), Qt::Checked);
  EXPECT_EQ(Box("fix").toInt(), Qt::Unchecked);
  EXPECT_EQ(Box("old").toInt(), Qt::Unchecked);
  EXPECT_FALSE(Box("same").isValid());
  EXPECT_FALSE(Box("hot").isValid());
  EXPECT_TRUE(FModel.Choices().empty());
}

TEST_F(DeployRowsModel, TellsWhatWasDecidedAndWhatWasSeen) {
  ShowMixed();
  EXPECT_TRUE(Tick("new", false));
  EXPECT_TRUE(Tick("fix", true));
  EXPECT_TRUE(Tick("old", true));
  EXPECT_FALSE(Tick("same", true));
  const TRowChoices choices = FModel.Choices();
  EXPECT_EQ(choices.size(), 3U);
  EXPECT_EQ(choices.at("/t/new").Kind, TKind::Leave);
  EXPECT_EQ(choices.at("/t/fix").Kind, TKind::Take);
  EXPECT_EQ(choices.at("/t/fix").SizeThere, 20U);
  EXPECT_EQ(choices.at("/t/old").Kind, TKind::Take);
  EXPECT_TRUE(Tick("new", true));
  EXPECT_TRUE(Tick("old", false));
  EXPECT_EQ(FModel.Choices().size(), 1U);
}

TEST_F(DeployRowsModel, CountsWhatWillBeDone) {
  ShowMixed();
  EXPECT_EQ(FModel.Totals().ToCopy, 1U);
  EXPECT_EQ(FModel.Totals().Undecided, 1U);
  Tick("fix", true);
  Tick("old", true);
  Tick("mode", false);
  const auto totals = FModel.Totals();
  EXPECT_EQ(totals.ToCopy, 2U);
  EXPECT_EQ(totals.Bytes, 20U);
  EXPECT_EQ(totals.ToRemove, 1U);
  EXPECT_EQ(totals.LeftOut, 1U);
  EXPECT_EQ(totals.Undecided, 0U);
}

TEST_F(DeployRowsModel, ConfirmsNoMoreThanItShows) {
  ShowMixed();
  auto planned = MixedRows();
  EXPECT_TRUE(FModel.Confirms(planned));
  planned[2].Action = TDeployAction::Copied; // nobody said to take ours
  EXPECT_FALSE(FModel.Confirms(planned));
  Tick("fix", true);
  EXPECT_TRUE(FModel.Confirms(planned));
  planned.push_back(PlannedRow("old", TDeployAction::Removed, TFileState::LeftOver));
  EXPECT_FALSE(FModel.Confirms(planned));
  Tick("old", true);
  EXPECT_TRUE(FModel.Confirms(planned));
  planned.erase(planned.begin()); // the same rows at other places
  EXPECT_TRUE(FModel.Confirms(planned));
  planned.push_back(PlannedRow("another", TDeployAction::Copied, TFileState::New));
  EXPECT_FALSE(FModel.Confirms(planned));
}

TEST_F(DeployRowsModel, ALockedPlanKeepsItsTicks) {
  ShowMixed();
  FModel.Lock();
  EXPECT_FALSE(Tick("new", false));
  EXPECT_TRUE(FModel.Choices().empty());
}

TEST_F(DeployRowsModel, FiltersByWhatARowIsAbout) {
  ShowMixed();
  FModel.SetFilter(TRowKind::Conflict);
  ASSERT_EQ(FModel.rowCount(), 1);
  EXPECT_EQ(FModel.Row(0).Row.LocalName, "fix");
  FModel.SetFilter(std::nullopt);
  EXPECT_EQ(FModel.rowCount(), 6);
  EXPECT_EQ(FModel.Row(0).Row.LocalName, "fix");
}

TEST_F(DeployRowsModel, TellsOfManyRowsAtOnce) {
  FModel.ShowWaiting(MixedRows());
  const QSignalSpy changed(&FModel, &QAbstractItemModel::dataChanged);
  FModel.Finish({{1, MixedRows()[1]}, {3, MixedRows()[3]}, {9, MixedRows()[0]}});
  ASSERT_EQ(changed.count(), 1);
  EXPECT_EQ(FModel.DoneCount(), 2U);
  FModel.Finish({{1, MixedRows()[1]}});
  EXPECT_EQ(FModel.DoneCount(), 2U);
  FModel.ShowEnded(MixedRows());
  EXPECT_EQ(FModel.DoneCount(), 4U);
}

TEST_F(DeployRowsModel, ShowsAndFiltersAHundredThousandRowsAtOnce) {
  std::vector<TDeployRow> rows(100000, MixedRows()[0]);
  for (std::size_t i = 0; i < rows.size(); ++i)
    rows[i].RemoteFile += std::to_string(i);
  TDeployRowsModel model(nullptr);
  QElapsedTimer clock;
  clock.start();
  const std::vector<TDeployRow> copied = rows;
  const qint64 copy = clock.restart(); // tells how fast the machine is now
  model.ShowPlan(std::move(rows), {}, {});
  model.SetFilter(TRowKind::Same);
  const qint64 shown = clock.elapsed();
  RecordProperty("MillisecondsToShow", static_cast<int>(shown));
  EXPECT_LT(shown, 20 * copy + 100);
  EXPECT_EQ(model.Totals().Counts[static_cast<std::size_t>(TRowKind::Same)], copied.size());
  EXPECT_EQ(model.rowCount(), 100000);
}

TEST(RowColors, StandOutFromTheirBackgroundInLightAndDark) {
  for (const TAppearance appearance : {TAppearance::Light, TAppearance::Dark}) {
    SetAppearance(appearance);
    const QPalette palette = QApplication::palette();
    int coloured = 0;
    for (std::size_t i = 0; i < RowKindCount; ++i) {
      const auto color = KindColor(static_cast<TRowKind>(i));
      for (const auto role : {QPalette::Base, QPalette::AlternateBase}) {
        EXPECT_GE(color ? ContrastRatio(*color, palette.color(role)) : TextContrast, TextContrast)
            << i;
      }
      coloured += color ? 1 : 0;
    }
    EXPECT_EQ(coloured, 3);
  }
  QApplication::setPalette(QApplication::style()->standardPalette());
}

TEST(RowColors, EveryKindHasASignAndAWordOfItsOwn) {
  std::set<QString> words;
  for (std::size_t i = 0; i < RowKindCount; ++i) {
    words.insert(KindWord(static_cast<TRowKind>(i), /*isPlan=*/true));
    EXPECT_FALSE(KindIcon(static_cast<TRowKind>(i)).isNull()) << i;
  }
  EXPECT_EQ(words.size(), RowKindCount);
}

} // namespace
} // namespace workbench
