#include "workbench/services/record_json.h"

#include "package/common/errors.h"
#include "workbench/text/utf8.h"

namespace workbench {
namespace {

using TJsonValue = nlohmann::ordered_json;
using deployment::TCommandList;
using deployment::TDeployOperation;

// Stands for a text that is no UTF-8: its bytes as numbers.
constexpr const char* BytesName = "bytes";

void PutText(TJsonValue& json, const char* name, const std::string& text) {
  if (!text.empty())
    json[name] = TextToJson(text);
}

std::string GetText(const TJsonValue& json, const char* name) {
  const auto found = json.find(name);
  return found == json.end() ? std::string() : TextFromJson(*found);
}

void PutTexts(TJsonValue& json, const char* name, const TCommandList& texts) {
  if (texts.empty())
    return;
  TJsonValue list = TJsonValue::array();
  for (const std::string& text : texts)
    list.push_back(TextToJson(text));
  json[name] = std::move(list);
}

TCommandList GetTexts(const TJsonValue& json, const char* name) {
  TCommandList texts;
  const auto found = json.find(name);
  if (found == json.end())
    return texts;
  texts.reserve(found->size());
  for (const TJsonValue& text : *found)
    texts.push_back(TextFromJson(text));
  return texts;
}

TJsonValue BaseToJson(const TPlatformRecord& record) {
  TJsonValue json = TJsonValue::object();
  json["name"] = TextToJson(record.Platform);
  PutText(json, "remoteDir", record.RemoteDir);
  if (record.Operation != TDeployOperation::Default)
    json["operation"] = static_cast<int>(record.Operation);
  PutTexts(json, "localCommands", record.LocalCommands);
  PutTexts(json, "remoteCommands", record.RemoteCommands);
  return json;
}

void ReadBase(const TJsonValue& json, TPlatformRecord& record) {
  record.Platform = TextFromJson(json.at("name"));
  record.RemoteDir = GetText(json, "remoteDir");
  const int operation = json.value("operation", static_cast<int>(TDeployOperation::Default));
  if (operation < 0 || operation >= deployment::DeployOperationCount)
    throw deployment::TInputError(std::to_string(operation) + " is not an operation");
  record.Operation = static_cast<TDeployOperation>(operation);
  record.LocalCommands = GetTexts(json, "localCommands");
  record.RemoteCommands = GetTexts(json, "remoteCommands");
}

TJsonValue PlatformToJson(const TFilePlatformRecord& record) {
  TJsonValue json = BaseToJson(record);
  PutText(json, "remoteName", record.RemoteName);
  if (!record.Enabled)
    json["enabled"] = false;
  if (!record.Overwrite)
    json["overwrite"] = false;
  return json;
}

void ReadPlatform(const TJsonValue& json, TFilePlatformRecord& record) {
  ReadBase(json, record);
  record.RemoteName = GetText(json, "remoteName");
  record.Enabled = json.value("enabled", true);
  record.Overwrite = json.value("overwrite", true);
}

TJsonValue PlatformToJson(const TClassPlatformRecord& record) {
  TJsonValue json = BaseToJson(record);
  PutText(json, "extensions", record.Extensions);
  return json;
}

void ReadPlatform(const TJsonValue& json, TClassPlatformRecord& record) {
  ReadBase(json, record);
  record.Extensions = GetText(json, "extensions");
}

template <class TRecord>
void PutItem(TJsonValue& json, const TRecord& record) {
  PutText(json, "condition", record.Condition);
  if (record.Required)
    json["required"] = true;
  TJsonValue platforms = TJsonValue::array();
  for (const auto& platform : record.Platforms)
    platforms.push_back(PlatformToJson(platform));
  json["platforms"] = std::move(platforms);
}

template <class TRecord>
void ReadItem(const TJsonValue& json, TRecord& record) {
  record.Condition = GetText(json, "condition");
  record.Required = json.value("required", false);
  const TJsonValue& platforms = json.at("platforms");
  record.Platforms.resize(platforms.size());
  for (std::size_t i = 0; i < platforms.size(); ++i)
    ReadPlatform(platforms.at(i), record.Platforms[i]);
}

} // namespace

TJsonValue TextToJson(const std::string& text) {
  if (IsUtf8(text))
    return text;
  TJsonValue bytes = TJsonValue::array();
  for (const char byte : text)
    bytes.push_back(static_cast<unsigned char>(byte));
  TJsonValue json = TJsonValue::object();
  json[BytesName] = std::move(bytes);
  return json;
}

std::string TextFromJson(const TJsonValue& value) {
  if (!value.is_object())
    return value.get<std::string>();
  const TJsonValue& bytes = value.at(BytesName);
  std::string text;
  text.reserve(bytes.size());
  for (const TJsonValue& byte : bytes)
    text.push_back(static_cast<char>(byte.get<unsigned char>()));
  return text;
}

TJsonValue RecordToJson(const TEntryRecord& record) {
  TJsonValue json{{"localName", TextToJson(record.Names.LocalName)},
                  {"configuration", TextToJson(record.Names.Configuration)},
                  {"platform", TextToJson(record.Names.Platform)},
                  {"class", TextToJson(record.Class)}};
  PutItem(json, record);
  return json;
}

TJsonValue RecordToJson(const TClassRecord& record) {
  TJsonValue json = TJsonValue::object();
  json["name"] = TextToJson(record.Id);
  PutText(json, "description", record.Description);
  PutItem(json, record);
  return json;
}

TEntryRecord EntryRecordFromJson(const TJsonValue& value) {
  TEntryRecord record;
  record.Names = {TextFromJson(value.at("configuration")), TextFromJson(value.at("platform")),
                  TextFromJson(value.at("localName"))};
  record.Class = TextFromJson(value.at("class"));
  ReadItem(value, record);
  return record;
}

TClassRecord ClassRecordFromJson(const TJsonValue& value) {
  TClassRecord record;
  record.Id = TextFromJson(value.at("name"));
  record.Description = GetText(value, "description");
  ReadItem(value, record);
  return record;
}

} // namespace workbench
