#include "workbench/project/build_import/reply_value.h"

#include "package/common/errors.h"
#include "workbench/files/file_reader.h"
#include "workbench/text/visible_text.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace workbench {

struct TReplyValue::TContent {
  std::string File;
  std::string What;
  nlohmann::ordered_json Root;
};

namespace {

constexpr std::uint64_t LargestFile = std::uint64_t(64) * 1024 * 1024;

} // namespace

TReplyValue::TReplyValue(std::shared_ptr<const TContent> content,
                         const nlohmann::ordered_json* value, std::string name)
    : FContent(std::move(content)), FValue(value), FName(std::move(name)) {}

TReplyValue TReplyValue::Read(const std::filesystem::path& file, const std::string& what) {
  const TFileContent bytes = ReadWholeFile(file, LargestFile, what);
  auto content = std::make_shared<TContent>();
  content->File = file.string();
  content->What = what;
  try {
    content->Root = nlohmann::ordered_json::parse(bytes.Text());
  } catch (const nlohmann::json::parse_error& error) {
    const std::string_view before =
        bytes.Text().substr(0, std::min(error.byte, bytes.Text().size()));
    throw deployment::TInputError(
        what + " is no whole JSON text",
        {content->File, static_cast<unsigned>(1 + std::ranges::count(before, '\n'))});
  } catch (const nlohmann::json::exception&) {
    throw deployment::TInputError(what + " holds a number that nothing can be", {content->File, 0});
  }
  const nlohmann::ordered_json* root = &content->Root;
  return {std::move(content), root, {}};
}

const std::string& TReplyValue::File() const {
  return FContent->File;
}

void TReplyValue::Refuse(const std::string& why) const {
  throw deployment::TInputError(FContent->What + ": " +
                                    (FName.empty() ? "its root" : "\"" + Visible(FName) + "\"") +
                                    " " + why,
                                {FContent->File, 0});
}

bool TReplyValue::IsText() const {
  return FValue->is_string();
}

bool TReplyValue::Has(std::string_view member) const {
  return FValue->is_object() && FValue->contains(member);
}

TReplyValue TReplyValue::At(std::string_view member) const {
  if (!FValue->is_object())
    Refuse("is no object");
  const auto found = FValue->find(member);
  if (found == FValue->end())
    Refuse("has no member \"" + std::string(member) + "\"");
  return {FContent, &*found, (FName.empty() ? "" : FName + ".") + std::string(member)};
}

TReplyValue TReplyValue::At(std::size_t index) const {
  if (!FValue->is_array())
    Refuse("is no array");
  if (index >= FValue->size())
    Refuse("has no value of number " + std::to_string(index));
  return {FContent, &(*FValue)[index], FName + "[" + std::to_string(index) + "]"};
}

std::string TReplyValue::AsText() const {
  if (!FValue->is_string())
    Refuse("is no text");
  return FValue->get<std::string>();
}

std::string TReplyValue::TextOr(std::string_view member, std::string_view absent) const {
  return Has(member) && !At(member).FValue->is_null() ? Text(member) : std::string(absent);
}

bool TReplyValue::BooleanOr(std::string_view member, bool absent) const {
  if (!Has(member))
    return absent;
  const TReplyValue value = At(member);
  if (!value.FValue->is_boolean())
    value.Refuse("is no Boolean");
  return value.FValue->get<bool>();
}

std::size_t TReplyValue::Number(std::string_view member) const {
  const TReplyValue value = At(member);
  if (!value.FValue->is_number_unsigned())
    value.Refuse("is no whole number");
  return value.FValue->get<std::size_t>();
}

std::size_t TReplyValue::NumberOr(std::string_view member, std::size_t absent) const {
  return Has(member) ? Number(member) : absent;
}

std::vector<TReplyValue> TReplyValue::Values() const {
  if (!FValue->is_array())
    Refuse("is no array");
  std::vector<TReplyValue> values;
  values.reserve(FValue->size());
  for (std::size_t i = 0; i < FValue->size(); ++i)
    values.push_back(At(i));
  return values;
}

std::vector<TReplyValue> TReplyValue::Array(std::string_view member) const {
  return At(member).Values();
}

std::vector<TReplyValue> TReplyValue::ArrayOrNone(std::string_view member) const {
  return Has(member) ? Array(member) : std::vector<TReplyValue>();
}

std::vector<std::pair<std::string, TReplyValue>> TReplyValue::Members() const {
  if (!FValue->is_object())
    Refuse("is no object");
  std::vector<std::pair<std::string, TReplyValue>> members;
  members.reserve(FValue->size());
  for (const auto& [name, value] : FValue->items())
    members.emplace_back(name,
                         TReplyValue(FContent, &value, (FName.empty() ? "" : FName + ".") + name));
  return members;
}

} // namespace workbench
