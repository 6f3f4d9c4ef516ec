#include "workbench/history/record_json.h"

#include "workbench/text/utf8.h"

namespace workbench {
namespace {

using deployment::TCommandList;
using deployment::TDeployOperation;

// Stands for a text that is no UTF-8: its bytes as numbers.
constexpr const char* BytesName = "bytes";

void AppendEscaped(std::string& json, char c) {
  constexpr std::string_view Digits = "0123456789abcdef";
  const auto byte = static_cast<unsigned char>(c);
  if (c == '"' || c == '\\') {
    json += '\\';
    json += c;
  } else if (byte < 0x20U) {
    json += "\\u00";
    json += Digits[byte >> 4U];
    json += Digits[byte & 0xfU];
  } else {
    json += c;
  }
}

void AppendBytes(std::string& json, std::string_view bytes) {
  json.append("{\"").append(BytesName).append("\":[");
  for (std::size_t i = 0; i < bytes.size(); ++i)
    json.append(i > 0 ? "," : "").append(std::to_string(static_cast<unsigned char>(bytes[i])));
  json += "]}";
}

// Writes one object, member by member.
class TObjectWriter {
public:
  explicit TObjectWriter(std::string& json) : FJson(json) { FJson += '{'; }
  TObjectWriter(const TObjectWriter&) = delete;
  TObjectWriter& operator=(const TObjectWriter&) = delete;
  ~TObjectWriter() { FJson += '}'; }

  // The value is to be appended next.
  std::string& Member(std::string_view name) {
    if (!FIsEmpty)
      FJson += ',';
    FIsEmpty = false;
    return FJson.append("\"").append(name).append("\":");
  }
  void Text(std::string_view name, const std::string& text) { AppendJsonText(Member(name), text); }
  void TextUnlessEmpty(std::string_view name, const std::string& text) {
    if (!text.empty())
      Text(name, text);
  }
  template <class TItem, class TAppend>
  void List(std::string_view name, const std::vector<TItem>& items, TAppend append) {
    Member(name) += '[';
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (i > 0)
        FJson += ',';
      append(FJson, items[i]);
    }
    FJson += ']';
  }
  void TextsUnlessEmpty(std::string_view name, const TCommandList& texts) {
    if (!texts.empty())
      List(name, texts, AppendJsonText);
  }

private:
  std::string& FJson;
  bool FIsEmpty = true;
};

void WriteBase(TObjectWriter& object, const TPlatformRecord& record) {
  object.Text("name", record.Platform);
  object.TextUnlessEmpty("remoteDir", record.RemoteDir);
  if (record.Operation != TDeployOperation::Default)
    object.Member("operation") += std::to_string(static_cast<int>(record.Operation));
  object.TextsUnlessEmpty("localCommands", record.LocalCommands);
  object.TextsUnlessEmpty("remoteCommands", record.RemoteCommands);
}

void AppendPlatform(std::string& json, const TFilePlatformRecord& record) {
  TObjectWriter object(json);
  WriteBase(object, record);
  object.TextUnlessEmpty("remoteName", record.RemoteName);
  if (!record.Enabled)
    object.Member("enabled") += "false";
  if (!record.Overwrite)
    object.Member("overwrite") += "false";
}

void AppendPlatform(std::string& json, const TClassPlatformRecord& record) {
  TObjectWriter object(json);
  WriteBase(object, record);
  object.TextUnlessEmpty("extensions", record.Extensions);
}

template <class TRecord>
void WriteItem(TObjectWriter& object, const TRecord& record) {
  object.TextUnlessEmpty("condition", record.Condition);
  if (record.Required)
    object.Member("required") += "true";
  object.List("platforms", record.Platforms,
              [](std::string& json, const auto& platform) { AppendPlatform(json, platform); });
}

std::string GetText(const TJson& json, const char* name) {
  const TJson* found = json.Find(name);
  return found ? TextFromJson(*found) : std::string();
}

TCommandList GetTexts(const TJson& json, const char* name) {
  TCommandList texts;
  if (const TJson* found = json.Find(name)) {
    for (const TJson& text : found->AsArray(name))
      texts.push_back(TextFromJson(text));
  }
  return texts;
}

void ReadBase(const TJson& json, TPlatformRecord& record) {
  record.Platform = TextFromJson(json.At("name"));
  record.RemoteDir = GetText(json, "remoteDir");
  record.Operation = static_cast<TDeployOperation>(
      json.NumberOr("operation", static_cast<unsigned>(TDeployOperation::Default), 0U,
                    static_cast<unsigned>(deployment::DeployOperationCount) - 1));
  record.LocalCommands = GetTexts(json, "localCommands");
  record.RemoteCommands = GetTexts(json, "remoteCommands");
}

void ReadPlatform(const TJson& json, TFilePlatformRecord& record) {
  ReadBase(json, record);
  record.RemoteName = GetText(json, "remoteName");
  record.Enabled = json.BooleanOr("enabled", true);
  record.Overwrite = json.BooleanOr("overwrite", true);
}

void ReadPlatform(const TJson& json, TClassPlatformRecord& record) {
  ReadBase(json, record);
  record.Extensions = GetText(json, "extensions");
}

template <class TRecord>
void ReadItem(const TJson& json, TRecord& record) {
  record.Condition = GetText(json, "condition");
  record.Required = json.BooleanOr("required", false);
  const TJson::TArray& platforms = json.Array("platforms");
  record.Platforms.resize(platforms.size());
  for (std::size_t i = 0; i < platforms.size(); ++i)
    ReadPlatform(platforms[i], record.Platforms[i]);
}

} // namespace

void AppendJsonText(std::string& json, std::string_view text) {
  if (!IsUtf8(text))
    return AppendBytes(json, text);
  json += '"';
  for (const char c : text)
    AppendEscaped(json, c);
  json += '"';
}

std::string TextFromJson(const TJson& value) {
  if (!value.IsObject())
    return value.AsText();
  std::string text;
  for (const TJson& byte : value.Array(BytesName))
    text.push_back(static_cast<char>(byte.AsNumber(0, 255)));
  return text;
}

void AppendJson(std::string& json, const TEntryRecord& record) {
  TObjectWriter object(json);
  object.Text("localName", record.Names.LocalName);
  object.Text("configuration", record.Names.Configuration);
  object.Text("platform", record.Names.Platform);
  object.Text("class", record.Class);
  WriteItem(object, record);
}

void AppendJson(std::string& json, const TClassRecord& record) {
  TObjectWriter object(json);
  object.Text("name", record.Id);
  object.TextUnlessEmpty("description", record.Description);
  WriteItem(object, record);
}

TEntryRecord EntryRecordFromJson(const TJson& value) {
  TEntryRecord record;
  record.Names = {TextFromJson(value.At("configuration")), TextFromJson(value.At("platform")),
                  TextFromJson(value.At("localName"))};
  record.Class = TextFromJson(value.At("class"));
  ReadItem(value, record);
  return record;
}

TClassRecord ClassRecordFromJson(const TJson& value) {
  TClassRecord record;
  record.Id = TextFromJson(value.At("name"));
  record.Description = GetText(value, "description");
  ReadItem(value, record);
  return record;
}

} // namespace workbench
