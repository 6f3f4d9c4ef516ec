#include "workbench/remote/target/target_place.h"

namespace workbench {
namespace {

using TStart = TRemotePath::TStart;

// What is wrong with where the path begins, to follow its name.
std::string StartProblem(const TRemotePath& path, const TPlaceRules& rules) {
  const bool isOutside = path.Start != TStart::ProfilePath || path.Climbs;
  if (isOutside && !rules.AllowOutside)
    return "leaves the path of the profile";
  // However it was written here: where the path is read again, "~" begins a home directory.
  if (path.Start == TStart::ProfilePath && !path.Parts.empty() &&
      path.Parts.front().starts_with('~'))
    return "begins with \"~\", which stands for a home directory";
  if (path.Start == TStart::Drive)
    return "names a drive, which the target does not have";
  if (path.Start == TStart::HomeDirectory && path.Parts.front() != "~")
    return "names the home directory of another user";
  return path.Climbs ? "climbs above the directory where it begins" : "";
}

std::string PathProblem(std::string_view storedPath, const TRemotePath& path,
                        const TPlaceRules& rules) {
  const std::string subject = "its remote path \"" + std::string(storedPath) + "\" ";
  if (const std::string problem = StartProblem(path, rules); !problem.empty())
    return subject + problem;
  for (const std::string_view part : path.Parts) {
    if (const std::string problem = NameProblem(part, rules.Names); !problem.empty())
      return "\"" + std::string(part) + "\" in its remote path " + problem;
  }
  const std::size_t least = path.Start == TStart::HomeDirectory ? 2 : 1;
  const bool endsInDelimiter = storedPath.ends_with('\\') || storedPath.ends_with('/');
  return path.Parts.size() < least || endsInDelimiter ? subject + "names no file" : std::string();
}

// A connection knows a home directory by "~/".
std::string DirectoryText(const TRemotePath& path) {
  std::string text = path.Joined();
  if (path.Start == TStart::FileSystemRoot)
    text.insert(text.begin(), '/');
  else if (path.Start == TStart::HomeDirectory && path.Parts.size() == 1)
    text.push_back('/');
  return text;
}

} // namespace

TTargetPlace FindTargetPlace(std::string_view storedPath, const TPlaceRules& rules) {
  TRemotePath path = ParseRemotePath(storedPath);
  if (std::string problem = PathProblem(storedPath, path, rules); !problem.empty())
    return {.Problem = std::move(problem)};
  TTargetPlace place;
  place.Name.Name = path.Parts.back();
  path.Parts.pop_back();
  place.Name.Directory = DirectoryText(path);
  return place;
}

std::string DirectoryProblem(const TRemoteDirectory& directory, const TPlaceRules& rules) {
  if (!directory.Problem.empty())
    return directory.Problem;
  if (!directory.IsInside && !rules.AllowOutside)
    return "it leads to " + directory.Path + ", which is outside the path of the profile";
  return {};
}

} // namespace workbench
