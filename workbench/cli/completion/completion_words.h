// The words of a command line that is being typed, as its shell hands them out.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// What is complete, and the word that the cursor stands in.
struct TTypedWords {
  std::vector<std::string> Before; ///< behind the name of the program
  std::string Current;             ///< may be empty
};

/// Reads the words of "bash", "zsh" or "fish", the word at the cursor last. Quotes that a shell
/// left in are taken away, and what bash parts at "=" is one option with its value again.
TTypedWords ReadTypedWords(std::string_view shell, const std::vector<std::string>& words);

} // namespace workbench
