#include "workbench/deploy/remembered_files.h"

#include "workbench/deploy/record_keeper.h"
#include "workbench/files/sha256.h"
#include "workbench/remote/target/file_times.h"

#include <algorithm>
#include <utility>

namespace workbench {
namespace {

void Remember(const TDeployExecution& execution, const TPlannedFile& file,
              const TSendOutcome& outcome, bool wasCopied) {
  if (!execution.Keeper || file.RecordPath.empty() ||
      file.File.Operation == deployment::TDeployOperation::RunAndRemove)
    return;
  std::string hash = outcome.Hash;
  if (hash.empty())
    hash = FileSHA256(file.File.LocalFile).value_or("");
  if (hash.empty())
    return; // gone since
  const auto known = execution.Keeper->Find(file.RecordPath);
  execution.Keeper->Put(file.RecordPath,
                        {.LocalName = file.File.LocalName,
                         .Class = file.File.Class,
                         .Size = outcome.Size,
                         .Time = std::max<std::int64_t>(outcome.Time, 0),
                         .Hash = std::move(hash),
                         .Mode = outcome.Mode,
                         .Link = file.Link,
                         .Run = known ? known->Run : std::string(),
                         .Platform = execution.Target.Platform,
                         .Configuration = execution.Target.Configuration},
                        wasCopied);
}

} // namespace

void RememberSent(const TDeployExecution& execution, const TPlannedFile& file,
                  const TSendOutcome& outcome) {
  Remember(execution, file, outcome, /*wasCopied=*/true);
}

bool RememberFound(const TDeployExecution& execution, const TPlannedFile& file) {
  if (!execution.Keeper || file.RecordPath.empty())
    return false;
  TSendOutcome found{.Size = file.Local.Size,
                     .Time = WholeSeconds(file.Local.Time),
                     .Mode = file.Mode,
                     .Hash = file.Local.Hash};
  const auto known = execution.Keeper->Find(file.RecordPath);
  const bool wasKnown = known && known->Size == found.Size && known->Time == found.Time;
  if (found.Hash.empty() && wasKnown)
    found.Hash = known->Hash;
  Remember(execution, file, found, /*wasCopied=*/false);
  return !wasKnown;
}

} // namespace workbench
