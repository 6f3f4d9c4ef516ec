#include "workbench/deploy/remote_queries.h"

#include "workbench/remote/target/file_times.h"
#include "workbench/remote/target/remote_path.h"

#include <algorithm>

namespace workbench {
namespace {

// A stored path in the way of a connection; an empty name when no such file can be asked for.
TRemoteName PlaceOf(std::string_view remoteName) {
  TRemotePath path = ParseRemotePath(remoteName);
  if (path.Climbs || path.Parts.empty() || path.Start == TRemotePath::TStart::Drive)
    return {};
  TRemoteName place{{}, std::string(path.Parts.back())};
  path.Parts.pop_back();
  place.Directory = path.Joined();
  if (path.Start == TRemotePath::TStart::FileSystemRoot)
    place.Directory.insert(place.Directory.begin(), '/');
  return place;
}

} // namespace

void TRemoteQueries::ResolveDirectories(std::vector<std::string> directories) {
  std::ranges::sort(directories);
  directories.erase(std::unique(directories.begin(), directories.end()), directories.end());
  std::erase_if(directories, [this](const auto& name) { return FDirectories.contains(name); });
  if (directories.empty())
    return;
  std::vector<TRemoteDirectory> found = FConnection->Resolve(directories);
  for (std::size_t i = 0; i < found.size(); ++i)
    FDirectories.emplace(std::move(directories[i]), std::move(found[i]));
}

void TRemoteQueries::Ask(const std::vector<std::string>& remoteNames) try {
  std::vector<TRemoteName> places;
  std::vector<const std::string*> asked;
  std::vector<std::string> directories;
  places.reserve(remoteNames.size());
  asked.reserve(remoteNames.size());
  directories.reserve(remoteNames.size());
  for (const std::string& name : remoteNames) {
    if (!FTimes.try_emplace(name).second)
      continue;
    TRemoteName place = PlaceOf(name);
    if (place.Name.empty())
      continue;
    directories.push_back(place.Directory);
    places.push_back(std::move(place));
    asked.push_back(&name);
  }
  ResolveDirectories(std::move(directories));
  std::vector<TRemoteName> names;
  std::vector<const std::string*> namesOf;
  names.reserve(places.size());
  namesOf.reserve(places.size());
  for (std::size_t i = 0; i < places.size(); ++i) {
    const TRemoteDirectory& directory = FDirectories.find(places[i].Directory)->second;
    if (!directory.Exists || !(directory.IsInside || FAllowOutside))
      continue;
    names.push_back({directory.Path, std::move(places[i].Name)});
    namesOf.push_back(asked[i]);
  }
  const std::vector<TRemoteStatus> answers = FConnection->Examine(names);
  const auto resolution = FConnection->TimeResolution();
  for (std::size_t i = 0; i < answers.size(); ++i) {
    if (answers[i].Kind == TRemoteKind::File)
      FTimes.find(*namesOf[i])->second = Truncated(answers[i].Modified, resolution);
  }
} catch (const TConnectionError&) {
  return; // what the package is told of a lost connection: nothing is found
}

std::optional<deployment::TFileTime> TRemoteQueries::TimeOf(std::string_view remoteName) {
  const auto known = FTimes.find(remoteName);
  if (known != FTimes.end())
    return known->second;
  std::string name(remoteName);
  Ask({name});
  return FTimes.find(remoteName)->second;
}

} // namespace workbench
