#include "workbench/history/recovery_format.h"

#include "package/common/errors.h"
#include "workbench/files/sha256.h"
#include "workbench/files/text_hash.h"
#include "workbench/files/user_directories.h"
#include "workbench/history/record_json.h"

#include <optional>
#include <utility>

namespace workbench {
namespace {

using TJsonValue = nlohmann::ordered_json;
using deployment::TInputError;

constexpr int FormatVersion = 1;
constexpr std::size_t HashLength = 16;

std::string Line(const std::string& text) {
  return TextHash(text) + " " + text + "\n";
}

std::string BaseText(const TFileBase& base) {
  return "\"base\":{\"size\":" + std::to_string(base.Size) + ",\"sha256\":\"" + base.SHA256 + "\"}";
}

TFileBase BaseFromJson(const TJsonValue& value) {
  return {value.at("size").get<std::uint64_t>(), value.at("sha256").get<std::string>()};
}

void AppendDifference(std::string& json, const TEntryDifference& difference) {
  // Every difference has a state on one side at least.
  std::string_view separator = "{";
  if (difference.Before) {
    AppendJson(json.append(separator).append("\"before\":"), *difference.Before);
    separator = ",";
  }
  if (difference.After)
    AppendJson(json.append(separator).append("\"after\":"), *difference.After);
  if (difference.Position)
    json.append(",\"position\":").append(std::to_string(*difference.Position));
  json += '}';
}

template <class TItem, class TAppend>
void AppendList(std::string& json, std::string_view name, const std::vector<TItem>& items,
                TAppend append) {
  json.append(",\"").append(name).append("\":[");
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (i > 0)
      json += ',';
    append(json, items[i]);
  }
  json += ']';
}

TEntryDifference DifferenceFromJson(const TJsonValue& value) {
  TEntryDifference difference;
  if (const auto before = value.find("before"); before != value.end())
    difference.Before = EntryRecordFromJson(*before);
  if (const auto after = value.find("after"); after != value.end())
    difference.After = EntryRecordFromJson(*after);
  if (const auto position = value.find("position"); position != value.end())
    difference.Position = position->get<std::size_t>();
  return difference;
}

TListChange StepFromJson(const TJsonValue& value) {
  TListChange change;
  change.Name = TextFromJson(value.at("step"));
  change.IsComputed = value.value("computed", false);
  const TJsonValue& entries = value.at("entries");
  change.Entries.reserve(entries.size());
  for (const TJsonValue& entry : entries)
    change.Entries.push_back(DifferenceFromJson(entry));
  if (const auto classes = value.find("classes"); classes != value.end()) {
    TClassRecords records;
    records.reserve(classes->size());
    for (const TJsonValue& each : *classes)
      records.push_back(ClassRecordFromJson(each));
    change.Classes = std::make_shared<const TClassRecords>(std::move(records));
  }
  return change;
}

// The text of a line; nothing when it is not as it was written.
std::optional<std::string_view> CheckedText(std::string_view line) {
  if (line.size() <= HashLength || line[HashLength] != ' ')
    return std::nullopt;
  const std::string_view text = line.substr(HashLength + 1);
  if (TextHash(text) != line.substr(0, HashLength))
    return std::nullopt;
  return text;
}

void ReadHead(std::string_view text, TJournalContent& content) {
  const TJsonValue head = TJsonValue::parse(text);
  const int version = head.at("journal").get<int>();
  if (version != FormatVersion)
    throw TInputError("it was written by another version of this program (format " +
                      std::to_string(version) + ")");
  content.Project = TextFromJson(head.at("project"));
  content.Base = BaseFromJson(head.at("base"));
}

void ReadLine(std::string_view text, TJournalContent& content) {
  const TJsonValue value = TJsonValue::parse(text);
  if (const auto project = value.find("project"); project != value.end())
    content.Project = TextFromJson(*project);
  if (const auto base = value.find("base"); base != value.end())
    content.Base = BaseFromJson(*base);
  else
    content.Steps.push_back(StepFromJson(value));
}

TJournalContent ParseLines(std::string_view text) {
  TJournalContent content;
  bool hasHead = false;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const auto line = CheckedText(text.substr(0, end));
    const bool isLast = end == std::string_view::npos || end + 1 == text.size();
    text.remove_prefix(isLast ? text.size() : end + 1);
    if (!line) {
      content.IsDamaged = !isLast;
      break;
    }
    if (hasHead)
      ReadLine(*line, content);
    else
      ReadHead(*line, content);
    hasHead = true;
  }
  if (!hasHead)
    throw TInputError("it is no recovery journal");
  return content;
}

} // namespace

std::filesystem::path RecoveryDirectory() {
  const std::filesystem::path state = UserStateDirectory();
  return state.empty() ? state : state / "recovery";
}

TFileBase BaseOf(const std::filesystem::path& file) {
  std::error_code error;
  const auto size = std::filesystem::file_size(file, error);
  if (error)
    return {};
  return {size, FileSHA256(file, size).value_or(std::string())};
}

std::string HeadLine(const std::filesystem::path& project, const TFileBase& base) {
  std::string json = "{\"journal\":" + std::to_string(FormatVersion) + ",\"project\":";
  AppendJsonText(json, project.native());
  return Line(json + "," + BaseText(base) + "}");
}

std::string BaseLine(const TFileBase& base) {
  return Line("{" + BaseText(base) + "}");
}

std::string NameLine(const std::filesystem::path& project, const TFileBase& base) {
  std::string json = "{\"project\":";
  AppendJsonText(json, project.native());
  return Line(json + "," + BaseText(base) + "}");
}

std::string StepLine(const TListChange& change) {
  std::string json = "{\"step\":";
  AppendJsonText(json, change.Name);
  if (change.IsComputed)
    json += ",\"computed\":true";
  AppendList(json, "entries", change.Entries, AppendDifference);
  if (change.Classes)
    AppendList(json, "classes", *change.Classes,
               [](std::string& text, const TClassRecord& record) { AppendJson(text, record); });
  return Line(json + "}");
}

TJournalContent ParseJournal(std::string_view text, const std::filesystem::path& file) {
  try {
    return ParseLines(text);
  } catch (const nlohmann::json::exception& error) {
    throw TInputError(std::string("the recovery journal cannot be understood: ") + error.what(),
                      {file.string(), 0});
  } catch (const TInputError& error) {
    throw TInputError(std::string("the recovery journal cannot be understood: ") + error.what(),
                      {file.string(), 0});
  }
}

} // namespace workbench
