#include "package/view/cell_texts.h"

#include "package/common/case_fold.h"
#include "package/common/path_text.h"
#include "package/host/api/file_columns.h"
#include "package/host/api/target_entries.h"
#include "package/view/target_values.h"
#include "package/view/view_strings.h"

#include <array>

namespace deployment {
namespace {

std::string GetLocalPathText(const TCellContext&, const IProjectDeploymentFile& file) {
  return std::string(DirectoryPart(file.GetLocalName()));
}

std::string GetLocalNameText(const TCellContext&, const IProjectDeploymentFile& file) {
  return std::string(FileNamePart(file.GetLocalName()));
}

std::string GetClassText(const TCellContext&, const IProjectDeploymentFile& file) {
  return file.GetDeploymentClass();
}

std::string GetConfigText(const TCellContext&, const IProjectDeploymentFile& file) {
  return file.GetConfiguration();
}

std::string GetPlatformsText(const TCellContext& context, const IProjectDeploymentFile& file) {
  return GetPlatformText(context.Target, file);
}

std::string GetRemotePathText(const TCellContext& context, const IProjectDeploymentFile& file) {
  const TFrameTarget& target = context.Target;
  const IProjectDeployment* deployment = target.Deployment();
  std::string text = deployment
                         ? target_values::GetRemoteDir(file, target.ActivePlatform, *deployment)
                         : file.GetRemoteDir(target.ActivePlatform);
  return text.empty() ? ".\\" : text;
}

std::string GetRemoteNameText(const TCellContext& context, const IProjectDeploymentFile& file) {
  return target_values::GetRemoteName(file, context.Target.ActivePlatform);
}

std::string GetRemoteStatusText(const TCellContext& context, const IProjectDeploymentFile& file) {
  return context.Status.RemoteStatusText(file);
}

std::string GetLocalStatusText(const TCellContext& context, const IProjectDeploymentFile& file) {
  return context.Status.LocalStatusText(file);
}

std::string GetOverwriteText(const TCellContext& context, const IProjectDeploymentFile& file) {
  const bool always = target_values::GetOverwrite(file, context.Target.ActivePlatform);
  return std::string(LoadText(always ? TViewString::Always : TViewString::Never));
}

struct TColumnText {
  int Column;
  std::string (*Text)(const TCellContext&, const IProjectDeploymentFile&);
};

constexpr std::array<TColumnText, FileColumns.size()> ColumnTexts{{
    {file_column::LocalPath, GetLocalPathText},
    {file_column::LocalName, GetLocalNameText},
    {file_column::Type, GetClassText},
    {file_column::Configuration, GetConfigText},
    {file_column::Platforms, GetPlatformsText},
    {file_column::RemotePath, GetRemotePathText},
    {file_column::RemoteName, GetRemoteNameText},
    {file_column::RemoteStatus, GetRemoteStatusText},
    {file_column::LocalStatus, GetLocalStatusText},
    {file_column::Overwrite, GetOverwriteText},
}};

} // namespace

std::string GetColumnText(const TCellContext& context, const IProjectDeploymentFile& file,
                          int column) {
  for (const TColumnText& row : ColumnTexts) {
    if (row.Column == column)
      return row.Text(context, file);
  }
  return {};
}

// Without platforms there is no list that could be closed.
std::string GetPlatformText(const TFrameTarget& target, const IProjectDeploymentFile& file) {
  std::string text = "[";
  const IOTAProjectPlatforms* platforms = target.Platforms();
  if (!platforms)
    return text;
  for (const std::string& platform : platforms->GetSupportedPlatforms()) {
    if (IsFileInPlatform(platform, file))
      text.append(text.size() > 1 ? "," : "").append(platform);
  }
  return text.append("]");
}

// Flags are ordered as the numbers that stand for them, everything else as it reads.
std::string GetSortKey(const TCellContext& context, const IProjectDeploymentFile& file,
                       int column) {
  if (column == file_column::Overwrite)
    return target_values::GetOverwrite(file, context.Target.ActivePlatform) ? "-1" : "0";
  return UpperCase(GetColumnText(context, file, column));
}

} // namespace deployment
