#include "workbench/deploy/record/target_record.h"

#include "workbench/deploy/record/record_place.h"
#include "workbench/remote/target/target_place.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstdio>
#include <stdexcept>

namespace workbench {
namespace {

using TJsonValue = nlohmann::json;

constexpr int Format = 1;
constexpr std::array<std::string_view, 3> ResultNames{"done", "partly", "undone"};
constexpr std::size_t HashLength = 64;
constexpr unsigned MostMode = 07777;
constexpr std::int64_t MostTime = 9'000'000'000; // seconds; more nanoseconds are not counted

[[noreturn]] void Reject(const std::string& reason) {
  throw std::invalid_argument(reason);
}

std::string TextOf(const TJsonValue& object, const char* key) {
  return object.at(key).get<std::string>();
}

std::uint64_t NumberOf(const TJsonValue& object, const char* key) {
  const TJsonValue& value = object.at(key);
  if (!value.is_number_unsigned())
    Reject(std::string("\"") + key + "\" is no number of things");
  return value.get<std::uint64_t>();
}

// A path that leads out of the profile's path, or to what deploys keep for themselves, is none that
// a deploy wrote.
void CheckPath(const std::string& path) {
  const TTargetPlace place = FindTargetPlace(path, {});
  if (!place.Problem.empty())
    Reject(place.Problem);
  if (path.find('\\') != std::string::npos || IsRecordPath(path) ||
      path != (place.Name.Directory.empty() ? place.Name.Name
                                            : place.Name.Directory + "/" + place.Name.Name))
    Reject("\"" + path + "\" is no path of a file");
}

unsigned ModeOf(const std::string& text) {
  unsigned mode = 0;
  if (text.empty() || text.size() > 5 || text.find_first_not_of("01234567") != std::string::npos)
    Reject("\"" + text + "\" is no mode");
  for (const char c : text)
    mode = mode * 8 + static_cast<unsigned>(c - '0');
  if (mode > MostMode)
    Reject("\"" + text + "\" is no mode");
  return mode;
}

std::string ModeText(unsigned mode) {
  std::array<char, 12> text{};
  std::snprintf(text.data(), text.size(), "%04o", mode);
  return text.data();
}

std::string HashOf(const TJsonValue& object) {
  std::string hash = TextOf(object, "sha256");
  if (hash.size() != HashLength || hash.find_first_not_of("0123456789abcdef") != std::string::npos)
    Reject("\"" + hash + "\" is no hash");
  return hash;
}

// A file that names no target is one of the record's.
TRecordedFile FileOf(const TJsonValue& value, const TTargetRecord& record) {
  const TJsonValue& time = value.at("time");
  if (!time.is_number_integer() || time.get<std::int64_t>() < -MostTime ||
      time.get<std::int64_t>() > MostTime)
    Reject("\"time\" is no time");
  return {.LocalName = TextOf(value, "localName"),
          .Class = TextOf(value, "class"),
          .Size = NumberOf(value, "size"),
          .Time = time.get<std::int64_t>(),
          .Hash = HashOf(value),
          .Mode = ModeOf(TextOf(value, "mode")),
          .Run = TextOf(value, "run"),
          .Platform = value.value("platform", record.Platform),
          .Configuration = value.value("configuration", record.Configuration)};
}

TRecordedRun RunOf(const TJsonValue& value) {
  const auto result = std::ranges::find(ResultNames, TextOf(value, "result"));
  if (result == ResultNames.end())
    Reject("\"" + TextOf(value, "result") + "\" is no result of a run");
  return {.Id = TextOf(value, "id"),
          .At = TextOf(value, "at"),
          .By = TextOf(value, "by"),
          .Machine = TextOf(value, "machine"),
          .Revision = TextOf(value, "revision"),
          .Tool = TextOf(value, "tool"),
          .Copied = NumberOf(value, "copied"),
          .Removed = NumberOf(value, "removed"),
          .Failed = NumberOf(value, "failed"),
          .Result = static_cast<TRunResult>(result - ResultNames.begin())};
}

TTargetRecord RecordOf(const TJsonValue& document) {
  TTargetRecord record{.Project = TextOf(document, "project"),
                       .Platform = TextOf(document, "platform"),
                       .Configuration = TextOf(document, "configuration")};
  for (const TJsonValue& run : document.at("runs"))
    record.Runs.push_back(RunOf(run));
  if (record.Runs.size() > MostRuns)
    record.Runs.resize(MostRuns);
  for (const auto& [path, file] : document.at("files").items()) {
    CheckPath(path);
    record.Files.emplace(path, FileOf(file, record));
  }
  if (const auto owed = document.find("owed"); owed != document.end()) {
    for (const auto& [path, steps] : owed->items()) {
      CheckPath(path);
      record.Owed.emplace(path, steps.get<std::vector<std::string>>());
    }
  }
  return record;
}

} // namespace

std::string_view RunResultName(TRunResult result) {
  return ResultNames[static_cast<std::size_t>(result)];
}

TRecordReading ParseRecord(std::string_view text) {
  try {
    const TJsonValue document = TJsonValue::parse(text);
    const TJsonValue& format = document.at("format");
    if (!format.is_number_unsigned())
      Reject("it names no format");
    if (format.get<std::uint64_t>() > Format)
      return {.State = TRecordState::Newer};
    if (format.get<std::uint64_t>() != Format)
      Reject("it is of no known format");
    return {.State = TRecordState::Read, .Record = RecordOf(document)};
  } catch (const TJsonValue::exception& error) {
    return {.State = TRecordState::Damaged, .Problem = error.what()};
  } catch (const std::invalid_argument& error) {
    return {.State = TRecordState::Damaged, .Problem = error.what()};
  }
}

std::string RecordText(const TTargetRecord& record) {
  TJsonValue runs = TJsonValue::array();
  for (std::size_t i = 0; i < std::min(record.Runs.size(), MostRuns); ++i) {
    const TRecordedRun& run = record.Runs[i];
    runs.push_back({{"id", run.Id},
                    {"at", run.At},
                    {"by", run.By},
                    {"machine", run.Machine},
                    {"revision", run.Revision},
                    {"tool", run.Tool},
                    {"copied", run.Copied},
                    {"removed", run.Removed},
                    {"failed", run.Failed},
                    {"result", RunResultName(run.Result)}});
  }
  TJsonValue files = TJsonValue::object();
  for (const auto& [path, file] : record.Files)
    files[path] = {{"localName", file.LocalName},
                   {"class", file.Class},
                   {"size", file.Size},
                   {"time", file.Time},
                   {"sha256", file.Hash},
                   {"mode", ModeText(file.Mode)},
                   {"run", file.Run},
                   {"platform", file.Platform},
                   {"configuration", file.Configuration}};
  TJsonValue document{{"format", Format},
                      {"project", record.Project},
                      {"platform", record.Platform},
                      {"configuration", record.Configuration},
                      {"runs", std::move(runs)},
                      {"files", std::move(files)}};
  if (!record.Owed.empty())
    document["owed"] = record.Owed;
  return document.dump(1, ' ', false, TJsonValue::error_handler_t::replace) + "\n";
}

} // namespace workbench
