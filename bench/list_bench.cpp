// How long a filter and groups take over long lists: the first word that is looked for, a further
// one, groups, and the counts of states.
#include "package/host/api/file_columns.h"
#include "workbench/desktop/list/row_list.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <array>
#include <memory>
#include <string>

namespace {

using namespace workbench;

namespace file_column = deployment::file_column;

// As many rows as the argument says, in as many folders as there are thousands of them.
struct TLongList {
  explicit TLongList(std::int64_t rows) {
    deployment::TVirtualTreeEvents events;
    events.OnGetText = [](deployment::TNodeId node, int column) -> std::string {
      switch (column) {
      case file_column::LocalPath:
        return "assets\\level" + std::to_string(node / 1000) + "\\";
      case file_column::LocalName:
      case file_column::RemoteName:
        return "texture" + std::to_string(node) + ".png";
      case file_column::Type:
        return "File";
      case file_column::RemotePath:
        return "assets\\internal\\level" + std::to_string(node / 1000) + "\\";
      case file_column::RemoteStatus:
        return node % 7 == 0 ? "Older" : "Same";
      default:
        return "Always";
      }
    };
    Tree = std::make_unique<TVirtualTree>(
        deployment::TTreeOptions{.CheckBoxes = true, .MultiSelect = true, .FullRowSelect = true},
        std::move(events), nullptr);
    Tree->SetColumns(std::vector<deployment::TTreeColumn>(9, {"Column", 120}));
    Tree->BeginUpdate();
    for (std::int64_t i = 0; i < rows; ++i)
      Tree->SetCheckState(Tree->AddNode(0, deployment::TCheckType::CheckBox),
                          deployment::TCheckState::Checked);
    Tree->EndUpdate();
    Tree->View().resize(1180, 600);
    Tree->View().show();
    QApplication::processEvents();
    Rows = new TRowList(*Tree);
  }

  std::unique_ptr<TVirtualTree> Tree;
  TRowList* Rows = nullptr; // goes with the tree
};

void FirstWord(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    TLongList list(state.range(0));
    state.ResumeTiming();
    list.Rows->SetFilter({.Text = "level42"});
    state.PauseTiming();
    list.Tree.reset();
    state.ResumeTiming();
  }
}

void FurtherWord(benchmark::State& state) {
  TLongList list(state.range(0));
  list.Rows->SetFilter({.Text = "level42"});
  bool isLonger = false;
  for (auto _ : state)
    list.Rows->SetFilter({.Text = (isLonger = !isLonger) ? "texture9" : "level4 png"});
}

void GroupsByFolder(benchmark::State& state) {
  TLongList list(state.range(0));
  bool isGrouped = false;
  for (auto _ : state)
    list.Rows->SetGrouping((isGrouped = !isGrouped) ? TGrouping::Folder : TGrouping::None);
}

void CountsOfStates(benchmark::State& state) {
  TLongList list(state.range(0));
  for (auto _ : state) {
    list.Tree->SetCheckState(1, deployment::TCheckState::Checked); // the rows are others now
    benchmark::DoNotOptimize(list.Rows->Index() ? list.Rows->Index()->Counts()[0] : 0);
  }
}

BENCHMARK(FirstWord)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(FurtherWord)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(GroupsByFolder)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(CountsOfStates)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[]) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
