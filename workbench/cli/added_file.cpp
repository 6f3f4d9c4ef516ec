#include "workbench/cli/added_file.h"

#include "workbench/cli/text_check.h"
#include "workbench/files/machine_path.h"

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
    throw TUsageError("the name of a file is empty");
  CheckStorable("the file name", name);
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
  throw TWorkError("\"" + name + "\" is a directory; add its files");
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

} // namespace workbench
