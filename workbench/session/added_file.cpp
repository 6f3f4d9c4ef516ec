#include "workbench/session/added_file.h"

#include "workbench/files/machine_path.h"
#include "workbench/text/storable_text.h"

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
    throw TAddError(TAddError::TReason::Name, "the name of a file is empty");
  if (!IsStorable(name))
    throw TAddError(TAddError::TReason::Name,
                    "the file name \"" + name + "\" holds characters that a project cannot hold");
}

bool LeavesDirectory(const fs::path& relative) {
  return relative.empty() || relative.is_absolute() || *relative.begin() == "..";
}

fs::path DirectoryOf(const fs::path& projectFile) {
  return fs::absolute(projectFile).lexically_normal().parent_path();
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

TAddedFile Stored(const fs::path& path, bool exists) {
  return {ToStoredPath(path), exists, LeavesDirectory(path.lexically_normal())};
}

[[noreturn]] void RaiseDirectory(const std::string& name) {
  throw TAddError(TAddError::TReason::Directory,
                  "\"" + name + "\" is a directory; \"--tree " + name + "\" adds all its files");
}

// The directory under the name that is seen from here, or from the project.
fs::path FindTree(const std::string& argument, const fs::path& projectDirectory) {
  CheckName(argument);
  const fs::path given = ToMachinePath(argument);
  for (const fs::path& place : {fs::absolute(given), projectDirectory / given}) {
    switch (KindOf(place)) {
    case TKind::Directory:
      return place.lexically_normal();
    case TKind::File:
      throw TAddError(TAddError::TReason::Missing, "\"" + argument + "\" is a file, no directory");
    case TKind::Nothing:
      break;
    }
  }
  throw TAddError(TAddError::TReason::Missing, "there is no directory \"" + argument + "\"");
}

bool IsOfProject(const fs::path& file, const fs::path& projectFile) {
  std::error_code ignored;
  return fs::equivalent(file, projectFile, ignored) ||
         fs::equivalent(file, fs::path(projectFile).replace_extension(".deployproj"), ignored);
}

// Regular files below the directory; links to directories are left out.
std::vector<fs::path> WalkTree(const fs::path& directory, std::vector<std::string>& leftOut) {
  std::vector<fs::path> files;
  try {
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(directory)) {
      if (entry.is_regular_file())
        files.push_back(entry.path());
      else if (entry.is_symlink() && entry.is_directory())
        leftOut.push_back(entry.path().string());
    }
  } catch (const fs::filesystem_error& error) {
    throw TAddError(TAddError::TReason::Missing,
                    "the directory \"" + error.path1().string() +
                        "\" cannot be read: " + error.code().message());
  }
  std::sort(files.begin(), files.end());
  return files;
}

} // namespace

TAddedFile LocalNameOf(const std::string& argument, const fs::path& projectFile) {
  CheckName(argument);
  if (argument.find("$(") != std::string::npos)
    return {argument};
  const fs::path directory = DirectoryOf(projectFile);
  const fs::path given = ToMachinePath(argument);
  switch (KindOf(given)) {
  case TKind::Directory:
    RaiseDirectory(argument);
  case TKind::File:
    return Stored(FromProject(given, directory), true);
  case TKind::Nothing:
    break;
  }
  const TKind inProject = KindOf(directory / given);
  if (inProject == TKind::Directory)
    RaiseDirectory(argument);
  return Stored(given, inProject == TKind::File);
}

TAddedTree FilesOfTree(const std::string& argument, const fs::path& projectFile) {
  const fs::path directory = DirectoryOf(projectFile);
  fs::path tree = FindTree(argument, directory);
  if (!tree.has_filename())
    tree = tree.parent_path(); // a delimiter stood at its end
  TAddedTree added;
  for (const fs::path& file : WalkTree(tree, added.LeftOut)) {
    if (IsOfProject(file, projectFile))
      continue;
    CheckName(file.string());
    TAddedFile& entry = added.Files.emplace_back(Stored(FromProject(file, directory), true));
    const fs::path below = file.lexically_relative(tree.parent_path()).parent_path();
    entry.SubDirectory = ToStoredPath(below / "");
  }
  if (added.Files.empty())
    throw TAddError(TAddError::TReason::Missing,
                    "the directory \"" + argument + "\" has no file in it");
  return added;
}

} // namespace workbench
