#include "workbench/cli/context/name_hint.h"

#include "package/common/case_fold.h"

#include <algorithm>
#include <numeric>

namespace workbench {
namespace {

// Number of letters to be changed, put in or taken out.
std::size_t Distance(std::string_view left, std::string_view right) {
  std::vector<std::size_t> row(right.size() + 1);
  std::iota(row.begin(), row.end(), 0U);
  for (std::size_t i = 1; i <= left.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t k = 1; k <= right.size(); ++k) {
      const std::size_t changed = diagonal + (left[i - 1] == right[k - 1] ? 0 : 1);
      diagonal = row[k];
      row[k] = std::min({row[k] + 1, row[k - 1] + 1, changed});
    }
  }
  return row.back();
}

// Words of other programs, and what they are called here.
struct TSynonym {
  std::string_view Word;
  std::string_view Name;
};
constexpr TSynonym Synonyms[] = {
    {"delete", "remove"}, {"del", "remove"},     {"rm", "remove"},     {"erase", "remove"},
    {"ls", "list"},       {"dir", "list"},       {"edit", "set"},      {"change", "set"},
    {"info", "show"},     {"cat", "show"},       {"create", "new"},    {"init", "new"},
    {"push", "deploy"},   {"upload", "deploy"},  {"copy", "deploy"},   {"diff", "status"},
    {"why", "explain"},   {"sync", "reconcile"}, {"x64", "Win64"},     {"x86", "Win32"},
    {"Windows", "Win64"}, {"macOS", "OSX32"},    {"Linux", "Linux64"},
};

// A name that the word is the beginning of, or another word for; null when there is none.
const std::string* FindByMeaning(std::string_view word, const std::vector<std::string>& names) {
  constexpr std::size_t ShortestBeginning = 3; // without the dashes of an option
  const std::string wanted = deployment::UpperCase(word);
  const std::size_t dashes = std::min(word.find_first_not_of('-'), word.size());
  for (const std::string& name : names) {
    const bool isBeginning = word.size() >= dashes + ShortestBeginning &&
                             deployment::UpperCase(name).starts_with(wanted);
    const bool isSynonym = std::ranges::any_of(Synonyms, [&](const TSynonym& each) {
      return deployment::SameText(each.Word, word) && each.Name == name;
    });
    if (isBeginning || isSynonym)
      return &name;
  }
  return nullptr;
}

} // namespace

std::string HintAt(std::string_view word, const std::vector<std::string>& names) {
  constexpr std::size_t LongestWord = 200; // beyond, nobody mistyped a name
  if (word.empty() || word.size() > LongestWord)
    return {};
  const std::string wanted = deployment::UpperCase(word);
  std::size_t least = std::max<std::size_t>(2, word.size() / 3);
  const std::string* nearest = nullptr;
  for (const std::string& name : names) {
    if (name.empty() || name.size() > word.size() + least || word.size() > name.size() + least)
      continue;
    const std::size_t distance = Distance(wanted, deployment::UpperCase(name));
    if (distance <= least && (!nearest || distance < least)) {
      nearest = &name;
      least = distance;
    }
  }
  if (!nearest)
    nearest = FindByMeaning(word, names);
  return nearest ? "; did you mean \"" + *nearest + "\"?" : std::string();
}

} // namespace workbench
