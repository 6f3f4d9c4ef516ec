// How long a list of files takes to its first paint, beside a bare tree view with as many rows.
#include "workbench/desktop/controls/virtual_tree.h"

#include <benchmark/benchmark.h>

#include <QAbstractTableModel>
#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QTreeView>
#include <array>
#include <string>

namespace {

using namespace workbench;

constexpr int ColumnCount = 9;
constexpr QSize ViewSize(1180, 600);

class TPlainModel final : public QAbstractTableModel {
public:
  explicit TPlainModel(int rows) : FRows(rows) {}
  int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : FRows; }
  int columnCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : ColumnCount;
  }
  QVariant data(const QModelIndex& index, int role) const override {
    return role == Qt::DisplayRole ? QVariant(QString::number(index.row())) : QVariant();
  }

private:
  int FRows;
};

void Paint(QTreeView& view) {
  view.resize(ViewSize);
  view.show();
  benchmark::DoNotOptimize(view.grab());
}

void FirstPaintOfPlainTree(benchmark::State& state) {
  for (auto _ : state) {
    TPlainModel model(static_cast<int>(state.range(0)));
    QTreeView view;
    view.setUniformRowHeights(true);
    view.setRootIsDecorated(false);
    QElapsedTimer timer;
    timer.start();
    view.setModel(&model);
    Paint(view);
    state.SetIterationTime(static_cast<double>(timer.nsecsElapsed()) / 1e9);
  }
}

void FirstPaintOfFileList(benchmark::State& state) {
  for (auto _ : state) {
    deployment::TVirtualTreeEvents events;
    events.OnGetText = [](deployment::TNodeId node, int) { return std::to_string(node); };
    TVirtualTree tree(
        {.CheckBoxes = true, .MultiSelect = true, .FullRowSelect = true, .VerticalLines = true},
        std::move(events), nullptr);
    tree.SetColumns(std::vector<deployment::TTreeColumn>(ColumnCount, {"Column", 120}));
    tree.BeginUpdate();
    for (int i = 0; i < state.range(0); ++i)
      tree.AddNode(0, deployment::TCheckType::CheckBox);
    QElapsedTimer timer;
    timer.start();
    tree.EndUpdate();
    Paint(tree.View());
    state.SetIterationTime(static_cast<double>(timer.nsecsElapsed()) / 1e9);
  }
}

BENCHMARK(FirstPaintOfPlainTree)
    ->Arg(1000)
    ->Arg(100000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(FirstPaintOfFileList)
    ->Arg(1000)
    ->Arg(100000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[]) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
