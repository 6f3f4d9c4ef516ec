#include "workbench/deploy/record/target_record.h"

#include "package/common/errors.h"
#include "workbench/deploy/record/record_json.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace workbench {
namespace {

constexpr std::uint64_t Format = 1;

// The files of a record, as its text is read. Its format counts more than they do, and may come
// behind them.
class TFilesReading {
public:
  void Take(std::string path, const TJson& file) {
    if (FProblem)
      return;
    try {
      CheckRecordedPath(path);
      const std::string name = path;
      if (!FFiles.emplace(std::move(path), RecordedFileOf(file)).second)
        throw deployment::TInputError("it has the member \"" + name + "\" twice");
    } catch (const deployment::TInputError& error) {
      FProblem = error;
    }
  }

  /// Throws TInputError for the first file that is none. Files name their target only when the
  /// record does not.
  void PutInto(TTargetRecord& record) {
    if (FProblem)
      throw deployment::TInputError(*FProblem);
    for (auto& [path, file] : FFiles) {
      if (file.Platform.empty())
        file.Platform = record.Platform;
      if (file.Configuration.empty())
        file.Configuration = record.Configuration;
    }
    record.Files = std::move(FFiles);
  }

private:
  decltype(TTargetRecord::Files) FFiles;
  std::optional<deployment::TInputError> FProblem;
};

TTargetRecord RecordOf(const TJson& document, TFilesReading& files) {
  TTargetRecord record{.Project = document.Text("project"),
                       .Platform = document.Text("platform"),
                       .Configuration = document.Text("configuration")};
  for (const TJson& run : document.Array("runs"))
    record.Runs.push_back(RecordedRunOf(run));
  if (record.Runs.size() > MostRuns)
    record.Runs.resize(MostRuns);
  document.At("files").AsObject("files");
  files.PutInto(record);
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
    TFilesReading files;
    const TJson document = ParseJson(text, "files", [&files](std::string path, const TJson& file) {
      files.Take(std::move(path), file);
    });
    const auto format = document.Number<std::uint64_t>("format", Format);
    if (format > Format)
      return {.State = TRecordState::Newer};
    return {.State = TRecordState::Read, .Record = RecordOf(document, files)};
  } catch (const deployment::TInputError& error) {
    return {.State = TRecordState::Damaged, .Problem = error.what()};
  }
}

std::string RecordText(const TTargetRecord& record) {
  std::string text;
  WriteRecord(record, record.Runs, [&text](std::string_view piece) { text += piece; });
  return text;
}

void WriteRecord(const TTargetRecord& record, const std::vector<TRecordedRun>& recordedRuns,
                 const TTakeText& take) {
  TJson runs = TJson::Array();
  for (std::size_t i = 0; i < std::min(recordedRuns.size(), MostRuns); ++i)
    runs.Append(RunJson(recordedRuns[i]));
  TJson document{{"format", Format},
                 {"project", record.Project},
                 {"platform", record.Platform},
                 {"configuration", record.Configuration},
                 {"runs", std::move(runs)}};
  if (!record.Owed.empty()) {
    TJson owed = TJson::Object();
    for (const auto& [path, steps] : record.Owed)
      owed.Add(path, TJson(steps));
    document.Add("owed", std::move(owed));
  }
  if (!record.OwedAfterDeploy.empty())
    document.Add("owedAfterDeploy", record.OwedAfterDeploy);
  auto file = record.Files.begin();
  const TNextJsonItem next = [&](TJsonMember& item) {
    if (file == record.Files.end())
      return false;
    item.Name = file->first;
    item.Value = RecordedFileJson(file->second, record);
    ++file;
    return true;
  };
  WriteJsonWithItems(document, "files", TJsonItems::Members, next, 1, take);
  take("\n");
}

} // namespace workbench
