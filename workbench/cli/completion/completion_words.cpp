#include "workbench/cli/completion/completion_words.h"

namespace workbench {
namespace {

// A word of which the last quote may still be missing.
std::string WithoutQuotes(const std::string& word) {
  std::string plain;
  char quote = '\0';
  for (std::size_t i = 0; i < word.size(); ++i) {
    const char c = word[i];
    const bool isQuote = c == '"' || c == '\'';
    if (isQuote && (quote == '\0' || quote == c))
      quote = quote == c ? '\0' : c;
    else if (c == '\\' && quote == '\0' && i + 1 < word.size())
      plain += word[++i];
    else
      plain += c;
  }
  return plain;
}

bool IsLongOption(const std::vector<std::string>& words) {
  return !words.empty() && words.back().starts_with("--");
}

} // namespace

TTypedWords ReadTypedWords(std::string_view shell, const std::vector<std::string>& words) {
  const bool keepsQuotes = shell != "zsh";
  const bool splitsAtSign = shell == "bash";
  TTypedWords typed;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const bool isLast = i + 1 == words.size();
    std::string word = keepsQuotes && (isLast || splitsAtSign) ? WithoutQuotes(words[i]) : words[i];
    const bool isSign = splitsAtSign && word == "=" && IsLongOption(typed.Before);
    if (isLast)
      typed.Current = isSign ? std::string() : std::move(word);
    else if (!isSign)
      typed.Before.push_back(std::move(word));
  }
  return typed;
}

} // namespace workbench
