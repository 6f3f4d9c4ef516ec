#include "workbench/cli/entries/entry_lookup.h"

#include "package/common/case_fold.h"
#include "package/common/path_text.h"
#include "workbench/cli/context/name_hint.h"
#include "workbench/cli/entries/entry_filter.h"
#include "workbench/cli/entries/entry_text.h"

#include <algorithm>
#include <unordered_set>

namespace workbench {
namespace {

std::string WithBackslashes(std::string name) {
  std::replace(name.begin(), name.end(), '/', '\\');
  return name;
}

} // namespace

TEntryLookup::TEntryLookup(const deployment::TDeploymentFiles& files, const TCommonOptions& options,
                           TPlatformNarrowing narrowing)
    : FOptions(options) {
  TCommonOptions first = options;
  if (narrowing == TPlatformNarrowing::WhenSeveral)
    first.Platform.clear();
  for (const auto& file : files) {
    if (!FitsOptions(*file, first))
      continue;
    const std::string name = WithBackslashes(file->GetLocalName());
    FExact.emplace(name, FFiles.size());
    FFolded.emplace(deployment::UpperCase(name), FFiles.size());
    FFiles.push_back(file);
  }
}

std::vector<std::size_t> TEntryLookup::Matches(const TIndex& index, const std::string& key) const {
  std::vector<std::size_t> matches;
  const auto [first, last] = index.equal_range(key);
  for (auto match = first; match != last; ++match)
    matches.push_back(match->second);
  std::sort(matches.begin(), matches.end());
  return matches;
}

std::shared_ptr<deployment::IProjectDeploymentFile>
TEntryLookup::Find(const std::string& name) const {
  const std::string wanted = WithBackslashes(name);
  std::vector<std::size_t> matches = Matches(FExact, wanted);
  if (matches.empty())
    matches = Matches(FFolded, deployment::UpperCase(wanted));
  if (matches.empty())
    RaiseNone(name);
  if (matches.size() > 1)
    std::erase_if(matches,
                  [this](std::size_t match) { return !FitsOptions(*FFiles[match], FOptions); });
  if (matches.empty())
    RaiseNone(name);
  if (matches.size() > 1)
    RaiseSeveral(name, matches);
  return FFiles[matches.front()];
}

deployment::TDeploymentFiles TEntryLookup::FindAll(const std::vector<std::string>& names) const {
  deployment::TDeploymentFiles found;
  std::unordered_set<const deployment::IProjectDeploymentFile*> known;
  for (const std::string& name : names) {
    auto file = Find(name);
    if (known.insert(file.get()).second)
      found.push_back(std::move(file));
  }
  return found;
}

void TEntryLookup::RaiseSeveral(const std::string& name,
                                const std::vector<std::size_t>& matches) const {
  std::string text = "\"" + name + "\" names " + std::to_string(matches.size()) + " entries:";
  for (const std::size_t match : matches)
    text += (match == matches.front() ? " " : ", ") + EntryName(*FFiles[match]);
  throw TUsageError(text + "; narrow it with --config and --platform");
}

void TEntryLookup::RaiseNone(const std::string& name) const {
  const bool narrowed = !FOptions.Configuration.empty() || !FOptions.Platform.empty();
  std::vector<std::string> names;
  for (const auto& file : FFiles)
    names.push_back(file->GetLocalName());
  const std::string wanted = WithBackslashes(name);
  // A name without its directory is common.
  const auto found = std::ranges::find_if(names, [&](const std::string& each) {
    return deployment::SameFileName(deployment::FileNamePart(each), wanted);
  });
  throw TWorkError(
      "\"" + name + "\" is not in the list" +
      (narrowed ? " for this configuration and platform" : "") +
      (found == names.end() ? HintAt(wanted, names) : "; did you mean \"" + *found + "\"?"));
}

} // namespace workbench
