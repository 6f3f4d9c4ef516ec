#include "workbench/list/record_json.h"

#include "workbench/list/record_fields.h"
#include "workbench/text/utf8.h"

namespace workbench {
namespace {

using deployment::TCommandList;
using deployment::TDeployOperation;

// Stands for a text that is no UTF-8: its bytes as numbers.
constexpr const char* BytesName = "bytes";

constexpr const char* PlatformName = "name";
constexpr const char* PlatformsName = "platforms";

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

// Writes one object, member by member; values that a new record has are left out.
class TRecordWriter {
public:
  explicit TRecordWriter(std::string& json) : FJson(json) { FJson += '{'; }
  TRecordWriter(const TRecordWriter&) = delete;
  TRecordWriter& operator=(const TRecordWriter&) = delete;
  ~TRecordWriter() { FJson += '}'; }

  void Key(const char* name, const std::string& text) { AppendJsonText(Member(name), text); }
  void Platform(const std::string& text) { Key(PlatformName, text); }
  void Field(const char* name, const std::string& text, std::string_view absent) {
    if (text != absent)
      Key(name, text);
  }
  void Field(const char* name, bool value, bool absent) {
    if (value != absent)
      Member(name) += value ? "true" : "false";
  }
  void Field(const char* name, TDeployOperation value, TDeployOperation absent) {
    if (value != absent)
      Member(name) += std::to_string(static_cast<int>(value));
  }
  void Field(const char* name, const TCommandList& texts, const TCommandList& absent) {
    if (texts != absent)
      List(name, texts, AppendJsonText);
  }
  template <class TRecord>
  void Platforms(const std::vector<TRecord>& records) {
    List(PlatformsName, records, [](std::string& json, const TRecord& record) {
      TRecordWriter writer(json);
      VisitFields(writer, record);
    });
  }

private:
  // The value is to be appended next.
  std::string& Member(std::string_view name) {
    if (!FIsEmpty)
      FJson += ',';
    FIsEmpty = false;
    return FJson.append("\"").append(name).append("\":");
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

  std::string& FJson;
  bool FIsEmpty = true;
};

class TRecordReader {
public:
  explicit TRecordReader(const TJson& json) : FJson(json) {}

  void Key(const char* name, std::string& text) { text = TextFromJson(FJson.At(name)); }
  void Platform(std::string& text) { Key(PlatformName, text); }
  void Field(const char* name, std::string& text, std::string_view absent) {
    const TJson* found = FJson.Find(name);
    text = found ? TextFromJson(*found) : std::string(absent);
  }
  void Field(const char* name, bool& value, bool absent) { value = FJson.BooleanOr(name, absent); }
  void Field(const char* name, TDeployOperation& value, TDeployOperation absent) {
    value = static_cast<TDeployOperation>(
        FJson.NumberOr(name, static_cast<unsigned>(absent), 0U,
                       static_cast<unsigned>(deployment::DeployOperationCount) - 1));
  }
  void Field(const char* name, TCommandList& texts, const TCommandList& absent) {
    texts = absent;
    if (const TJson* found = FJson.Find(name)) {
      texts.clear();
      for (const TJson& text : found->AsArray(name))
        texts.push_back(TextFromJson(text));
    }
  }
  template <class TRecord>
  void Platforms(std::vector<TRecord>& records) {
    for (const TJson& value : FJson.Array(PlatformsName)) {
      TRecordReader reader(value);
      VisitFields(reader, records.emplace_back());
    }
  }

private:
  const TJson& FJson;
};

// Makes the object that documents show: all values, and the platforms by their names.
class TDocumentMaker {
public:
  void Key(const char* name, const std::string& text) { Object.Add(name, text); }
  void Platform(const std::string& /*text*/) {}
  void Field(const char* name, const std::string& text, std::string_view /*absent*/) {
    Object.Add(name, text);
  }
  void Field(const char* name, bool value, bool /*absent*/) { Object.Add(name, value); }
  void Field(const char* name, TDeployOperation value, TDeployOperation /*absent*/) {
    Object.Add(name, static_cast<int>(value));
  }
  void Field(const char* name, const TCommandList& texts, const TCommandList& /*absent*/) {
    Object.Add(name, texts);
  }
  template <class TRecord>
  void Platforms(const std::vector<TRecord>& records) {
    TJson platforms = TJson::Object();
    for (const TRecord& record : records)
      platforms.Add(record.Platform, DocumentFrom(record));
    Object.Add(PlatformsName, std::move(platforms));
  }

  template <class TRecord>
  static TJson DocumentFrom(const TRecord& record) {
    TDocumentMaker maker;
    VisitFields(maker, record);
    return std::move(maker.Object);
  }

  TJson Object = TJson::Object();
};

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
  TRecordWriter writer(json);
  VisitFields(writer, record);
}

void AppendJson(std::string& json, const TClassRecord& record) {
  TRecordWriter writer(json);
  VisitFields(writer, record);
}

TEntryRecord EntryRecordFromJson(const TJson& value) {
  TEntryRecord record;
  TRecordReader reader(value);
  VisitFields(reader, record);
  return record;
}

TClassRecord ClassRecordFromJson(const TJson& value) {
  TClassRecord record;
  TRecordReader reader(value);
  VisitFields(reader, record);
  return record;
}

TJson DocumentOf(const TEntryRecord& record) {
  return TDocumentMaker::DocumentFrom(record);
}

TJson DocumentOf(const TClassRecord& record) {
  return TDocumentMaker::DocumentFrom(record);
}

} // namespace workbench
