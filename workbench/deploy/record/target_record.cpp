#include "workbench/deploy/record/target_record.h"

#include "package/common/errors.h"
#include "workbench/deploy/record/record_place.h"
#include "workbench/json/json.h"
#include "workbench/remote/target/target_place.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace workbench {
namespace {

constexpr std::uint64_t Format = 1;
constexpr std::array<std::string_view, 3> ResultNames{"done", "partly", "undone"};
constexpr std::size_t HashLength = 64;
constexpr std::size_t LongestLink = 4095;
constexpr unsigned MostMode = 07777;
constexpr std::uint64_t MostTime = 9'000'000'000; // seconds; more nanoseconds are not counted

[[noreturn]] void Reject(const std::string& reason) {
  throw deployment::TInputError(reason);
}

// A path that leads out of the profile's path, or to what deploys keep for themselves, is none that
// a deploy wrote.
void CheckPath(const std::string& path) {
  const TTargetPlace place = FindTargetPlace(path, {});
  if (!place.Problem.empty())
    Reject(place.Problem);
  if (path.find('\\') != std::string::npos || IsRecordPath(path) ||
      path != (place.Name.Directory.empty() ? place.Name.Name : place.Name.Path()))
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

std::string HashOf(const TJson& object) {
  std::string hash = object.Text("sha256");
  if (hash.size() != HashLength || hash.find_first_not_of("0123456789abcdef") != std::string::npos)
    Reject("\"" + hash + "\" is no hash");
  return hash;
}

std::string LinkOf(const TJson& object) {
  std::string link = object.TextOr("link", {});
  if (link.size() > LongestLink || link.find('\0') != std::string::npos)
    Reject("\"" + link.substr(0, LongestLink) + "\" is no text of a link");
  return link;
}

// A file that names no target is one of the record's.
TRecordedFile FileOf(const TJson& value, const TTargetRecord& record) {
  return {.LocalName = value.Text("localName"),
          .Class = value.Text("class"),
          .Size = value.Number<std::uint64_t>("size"),
          .Time = static_cast<std::int64_t>(value.Number<std::uint64_t>("time", 0, MostTime)),
          .Hash = HashOf(value),
          .Mode = ModeOf(value.Text("mode")),
          .Link = LinkOf(value),
          .Run = value.Text("run"),
          .Platform = value.TextOr("platform", record.Platform),
          .Configuration = value.TextOr("configuration", record.Configuration)};
}

TRecordedRun RunOf(const TJson& value) {
  const auto result = std::ranges::find(ResultNames, value.Text("result"));
  if (result == ResultNames.end())
    Reject("\"" + value.Text("result") + "\" is no result of a run");
  return {.Id = value.Text("id"),
          .At = value.Text("at"),
          .By = value.Text("by"),
          .Machine = value.Text("machine"),
          .Revision = value.Text("revision"),
          .Tool = value.Text("tool"),
          .Copied = value.Number<std::size_t>("copied"),
          .Removed = value.Number<std::size_t>("removed"),
          .Failed = value.Number<std::size_t>("failed"),
          .Result = static_cast<TRunResult>(result - ResultNames.begin())};
}

TTargetRecord RecordOf(const TJson& document) {
  TTargetRecord record{.Project = document.Text("project"),
                       .Platform = document.Text("platform"),
                       .Configuration = document.Text("configuration")};
  for (const TJson& run : document.Array("runs"))
    record.Runs.push_back(RunOf(run));
  if (record.Runs.size() > MostRuns)
    record.Runs.resize(MostRuns);
  for (const auto& [path, file] : document.At("files").AsObject("files")) {
    CheckPath(path);
    record.Files.emplace(path, FileOf(file, record));
  }
  if (const TJson* owed = document.Find("owed")) {
    for (const auto& [path, steps] : owed->AsObject("owed")) {
      CheckPath(path);
      record.Owed.emplace(path, steps.AsTexts(path));
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
    const TJson document = ParseJson(text);
    const auto format = document.Number<std::uint64_t>("format", Format);
    if (format > Format)
      return {.State = TRecordState::Newer};
    return {.State = TRecordState::Read, .Record = RecordOf(document)};
  } catch (const deployment::TInputError& error) {
    return {.State = TRecordState::Damaged, .Problem = error.what()};
  }
}

std::string RecordText(const TTargetRecord& record) {
  TJson runs = TJson::Array();
  for (std::size_t i = 0; i < std::min(record.Runs.size(), MostRuns); ++i) {
    const TRecordedRun& run = record.Runs[i];
    runs.Append({{"id", run.Id},
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
  TJson files = TJson::Object();
  for (const auto& [path, file] : record.Files) {
    TJson entry = {{"localName", file.LocalName},
                   {"class", file.Class},
                   {"size", file.Size},
                   {"time", std::max<std::int64_t>(file.Time, 0)},
                   {"sha256", file.Hash},
                   {"mode", ModeText(file.Mode)},
                   {"run", file.Run},
                   {"platform", file.Platform},
                   {"configuration", file.Configuration}};
    if (!file.Link.empty())
      entry.Add("link", file.Link);
    files.Add(path, std::move(entry));
  }
  TJson document{{"format", Format},
                 {"project", record.Project},
                 {"platform", record.Platform},
                 {"configuration", record.Configuration},
                 {"runs", std::move(runs)},
                 {"files", std::move(files)}};
  if (!record.Owed.empty()) {
    TJson owed = TJson::Object();
    for (const auto& [path, steps] : record.Owed)
      owed.Add(path, TJson(steps));
    document.Add("owed", std::move(owed));
  }
  return JsonText(document, 1) + "\n";
}

} // namespace workbench
