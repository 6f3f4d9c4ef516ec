#include "workbench/deploy/record/undo_manifest.h"

#include "package/common/errors.h"
#include "workbench/deploy/record/record_json.h"

#include <algorithm>
#include <array>

namespace workbench {
namespace {

constexpr std::uint64_t UndoFormat = 1;
constexpr std::size_t LongestRunId = 64;
constexpr std::array<std::string_view, 4> UndoKindNames{"remove", "restore", "link", "touch"};

TJson MarkJson(const std::optional<TContentMark>& mark) {
  if (!mark)
    return {};
  return {{"size", mark->Size}, {"time", std::max<std::int64_t>(mark->Time, 0)}};
}

std::optional<TContentMark> MarkOf(const TJson& value) {
  if (value.IsNull())
    return std::nullopt;
  return TContentMark{
      .Size = value.Number<std::uint64_t>("size"),
      .Time = static_cast<std::int64_t>(value.Number<std::uint64_t>("time", 0, MostRecordedTime))};
}

TJson UndoFileJson(const TUndoFile& file) {
  TJson value{{"kind", UndoKindNames[static_cast<std::size_t>(file.Kind)]},
              {"path", file.Path},
              {"put", MarkJson(file.Put)}};
  if (file.Kind != TUndoKind::Remove)
    value.AddAll({{"before", MarkJson(file.Before)}, {"mode", ModeText(file.Mode)}});
  if (!file.Kept.empty())
    value.Add("kept", file.Kept);
  if (!file.Link.empty())
    value.Add("link", file.Link);
  if (!file.PutLink.empty())
    value.Add("putLink", file.PutLink);
  if (file.Recorded)
    value.Add("recorded", RecordedFileJson(*file.Recorded, {}));
  if (!file.Owed.empty())
    value.Add("owed", file.Owed);
  return value;
}

// The kept files of a run have numbers for names.
std::string KeptNameOf(const TJson& value) {
  std::string name = value.TextOr("kept", {});
  if (name.find_first_not_of("0123456789") != std::string::npos)
    throw deployment::TInputError("\"" + name + "\" is no name of a kept file");
  return name;
}

TUndoFile UndoFileOf(const TJson& value) {
  const auto* const kind = std::ranges::find(UndoKindNames, value.Text("kind"));
  if (kind == UndoKindNames.end())
    throw deployment::TInputError("\"" + value.Text("kind") + "\" is no way to take a file back");
  TUndoFile file{.Kind = static_cast<TUndoKind>(kind - UndoKindNames.begin()),
                 .Path = value.Text("path"),
                 .Kept = KeptNameOf(value),
                 .Link = value.TextOr("link", {}),
                 .PutLink = value.TextOr("putLink", {}),
                 .Put = MarkOf(value.At("put"))};
  CheckRecordedPath(file.Path);
  if (file.Kind != TUndoKind::Remove) {
    file.Before = MarkOf(value.At("before"));
    file.Mode = ModeFromText(value.Text("mode"));
  }
  const bool isWhole = file.Kind == TUndoKind::Restore ? file.Before && !file.Kept.empty()
                       : file.Kind == TUndoKind::Link  ? !file.Link.empty()
                       : file.Kind == TUndoKind::Touch ? file.Before && file.Put
                                                       : file.Put.has_value();
  if (!isWhole)
    throw deployment::TInputError("\"" + file.Path + "\" lacks what it is taken back by");
  if (const TJson* recorded = value.Find("recorded"))
    file.Recorded = RecordedFileOf(*recorded);
  file.Owed = value.TextsOr("owed", {});
  return file;
}

void CheckUndoFormat(const TJson& document) {
  if (document.Number<std::uint64_t>("format", UndoFormat) > UndoFormat)
    throw deployment::TInputError("it is of a newer version of this program");
}

} // namespace

bool IsRunId(std::string_view text) {
  return !text.empty() && text.size() <= LongestRunId && std::ranges::all_of(text, [](char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-';
  });
}

std::string UndoManifestText(const TUndoManifest& manifest) {
  std::string text;
  auto file = manifest.Files.begin();
  const TNextUndoFile next = [&](TUndoFile& item) {
    if (file == manifest.Files.end())
      return false;
    item = *file++;
    return true;
  };
  WriteUndoManifest(manifest.Run, manifest.Directories, next,
                    [&text](std::string_view piece) { text += piece; });
  return text;
}

void WriteUndoManifest(const TRecordedRun& run, const std::vector<std::string>& directories,
                       const TNextUndoFile& next, const TTakeText& take) {
  const TJson document{{"format", UndoFormat}, {"run", RunJson(run)}, {"directories", directories}};
  TUndoFile file;
  const TNextJsonItem nextItem = [&](TJsonMember& item) {
    file = {};
    if (!next(file))
      return false;
    item.Value = UndoFileJson(file);
    return true;
  };
  WriteJsonWithItems(document, "files", TJsonItems::Values, nextItem, 0, take);
  take("\n");
}

TUndoManifest ParseUndoManifest(std::string_view text) {
  const TJson document = ParseJson(text);
  CheckUndoFormat(document);
  TUndoManifest manifest{.Run = RecordedRunOf(document.At("run"))};
  for (const TJson& file : document.Array("files"))
    manifest.Files.push_back(UndoFileOf(file));
  manifest.Directories = document.At("directories").AsTexts("directories");
  for (const std::string& directory : manifest.Directories)
    CheckRecordedPath(directory);
  return manifest;
}

std::string UndoIndexText(const TUndoIndex& index) {
  TJson runs = TJson::Array();
  for (const TUndoIndex::TRun& run : index.Runs)
    runs.Append({{"id", run.Id}, {"bytes", run.Bytes}});
  TJson document{{"format", UndoFormat}, {"runs", std::move(runs)}};
  if (!index.Unfinished.empty())
    document.Add("unfinished", index.Unfinished);
  return JsonText(document, 1) + "\n";
}

TUndoIndex ParseUndoIndex(std::string_view text) {
  const TJson document = ParseJson(text);
  CheckUndoFormat(document);
  TUndoIndex index;
  for (const TJson& run : document.Array("runs")) {
    if (!IsRunId(run.Text("id")))
      throw deployment::TInputError("\"" + run.Text("id") + "\" is no run");
    index.Runs.push_back({run.Text("id"), run.Number<std::uint64_t>("bytes")});
  }
  index.Unfinished = document.TextsOr("unfinished", {});
  for (const std::string& run : index.Unfinished) {
    if (!IsRunId(run))
      throw deployment::TInputError("\"" + run + "\" is no run");
  }
  return index;
}

} // namespace workbench
