#include "workbench/json/json.h"

#include "package/common/errors.h"

#include <algorithm>
#include <utility>

namespace workbench {
namespace {

constexpr std::size_t LongestValueShown = 60;

std::string Shown(const TJson& value) {
  std::string text = JsonText(value, -1);
  if (text.size() > LongestValueShown)
    text = text.substr(0, LongestValueShown) + "...";
  return text;
}

[[noreturn]] void Reject(const TJson& value, std::string_view name, std::string_view expected) {
  const std::string place = name.empty() ? "it " : "\"" + std::string(name) + "\" ";
  throw deployment::TInputError(place + "should be " + std::string(expected) + ", but is " +
                                Shown(value));
}

} // namespace

TJson::TJson() = default;
TJson::TJson(TBoolean value) : FValue(value.Value) {}
TJson::TJson(TReal value) : FValue(value.Value) {}
TJson::TJson(TWhole value) : FValue(value.Value) {
  if (value.IsNegative)
    FValue = static_cast<std::int64_t>(value.Value);
}
TJson::TJson(const char* text) : FValue(std::string(text)) {}
TJson::TJson(std::string_view text) : FValue(std::string(text)) {}
TJson::TJson(std::string text) : FValue(std::move(text)) {}
TJson::TJson(const std::vector<std::string>& texts) : FValue(TArray(texts.begin(), texts.end())) {}
TJson::TJson(std::initializer_list<TJsonMember> members) : FValue(TObject(members)) {}
TJson::TJson(const TJson&) = default;
TJson::TJson(TJson&&) noexcept = default;
TJson& TJson::operator=(const TJson&) = default;
TJson& TJson::operator=(TJson&&) noexcept = default;
TJson::~TJson() = default;

TJson TJson::Array() {
  TJson array;
  array.FValue = TArray();
  return array;
}

TJson TJson::Object() {
  TJson object;
  object.FValue = TObject();
  return object;
}

void TJson::Append(TJson value) {
  std::get<TArray>(FValue).push_back(std::move(value));
}

void TJson::Add(std::string name, TJson value) {
  std::get<TObject>(FValue).push_back({std::move(name), std::move(value)});
}

void TJson::Set(std::string_view name, TJson value) {
  auto& members = std::get<TObject>(FValue);
  const auto found =
      std::ranges::find_if(members, [&](const TJsonMember& member) { return member.Name == name; });
  if (found == members.end())
    members.push_back({std::string(name), std::move(value)});
  else
    found->Value = std::move(value);
}

void TJson::AddAll(TJson object) {
  for (TJsonMember& member : std::get<TObject>(object.FValue))
    std::get<TObject>(FValue).push_back(std::move(member));
}

const TJson* TJson::Find(std::string_view name) const {
  const auto* members = std::get_if<TObject>(&FValue);
  if (!members)
    return nullptr;
  const auto found = std::ranges::find_if(
      *members, [&](const TJsonMember& member) { return member.Name == name; });
  return found == members->end() ? nullptr : &found->Value;
}

const TJson& TJson::At(std::string_view name) const {
  if (!IsObject())
    Reject(*this, {}, "an object with the member \"" + std::string(name) + "\"");
  const TJson* value = Find(name);
  if (!value)
    throw deployment::TInputError("there is no member \"" + std::string(name) + "\"");
  return *value;
}

bool TJson::AsBoolean(std::string_view name) const {
  const bool* value = std::get_if<bool>(&FValue);
  if (!value)
    Reject(*this, name, "true or false");
  return *value;
}

const std::string& TJson::AsText(std::string_view name) const {
  const auto* value = std::get_if<std::string>(&FValue);
  if (!value)
    Reject(*this, name, "a text");
  return *value;
}

std::vector<std::string> TJson::AsTexts(std::string_view name) const {
  const auto* items = std::get_if<TArray>(&FValue);
  if (!items || !std::ranges::all_of(*items, &TJson::IsText))
    Reject(*this, name, "a list of texts");
  std::vector<std::string> texts;
  texts.reserve(items->size());
  for (const TJson& item : *items)
    texts.push_back(item.AsText());
  return texts;
}

const TJson::TArray& TJson::AsArray(std::string_view name) const {
  const auto* value = std::get_if<TArray>(&FValue);
  if (!value)
    Reject(*this, name, "a list");
  return *value;
}

const TJson::TObject& TJson::AsObject(std::string_view name) const {
  const auto* value = std::get_if<TObject>(&FValue);
  if (!value)
    Reject(*this, name, "an object");
  return *value;
}

std::uint64_t TJson::AsNumber(std::uint64_t least, std::uint64_t most,
                              std::string_view name) const {
  const auto* value = std::get_if<std::uint64_t>(&FValue);
  if (!value || *value < least || *value > most)
    Reject(*this, name,
           "a whole number from " + std::to_string(least) + " to " + std::to_string(most));
  return *value;
}

std::string TJson::TextOr(std::string_view name, std::string_view absent) const {
  const TJson* value = Find(name);
  return value ? value->AsText(name) : std::string(absent);
}

std::vector<std::string> TJson::TextsOr(std::string_view name,
                                        std::vector<std::string> absent) const {
  const TJson* value = Find(name);
  return value ? value->AsTexts(name) : std::move(absent);
}

bool TJson::BooleanOr(std::string_view name, bool absent) const {
  const TJson* value = Find(name);
  return value ? value->AsBoolean(name) : absent;
}

bool TJson::operator==(const TJson& other) const {
  return FValue == other.FValue;
}

} // namespace workbench
