#include "workbench/cli/added_file.h"

#include "workbench/files/machine_path.h"

#include <algorithm>
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
  const bool control = std::any_of(name.begin(), name.end(), [](char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
  });
  if (control)
    throw TUsageError("the file name \"" + name + "\" holds control characters");
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
  case TKind::File: {
    const fs::path full = fs::absolute(given).lexically_normal();
    const fs::path relative = full.lexically_relative(directory);
    return {ToStoredPath(relative.empty() ? full : relative), true};
  }
  case TKind::Nothing:
    break;
  }
  const TKind inProject = KindOf(directory / given);
  if (inProject == TKind::Directory)
    RaiseDirectory(argument);
  return {ToStoredPath(given), inProject == TKind::File};
}

} // namespace workbench
