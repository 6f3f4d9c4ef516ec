// What the cells show, how rows are ordered and which are dimmed.
#include "package/common/case_fold.h"
#include "package/common/path_text.h"
#include "package/view/deployment_frame.h"
#include "package/view/file_columns.h"
#include "package/view/view_strings.h"

namespace deployment {

/// A column with the operation that makes its text.
struct TDeploymentFrame::TColumnRow {
  int Column;
  TTreeColumn Header; ///< without a title it is no column of the header
  std::string (TDeploymentFrame::*Text)(const TFileData&) const;
};

const std::vector<TDeploymentFrame::TColumnRow>& TDeploymentFrame::ColumnRows() {
  using namespace file_column;
  using F = TDeploymentFrame;
  static const std::vector<TColumnRow> rows{
      {LocalPath, {"Local Path", 150}, &F::GetLocalPathText},
      {LocalName, {"Local Name", 150}, &F::GetLocalNameText},
      {Type, {"Type", 100}, &F::GetClassText},
      {Configuration, {"Configuration", 80}, &F::GetConfigText},
      {file_column::Platforms, {"Platforms", 100}, &F::GetPlatformText},
      {RemotePath, {"Remote Path", 150}, &F::GetRemotePathText},
      {RemoteName, {"Remote Name", 150}, &F::GetRemoteNameText},
      {RemoteStatus, {"Remote Status", 128}, &F::GetRemoteStatusText},
      {Overwrite, {"Overwrite", 120}, &F::GetOverwriteText},
      {LocalStatus, {}, &F::GetLocalStatusText},
  };
  return rows;
}

std::vector<TTreeColumn> TDeploymentFrame::FileColumns() {
  std::vector<TTreeColumn> columns;
  for (const TColumnRow& row : ColumnRows()) {
    if (!row.Header.Title.empty())
      columns.push_back(row.Header);
  }
  return columns;
}

std::string TDeploymentFrame::GetColumnText(const TFileData& data, int column) const {
  for (const TColumnRow& row : ColumnRows()) {
    if (row.Column == column)
      return (this->*row.Text)(data);
  }
  return {};
}

std::string TDeploymentFrame::vtFilesGetText(TNodeId node, int column) {
  return GetColumnText(Row(node).Data, column);
}

std::string TDeploymentFrame::GetLocalPathText(const TFileData& data) const {
  return std::string(DirectoryPart(data.ProjectDeploymentFile->GetLocalName()));
}

std::string TDeploymentFrame::GetLocalNameText(const TFileData& data) const {
  return std::string(FileNamePart(data.ProjectDeploymentFile->GetLocalName()));
}

std::string TDeploymentFrame::GetClassText(const TFileData& data) const {
  return data.ProjectDeploymentFile->GetDeploymentClass();
}

std::string TDeploymentFrame::GetConfigText(const TFileData& data) const {
  return data.ProjectDeploymentFile->GetConfiguration();
}

// Without platforms there is no list that could be closed.
std::string TDeploymentFrame::GetPlatformText(const TFileData& data) const {
  std::string text = "[";
  const IOTAProjectPlatforms* platforms = Platforms();
  if (!platforms)
    return text;
  for (const std::string& platform : platforms->GetSupportedPlatforms()) {
    if (IsInPlatform(platform, *data.ProjectDeploymentFile))
      text.append(text.size() > 1 ? "," : "").append(platform);
  }
  return text.append("]");
}

std::string TDeploymentFrame::GetRemotePathText(const TFileData& data) const {
  const IProjectDeploymentFile& file = *data.ProjectDeploymentFile;
  const IProjectDeployment* deployment = Deployment();
  std::string text = deployment ? GetDeploymentRemoteDir(file, FActivePlatform, *deployment)
                                : file.GetRemoteDir(FActivePlatform);
  return text.empty() ? ".\\" : text;
}

std::string TDeploymentFrame::GetRemoteNameText(const TFileData& data) const {
  return data.ProjectDeploymentFile->GetRemoteName(FActivePlatform);
}

std::string TDeploymentFrame::GetOverwriteText(const TFileData& data) const {
  return std::string(LoadText(data.ProjectDeploymentFile->GetOverwrite(FActivePlatform)
                                  ? TViewString::Always
                                  : TViewString::Never));
}

// Flags are ordered as the numbers that stand for them, everything else as it reads.
std::string TDeploymentFrame::SortKey(TNodeId node, int column) {
  if (column == file_column::Overwrite)
    return FileOf(node).GetOverwrite(FActivePlatform) ? "-1" : "0";
  return UpperCase(vtFilesGetText(node, column));
}

int TDeploymentFrame::vtFilesCompareNodes(TNodeId first, TNodeId second, int column) {
  return SortKey(first, column).compare(SortKey(second, column));
}

void TDeploymentFrame::vtFilesHeaderClick(int column, TMouseButton button) {
  if (button != TMouseButton::Left)
    return;
  const bool flips = vtFiles->GetSortColumn() == column &&
                     vtFiles->GetSortDirection() == TSortDirection::Ascending;
  FSortColumn = column;
  FSortDirection = flips ? TSortDirection::Descending : TSortDirection::Ascending;
  vtFiles->SetSortMark(FSortColumn, FSortDirection);
  vtFiles->SortTree(FSortColumn, FSortDirection);
}

void TDeploymentFrame::vtFilesPaintText(TNodeId node, TTextColor& color) {
  const TFileState* state = FFileCache.Find(FileOf(node).GetLocalName());
  if (state && state->LocalFileExists)
    return;
  // The style's own colour counts only where it is none at all.
  const bool noColor = FControls.GetStyle().GetTreeItemTextColor() == TTextColor::NoColor;
  color = noColor ? TTextColor::NoColor : TTextColor::ButtonShadow;
}

} // namespace deployment
