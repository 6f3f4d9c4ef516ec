// Load, look up, edit, save and export at three sizes, each beside the bare libraries. Compare rows
// of one run: machines are noisy, ratios are not.

#include "bench/baselines.h"
#include "bench/sample_project.h"
#include "package/host/api/deploymentapi.h"
#include "workbench/session/session.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <malloc.h>
#include <string>

namespace {

using workbench::TOpenProject;
using workbench::TOpenPurpose;
using workbench::TSession;

TSession& Session() {
  static TSession session{workbench::TSessionOptions{}};
  return session;
}

std::size_t Entries(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}

std::size_t HeapBytes() {
  const auto info = ::mallinfo2();
  return info.uordblks + info.hblkhd;
}

void LoadBareExpat(benchmark::State& state) {
  const auto& file = bench::SampleProject(Entries(state));
  for (auto _ : state)
    benchmark::DoNotOptimize(bench::LoadWithExpat(file));
}

void LoadBarePugixml(benchmark::State& state) {
  const auto& file = bench::SampleProject(Entries(state));
  for (auto _ : state)
    benchmark::DoNotOptimize(bench::LoadWithPugixml(file));
}

void Load(benchmark::State& state) {
  const auto& file = bench::SampleProject(Entries(state));
  TSession& session = Session();
  std::size_t bytes = 0;
  for (auto _ : state) {
    const std::size_t before = HeapBytes();
    TOpenProject& project = session.Open(file, TOpenPurpose::Look);
    state.PauseTiming();
    bytes = HeapBytes() - before;
    session.Close(project);
    state.ResumeTiming();
  }
  // The parser's buffer is the file itself, rounded up to a power of two.
  std::size_t buffer = 1;
  while (buffer < std::filesystem::file_size(file) + 1024)
    buffer *= 2;
  const double beyondFile = static_cast<double>(bytes) - static_cast<double>(buffer);
  state.counters["bytes/entry"] = beyondFile / static_cast<double>(Entries(state));
}

void FindByKey(benchmark::State& state) {
  TOpenProject& project = Session().Open(bench::SampleProject(Entries(state)), TOpenPurpose::Look);
  std::size_t i = 0;
  for (auto _ : state) {
    i = (i + 7919) % Entries(state);
    benchmark::DoNotOptimize(
        project.Deployment().FindFile("Debug", "Android", bench::EntryName(i)));
  }
  Session().Close(project);
}

void FindByLocalName(benchmark::State& state) {
  TOpenProject& project = Session().Open(bench::SampleProject(Entries(state)), TOpenPurpose::Look);
  std::size_t i = 0;
  for (auto _ : state) {
    i = (i + 7919) % Entries(state);
    benchmark::DoNotOptimize(project.Deployment().FindFiles(bench::EntryName(i), "", "Win32", ""));
  }
  Session().Close(project);
}

void FindByClass(benchmark::State& state) {
  TOpenProject& project = Session().Open(bench::SampleProject(Entries(state)), TOpenPurpose::Look);
  project.Deployment().AddFile("Debug", "Win32", "one.exe")->SetDeploymentClass("ProjectOutput");
  for (auto _ : state)
    benchmark::DoNotOptimize(project.Deployment().FindFiles("", "Debug", "", "projectoutput"));
  Session().Close(project);
}

void EditOneEntry(benchmark::State& state) {
  TOpenProject& project = Session().Open(bench::SampleProject(Entries(state)), TOpenPurpose::Look);
  const auto entry = project.Deployment().FindFile("Debug", "Android", bench::EntryName(0));
  bool flag = false;
  for (auto _ : state) {
    entry->SetDeploymentClass(flag ? "File" : "ProjectFile");
    entry->SetRemoteName("Win32", flag ? "a.dat" : "b.dat");
    flag = !flag;
  }
  Session().Close(project);
}

std::filesystem::path CopyOfSample(std::size_t entries) {
  const auto& file = bench::SampleProject(entries);
  std::filesystem::path copy = file;
  copy.replace_filename("copy.vproj");
  std::filesystem::copy_file(file, copy, std::filesystem::copy_options::overwrite_existing);
  return copy;
}

template <class TEdit>
void SaveAfter(benchmark::State& state, TEdit edit) {
  TSession& session = Session();
  for (auto _ : state) {
    state.PauseTiming();
    const std::filesystem::path copy = CopyOfSample(Entries(state));
    TOpenProject& project = session.Open(copy, TOpenPurpose::Edit);
    edit(project);
    state.ResumeTiming();
    project.SaveProjectFile(/*force=*/false);
    state.PauseTiming();
    session.Close(project);
    state.ResumeTiming();
  }
}

void SaveOneChanged(benchmark::State& state) {
  SaveAfter(state, [](TOpenProject& project) {
    project.Deployment().GetFiles().front()->SetRemoteName("Win32", "changed.dat");
  });
}

void SaveAllChanged(benchmark::State& state) {
  SaveAfter(state, [](TOpenProject& project) {
    for (const auto& file : project.Deployment().GetFiles())
      file->SetEnabled("Android", true);
  });
}

void SaveBarePugixml(benchmark::State& state) {
  const auto target = CopyOfSample(Entries(state));
  for (auto _ : state)
    bench::SaveWithPugixml(Entries(state), target, /*durable=*/false);
}

void SaveDurablePugixml(benchmark::State& state) {
  const auto target = CopyOfSample(Entries(state));
  for (auto _ : state)
    bench::SaveWithPugixml(Entries(state), target, /*durable=*/true);
}

void Export(benchmark::State& state) {
  TSession& session = Session();
  const std::filesystem::path copy = CopyOfSample(Entries(state));
  TOpenProject& project = session.Open(copy, TOpenPurpose::Look);
  for (auto _ : state) {
    state.PauseTiming();
    std::filesystem::remove(std::filesystem::path(copy).replace_extension(".deployproj"));
    state.ResumeTiming();
    project.Export();
  }
  session.Close(project);
}

void ExportBarePugixml(benchmark::State& state) {
  const auto target = CopyOfSample(Entries(state)).replace_extension(".deployproj");
  for (auto _ : state)
    bench::ExportWithPugixml(Entries(state), target);
}

// A second reconcile of a target, which changes nothing.
void ReconcileUnchanged(benchmark::State& state) {
  TOpenProject& project = Session().Open(bench::SampleProject(Entries(state)), TOpenPurpose::Look);
  project.Deployment().Reconcile("Debug", "Win32");
  for (auto _ : state)
    benchmark::DoNotOptimize(project.Deployment().Reconcile("Debug", "Win32"));
  Session().Close(project);
}

constexpr std::size_t EntriesBesidePackages = 10'000;

void ReconcilePackagesUnchanged(benchmark::State& state) {
  const std::size_t packages = Entries(state);
  TOpenProject& project = Session().Open(
      bench::SampleProjectWithPackages(EntriesBesidePackages, packages), TOpenPurpose::Look);
  project.Deployment().Reconcile("Debug", "Win32");
  for (auto _ : state)
    benchmark::DoNotOptimize(project.Deployment().Reconcile("Debug", "Win32"));
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(packages));
  Session().Close(project);
}

// All packages come, and all of them go again.
void ReconcilePackagesAnew(benchmark::State& state) {
  const std::size_t packages = Entries(state);
  TOpenProject& project = Session().Open(
      bench::SampleProjectWithPackages(EntriesBesidePackages, packages), TOpenPurpose::Look);
  for (auto _ : state) {
    project.Deployment().Reconcile("Debug", "Win32");
    project.Deployment().Reconcile("Debug", "Win32", /*reconcileInternally=*/true);
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(packages));
  Session().Close(project);
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(1'000)->Arg(10'000)->Arg(100'000);
}

void FileSizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Apply(Sizes)->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(LoadBareExpat)->Apply(FileSizes);
BENCHMARK(LoadBarePugixml)->Apply(FileSizes);
BENCHMARK(Load)->Apply(FileSizes);
BENCHMARK(FindByKey)->Apply(Sizes);
BENCHMARK(FindByLocalName)->Apply(Sizes);
BENCHMARK(FindByClass)->Apply(Sizes);
BENCHMARK(EditOneEntry)->Apply(Sizes);
BENCHMARK(SaveBarePugixml)->Apply(FileSizes);
BENCHMARK(SaveDurablePugixml)->Apply(FileSizes);
BENCHMARK(SaveOneChanged)->Apply(FileSizes);
BENCHMARK(SaveAllChanged)->Apply(FileSizes);
BENCHMARK(ReconcileUnchanged)->Apply(FileSizes);
BENCHMARK(ReconcilePackagesUnchanged)->Arg(100)->Arg(1'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ReconcilePackagesAnew)->Arg(100)->Arg(1'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ExportBarePugixml)->Apply(FileSizes);
BENCHMARK(Export)->Apply(FileSizes);

} // namespace

int main(int argc, char** argv) {
  // Backups and settings of the measured runs go where the samples go.
  const std::string scratch = bench::SampleProject(1'000).parent_path().string();
  ::setenv("XDG_STATE_HOME", (scratch + "/state").c_str(), 1);
  ::setenv("XDG_CONFIG_HOME", (scratch + "/config").c_str(), 1);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv))
    return 2;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
