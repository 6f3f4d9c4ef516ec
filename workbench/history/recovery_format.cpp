#include "workbench/history/recovery_format.h"

#include "package/common/errors.h"
#include "workbench/files/sha256.h"
#include "workbench/files/text_hash.h"
#include "workbench/files/user_directories.h"
#include "workbench/list/record_json.h"

#include <optional>
#include <utility>

namespace workbench {
namespace {

using deployment::TInputError;

constexpr unsigned FormatVersion = 1;
constexpr std::size_t HashLength = 16;

std::string Line(const std::string& text) {
  return TextHash(text) + " " + text + "\n";
}

std::string BaseText(const TFileBase& base) {
  return "\"base\":{\"size\":" + std::to_string(base.Size) + ",\"sha256\":\"" + base.SHA256 + "\"}";
}

TFileBase BaseFromJson(const TJson& value) {
  return {value.Number<std::uint64_t>("size"), value.Text("sha256")};
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

TEntryDifference DifferenceFromJson(const TJson& value) {
  TEntryDifference difference;
  if (const TJson* before = value.Find("before"))
    difference.Before = EntryRecordFromJson(*before);
  if (const TJson* after = value.Find("after"))
    difference.After = EntryRecordFromJson(*after);
  if (value.Find("position"))
    difference.Position = value.Number<std::size_t>("position");
  return difference;
}

TListChange StepFromJson(const TJson& value) {
  TListChange change;
  change.Name = TextFromJson(value.At("step"));
  change.IsComputed = value.BooleanOr("computed", false);
  const TJson::TArray& entries = value.Array("entries");
  change.Entries.reserve(entries.size());
  for (const TJson& entry : entries)
    change.Entries.push_back(DifferenceFromJson(entry));
  if (const TJson* classes = value.Find("classes")) {
    TClassRecords records;
    for (const TJson& each : classes->AsArray("classes"))
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
  const TJson head = ParseJson(text);
  const auto version = head.Number<unsigned>("journal");
  if (version != FormatVersion)
    throw TInputError("it was written by another version of this program (format " +
                      std::to_string(version) + ")");
  content.Project = TextFromJson(head.At("project"));
  content.Base = BaseFromJson(head.At("base"));
}

void ReadLine(std::string_view text, TJournalContent& content) {
  const TJson value = ParseJson(text);
  if (const TJson* project = value.Find("project"))
    content.Project = TextFromJson(*project);
  if (const TJson* base = value.Find("base"))
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
  } catch (const TInputError& error) {
    throw TInputError(std::string("the recovery journal cannot be understood: ") + error.what(),
                      {file.string(), 0});
  }
}

} // namespace workbench
