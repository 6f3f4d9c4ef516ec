// Finds the entries that names on the command line mean.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "workbench/cli/context/command.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace workbench {

/// How the platform option narrows the entries.
enum class TPlatformNarrowing {
  Always,      ///< only entries that have the platform are meant
  WhenSeveral, ///< the one entry of a name is meant whatever its platforms, so that it can get one
};

/// The entries of a deployment by their stored local names, narrowed by the options.
class TEntryLookup {
public:
  TEntryLookup(const deployment::TDeploymentFiles& files, const TCommonOptions& options,
               TPlatformNarrowing narrowing);

  /// The one entry of that name, "\" and "/" alike: exactly, else ignoring case. Throws
  /// TUsageError, with a list, when several match, and TWorkError when none does.
  std::shared_ptr<deployment::IProjectDeploymentFile> Find(const std::string& name) const;
  /// All of them, before anything is changed; each entry once. Throws the same.
  deployment::TDeploymentFiles FindAll(const std::vector<std::string>& names) const;

private:
  using TIndex = std::unordered_multimap<std::string, std::size_t>;

  std::vector<std::size_t> Matches(const TIndex& index, const std::string& key) const;
  [[noreturn]] void RaiseSeveral(const std::string& name,
                                 const std::vector<std::size_t>& matches) const;
  [[noreturn]] void RaiseNone(const std::string& name) const;

  deployment::TDeploymentFiles FFiles;
  const TCommonOptions FOptions;
  TIndex FExact;
  TIndex FFolded;
};

} // namespace workbench
