#include "workbench/deploy/remote_queries.h"

#include "workbench/remote/target/file_times.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace workbench {
namespace {

constexpr int MostLinks = 16; // one behind the other

} // namespace

// A link has the time of what it leads to, as on this machine. Texts that lead elsewhere than below
// the link's directory are not followed.
void TRemoteQueries::FollowLinks(std::vector<TRemoteName> names,
                                 std::vector<TRemoteStatus>& answers) {
  for (int depth = 0; depth < MostLinks && FConnection->KnowsLinks(); ++depth) {
    std::vector<std::size_t> links;
    std::vector<TRemoteName> asked;
    for (std::size_t i = 0; i < answers.size(); ++i) {
      if (answers[i].Kind != TRemoteKind::Link)
        continue;
      links.push_back(i);
      asked.push_back(names[i]);
      answers[i].Kind = TRemoteKind::Other;
    }
    if (links.empty())
      return;
    const std::vector<TRemoteLink> texts = FConnection->ReadLinks(asked);
    std::vector<std::size_t> followed;
    asked.clear();
    for (std::size_t i = 0; i < links.size(); ++i) {
      const auto text = std::filesystem::path(texts[i].Text).lexically_normal();
      if (!text.has_filename() || text.is_absolute() || *text.begin() == "..")
        continue;
      const auto there = std::filesystem::path(names[links[i]].Directory) / text;
      names[links[i]] = {there.parent_path().string(), there.filename().string()};
      asked.push_back(names[links[i]]);
      followed.push_back(links[i]);
    }
    const std::vector<TRemoteStatus> found = FConnection->Examine(asked);
    for (std::size_t i = 0; i < followed.size(); ++i)
      answers[followed[i]] = found[i];
  }
}

void TRemoteQueries::Ask(const std::vector<std::string>& remoteNames) {
  std::vector<TRemoteName> places;
  std::vector<TFileAnswer*> answersOf;                // references into an unordered map stay good
  std::unordered_map<std::string, std::size_t> known; // directories, into the next one
  std::vector<std::string> directories;
  std::vector<std::size_t> directoryOf; // of each place
  places.reserve(remoteNames.size());
  answersOf.reserve(remoteNames.size());
  directoryOf.reserve(remoteNames.size());
  for (const std::string& name : remoteNames) {
    const auto [answer, isNew] = FAnswers.try_emplace(name);
    if (!isNew)
      continue;
    TTargetPlace place = FindTargetPlace(name, FRules);
    if (!place.Problem.empty())
      continue;
    const auto [directory, isFirst] = known.try_emplace(place.Name.Directory, directories.size());
    if (isFirst)
      directories.push_back(place.Name.Directory);
    directoryOf.push_back(directory->second);
    places.push_back(std::move(place.Name));
    answersOf.push_back(&answer->second);
  }
  const std::vector<TRemoteDirectory> resolved =
      (FSeen ? *FSeen : FDirectories).Resolve(*FConnection, directories);
  std::vector<TRemoteName> names;
  std::vector<TFileAnswer*> asked;
  names.reserve(places.size());
  asked.reserve(places.size());
  for (std::size_t i = 0; i < places.size(); ++i) {
    const TRemoteDirectory& directory = resolved[directoryOf[i]];
    if (!DirectoryProblem(directory, FRules).empty())
      continue;
    answersOf[i]->IsKnown = !directory.Exists; // there is nothing in what is not there
    if (!directory.Exists)
      continue;
    names.push_back({directory.Path, std::move(places[i].Name)});
    asked.push_back(answersOf[i]);
  }
  std::vector<TRemoteStatus> answers =
      FSeen ? FSeen->Examine(*FConnection, names) : FConnection->Examine(names);
  FollowLinks(std::move(names), answers);
  const auto resolution = FConnection->TimeResolution();
  for (std::size_t i = 0; i < answers.size(); ++i) {
    asked[i]->IsKnown = answers[i].Problem.empty();
    if (answers[i].Kind == TRemoteKind::File)
      asked[i]->Time = Truncated(answers[i].Modified, resolution);
  }
}

TFileAnswer TRemoteQueries::AnswerOf(std::string_view remoteName) const {
  const auto known = FAnswers.find(remoteName);
  return known == FAnswers.end() ? TFileAnswer() : known->second;
}

} // namespace workbench
