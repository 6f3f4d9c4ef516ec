// The catalog of optional files beside pugixml, and the project's own files at three sizes.

#include "bench/baselines.h"
#include "bench/sample_catalog.h"
#include "bench/sample_project.h"
#include "package/host/api/deploymentapi.h"
#include "package/host/api/forms.h"
#include "workbench/session/session.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

namespace {

using workbench::TOpenProject;
using workbench::TOpenPurpose;
using workbench::TSession;

std::size_t Count(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}

void CatalogBarePugixml(benchmark::State& state) {
  const std::filesystem::path root = bench::SampleCatalogRoot(Count(state));
  for (auto _ : state)
    benchmark::DoNotOptimize(bench::WalkWithPugixml(root / bench::CatalogName));
}

// What a prompt costs: the catalog, filtered, with the dialog's tree, beside an empty list.
void Catalog(benchmark::State& state, const char* extension) {
  TSession session{workbench::TSessionOptions{bench::SampleCatalogRoot(Count(state))}};
  TOpenProject& project = session.Open(bench::SampleProject(0), TOpenPurpose::Look);
  project.Deployment().GetFiles();
  std::size_t features = 0;
  for (auto _ : state)
    features = session.DeploymentService()
                   .GetFeaturedFiles(project.Project(), extension)
                   ->GetChildren(0)
                   .size();
  state.counters["features"] = static_cast<double>(features);
  session.Close(project);
}

// All files of the project are new in the deployment.
void ReconcileProjectFilesAnew(benchmark::State& state) {
  const std::filesystem::path file = bench::SampleProjectWithFiles(Count(state));
  TSession session{workbench::TSessionOptions{}};
  for (auto _ : state) {
    state.PauseTiming();
    TOpenProject& project = session.Open(file, TOpenPurpose::Look);
    project.Deployment().GetFiles();
    benchmark::DoNotOptimize(project.Project().GetCompleteFileList({}, {}));
    state.ResumeTiming();
    project.Deployment().Reconcile("Debug", "Win32");
    state.PauseTiming();
    session.Close(project);
    state.ResumeTiming();
  }
}

void ReconcileProjectFilesUnchanged(benchmark::State& state) {
  TSession session{workbench::TSessionOptions{}};
  TOpenProject& project =
      session.Open(bench::SampleProjectWithFiles(Count(state)), TOpenPurpose::Look);
  project.Deployment().Reconcile("Debug", "Win32");
  for (auto _ : state)
    benchmark::DoNotOptimize(project.Deployment().Reconcile("Debug", "Win32"));
  session.Close(project);
}

void FeaturedSizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

void CatalogSizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(CatalogBarePugixml)->Apply(CatalogSizes);
BENCHMARK_CAPTURE(Catalog, OfOneExtension, ".dat")->Apply(CatalogSizes);
BENCHMARK_CAPTURE(Catalog, OfEveryFeature, "")->Apply(CatalogSizes);
BENCHMARK(ReconcileProjectFilesAnew)->Apply(FeaturedSizes);
BENCHMARK(ReconcileProjectFilesUnchanged)->Apply(FeaturedSizes);

} // namespace
