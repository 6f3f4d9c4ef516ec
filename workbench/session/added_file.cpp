#include "workbench/session/added_file.h"

#include "workbench/files/machine_path.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/text/storable_text.h"

#include <system_error>

namespace workbench {
namespace {

namespace fs = std::filesystem;

enum class TKind { Nothing, File, Directory };

TKind KindOf(const fs::path& path) {
  std::error_code ignored;
  const fs::file_status status = fs::status(path, ignored);
  if (!fs::exists(status))
    return TKind::Nothing;
  return fs::is_directory(status) ? TKind::Directory : TKind::File;
}

void CheckName(const std::string& name) {
  if (name.empty())
    throw TAddError(TAddError::TReason::Name, "the name of a file is empty");
  if (!IsStorable(name))
    throw TAddError(TAddError::TReason::Name,
                    "the file name \"" + name + "\" holds characters that a project cannot hold");
}

bool LeavesDirectory(const fs::path& relative) {
  return relative.empty() || *relative.begin() == "..";
}

// Seen from the project's directory. Where a symbolic link leads into that directory, the file is
// in it all the same; and ".." behind a link leads where the link points to.
fs::path FromProject(const fs::path& given, const fs::path& directory) {
  const fs::path full = fs::absolute(given).lexically_normal();
  fs::path relative = full.lexically_relative(directory);
  if (!LeavesDirectory(relative))
    return relative;
  std::error_code error;
  const fs::path realDirectory = fs::canonical(directory, error);
  const fs::path realPlace = error ? fs::path() : fs::canonical(full.parent_path(), error);
  fs::path real = (realPlace / full.filename()).lexically_relative(realDirectory);
  if (!error && !real.empty())
    return real;
  return relative.empty() ? full : relative;
}

[[noreturn]] void RaiseDirectory(const std::string& name) {
  throw TAddError(TAddError::TReason::Directory, "\"" + name + "\" is a directory; add its files");
}

std::string DefaultRemoteDir(const TPlatformTable& platforms, const std::string& platform) {
  const TPlatform* known = platforms.FindPlatform(platform);
  return known ? known->GetDefaultRemoteDir() : ".\\";
}

} // namespace

TAddedFile LocalNameOf(const std::string& argument, const fs::path& projectFile) {
  CheckName(argument);
  if (argument.find("$(") != std::string::npos)
    return {argument, true};
  const fs::path directory = fs::absolute(projectFile).lexically_normal().parent_path();
  const fs::path given = ToMachinePath(argument);
  switch (KindOf(given)) {
  case TKind::Directory:
    RaiseDirectory(argument);
  case TKind::File:
    return {ToStoredPath(FromProject(given, directory)), true};
  case TKind::Nothing:
    break;
  }
  const TKind inProject = KindOf(directory / given);
  if (inProject == TKind::Directory)
    RaiseDirectory(argument);
  return {ToStoredPath(given), inProject == TKind::File};
}

bool AddEntry(TOpenProject& project, const TPlatformTable& platforms, const TNewEntry& entry) {
  deployment::IProjectDeployment& deployment = project.Deployment();
  if (deployment.FindFile(entry.Configuration, entry.Platform, entry.LocalName))
    return false;
  const auto file = deployment.AddFile(entry.Configuration, entry.Platform, entry.LocalName);
  file->SetDeploymentClass(entry.Class);
  file->SetEnabled(entry.Platform, entry.Enabled);
  file->SetRemoteDir(entry.Platform, entry.RemoteDir.empty()
                                         ? DefaultRemoteDir(platforms, entry.Platform)
                                         : entry.RemoteDir);
  file->SetRemoteName(entry.Platform, entry.RemoteName);
  return true;
}

} // namespace workbench
