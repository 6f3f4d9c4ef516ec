// Does to a list what was taken down of another one, such as the same list before a crash.
#pragma once

#include "workbench/list/list_snapshot.h"

#include <cstddef>
#include <memory>
#include <span>
#include <unordered_set>
#include <vector>

namespace workbench {

/// How an entry that a change made is found in a list that may have it already.
enum class TMatching {
  ByKey,        ///< by the names under which it was added
  ByStoredNames ///< in a list that was read from a file which perhaps has the changes: a file does
                ///< not keep the platform for which an entry was added
};

/// Applies changes to a deployment, which must outlive the object and change in no other way
/// meanwhile. An entry is found by what it held before the change; in a list that is not quite the
/// same, by its names. What a change makes is there afterwards in any case, and what it takes away
/// is not. Listeners hear of nothing.
class TListReplay {
public:
  TListReplay(deployment::IProjectDeployment& deployment, TMatching matching);

  void Apply(const TListChange& change);
  /// Brings the entries into the order that the changes give; to be called after the last one.
  void Finish();

private:
  using TFile = deployment::IProjectDeploymentFile;
  /// A change with the entry that it is about; null for one that is not there.
  struct TMatch {
    const TEntryDifference* Difference;
    std::shared_ptr<TFile> File;
  };

  std::vector<TMatch> Match(std::span<const TEntryDifference> entries);
  std::shared_ptr<TFile> Find(const TEntryRecord& record,
                              const std::unordered_set<const TFile*>& taken);
  std::shared_ptr<TFile> FindStored(const TEntryRecord& record,
                                    const std::unordered_set<const TFile*>& taken);
  deployment::TDeploymentFiles FreeFiles(const TEntryKey& names,
                                         const std::unordered_set<const TFile*>& taken);
  std::shared_ptr<TFile> Make(const TEntryRecord& record,
                              const std::unordered_set<const TFile*>& taken);
  void Rearrange(const std::vector<TMatch>& matches);

  deployment::IProjectDeployment& FDeployment;
  const TMatching FMatching;
  deployment::TDeploymentFiles FOrder;
};

} // namespace workbench
