#include "workbench/project/build_import/reply_value.h"

#include "package/common/errors.h"
#include "workbench/files/file_reader.h"
#include "workbench/json/json.h"
#include "workbench/text/visible_text.h"

#include <cstdint>
#include <limits>

namespace workbench {

struct TReplyValue::TContent {
  std::string File;
  std::string What;
  TJson Root;
};

namespace {

constexpr std::uint64_t LargestFile = std::uint64_t(64) * 1024 * 1024;

} // namespace

TReplyValue::TReplyValue(std::shared_ptr<const TContent> content, const TJson* value,
                         std::string name)
    : FContent(std::move(content)), FValue(value), FName(std::move(name)) {}

TReplyValue TReplyValue::Read(const std::filesystem::path& file, const std::string& what) {
  const TFileContent bytes = ReadWholeFile(file, LargestFile, what);
  auto content = std::make_shared<TContent>();
  content->File = file.string();
  content->What = what;
  try {
    content->Root = ParseJson(bytes.Text());
  } catch (const deployment::TInputError& error) {
    throw deployment::TInputError(what + " cannot be read: " + error.what(),
                                  {content->File, error.Place().Line});
  }
  const TJson* root = &content->Root;
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
  return FValue->IsText();
}

bool TReplyValue::Has(std::string_view member) const {
  return FValue->IsObject() && FValue->Find(member);
}

TReplyValue TReplyValue::At(std::string_view member) const {
  if (!FValue->IsObject())
    Refuse("is no object");
  const TJson* found = FValue->Find(member);
  if (!found)
    Refuse("has no member \"" + std::string(member) + "\"");
  return {FContent, found, (FName.empty() ? "" : FName + ".") + std::string(member)};
}

TReplyValue TReplyValue::At(std::size_t index) const {
  if (!FValue->IsArray())
    Refuse("is no array");
  if (index >= FValue->AsArray().size())
    Refuse("has no value of number " + std::to_string(index));
  return {FContent, &FValue->AsArray()[index], FName + "[" + std::to_string(index) + "]"};
}

std::string TReplyValue::AsText() const {
  if (!FValue->IsText())
    Refuse("is no text");
  return FValue->AsText();
}

std::string TReplyValue::TextOr(std::string_view member, std::string_view absent) const {
  return Has(member) && !At(member).FValue->IsNull() ? Text(member) : std::string(absent);
}

bool TReplyValue::BooleanOr(std::string_view member, bool absent) const {
  if (!Has(member))
    return absent;
  const TReplyValue value = At(member);
  try {
    return value.FValue->AsBoolean();
  } catch (const deployment::TInputError&) {
    value.Refuse("is no Boolean");
  }
}

std::size_t TReplyValue::Number(std::string_view member) const {
  const TReplyValue value = At(member);
  try {
    return value.FValue->AsNumber(0, std::numeric_limits<std::uint32_t>::max());
  } catch (const deployment::TInputError&) {
    value.Refuse("is no whole number");
  }
}

std::size_t TReplyValue::NumberOr(std::string_view member, std::size_t absent) const {
  return Has(member) ? Number(member) : absent;
}

std::vector<TReplyValue> TReplyValue::Values() const {
  if (!FValue->IsArray())
    Refuse("is no array");
  std::vector<TReplyValue> values;
  values.reserve(FValue->AsArray().size());
  for (std::size_t i = 0; i < FValue->AsArray().size(); ++i)
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
  if (!FValue->IsObject())
    Refuse("is no object");
  std::vector<std::pair<std::string, TReplyValue>> members;
  members.reserve(FValue->AsObject().size());
  for (const auto& [name, value] : FValue->AsObject())
    members.emplace_back(name,
                         TReplyValue(FContent, &value, (FName.empty() ? "" : FName + ".") + name));
  return members;
}

} // namespace workbench
