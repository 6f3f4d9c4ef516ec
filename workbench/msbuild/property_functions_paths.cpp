// Property functions of paths and of files that are there.
#include "package/common/path_text.h"
#include "workbench/msbuild/property_functions.h"
#include "workbench/msbuild/values/project_paths.h"

#include <array>
#include <system_error>

namespace workbench {
namespace {

namespace fs = std::filesystem;
using TCall = TFunctionCall;
using TValue = TPropertyValue;

std::string WithoutExtension(std::string_view path) {
  return std::string(path.substr(0, path.size() - deployment::ExtensionPart(path).size()));
}

std::string WithoutDelimiter(std::string path) {
  while (path.size() > 1 && deployment::IsPathDelimiter(path.back()))
    path.pop_back();
  return path;
}

// All arguments, each seen from the one before.
std::string Combined(const TCall& call, std::size_t first = 0) {
  std::string path;
  for (std::size_t i = first; i < call.Arguments.size(); ++i) {
    const std::string part = call.Text(i);
    if (part.empty())
      continue;
    if (path.empty() || deployment::IsAbsolutePath(part))
      path = part;
    else
      path = deployment::WithTrailingDelimiter(path).append(part);
  }
  return path;
}

std::string Full(std::string_view path, const fs::path& directory) {
  if (path.empty())
    throw TFunctionError("the path is empty");
  return FullPathText(path, directory);
}

TValue FullPath(const TCall& call) {
  const fs::path& project = call.Context.ProjectDirectory;
  if (!call.Has(1))
    return Full(call.Text(0), project);
  return Full(call.Text(0), fs::path(Full(call.Text(1), project)));
}

std::string WithDelimiter(std::string path) {
  if (path.empty() || deployment::IsPathDelimiter(path.back()))
    return path;
  const bool isMachinePath = path.front() == '/' && path.find('\\') == std::string::npos;
  path.push_back(isMachinePath ? '/' : '\\');
  return path;
}

bool IsThere(const TCall& call, fs::file_type kind) {
  const std::string path = call.Text(0);
  std::error_code error;
  return !path.empty() && !IsForeignPath(path) &&
         fs::status(ResolvePath(path, call.Context.ProjectDirectory), error).type() == kind;
}

// The nearest directory upwards that holds the file; empty for none.
std::string DirectoryAbove(const std::string& start, const std::string& file,
                           const TFunctionContext& context) {
  if (file.empty() || file.find_first_of("\\/") != std::string::npos)
    throw TFunctionError("\"" + file + "\" is no name of a file");
  if (IsForeignPath(start))
    return {};
  fs::path directory = ResolvePath(start, context.ThisDirectory);
  while (directory.has_relative_path() && !directory.has_filename())
    directory = directory.parent_path();
  for (;;) {
    std::error_code error;
    if (fs::is_regular_file(directory / file, error))
      return directory.string();
    if (!directory.has_relative_path())
      return {};
    directory = directory.parent_path();
  }
}

TValue PathOfFileAbove(const TCall& call) {
  const std::string start =
      call.Has(1) && !call.Text(1).empty() ? call.Text(1) : call.Context.ThisDirectory.string();
  const std::string directory = DirectoryAbove(start, call.Text(0), call.Context);
  return directory.empty() ? directory : (fs::path(directory) / call.Text(0)).string();
}

TValue MakeRelative(const TCall& call) {
  const fs::path& project = call.Context.ProjectDirectory;
  const std::string path = call.Text(1);
  if (IsForeignPath(call.Text(0)) || IsForeignPath(path))
    return path;
  const fs::path base = WithoutDelimiter(Full(call.Text(0), project));
  std::string relative = fs::path(Full(path, project)).lexically_relative(base).string();
  return relative.empty() ? path : relative;
}

TValue PathRoot(const TCall& call) {
  const std::string path = call.Text(0);
  if (!deployment::IsAbsolutePath(path))
    return std::string();
  return deployment::IsPathDelimiter(path.front()) ? path.substr(0, 1) : path.substr(0, 3);
}

constexpr std::array PathFunctionsTable =
    std::to_array<TPropertyFunction>({
        {"System.IO.Path", "Combine", 1, MostFunctionArguments,
         [](const TCall& call) -> TValue { return Combined(call); }},
        {"System.IO.Path", "GetFileName", 1, 1,
         [](const TCall& call) -> TValue {
           const std::string path = call.Text(0);
           return std::string(deployment::FileNamePart(path));
         }},
        {"System.IO.Path", "GetFileNameWithoutExtension", 1, 1,
         [](const TCall& call) -> TValue {
           const std::string path = call.Text(0);
           return WithoutExtension(deployment::FileNamePart(path));
         }},
        {"System.IO.Path", "GetDirectoryName", 1, 1,
         [](const TCall& call) -> TValue {
           const std::string path = call.Text(0);
           return WithoutDelimiter(std::string(deployment::DirectoryPart(path)));
         }},
        {"System.IO.Path", "GetExtension", 1, 1,
         [](const TCall& call) -> TValue {
           const std::string path = call.Text(0);
           return std::string(deployment::ExtensionPart(path));
         }},
        {"System.IO.Path", "HasExtension", 1, 1,
         [](const TCall& call) -> TValue {
           const std::string path = call.Text(0);
           return !deployment::ExtensionPart(path).empty();
         }},
        {"System.IO.Path", "ChangeExtension", 2, 2,
         [](const TCall& call) -> TValue {
           const std::string path = call.Text(0);
           const std::string extension = call.Text(1);
           const bool dot = extension.empty() || extension.starts_with('.');
           return WithoutExtension(path) + (dot ? "" : ".") + extension;
         }},
        {"System.IO.Path", "GetFullPath", 1, 2, FullPath},
        {"System.IO.Path", "GetPathRoot", 1, 1, PathRoot},
        {"System.IO.Path", "IsPathRooted", 1, 1,
         [](const TCall& call) -> TValue { return deployment::IsAbsolutePath(call.Text(0)); }},
        {"System.IO.Path", "DirectorySeparatorChar", 0, 0,
         [](const TCall&) -> TValue { return std::string("\\"); }},
        {"System.IO.Path", "AltDirectorySeparatorChar", 0, 0,
         [](const TCall&) -> TValue { return std::string("/"); }},
        {"System.IO.Path", "PathSeparator", 0, 0,
         [](const TCall&) -> TValue { return std::string(";"); }},
        {"System.IO.File", "Exists", 1, 1,
         [](const TCall& call) -> TValue { return IsThere(call, fs::file_type::regular); }},
        {"System.IO.Directory", "Exists", 1, 1,
         [](const TCall& call) -> TValue { return IsThere(call, fs::file_type::directory); }},
        {"MSBuild", "EnsureTrailingSlash", 1, 1,
         [](const TCall& call) -> TValue { return WithDelimiter(call.Text(0)); }},
        {"MSBuild", "NormalizePath", 1, MostFunctionArguments,
         [](const TCall& call)
             -> TValue { return Full(Combined(call), call.Context.ProjectDirectory); }},
        {"MSBuild", "NormalizeDirectory", 1, MostFunctionArguments,
         [](const TCall& call) -> TValue {
           return WithDelimiter(Full(Combined(call), call.Context.ProjectDirectory));
         }},
        {"MSBuild", "GetDirectoryNameOfFileAbove", 2, 2,
         [](const TCall& call)
             -> TValue { return DirectoryAbove(call.Text(0), call.Text(1), call.Context); }},
        {"MSBuild", "GetPathOfFileAbove", 1, 2, PathOfFileAbove},
        {"MSBuild", "MakeRelative", 2, 2, MakeRelative},
    });

} // namespace

std::span<const TPropertyFunction> PathFunctions() {
  return PathFunctionsTable;
}

} // namespace workbench
