#include "workbench/deploy/record/undo_store.h"

#include "package/common/errors.h"
#include "workbench/deploy/record/sent_text.h"

#include <algorithm>
#include <array>
#include <system_error>

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

// The index names the run first, so that whoever comes after a bad end can sweep it; it offers the
// run when what is kept is complete.
std::string TUndoStore::Keep(IRemoteConnection& connection, const TKeptRun& request) {
  const std::string& run = request.Run;
  TUndoIndex index = Index(connection);
  std::string problem;
  if (index.Runs.empty())
    problem = connection.MakeDirectories(std::array{FDirectory}).front();
  if (!problem.empty())
    return problem;
  index.Unfinished.push_back(run);
  problem = WriteIndex(connection, index);
  if (problem.empty())
    problem = Fill(connection, request);
  if (problem.empty()) {
    std::erase(index.Unfinished, run);
    index.Runs.insert(index.Runs.begin(), {run, request.Bytes});
    problem = WriteIndex(connection, index);
  }
  if (!problem.empty())
    GiveUp(connection, run);
  return problem;
}

// What cannot be removed now, such as a file that this run left unfinished, is swept by the next
// one, which has to know of it.
void TUndoStore::GiveUp(IRemoteConnection& connection, const std::string& run) {
  RemoveRuns(connection, {run});
  const std::string directory = DirectoryOf(run);
  if (!connection.Resolve({&directory, 1}).front().Exists)
    return;
  TUndoIndex index = Index(connection);
  index.Unfinished.push_back(run);
  WriteIndex(connection, std::move(index));
}

std::string TUndoStore::Fill(IRemoteConnection& connection, const TKeptRun& request) const {
  const std::string directory = DirectoryOf(request.Run);
  std::string problem = connection.MakeDirectories({&directory, 1}).front();
  if (!problem.empty())
    return problem;
  try {
    problem = PutText(connection, {directory, std::string(ManifestName)},
                      TSentText(request.WriteManifest));
  } catch (const std::system_error& error) {
    return error.what();
  }
  std::vector<TRemoteCopy> copies;
  copies.reserve(request.Files.size());
  for (const auto& [target, kept] : request.Files)
    copies.push_back({target, KeptName(request.Run, kept)});
  return problem.empty() && !copies.empty() ? FirstOf(connection.Keep(copies)) : problem;
}

void TUndoStore::Trim(IRemoteConnection& connection, std::uint64_t runs, std::uint64_t bytes) {
  const TUndoIndex& index = Index(connection);
  std::size_t left = 0;
  for (std::uint64_t sum = 0; left < index.Runs.size() && left < runs; ++left) {
    const std::uint64_t more = index.Runs[left].Bytes;
    if (more > bytes - sum)
      break;
    sum += more;
  }
  if (left == index.Runs.size())
    return;
  std::vector<std::string> gone;
  gone.reserve(index.Runs.size() - left);
  for (std::size_t i = left; i < index.Runs.size(); ++i)
    gone.push_back(index.Runs[i].Id);
  RemoveRuns(connection, gone);
}

void TUndoStore::Drop(IRemoteConnection& connection, const std::string& run) {
  RemoveRuns(connection, {run});
}

void TUndoStore::RemoveUnfinished(IRemoteConnection& connection) {
  const std::vector<std::string> unfinished = Index(connection).Unfinished;
  if (unfinished.empty())
    return;
  std::vector<TSendRequest> places;
  places.reserve(unfinished.size());
  for (const std::string& run : unfinished)
    places.push_back({.LocalFile = {}, .Target = {DirectoryOf(run), {}}});
  connection.RemoveUnfinished(places);
  RemoveRuns(connection, unfinished);
}

// Runs leave the index before their files go, and are named there until these are gone.
void TUndoStore::RemoveRuns(IRemoteConnection& connection, const std::vector<std::string>& runs) {
  TUndoIndex index = Index(connection);
  const auto isNamed = [](const std::vector<std::string>& names, const std::string& run) {
    return std::ranges::find(names, run) != names.end();
  };
  std::erase_if(index.Runs, [&](const TUndoIndex::TRun& each) { return isNamed(runs, each.Id); });
  for (const std::string& run : runs) {
    if (!isNamed(index.Unfinished, run))
      index.Unfinished.push_back(run);
  }
  if (!WriteIndex(connection, index).empty())
    return;
  for (const std::string& run : runs)
    RemoveFiles(connection, run);
  std::erase_if(index.Unfinished, [&](const std::string& each) { return isNamed(runs, each); });
  WriteIndex(connection, index);
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

const TUndoIndex& TUndoStore::Index(IRemoteConnection& connection) {
  if (!FIndex)
    FIndex = ReadIndex(connection);
  return *FIndex;
}

std::string TUndoStore::WriteIndex(IRemoteConnection& connection, TUndoIndex index) {
  std::string problem =
      PutText(connection, {FDirectory, std::string(IndexName)}, UndoIndexText(index));
  if (problem.empty())
    FIndex = std::move(index);
  else
    FIndex.reset();
  return problem;
}

} // namespace workbench
