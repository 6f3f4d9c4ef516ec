// Notices when other programs change the files of projects that are open.
#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>
#include <filesystem>
#include <vector>

namespace workbench {

class TProjectWatcher final : public QObject {
  Q_OBJECT

public:
  TProjectWatcher();

  /// The files to watch from now on. Most programs replace a file, so their directories are
  /// watched too.
  void Watch(const std::vector<std::filesystem::path>& files);

signals:
  /// Something happened to one of the files or beside it, and has come to rest.
  void FilesChanged();

private:
  QFileSystemWatcher FWatcher;
  QTimer FDelay;
  std::vector<std::filesystem::path> FFiles;
};

} // namespace workbench
