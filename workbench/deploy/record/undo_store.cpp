#include "workbench/deploy/record/undo_store.h"

#include "package/common/errors.h"
#include "workbench/deploy/record/record_store.h"

#include <algorithm>
#include <array>

namespace workbench {
namespace {

constexpr std::string_view ManifestName = "undo.json";
constexpr std::string_view IndexName = "index.json";

// The first reason that there is.
std::string FirstOf(const std::vector<std::string>& problems) {
  const auto found =
      std::ranges::find_if(problems, [](const std::string& problem) { return !problem.empty(); });
  return found == problems.end() ? std::string() : *found;
}

} // namespace

TUndoIndex TUndoStore::ReadIndex(IRemoteConnection& connection) const {
  const TRemoteContent content =
      connection.ReadFile({FDirectory, std::string(IndexName)}, LargestRecord);
  if (!content.IsThere || !content.Problem.empty())
    return {};
  try {
    return ParseUndoIndex(content.Text);
  } catch (const deployment::TInputError&) {
    return {};
  }
}

TUndoManifest TUndoStore::ReadManifest(IRemoteConnection& connection,
                                       const std::string& run) const {
  const TRemoteContent content =
      connection.ReadFile({DirectoryOf(run), std::string(ManifestName)}, LargestRecord);
  if (!content.IsThere)
    throw deployment::TInputError("nothing was kept of it");
  if (!content.Problem.empty())
    throw deployment::TInputError(content.Problem);
  return ParseUndoManifest(content.Text);
}

TRemoteName TUndoStore::KeptName(const std::string& run, const std::string& kept) const {
  return {DirectoryOf(run), kept};
}

// What is kept is complete before the index says that it is there.
std::string TUndoStore::Keep(IRemoteConnection& connection, const TUndoManifest& manifest,
                             std::span<const TRemoteName> targets, std::uint64_t bytes) const {
  const std::string& run = manifest.Run.Id;
  const std::array<std::string, 1> directory{DirectoryOf(run)};
  std::string problem = connection.MakeDirectories(directory).front();
  if (problem.empty())
    problem =
        PutText(connection, {directory[0], std::string(ManifestName)}, UndoManifestText(manifest));
  std::vector<TRemoteCopy> copies;
  for (std::size_t i = 0; i < targets.size(); ++i) {
    if (!manifest.Files[i].Kept.empty())
      copies.push_back({targets[i], KeptName(run, manifest.Files[i].Kept)});
  }
  if (problem.empty() && !copies.empty())
    problem = FirstOf(connection.Keep(copies));
  if (problem.empty()) {
    TUndoIndex index = ReadIndex(connection);
    index.Runs.insert(index.Runs.begin(), {run, bytes});
    problem = WriteIndex(connection, index);
  }
  if (problem.empty())
    return {};
  std::vector<TRemoteName> kept;
  kept.reserve(copies.size() + 1);
  for (TRemoteCopy& copy : copies)
    kept.push_back(std::move(copy.To));
  kept.push_back({directory[0], std::string(ManifestName)});
  connection.RemoveAll(kept);
  connection.RemoveEmptyDirectories(directory);
  return problem;
}

void TUndoStore::Trim(IRemoteConnection& connection, std::uint64_t runs,
                      std::uint64_t bytes) const {
  TUndoIndex index = ReadIndex(connection);
  std::size_t left = 0;
  for (std::uint64_t sum = 0; left < index.Runs.size() && left < runs; ++left) {
    const std::uint64_t more = index.Runs[left].Bytes;
    if (more > bytes - sum)
      break;
    sum += more;
  }
  if (left == index.Runs.size())
    return;
  const std::vector<TUndoIndex::TRun> gone(index.Runs.begin() + static_cast<std::ptrdiff_t>(left),
                                           index.Runs.end());
  index.Runs.resize(left);
  if (!WriteIndex(connection, index).empty())
    return;
  for (const TUndoIndex::TRun& run : gone)
    RemoveFiles(connection, run.Id);
}

void TUndoStore::Drop(IRemoteConnection& connection, const std::string& run) const {
  TUndoIndex index = ReadIndex(connection);
  std::erase_if(index.Runs, [&run](const TUndoIndex::TRun& each) { return each.Id == run; });
  if (WriteIndex(connection, index).empty())
    RemoveFiles(connection, run);
}

// The manifest goes last: it names the others.
void TUndoStore::RemoveFiles(IRemoteConnection& connection, const std::string& run) const {
  std::vector<TRemoteName> kept;
  try {
    for (const TUndoFile& file : ReadManifest(connection, run).Files) {
      if (!file.Kept.empty())
        kept.push_back(KeptName(run, file.Kept));
    }
  } catch (const deployment::TInputError&) {
    kept.clear();
  }
  connection.RemoveAll(kept);
  connection.Remove({DirectoryOf(run), std::string(ManifestName)});
  const std::array<std::string, 1> directory{DirectoryOf(run)};
  connection.RemoveEmptyDirectories(directory);
}

std::string TUndoStore::WriteIndex(IRemoteConnection& connection, const TUndoIndex& index) const {
  return PutText(connection, {FDirectory, std::string(IndexName)}, UndoIndexText(index));
}

} // namespace workbench
