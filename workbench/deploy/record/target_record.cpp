#include "workbench/deploy/record/target_record.h"

#include "package/common/errors.h"
#include "workbench/deploy/record/record_json.h"

#include <algorithm>

namespace workbench {
namespace {

constexpr std::uint64_t Format = 1;

TTargetRecord RecordOf(const TJson& document) {
  TTargetRecord record{.Project = document.Text("project"),
                       .Platform = document.Text("platform"),
                       .Configuration = document.Text("configuration")};
  for (const TJson& run : document.Array("runs"))
    record.Runs.push_back(RecordedRunOf(run));
  if (record.Runs.size() > MostRuns)
    record.Runs.resize(MostRuns);
  for (const auto& [path, file] : document.At("files").AsObject("files")) {
    CheckRecordedPath(path);
    record.Files.emplace_hint(record.Files.end(), path, RecordedFileOf(file, record));
  }
  if (const TJson* owed = document.Find("owed")) {
    for (const auto& [path, steps] : owed->AsObject("owed")) {
      CheckRecordedPath(path);
      record.Owed.emplace(path, steps.AsTexts(path));
    }
  }
  record.OwedAfterDeploy = document.TextOr("owedAfterDeploy", {});
  return record;
}

} // namespace

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
  for (std::size_t i = 0; i < std::min(record.Runs.size(), MostRuns); ++i)
    runs.Append(RunJson(record.Runs[i]));
  TJson files = TJson::Object();
  for (const auto& [path, file] : record.Files)
    files.Add(path, RecordedFileJson(file, record));
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
  if (!record.OwedAfterDeploy.empty())
    document.Add("owedAfterDeploy", record.OwedAfterDeploy);
  return JsonText(document, 1) + "\n";
}

} // namespace workbench
