#include "workbench/desktop/projects/project_watcher.h"

#include "workbench/desktop/text/qt_text.h"

#include <chrono>

namespace workbench {
namespace {

constexpr std::chrono::milliseconds ChangeDelay(300);

} // namespace

TProjectWatcher::TProjectWatcher() {
  FDelay.setSingleShot(true);
  FDelay.setInterval(ChangeDelay);
  const auto stir = [this] { FDelay.start(); };
  connect(&FWatcher, &QFileSystemWatcher::fileChanged, this, stir);
  connect(&FWatcher, &QFileSystemWatcher::directoryChanged, this, stir);
  connect(&FDelay, &QTimer::timeout, this, [this] {
    Watch(FFiles); // a file that was replaced is another one
    emit FilesChanged();
  });
}

void TProjectWatcher::Watch(const std::vector<std::filesystem::path>& files) {
  FFiles = files;
  QStringList wanted;
  for (const std::filesystem::path& file : FFiles) {
    for (const QString& path : {PathToQString(file), PathToQString(file.parent_path())}) {
      if (!wanted.contains(path) && QFile::exists(path))
        wanted += path;
    }
  }
  const QStringList watched = FWatcher.files() + FWatcher.directories();
  QStringList left;
  for (const QString& path : watched) {
    if (!wanted.contains(path))
      left += path;
  }
  if (!left.isEmpty())
    FWatcher.removePaths(left);
  QStringList added;
  for (const QString& path : wanted) {
    if (!watched.contains(path))
      added += path;
  }
  if (!added.isEmpty())
    FWatcher.addPaths(added);
}

} // namespace workbench
