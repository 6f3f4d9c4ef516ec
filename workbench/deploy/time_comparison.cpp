#include "workbench/deploy/time_comparison.h"

#include "workbench/deploy/remote_queries.h"
#include "workbench/files/machine_path.h"
#include "workbench/remote/target/file_times.h"

#include <utility>

namespace workbench {
namespace {

TTimeComparison Compared(const TFilePair& file, const TRemoteQueries& queries) {
  const TFileAnswer there = queries.AnswerOf(file.RemoteName);
  if (!there.Time)
    return there.IsKnown ? TTimeComparison::NotFound : TTimeComparison::Unknown;
  const auto time = LocalFileTime(ToMachineText(file.LocalFile));
  if (!time)
    return TTimeComparison::Unknown;
  const auto here = Truncated(*time, queries.TimeResolution());
  if (here == *there.Time)
    return TTimeComparison::Same;
  return here < *there.Time ? TTimeComparison::Older : TTimeComparison::Newer;
}

} // namespace

std::vector<TTimeComparison> CompareTimes(std::shared_ptr<IRemoteConnection> connection,
                                          const TPlaceRules& rules,
                                          const std::vector<TFilePair>& files, TSeenFiles& seen) {
  TRemoteQueries queries(std::move(connection), rules, &seen);
  std::vector<std::string> names;
  names.reserve(files.size());
  for (const TFilePair& file : files)
    names.push_back(file.RemoteName);
  queries.Ask(names);
  std::vector<TTimeComparison> compared;
  compared.reserve(files.size());
  for (const TFilePair& file : files)
    compared.push_back(Compared(file, queries));
  return compared;
}

} // namespace workbench
