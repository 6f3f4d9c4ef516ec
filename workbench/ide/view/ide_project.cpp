#include "workbench/ide/view/ide_project.h"

#include "workbench/desktop/text/qt_text.h"

#include <QSysInfo>
#include <algorithm>

namespace workbench {
namespace {

namespace fs = std::filesystem;

constexpr const char* ListExtension = ".vproj";

} // namespace

std::vector<fs::path> ListFilesOf(const TIdeProject& project) {
  std::vector<fs::path> files;
  std::error_code error;
  for (fs::directory_iterator entry(project.Directory, error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code ignored;
    if (entry->path().extension() == ListExtension && entry->is_regular_file(ignored))
      files.push_back(entry->path());
  }
  std::ranges::sort(files);
  return files;
}

// A name that an IDE shows may hold what no file name can.
fs::path FirstListFileOf(const TIdeProject& project) {
  QString name = project.Name;
  name.replace(QLatin1Char('/'), QLatin1Char('_')).replace(QLatin1Char('\\'), QLatin1Char('_'));
  if (name.isEmpty() || name.startsWith(QLatin1Char('.')))
    name = PathToQString(project.Directory.filename());
  return project.Directory / (ToPathText(name) + ListExtension);
}

QString PlatformOfThisMachine() {
  const QString machine = QSysInfo::currentCpuArchitecture();
  if (machine == QLatin1String("x86_64"))
    return QStringLiteral("Linux64");
  return machine == QLatin1String("arm64") ? QStringLiteral("LinuxARM64") : QString();
}

} // namespace workbench
