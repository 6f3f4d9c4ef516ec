// Texts of JSON values, both ways.
#include "package/common/errors.h"
#include "workbench/json/json.h"
#include "workbench/text/utf8.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace workbench {
namespace {

using TLibraryJson = nlohmann::json;

constexpr std::size_t DeepestNesting = 200;

std::string DumpText(const std::string& text) {
  return TLibraryJson(text).dump(-1, ' ', false, TLibraryJson::error_handler_t::replace);
}

// Most texts have nothing that is written otherwise.
bool IsPlain(std::string_view text) {
  return std::ranges::all_of(text, [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x20 && byte < 0x7f && c != '"' && c != '\\';
  });
}

unsigned LineOf(std::string_view text, std::size_t offset) {
  const std::string_view before = text.substr(0, offset);
  return static_cast<unsigned>(1 + std::ranges::count(before, '\n'));
}

// Builds the value while the library reads the text.
class TBuilder {
public:
  explicit TBuilder(std::string_view text) : FText(text) {}
  TBuilder(std::string_view text, std::string_view large, const TTakeJsonMember& take)
      : FText(text), FLarge(large), FTakeMember(&take) {}

  TJson Result() { return std::move(FResult); }

  // The names that the library calls.
  bool null() { return Take(TJson()); }
  bool boolean(bool value) { return Take(value); }
  bool number_integer(TLibraryJson::number_integer_t value) { return Take(value); }
  bool number_unsigned(TLibraryJson::number_unsigned_t value) { return Take(value); }
  bool number_float(TLibraryJson::number_float_t value, const std::string& /*text*/) {
    return Take(value);
  }
  bool string(std::string& value) { return Take(std::move(value)); }
  bool binary(TLibraryJson::binary_t& /*value*/) { return false; } // stands in no JSON text
  bool start_object(std::size_t /*elements*/) { return Open(TJson::Object()); }
  bool start_array(std::size_t /*elements*/) { return Open(TJson::Array()); }
  bool key(std::string& value) {
    FOpen.back().Name = std::move(value);
    return true;
  }
  bool end_object() {
    RequireDifferentNames(FOpen.back().Value);
    return Close();
  }
  bool end_array() { return Close(); }
  bool parse_error(std::size_t position, const std::string& /*token*/,
                   const TLibraryJson::exception& error) {
    const std::string at = " at byte " + std::to_string(position);
    const bool isNumber = dynamic_cast<const TLibraryJson::out_of_range*>(&error) != nullptr;
    throw deployment::TInputError((isNumber ? "a number is beyond all ranges" : "it is no JSON") +
                                      at,
                                  {{}, LineOf(FText, position)});
  }

private:
  // An object or array that has not ended, and the name of its member that comes next.
  struct TOpen {
    TJson Value;
    std::string Name;
  };

  bool Take(TJson value) {
    if (FOpen.empty())
      FResult = std::move(value);
    else if (FOpen.back().Value.IsArray())
      FOpen.back().Value.Append(std::move(value));
    else if (IsInLarge())
      (*FTakeMember)(std::move(FOpen.back().Name), value);
    else
      FOpen.back().Value.Add(std::move(FOpen.back().Name), std::move(value));
    return true;
  }

  bool IsInLarge() const {
    return FTakeMember && FOpen.size() == 2 && FOpen.front().Value.IsObject() &&
           FOpen.front().Name == FLarge;
  }

  bool Open(TJson value) {
    if (FOpen.size() == DeepestNesting)
      throw deployment::TInputError("it is nested deeper than " + std::to_string(DeepestNesting) +
                                    " levels");
    FOpen.push_back({std::move(value), {}});
    return true;
  }

  bool Close() {
    TJson value = std::move(FOpen.back().Value);
    FOpen.pop_back();
    return Take(std::move(value));
  }

  static void RequireDifferentNames(const TJson& object) {
    constexpr std::size_t Few = 16; // are compared in less time than they are sorted
    const TJson::TObject& members = object.AsObject();
    if (members.size() <= Few) {
      for (std::size_t i = 1; i < members.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
          if (members[i].Name == members[j].Name)
            RefuseTwice(members[i].Name);
      return;
    }
    std::vector<std::string_view> names;
    names.reserve(members.size());
    for (const TJsonMember& member : members)
      names.push_back(member.Name);
    std::ranges::sort(names);
    const auto twice = std::ranges::adjacent_find(names);
    if (twice != names.end())
      RefuseTwice(*twice);
  }
  [[noreturn]] static void RefuseTwice(std::string_view name) {
    throw deployment::TInputError("it has the member \"" + std::string(name) + "\" twice");
  }

  std::string_view FText;
  std::string_view FLarge; // the member of the root whose members are handed over
  const TTakeJsonMember* FTakeMember = nullptr;
  std::vector<TOpen> FOpen;
  TJson FResult;
};

} // namespace

// Appends values to a text.
class TJsonTextWriter {
public:
  TJsonTextWriter(std::string& text, int indent) : FText(text), FIndent(indent) {}

  void Write(const TJson& value) {
    std::visit([this](const auto& content) { WriteContent(content); }, value.FValue);
  }

  void WriteWithItems(const TJson& object, std::string_view name, TJsonItems kind,
                      const TNextJsonItem& next, const TTakeText& take) {
    const bool isObject = kind == TJsonItems::Members;
    FText += '{';
    ++FLevel;
    for (const TJsonMember& member : object.AsObject()) {
      BreakLine();
      WriteMember(member);
      FText += ',';
    }
    BreakLine();
    WriteName(std::string(name));
    FText += isObject ? '{' : '[';
    ++FLevel;
    bool hasItems = false;
    for (TJsonMember item; next(item); hasItems = true) {
      if (hasItems)
        FText += ',';
      BreakLine();
      if (isObject)
        WriteMember(item);
      else
        Write(item.Value);
      if (FText.size() >= PieceSize)
        HandOver(take);
    }
    --FLevel;
    if (hasItems)
      BreakLine();
    FText += isObject ? '}' : ']';
    --FLevel;
    BreakLine();
    FText += '}';
    HandOver(take);
  }

private:
  static constexpr std::size_t PieceSize = std::size_t(64) * 1024;

  void HandOver(const TTakeText& take) {
    take(FText);
    FText.clear();
  }

  void WriteContent(std::monostate) { FText += "null"; }
  void WriteContent(bool value) { FText += value ? "true" : "false"; }
  void WriteContent(std::int64_t value) { FText += std::to_string(value); }
  void WriteContent(std::uint64_t value) { FText += std::to_string(value); }
  void WriteContent(double value) { FText += TLibraryJson(value).dump(); }
  void WriteContent(const std::string& text) {
    if (IsPlain(text))
      FText.append("\"").append(text).append("\"");
    else
      FText += DumpText(text);
  }
  void WriteContent(const TJson::TArray& items) {
    WriteItems('[', items, ']', [this](const TJson& item) { Write(item); });
  }
  void WriteContent(const TJson::TObject& members) {
    WriteItems('{', members, '}', [this](const TJsonMember& member) { WriteMember(member); });
  }
  void WriteMember(const TJsonMember& member) {
    WriteName(member.Name);
    Write(member.Value);
  }
  void WriteName(const std::string& name) {
    WriteContent(name);
    FText += FIndent < 0 ? ":" : ": ";
  }

  template <class TItems, class TWriteItem>
  void WriteItems(char open, const TItems& items, char close, TWriteItem write) {
    FText += open;
    ++FLevel;
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (i > 0)
        FText += ',';
      BreakLine();
      write(items[i]);
    }
    --FLevel;
    if (!items.empty())
      BreakLine();
    FText += close;
  }

  void BreakLine() {
    if (FIndent < 0)
      return;
    FText += '\n';
    FText.append(static_cast<std::size_t>(FIndent) * FLevel, ' ');
  }

  std::string& FText;
  int FIndent;
  std::size_t FLevel = 0;
};

std::string JsonText(const TJson& value, int indent) {
  std::string text;
  TJsonTextWriter(text, indent).Write(value);
  return text;
}

void WriteJsonWithItems(const TJson& object, std::string_view name, TJsonItems kind,
                        const TNextJsonItem& next, int indent, const TTakeText& take) {
  std::string text;
  TJsonTextWriter(text, indent).WriteWithItems(object, name, kind, next, take);
}

bool IsStorableJson(const TJson& value) {
  if (value.IsText())
    return IsUtf8(value.AsText());
  if (value.IsArray())
    return std::ranges::all_of(value.AsArray(), IsStorableJson);
  return !value.IsObject() || std::ranges::all_of(value.AsObject(), [](const TJsonMember& member) {
    return IsUtf8(member.Name) && IsStorableJson(member.Value);
  });
}

TJson ParseJson(std::string_view text) {
  TBuilder builder(text);
  TLibraryJson::sax_parse(text, &builder);
  return builder.Result();
}

TJson ParseJson(std::string_view text, std::string_view large, const TTakeJsonMember& take) {
  TBuilder builder(text, large, take);
  TLibraryJson::sax_parse(text, &builder);
  return builder.Result();
}

} // namespace workbench
