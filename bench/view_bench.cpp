// The view without a window: rows built anew, sorted by each column beside a bare sort of the same
// texts, and one cell edited.

#include "bench/sample_project.h"
#include "package/common/case_fold.h"
#include "workbench/controls/memory_controls.h"
#include "workbench/project/project_settings.h"
#include "workbench/services/editor_views.h"
#include "workbench/session/session.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace {

using workbench::TMemoryControls;
using workbench::TOpenPurpose;

// Nobody is asked anything here.
class TNoDialogs final : public deployment::IDialogs {
public:
  deployment::TMessageAnswer ShowMessage(const deployment::TMessageBox& /*message*/) override {
    return deployment::TMessageAnswer::None;
  }
  bool InputBox(std::string_view /*caption*/, std::string_view /*prompt*/,
                std::string& /*value*/) override {
    return false;
  }
  std::vector<std::string> OpenFiles(const deployment::TFileOpenOptions& /*options*/) override {
    return {};
  }
};

// The view of a sample project with that many rows.
class TShownProject final : public workbench::IEditorArea {
public:
  explicit TShownProject(std::size_t rows) {
    FSession.SetEditorArea(this);
    workbench::TOpenProject& project =
        FSession.Open(bench::SampleProject(rows), TOpenPurpose::Look);
    FSession.ShowDeployment(
        project, {{project.Settings().ActiveConfiguration(), project.Settings().ActivePlatform()}});
  }
  ~TShownProject() override { FSession.CloseViews(); }
  TShownProject(const TShownProject&) = delete;
  TShownProject& operator=(const TShownProject&) = delete;

  std::unique_ptr<deployment::IControls>
  AddView(const deployment::INTACustomEditorView& /*view*/) override {
    auto controls = std::make_unique<TMemoryControls>(FDialogs);
    FControls = controls.get();
    return controls;
  }
  void BringForward(const deployment::INTACustomEditorView& /*view*/) override {}
  void RemoveView(const deployment::INTACustomEditorView& /*view*/) override {}

  workbench::TMemoryTree& Tree() { return *FControls->Tree(); }
  void Press(const char* button) { FControls->ToolBar()->Find(button)->Press(); }

private:
  TNoDialogs FDialogs;
  TMemoryControls* FControls = nullptr;
  workbench::TSession FSession{workbench::TSessionOptions{}};
};

std::size_t RowCount(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}

// Reconcile, which changes nothing, and RefreshFiles.
void ViewRefresh(benchmark::State& state) {
  TShownProject project(RowCount(state));
  for (auto _ : state)
    project.Press("tbReconcile");
}

void ViewSort(benchmark::State& state) {
  TShownProject project(RowCount(state));
  const int column = static_cast<int>(state.range(1));
  for (auto _ : state) {
    state.PauseTiming();
    project.Press("tbReconcile"); // back to the order of the list
    project.Tree().SetSortMark(column, deployment::TSortDirection::Descending);
    state.ResumeTiming();
    project.Tree().SortTree(column, deployment::TSortDirection::Ascending);
  }
}

void SortPreparedTexts(benchmark::State& state) {
  TShownProject project(RowCount(state));
  const int column = static_cast<int>(state.range(1));
  std::vector<std::string> texts;
  for (const auto node : project.Tree().GetChildren(0))
    texts.push_back(deployment::UpperCase(project.Tree().Text(node, column)));
  for (auto _ : state) {
    state.PauseTiming();
    std::vector<std::string> sorted = texts;
    state.ResumeTiming();
    std::sort(sorted.begin(), sorted.end());
    benchmark::DoNotOptimize(sorted.data());
  }
}

void ViewEditCell(benchmark::State& state) {
  constexpr int RemoteName = 6;
  TShownProject project(RowCount(state));
  const auto node = project.Tree().GetChildren(0).front();
  bool flag = false;
  for (auto _ : state) {
    project.Tree().Edit(node, RemoteName, flag ? "a.dat" : "b.dat");
    flag = !flag;
  }
}

void RowCounts(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(1'000)->Arg(10'000)->Arg(100'000);
}

void Columns(benchmark::internal::Benchmark* benchmark) {
  for (int column = 0; column <= 8; ++column)
    benchmark->Args({100'000, column});
  benchmark->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(ViewRefresh)->Apply(RowCounts)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ViewSort)->Apply(Columns);
BENCHMARK(SortPreparedTexts)->Apply(Columns);
BENCHMARK(ViewEditCell)->Apply(RowCounts);

} // namespace
