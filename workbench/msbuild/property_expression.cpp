#include "workbench/msbuild/property_expression.h"

#include "package/common/case_fold.h"
#include "workbench/msbuild/values/condition_tokens.h"
#include "workbench/msbuild/values/msbuild_escapes.h"
#include "workbench/msbuild/values/property_names.h"
#include "workbench/xml/short_text.h"

#include <algorithm>
#include <utility>

namespace workbench {
namespace {

constexpr unsigned DeepestReference = 32;

// The text is no reference that a build understands.
class TSyntaxError : public std::exception {};

} // namespace

TExpanded TReferenceReader::Read() {
  if (FDepth > DeepestReference) {
    NotKnown("references are nested deeper than " + std::to_string(DeepestReference) + " levels",
             true);
    return {{}, FUnknown};
  }
  try {
    SkipBlanks();
    ReadStart();
    ReadMembers();
  } catch (const TSyntaxError&) {
    NotKnown("\"$(" + ShortText(FBody) + ")\" is not understood", true);
  }
  if (FUnknown)
    return {{}, FUnknown};
  std::string text = TextOf(FValue);
  return {FIsEscaped ? std::move(text) : EscapeMSBuild(text), nullptr};
}

void TReferenceReader::ReadStart() {
  if (Present() != '[') {
    constexpr std::string_view Registry = "Registry:";
    if (deployment::SameText(FBody.substr(FNext, Registry.size()), Registry))
      return ReadRegistry();
    TExpanded value = FProperties.PlainValue(ReadName());
    FValue = std::move(value.Text);
    FUnknown = std::move(value.Unknown);
    return;
  }
  const std::size_t end = FBody.find(']', FNext);
  if (end == std::string_view::npos)
    throw TSyntaxError();
  const std::string_view type = FBody.substr(FNext + 1, end - FNext - 1);
  FNext = end + 1;
  Expect("::");
  const std::string_view name = ReadName();
  Call(type, name, FBody.substr(0, FNext));
}

void TReferenceReader::ReadRegistry() {
  FNext = FBody.size();
  NotKnown("\"$(" + ShortText(FBody) + ")\" asks for a registry, which is not here");
}

void TReferenceReader::ReadMembers() {
  for (SkipBlanks(); FNext < FBody.size(); SkipBlanks()) {
    const std::size_t start = FNext;
    if (Present() == '[') {
      // Call reads the index as an argument.
      const bool isList = std::holds_alternative<TTextList>(FValue);
      Call(MethodOwner(FValue), isList ? "GetValue" : "Chars", "[");
      continue;
    }
    Expect(".");
    const std::string_view name = ReadName();
    Call(MethodOwner(FValue), name, FBody.substr(start, FNext - start));
  }
}

void TReferenceReader::Call(std::string_view owner, std::string_view name, std::string_view shown) {
  std::vector<TPropertyValue> arguments;
  if (Present() == '(' || Present() == '[') {
    const char closing = Present() == '(' ? ')' : ']';
    ++FNext;
    arguments = ReadArguments(closing);
  }
  if (FUnknown)
    return;
  const TPropertyFunction* function = FindPropertyFunction(owner, name, arguments.size());
  if (!function)
    return NotKnown("it calls \"" + ShortText(shown) + "\", which is not evaluated here");
  try {
    if (arguments.size() < function->LeastArguments || arguments.size() > function->MostArguments)
      throw TFunctionError("it does not take " + std::to_string(arguments.size()) + " arguments");
    TPropertyValue result = function->Call({FValue, arguments, FProperties.FContext});
    if (TextOf(result).size() > LongestFunctionText)
      throw TFunctionError("the result is too long");
    FValue = std::move(result);
    FIsEscaped = function->Owner == "MSBuild" &&
                 (function->Name == "Escape" || function->Name == "Unescape");
  } catch (const TFunctionError& error) {
    NotKnown("\"" + ShortText(shown) + "\" cannot be carried out: " + error.what(), true);
  }
}

std::vector<TPropertyValue> TReferenceReader::ReadArguments(char closing) {
  std::vector<TPropertyValue> arguments;
  SkipBlanks();
  if (Present() == closing) {
    ++FNext;
    return arguments;
  }
  for (;;) {
    if (arguments.size() == MostFunctionArguments)
      throw TSyntaxError();
    arguments.push_back(ReadArgument(closing));
    if (FNext >= FBody.size())
      throw TSyntaxError();
    if (FBody[FNext++] == closing)
      return arguments;
  }
}

// One argument up to the "," or the closing character behind it. Quotes around all of it go.
TPropertyValue TReferenceReader::ReadArgument(char closing) {
  SkipBlanks();
  const std::size_t start = FNext;
  unsigned open = 0;
  char quote = '\0';
  for (; FNext < FBody.size(); ++FNext) {
    const char c = FBody[FNext];
    if (quote != '\0') {
      if (c == quote)
        quote = '\0';
    } else if (open == 0 && (c == ',' || c == closing)) {
      break;
    } else if (c == '\'' || c == '"' || c == '`') {
      quote = c;
    } else if (c == '(' || c == '[') {
      ++open;
    } else if (c == ')' || c == ']') {
      open -= std::min(open, 1U);
    }
  }
  if (FNext >= FBody.size())
    throw TSyntaxError();
  std::string_view text = FBody.substr(start, FNext - start);
  text = text.substr(0, text.find_last_not_of(" \t\r\n") + 1);
  const bool isQuoted = text.size() >= 2 && text.front() == text.back() &&
                        (text.front() == '\'' || text.front() == '"' || text.front() == '`');
  return Expanded(isQuoted ? text.substr(1, text.size() - 2) : text);
}

TPropertyValue TReferenceReader::Expanded(std::string_view text) {
  TExpanded expanded = FProperties.Expand(text, FNode, FDepth + 1);
  if (!FUnknown)
    FUnknown = std::move(expanded.Unknown);
  return UnescapeMSBuild(expanded.Text);
}

std::string_view TReferenceReader::ReadName() {
  SkipBlanks();
  const std::size_t start = FNext;
  if (!IsNameStart(Present()))
    throw TSyntaxError();
  while (FNext < FBody.size() && IsNameCharacter(FBody[FNext]))
    ++FNext;
  return FBody.substr(start, FNext - start);
}

void TReferenceReader::SkipBlanks() {
  FNext = std::min(FBody.find_first_not_of(" \t\r\n", FNext), FBody.size());
}

void TReferenceReader::Expect(std::string_view text) {
  if (!FBody.substr(FNext).starts_with(text))
    throw TSyntaxError();
  FNext += text.size();
}

void TReferenceReader::NotKnown(const std::string& reason, bool isMistake) {
  if (!FUnknown)
    FUnknown = std::make_shared<TUnknownValue>(TUnknownValue{{}, reason, &FNode, false, isMistake});
}

} // namespace workbench
