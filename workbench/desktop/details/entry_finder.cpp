#include "workbench/desktop/details/entry_finder.h"

#include "package/host/api/file_columns.h"
#include "package/host/api/target_entries.h"
#include "workbench/session/session.h"

#include <algorithm>
#include <string>
#include <unordered_map>

namespace workbench {

using deployment::TNodeId;

namespace {

namespace file_column = deployment::file_column;

// What a row shows of the names of its entry.
struct TRowNames {
  std::string LocalName;
  std::string Class;
  std::string Configuration;

  bool operator==(const TRowNames&) const = default;
};

TRowNames NamesOf(const TMemoryTree& rows, TNodeId node) {
  return {rows.Text(node, file_column::LocalPath) + rows.Text(node, file_column::LocalName),
          rows.Text(node, file_column::Type), rows.Text(node, file_column::Configuration)};
}

} // namespace

// Rows that read the same stand in the order of their entries, which is that of their ids.
std::size_t TEntryFinder::RankOf(TNodeId node) const {
  const TMemoryTree& rows = FRows.Nodes();
  const TRowNames names = NamesOf(rows, node);
  std::size_t rank = 0;
  for (TNodeId other = 1; other < node; ++other)
    rank += rows.IsNode(other) && NamesOf(rows, other) == names ? 1U : 0U;
  return rank;
}

TEntryFinder::TFile TEntryFinder::Find(TNodeId node) const {
  if (!FRows.Nodes().IsNode(node))
    return nullptr;
  const TRowNames names = NamesOf(FRows.Nodes(), node);
  deployment::TDeploymentFiles found =
      FProject.Deployment().FindFiles(names.LocalName, names.Configuration, {}, names.Class);
  deployment::TTargetEntries entries(FProject.Project(), FTarget);
  std::erase_if(found, [&](const TFile& file) {
    return file->GetLocalName() != names.LocalName || file->GetDeploymentClass() != names.Class ||
           file->GetConfiguration() != names.Configuration || !entries.IsListed(*file);
  });
  if (found.size() <= 1)
    return found.empty() ? nullptr : found.front();
  return found[std::min(RankOf(node), found.size() - 1)];
}

std::vector<TNodeId> TEntryFinder::RowsOf(const std::vector<TFile>& files) const {
  const TMemoryTree& rows = FRows.Nodes();
  std::unordered_multimap<std::string, std::size_t> wanted; // by local name
  for (std::size_t i = 0; i < files.size(); ++i)
    wanted.emplace(files[i]->GetLocalName(), i);
  std::vector<TNodeId> found(files.size(), 0);
  for (TNodeId node = 1; node < rows.EndOfNodes(); ++node) {
    if (!rows.IsNode(node))
      continue;
    const auto [first, last] = wanted.equal_range(NamesOf(rows, node).LocalName);
    const TFile file = first == last ? nullptr : Find(node);
    for (auto i = first; file && i != last; ++i) {
      if (files[i->second] == file)
        found[i->second] = node;
    }
  }
  std::erase(found, TNodeId(0));
  return found;
}

} // namespace workbench
