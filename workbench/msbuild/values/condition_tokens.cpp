#include "workbench/msbuild/values/condition_tokens.h"

#include "package/common/case_fold.h"
#include "workbench/xml/short_text.h"

namespace workbench {
namespace {

constexpr std::size_t LongestCondition = std::size_t{64} * 1024;
constexpr std::string_view Blanks = " \t\r\n";

bool IsWordCharacter(char c) {
  const auto code = static_cast<unsigned char>(c);
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
         c == '.' || c == '+' || c == '-' || code >= 0x80U;
}

} // namespace

std::size_t ReferenceEnd(std::string_view text, std::size_t position) {
  std::size_t open = 0;
  char quote = 0;
  for (std::size_t i = position + 1; i < text.size(); ++i) {
    const char c = text[i];
    if (quote != 0) {
      if (c == quote)
        quote = 0;
    } else if (c == '(') {
      ++open;
    } else if (c == ')') {
      if (--open == 0)
        return i + 1;
    } else if (open > 1 && (c == '\'' || c == '"' || c == '`')) {
      quote = c; // an argument of a property function; a plain name holds no quotes
    }
  }
  return std::string_view::npos;
}

TConditionScanner::TConditionScanner(std::string_view condition,
                                     const deployment::TErrorPlace& place)
    : FCondition(condition), FPlace(place) {
  if (condition.size() > LongestCondition)
    throw deployment::TInputError("the condition \"" + ShortText(condition) + "\" is longer than " +
                                      std::to_string(LongestCondition) + " bytes",
                                  place);
  Advance();
}

void TConditionScanner::Advance() {
  FStart = FCondition.find_first_not_of(Blanks, FNext);
  FValue = {};
  FQuoted = false;
  if (FStart == std::string_view::npos) {
    FStart = FNext = FCondition.size();
    FToken = TConditionToken::End;
    return;
  }
  FNext = FStart;
  const char c = FCondition[FStart];
  if (c == '\'')
    ReadQuoted();
  else if (c == '$')
    ReadReference();
  else if (IsWordCharacter(c))
    ReadWord();
  else
    ReadOperator();
}

void TConditionScanner::ReadQuoted() {
  std::size_t i = FStart + 1;
  while (i < FCondition.size() && FCondition[i] != '\'') {
    if (!FCondition.substr(i).starts_with("$(")) {
      ++i;
      continue;
    }
    i = ReferenceEnd(FCondition, i);
    if (i == std::string_view::npos)
      Fail("a \"$(\" is not closed");
  }
  if (i == FCondition.size())
    Fail("a quote is not closed");
  FToken = TConditionToken::Text;
  FQuoted = true;
  FValue = FCondition.substr(FStart + 1, i - FStart - 1);
  FNext = i + 1;
}

void TConditionScanner::ReadReference() {
  if (!FCondition.substr(FStart).starts_with("$("))
    Fail("a \"(\" is missing behind \"$\"");
  const std::size_t end = ReferenceEnd(FCondition, FStart);
  if (end == std::string_view::npos)
    Fail("a \"$(\" is not closed");
  FToken = TConditionToken::Text;
  FValue = FCondition.substr(FStart, end - FStart);
  FNext = end;
}

void TConditionScanner::ReadWord() {
  while (FNext < FCondition.size() && IsWordCharacter(FCondition[FNext]))
    ++FNext;
  FValue = FCondition.substr(FStart, FNext - FStart);
  if (deployment::SameText(FValue, "and"))
    FToken = TConditionToken::And;
  else if (deployment::SameText(FValue, "or"))
    FToken = TConditionToken::Or;
  else
    FToken = TConditionToken::Text;
}

void TConditionScanner::ReadOperator() {
  struct TOperator {
    std::string_view Spelling;
    TConditionToken Token;
  };
  // Longer spellings stand before those that they begin with.
  static constexpr TOperator Operators[] = {
      {"==", TConditionToken::Equal},       {"!=", TConditionToken::NotEqual},
      {"<=", TConditionToken::LessOrEqual}, {">=", TConditionToken::GreaterOrEqual},
      {"<", TConditionToken::Less},         {">", TConditionToken::Greater},
      {"!", TConditionToken::Not},          {"(", TConditionToken::Open},
      {")", TConditionToken::Close},        {",", TConditionToken::Comma},
  };
  for (const TOperator& candidate : Operators) {
    if (!FCondition.substr(FStart).starts_with(candidate.Spelling))
      continue;
    FToken = candidate.Token;
    FNext = FStart + candidate.Spelling.size();
    return;
  }
  Fail(FCondition[FStart] == '=' ? "\"=\" alone does not compare, \"==\" does"
                                 : "this character has no meaning here");
}

void TConditionScanner::Fail(std::string_view reason) const {
  throw deployment::TInputError("the condition \"" + ShortText(FCondition) +
                                    "\" is not valid: at character " + std::to_string(FStart + 1) +
                                    ", " + std::string(reason),
                                FPlace);
}

} // namespace workbench
