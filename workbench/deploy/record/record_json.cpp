#include "workbench/deploy/record/record_json.h"

#include "package/common/errors.h"
#include "workbench/deploy/record/record_place.h"
#include "workbench/remote/target/target_place.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace workbench {
namespace {

constexpr std::array<std::string_view, 3> ResultNames{"done", "partly", "undone"};
constexpr std::size_t HashLength = 64;
constexpr std::size_t LongestLink = 4095;
constexpr unsigned MostMode = 07777;

[[noreturn]] void Reject(const std::string& reason) {
  throw deployment::TInputError(reason);
}

std::string LinkOf(const TJson& object) {
  std::string link = object.TextOr("link", {});
  if (link.size() > LongestLink || link.find('\0') != std::string::npos)
    Reject("\"" + link.substr(0, LongestLink) + "\" is no text of a link");
  return link;
}

std::string HashOf(const TJson& object) {
  std::string hash = object.Text("sha256");
  if (hash.size() != HashLength || hash.find_first_not_of("0123456789abcdef") != std::string::npos)
    Reject("\"" + hash + "\" is no hash");
  return hash;
}

} // namespace

std::string_view RunResultName(TRunResult result) {
  return ResultNames[static_cast<std::size_t>(result)];
}

std::string UtcText(std::time_t time) {
  std::tm parts{};
  std::array<char, 32> text{};
  ::gmtime_r(&time, &parts);
  std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts);
  return text.data();
}

void CheckRecordedPath(const std::string& path) {
  const TTargetPlace place = FindTargetPlace(path, {});
  if (!place.Problem.empty())
    Reject(place.Problem);
  if (path.find('\\') != std::string::npos || IsRecordPath(path) ||
      path != (place.Name.Directory.empty() ? place.Name.Name : place.Name.Path()))
    Reject("\"" + path + "\" is no path of a file");
}

unsigned ModeFromText(const std::string& text) {
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

TRecordedFile RecordedFileOf(const TJson& value) {
  return {.LocalName = value.Text("localName"),
          .Class = value.Text("class"),
          .Size = value.Number<std::uint64_t>("size"),
          .Time =
              static_cast<std::int64_t>(value.Number<std::uint64_t>("time", 0, MostRecordedTime)),
          .Hash = HashOf(value),
          .Mode = ModeFromText(value.Text("mode")),
          .Link = LinkOf(value),
          .Run = value.Text("run"),
          .Platform = value.TextOr("platform", {}),
          .Configuration = value.TextOr("configuration", {})};
}

TJson RecordedFileJson(const TRecordedFile& file, const TTargetRecord& record) {
  TJson value{{"localName", file.LocalName},
              {"class", file.Class},
              {"size", file.Size},
              {"time", std::max<std::int64_t>(file.Time, 0)},
              {"sha256", file.Hash},
              {"mode", ModeText(file.Mode)},
              {"run", file.Run}};
  if (!file.Link.empty())
    value.Add("link", file.Link);
  // Most files are of the target that the record names itself.
  if (file.Platform != record.Platform)
    value.Add("platform", file.Platform);
  if (file.Configuration != record.Configuration)
    value.Add("configuration", file.Configuration);
  return value;
}

TRecordedRun RecordedRunOf(const TJson& value) {
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

TJson RunJson(const TRecordedRun& run) {
  return {{"id", run.Id},
          {"at", run.At},
          {"by", run.By},
          {"machine", run.Machine},
          {"revision", run.Revision},
          {"tool", run.Tool},
          {"copied", run.Copied},
          {"removed", run.Removed},
          {"failed", run.Failed},
          {"result", RunResultName(run.Result)}};
}

} // namespace workbench
