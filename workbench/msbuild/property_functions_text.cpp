// Property functions of texts and of lists of texts.
#include "package/common/case_fold.h"
#include "package/common/delimited_list.h"
#include "workbench/msbuild/property_functions.h"
#include "workbench/msbuild/values/msbuild_escapes.h"
#include "workbench/text/utf8.h"

#include <algorithm>
#include <array>

namespace workbench {
namespace {

using TCall = TFunctionCall;
using TValue = TPropertyValue;

std::string Self(const TCall& call) {
  return TextOf(call.Self);
}

// Positions count characters, so that none is cut in two.
std::size_t ByteOffset(std::string_view text, std::int64_t characters) {
  if (characters < 0)
    throw TFunctionError("a position is negative");
  std::size_t offset = 0;
  for (; characters > 0; --characters) {
    if (offset >= text.size())
      throw TFunctionError("a position lies behind the end of the text");
    do
      ++offset;
    while (offset < text.size() && (static_cast<unsigned char>(text[offset]) & 0xC0U) == 0x80U);
  }
  return offset;
}

std::int64_t CharactersBefore(std::string_view text, std::size_t offset) {
  return static_cast<std::int64_t>(CodePointCount(text.substr(0, offset)));
}

TValue Position(std::string_view text, std::size_t offset) {
  return offset == std::string_view::npos ? std::int64_t{-1} : CharactersBefore(text, offset);
}

void CheckLength(std::size_t length) {
  if (length > LongestFunctionText)
    throw TFunctionError("the result is longer than " + std::to_string(LongestFunctionText) +
                         " bytes");
}

// The comparison that a call names in its last argument; texts are compared exactly without one.
bool IgnoresCase(const TCall& call, std::size_t argument) {
  if (!call.Has(argument))
    return false;
  const std::string name = deployment::LowerCaseAscii(call.Text(argument));
  return name == "true" || name.ends_with("ignorecase");
}

std::string Folded(std::string_view text, bool ignoreCase) {
  return ignoreCase ? deployment::UpperCase(text) : std::string(text);
}

std::string ReplaceAll(const std::string& text, const std::string& old, const std::string& with) {
  if (old.empty())
    throw TFunctionError("the text to be replaced is empty");
  std::string result;
  std::size_t start = 0;
  for (std::size_t found = text.find(old); found != std::string::npos;
       found = text.find(old, start)) {
    result.append(text, start, found - start).append(with);
    CheckLength(result.size());
    start = found + old.size();
  }
  return result.append(text, start);
}

TValue Substring(const TCall& call) {
  const std::string text = Self(call);
  const std::size_t start = ByteOffset(text, call.Integer(0));
  const std::string rest = text.substr(start);
  return call.Has(1) ? rest.substr(0, ByteOffset(rest, call.Integer(1))) : rest;
}

TValue IndexOf(const TCall& call) {
  const std::string text = Self(call);
  const bool startGiven =
      call.Has(1) && call.Text(1).find_first_not_of("0123456789") == std::string::npos;
  const bool ignoreCase = IgnoresCase(call, startGiven ? 2 : 1);
  const std::size_t start = startGiven ? ByteOffset(text, call.Integer(1)) : 0;
  return Position(text, Folded(text, ignoreCase).find(Folded(call.Text(0), ignoreCase), start));
}

TValue LastIndexOf(const TCall& call) {
  const std::string text = Self(call);
  const bool ignoreCase = IgnoresCase(call, 1);
  return Position(text, Folded(text, ignoreCase).rfind(Folded(call.Text(0), ignoreCase)));
}

TValue IndexOfAny(const TCall& call) {
  const std::string text = Self(call);
  return Position(text, text.find_first_of(call.Text(0)));
}

TValue LastIndexOfAny(const TCall& call) {
  const std::string text = Self(call);
  return Position(text, text.find_last_of(call.Text(0)));
}

TValue StartsWith(const TCall& call) {
  const bool ignoreCase = IgnoresCase(call, 1);
  return Folded(Self(call), ignoreCase).starts_with(Folded(call.Text(0), ignoreCase));
}

TValue EndsWith(const TCall& call) {
  const bool ignoreCase = IgnoresCase(call, 1);
  return Folded(Self(call), ignoreCase).ends_with(Folded(call.Text(0), ignoreCase));
}

TValue Contains(const TCall& call) {
  const bool ignoreCase = IgnoresCase(call, 1);
  return Folded(Self(call), ignoreCase).find(Folded(call.Text(0), ignoreCase)) != std::string::npos;
}

TValue EqualsText(const TCall& call) {
  const bool ignoreCase = IgnoresCase(call, 1);
  return Folded(Self(call), ignoreCase) == Folded(call.Text(0), ignoreCase);
}

constexpr std::string_view TrimmedByDefault = " \t\r\n\v\f";

std::string TrimmedStart(std::string text, const std::string& characters) {
  return text.erase(0, std::min(text.find_first_not_of(characters), text.size()));
}

std::string TrimmedEnd(std::string text, const std::string& characters) {
  return text.erase(text.find_last_not_of(characters) + 1);
}

// The characters of all arguments; blanks when there are none.
std::string Characters(const TCall& call) {
  std::string characters;
  for (std::size_t i = 0; i < call.Arguments.size(); ++i)
    characters += call.Text(i);
  return characters.empty() ? std::string(TrimmedByDefault) : characters;
}

TValue Split(const TCall& call) {
  const std::string text = Self(call);
  const std::string characters = Characters(call);
  TTextList parts;
  std::size_t start = 0;
  for (std::size_t end = text.find_first_of(characters); end != std::string::npos;
       end = text.find_first_of(characters, start)) {
    parts.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  parts.push_back(text.substr(start));
  return parts;
}

std::string Padding(const TCall& call) {
  const std::int64_t width = call.Integer(0);
  if (width < 0 || width > static_cast<std::int64_t>(LongestFunctionText))
    throw TFunctionError("the width is out of range");
  const std::string text = Self(call);
  const auto present = static_cast<std::int64_t>(CodePointCount(text));
  const std::string character = call.Has(1) ? call.Text(1) : " ";
  std::string padding;
  for (std::int64_t i = present; i < width; ++i)
    padding += character;
  CheckLength(padding.size() + text.size());
  return padding;
}

TValue Insert(const TCall& call) {
  std::string text = Self(call);
  text.insert(ByteOffset(text, call.Integer(0)), call.Text(1));
  CheckLength(text.size());
  return text;
}

TValue RemovePart(const TCall& call) {
  std::string text = Self(call);
  const std::size_t start = ByteOffset(text, call.Integer(0));
  const std::size_t length =
      call.Has(1) ? ByteOffset(text.substr(start), call.Integer(1)) : text.size() - start;
  return text.erase(start, length);
}

TValue CharacterAt(const TCall& call) {
  const std::string text = Self(call);
  const std::size_t start = ByteOffset(text, call.Integer(0));
  return text.substr(start, ByteOffset(text.substr(start), 1));
}

std::int64_t Order(const std::string& left, const std::string& right, bool ignoreCase) {
  const int order = Folded(left, ignoreCase).compare(Folded(right, ignoreCase));
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}

TValue Concat(const TCall& call) {
  std::string text;
  for (std::size_t i = 0; i < call.Arguments.size(); ++i)
    text += call.Text(i);
  CheckLength(text.size());
  return text;
}

TValue Join(const TCall& call) {
  TTextList parts;
  for (std::size_t i = 1; i < call.Arguments.size(); ++i) {
    if (const auto* list = std::get_if<TTextList>(&call.Arguments[i]))
      parts.insert(parts.end(), list->begin(), list->end());
    else
      parts.push_back(call.Text(i));
  }
  return deployment::JoinDelimited(parts, call.Text(0));
}

// Places such as "{0}"; widths and formats behind the number are not known here.
TValue Format(const TCall& call) {
  std::string text = call.Text(0);
  for (std::size_t i = 1; i < call.Arguments.size(); ++i)
    text = ReplaceAll(text, "{" + std::to_string(i - 1) + "}", call.Text(i));
  if (text.find('{') != std::string::npos)
    throw TFunctionError("the format \"" + call.Text(0) + "\" is not understood");
  return text;
}

TValue ListItem(const TCall& call) {
  const auto& list = std::get<TTextList>(call.Self);
  const std::int64_t index = call.Integer(0);
  if (index < 0 || static_cast<std::size_t>(index) >= list.size())
    throw TFunctionError("the list has no item " + std::to_string(index));
  return list[static_cast<std::size_t>(index)];
}

constexpr std::array TextFunctionsTable = std::to_array<TPropertyFunction>({
    {"text", "Replace", 2, 2,
     [](const TCall& call) -> TValue {
       return ReplaceAll(Self(call), call.Text(0), call.Text(1));
     }},
    {"text", "Substring", 1, 2, Substring},
    {"text", "Length", 0, 0,
     [](const TCall& call) -> TValue {
       return static_cast<std::int64_t>(CodePointCount(Self(call)));
     }},
    {"text", "ToLower", 0, 0,
     [](const TCall& call) -> TValue { return deployment::LowerCaseAscii(Self(call)); }},
    {"text", "ToLowerInvariant", 0, 0,
     [](const TCall& call) -> TValue { return deployment::LowerCaseAscii(Self(call)); }},
    {"text", "ToUpper", 0, 0,
     [](const TCall& call) -> TValue { return deployment::UpperCase(Self(call)); }},
    {"text", "ToUpperInvariant", 0, 0,
     [](const TCall& call) -> TValue { return deployment::UpperCase(Self(call)); }},
    {"text", "ToString", 0, 0, [](const TCall& call) -> TValue { return Self(call); }},
    {"text", "Split", 0, MostFunctionArguments, Split},
    {"text", "Trim", 0, MostFunctionArguments,
     [](const TCall& call) -> TValue {
       const std::string characters = Characters(call);
       return TrimmedEnd(TrimmedStart(Self(call), characters), characters);
     }},
    {"text", "TrimStart", 0, MostFunctionArguments,
     [](const TCall& call) -> TValue { return TrimmedStart(Self(call), Characters(call)); }},
    {"text", "TrimEnd", 0, MostFunctionArguments,
     [](const TCall& call) -> TValue { return TrimmedEnd(Self(call), Characters(call)); }},
    {"text", "StartsWith", 1, 2, StartsWith},
    {"text", "EndsWith", 1, 2, EndsWith},
    {"text", "Contains", 1, 2, Contains},
    {"text", "Equals", 1, 2, EqualsText},
    {"text", "CompareTo", 1, 1,
     [](const TCall& call) -> TValue { return Order(Self(call), call.Text(0), false); }},
    {"text", "IndexOf", 1, 3, IndexOf},
    {"text", "LastIndexOf", 1, 2, LastIndexOf},
    {"text", "IndexOfAny", 1, 1, IndexOfAny},
    {"text", "LastIndexOfAny", 1, 1, LastIndexOfAny},
    {"text", "PadLeft", 1, 2,
     [](const TCall& call) -> TValue { return Padding(call) + Self(call); }},
    {"text", "PadRight", 1, 2,
     [](const TCall& call) -> TValue { return Self(call) + Padding(call); }},
    {"text", "Insert", 2, 2, Insert},
    {"text", "Remove", 1, 2, RemovePart},
    {"text", "Chars", 1, 1, CharacterAt},
    {"text", "get_Chars", 1, 1, CharacterAt},
    {"list", "Length", 0, 0,
     [](const TCall& call) -> TValue {
       return static_cast<std::int64_t>(std::get<TTextList>(call.Self).size());
     }},
    {"list", "GetValue", 1, 1, ListItem},
    {"System.String", "IsNullOrEmpty", 1, 1,
     [](const TCall& call) -> TValue { return call.Text(0).empty(); }},
    {"System.String", "IsNullOrWhiteSpace", 1, 1,
     [](const TCall& call) -> TValue {
       return call.Text(0).find_first_not_of(TrimmedByDefault) == std::string::npos;
     }},
    {"System.String", "Concat", 1, MostFunctionArguments, Concat},
    {"System.String", "Join", 2, MostFunctionArguments, Join},
    {"System.String", "Format", 1, MostFunctionArguments, Format},
    {"System.String", "Copy", 1, 1, [](const TCall& call) -> TValue { return call.Text(0); }},
    {"System.String", "new", 1, 1, [](const TCall& call) -> TValue { return call.Text(0); }},
    {"System.String", "Empty", 0, 0, [](const TCall&) -> TValue { return std::string(); }},
    {"System.String", "Compare", 2, 3,
     [](const TCall& call) -> TValue {
       return Order(call.Text(0), call.Text(1), IgnoresCase(call, 2));
     }},
    {"System.String", "Equals", 2, 3,
     [](const TCall& call) -> TValue {
       return Order(call.Text(0), call.Text(1), IgnoresCase(call, 2)) == 0;
     }},
    {"MSBuild", "ValueOrDefault", 2, 2,
     [](const TCall& call) -> TValue { return call.Text(call.Text(0).empty() ? 1 : 0); }},
    {"MSBuild", "Escape", 1, 1,
     [](const TCall& call) -> TValue { return EscapeMSBuild(call.Text(0)); }},
    {"MSBuild", "Unescape", 1, 1,
     [](const TCall& call) -> TValue { return UnescapeMSBuild(call.Text(0)); }},
});

} // namespace

std::span<const TPropertyFunction> TextFunctions() {
  return TextFunctionsTable;
}

} // namespace workbench
