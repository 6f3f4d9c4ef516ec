// What it costs to evaluate one more target of a C++ project, beside opening the project.
#include "workbench/project/cpp/cpp_dialect.h"
#include "workbench/project/import_loader.h"
#include "workbench/project/project_settings.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace {

using namespace workbench;

constexpr std::size_t ItemCount = 400;
constexpr int TargetCount = 8;

std::string ProjectText() {
  std::string text = "<Project><ItemGroup>";
  const auto name = [](int i) { return "C" + std::to_string(i); };
  for (int i = 0; i < TargetCount; ++i)
    text.append("<ProjectConfiguration Include=\"").append(name(i)).append("|Win32\"/>");
  text += "</ItemGroup><Import Project=\"$(VCTargetsPath)\\Microsoft.Cpp.Default.props\"/>"
          "<PropertyGroup><ConfigurationType>Application</ConfigurationType></PropertyGroup>"
          "<Import Project=\"$(VCTargetsPath)\\Microsoft.Cpp.props\"/>";
  for (int i = 0; i < TargetCount; ++i)
    text.append("<PropertyGroup Condition=\"'$(Configuration)|$(Platform)'=='")
        .append(name(i))
        .append("|Win32'\"><OutDir>$(SolutionDir)out\\$(Configuration)\\</OutDir>"
                "<IntDir>$(OutDir)obj\\</IntDir></PropertyGroup><ItemDefinitionGroup Condition=\""
                "'$(Configuration)|$(Platform)'=='")
        .append(name(i))
        .append("|Win32'\"><ClCompile><Optimization>Full</Optimization></ClCompile><Link>"
                "<GenerateDebugInformation>true</GenerateDebugInformation></Link>"
                "</ItemDefinitionGroup>");
  text += "<ItemGroup>";
  for (std::size_t i = 0; i < ItemCount; ++i)
    text.append("<ClCompile Include=\"src\\file").append(std::to_string(i)).append(".cpp\"/>");
  return text +
         "</ItemGroup><Import Project=\"$(VCTargetsPath)\\Microsoft.Cpp.targets\"/></Project>";
}

// The project in a directory of its own.
class TSampleProject {
public:
  TSampleProject() {
    std::filesystem::create_directories(FFile.parent_path());
    std::ofstream(FFile) << ProjectText();
    Open();
  }
  ~TSampleProject() {
    std::error_code ignored;
    std::filesystem::remove_all(FFile.parent_path(), ignored);
  }
  TSampleProject(const TSampleProject&) = delete;
  TSampleProject& operator=(const TSampleProject&) = delete;

  TProjectSettings& Open() {
    FSettings.reset();
    FDocument = FLoader.Load(FFile);
    FDialect = std::make_unique<TCppDialect>(FLoader, FTable);
    FSettings =
        std::make_unique<TProjectSettings>(FDocument->DocumentElement(), FFile, FLoader, FTable,
                                           TProjectSurroundings{{}, {}, FDialect.get()});
    return *FSettings;
  }
  TProjectSettings& Settings() { return *FSettings; }

private:
  const std::filesystem::path FFile =
      std::filesystem::temp_directory_path() / "evaluation_bench" / "sample.vcxproj";
  const TPlatformTable FTable = TPlatformTable::BuiltIn();
  TImportLoader FLoader;
  std::shared_ptr<deployment::IXMLDocument> FDocument;
  std::unique_ptr<TCppDialect> FDialect;
  std::unique_ptr<TProjectSettings> FSettings;
};

void BM_OpenCppProject(benchmark::State& state) {
  TSampleProject project;
  for (auto _ : state)
    benchmark::DoNotOptimize(&project.Open());
}
BENCHMARK(BM_OpenCppProject)->Unit(benchmark::kMicrosecond);

// Each target is asked for the first time; all of what a list asks.
void BM_EvaluateCppTarget(benchmark::State& state) {
  TSampleProject project;
  std::size_t number = 0;
  for (auto _ : state) {
    const std::string configuration = "D" + std::to_string(number++);
    const TProjectSettings& settings = project.Settings();
    benchmark::DoNotOptimize(settings.OutputFileName(configuration, "Win32"));
    benchmark::DoNotOptimize(settings.CompleteFileList(configuration, "Win32"));
    benchmark::DoNotOptimize(settings.RuntimePackages(configuration, "Win32"));
    benchmark::DoNotOptimize(settings.HasRemoteDebugSymbols(configuration, "Win32"));
  }
}
BENCHMARK(BM_EvaluateCppTarget)->Unit(benchmark::kMicrosecond);

} // namespace
