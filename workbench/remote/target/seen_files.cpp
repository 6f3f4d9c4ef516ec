#include "workbench/remote/target/seen_files.h"

#include <utility>

namespace workbench {
namespace {

// Fills in what is known and asks for the rest at once.
template <class TAnswer, class TQuestion, class TKey, class TAsk>
std::vector<TAnswer> AnswersTo(std::span<const TQuestion> questions,
                               std::unordered_map<std::string, TAnswer>& known, TKey key,
                               TAsk ask) {
  std::vector<TQuestion> rest;
  std::vector<std::size_t> restOf;
  std::vector<TAnswer> answers(questions.size());
  for (std::size_t i = 0; i < questions.size(); ++i) {
    const auto found = known.find(key(questions[i]));
    if (found != known.end()) {
      answers[i] = found->second;
      continue;
    }
    rest.push_back(questions[i]);
    restOf.push_back(i);
  }
  if (rest.empty())
    return answers;
  std::vector<TAnswer> asked = ask(rest);
  for (std::size_t i = 0; i < rest.size(); ++i) {
    known.emplace(key(rest[i]), asked[i]);
    answers[restOf[i]] = std::move(asked[i]);
  }
  return answers;
}

} // namespace

std::vector<TRemoteDirectory> TSeenFiles::Resolve(IRemoteConnection& connection,
                                                  std::span<const std::string> directories) {
  Meet(connection);
  return AnswersTo(
      directories, FDirectories, [](const std::string& name) -> const std::string& { return name; },
      [&](const auto& rest) { return connection.Resolve(rest); });
}

std::vector<TRemoteStatus> TSeenFiles::Examine(IRemoteConnection& connection,
                                               std::span<const TRemoteName> names) {
  Meet(connection);
  return AnswersTo(
      names, FFiles, [](const TRemoteName& name) { return name.Path(); },
      [&](const auto& rest) { return connection.Examine(rest); });
}

void TSeenFiles::Meet(IRemoteConnection& connection) {
  std::string root = connection.Root();
  if (root == FRoot)
    return;
  FDirectories.clear();
  FFiles.clear();
  FRoot = std::move(root);
}

} // namespace workbench
