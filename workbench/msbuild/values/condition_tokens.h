// The words of a condition, one after the other.
#pragma once

#include "package/common/errors.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace workbench {

/// A word of a condition.
enum class TConditionToken {
  End,
  Text, ///< quoted text, a bare word, a number or a reference; Value holds it without quotes
  Equal,
  NotEqual,
  Less,
  Greater,
  LessOrEqual,
  GreaterOrEqual,
  And,
  Or,
  Not,
  Open,
  Close,
  Comma,
};

/// Cuts a condition into words. The condition must outlive the scanner.
class TConditionScanner {
public:
  /// `place` goes into errors. Throws TInputError when the condition is too long.
  TConditionScanner(std::string_view condition, const deployment::TErrorPlace& place);

  /// Goes to the next word. Throws TInputError when there is none to be read.
  void Advance();
  TConditionToken Token() const { return FToken; }
  /// The text of a Text word, references not expanded.
  std::string_view Value() const { return FValue; }
  /// True when the Text word stood between quotes.
  bool IsQuoted() const { return FQuoted; }
  /// Throws TInputError: the condition is not valid, for the reason, at the present word.
  [[noreturn]] void Fail(std::string_view reason) const;

private:
  void ReadQuoted();
  void ReadReference();
  void ReadWord();
  void ReadOperator();

  std::string_view FCondition;
  const deployment::TErrorPlace& FPlace;
  std::size_t FStart = 0; // of the present word
  std::size_t FNext = 0;
  TConditionToken FToken = TConditionToken::End;
  std::string_view FValue;
  bool FQuoted = false;
};

/// The position behind the ")" of the "$(" that starts at `position`, quotes and parentheses inside
/// it counted; npos when it is never closed.
std::size_t ReferenceEnd(std::string_view text, std::size_t position);

} // namespace workbench
