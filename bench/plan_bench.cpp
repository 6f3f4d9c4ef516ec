// How long the plan of a long list takes in its pane: until it is painted, and until a filter is.
#include "workbench/desktop/deploy/deploy_rows_model.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTreeView>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace workbench;

constexpr QSize PaneSize(1180, 600);

// One file in seven is new, one in a thousand was changed by others.
std::vector<TDeployRow> PlannedRows(std::int64_t count) {
  std::vector<TDeployRow> rows;
  rows.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) {
    const std::string name = "level" + std::to_string(i / 1000) + "/texture" + std::to_string(i);
    TDeployRow row{.LocalName = name, .RemoteFile = "/srv/app/assets/" + name};
    row.Action = i % 7 == 0 ? TDeployAction::Copied : TDeployAction::Unchanged;
    row.State = i % 1000 == 0 ? TFileState::Conflict
                : i % 7 == 0  ? TFileState::New
                              : TFileState::Same;
    row.SizeHere = 4096;
    rows.push_back(std::move(row));
  }
  return rows;
}

void ShowPane(QTreeView& view, TDeployRowsModel& model) {
  view.setUniformRowHeights(true);
  view.setRootIsDecorated(false);
  view.setModel(&model);
  view.resize(PaneSize);
  view.show();
}

void FirstPaintOfPlan(benchmark::State& state) {
  for (auto _ : state) {
    std::vector<TDeployRow> rows = PlannedRows(state.range(0));
    TDeployRowsModel model(nullptr);
    QTreeView view;
    ShowPane(view, model);
    QElapsedTimer timer;
    timer.start();
    model.ShowPlan(std::move(rows), {}, {});
    benchmark::DoNotOptimize(view.grab());
    state.SetIterationTime(static_cast<double>(timer.nsecsElapsed()) / 1e9);
  }
}

void FilterOfPlan(benchmark::State& state) {
  TDeployRowsModel model(nullptr);
  QTreeView view;
  model.ShowPlan(PlannedRows(state.range(0)), {}, {});
  ShowPane(view, model);
  bool isFiltered = false;
  for (auto _ : state) {
    isFiltered = !isFiltered;
    model.SetFilter(isFiltered ? std::optional(TRowKind::Same) : std::nullopt);
    benchmark::DoNotOptimize(view.grab());
  }
}

BENCHMARK(FirstPaintOfPlan)->Arg(100000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FilterOfPlan)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[]) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
