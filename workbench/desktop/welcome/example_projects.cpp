#include "workbench/desktop/welcome/example_projects.h"

#include "workbench/desktop/text/qt_text.h"

#include <QCoreApplication>
#include <QDir>
#include <array>
#include <unistd.h>

namespace workbench {
namespace {

namespace fs = std::filesystem;

struct TKnownExample {
  const char* Directory;
  const char* File;
  const char* Description;
};

constexpr std::array<TKnownExample, 3> KnownExamples{{
    {"tide-logger", "TideLogger.vproj",
     QT_TRANSLATE_NOOP("ExampleProjects",
                       "A library with its data for Windows, macOS and Android")},
    {"sky-chart", "SkyChart.vproj",
     QT_TRANSLATE_NOOP("ExampleProjects",
                       "A program with artwork and optional files for six platforms")},
    {"wind-gauge", "WindGauge.vproj",
     QT_TRANSLATE_NOOP("ExampleProjects", "A service for two kinds of Linux machine")},
}};

} // namespace

std::vector<TExampleProject> FindExamples(const fs::path& root) {
  std::vector<TExampleProject> found;
  for (const TKnownExample& known : KnownExamples) {
    const fs::path file = root / "examples" / known.Directory / known.File;
    std::error_code ignored;
    if (fs::exists(file, ignored))
      found.push_back({PathToQString(file.stem()),
                       QCoreApplication::translate("ExampleProjects", known.Description), file});
  }
  return found;
}

fs::path WritableExample(const TExampleProject& example) {
  const fs::path directory = example.File.parent_path();
  if (::access(directory.c_str(), W_OK) == 0)
    return example.File;
  const fs::path copy =
      fs::path(ToPathText(QDir::homePath())) / "Deployment Examples" / directory.filename();
  if (!fs::exists(copy)) {
    fs::create_directories(copy.parent_path());
    fs::copy(directory, copy, fs::copy_options::recursive);
  }
  return copy / example.File.filename();
}

} // namespace workbench
