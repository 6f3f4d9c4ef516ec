// The file entries of a deployment at one moment: what a change that fails goes back to.
#pragma once

#include "package/model/deployment_file_list.h"
#include "package/model/file_content.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace deployment {

/// Shares the entries, and keeps what each of them said.
class TFileListSnapshot {
public:
  explicit TFileListSnapshot(const TDeploymentFileList& files);

  /// Brings the list and its entries back to that moment. Nobody is told.
  void Restore(TDeploymentFileList& files) const;

  struct TChange {
    std::shared_ptr<TDeploymentFile> File;
    TDeploymentItemAction Action;
  };
  /// What became of the entries since: those that left, then those that changed or are new.
  std::vector<TChange> ChangesSince(const TDeploymentFileList& files) const;

private:
  struct TSaved {
    TKeyedFile Entry;
    TFileContent Content;
  };

  std::vector<TSaved> FSaved;
};

} // namespace deployment
