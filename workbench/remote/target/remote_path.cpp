#include "workbench/remote/target/remote_path.h"

#include "package/common/case_fold.h"
#include "package/common/path_text.h"

#include <algorithm>
#include <array>

namespace workbench {
namespace {

using deployment::SameText;

constexpr std::size_t LongestName = 255; // bytes; what common file systems hold

bool HasDrive(std::string_view name) {
  return name.size() >= 2 && name[1] == ':' &&
         ((name[0] >= 'A' && name[0] <= 'Z') || (name[0] >= 'a' && name[0] <= 'z'));
}

// "COM1" to "COM9" and "LPT1" to "LPT9", the superscript digits one to three among them.
bool IsPort(std::string_view stem) {
  if (stem.size() < 4 ||
      !(SameText(stem.substr(0, 3), "COM") || SameText(stem.substr(0, 3), "LPT")))
    return false;
  const std::string_view number = stem.substr(3);
  return (number.size() == 1 && number[0] >= '0' && number[0] <= '9') || number == "\xC2\xB9" ||
         number == "\xC2\xB2" || number == "\xC2\xB3";
}

bool IsDevice(std::string_view part) {
  constexpr std::array<std::string_view, 7> Devices{"CON",    "PRN",     "AUX",   "NUL",
                                                    "CONIN$", "CONOUT$", "CLOCK$"};
  std::string_view stem = part.substr(0, part.find('.'));
  while (stem.ends_with(' '))
    stem.remove_suffix(1);
  return IsPort(stem) || std::ranges::any_of(Devices, [&](std::string_view device) {
           return SameText(device, stem);
         });
}

bool IsForbiddenOnWindows(char c) {
  return static_cast<unsigned char>(c) < ' ' ||
         std::string_view("<>:\"|?*").find(c) != std::string_view::npos;
}

std::string WindowsNameProblem(std::string_view part) {
  if (std::ranges::any_of(part, IsForbiddenOnWindows))
    return "has a character that names of Windows cannot have";
  if (part.ends_with('.') || part.ends_with(' '))
    return "ends in a dot or a blank, which Windows drops";
  if (IsDevice(part))
    return "is the name of a device of Windows";
  return {};
}

} // namespace

TNameRules NameRulesOf(std::string_view platform, bool ignoresCase) {
  return {ignoresCase, SameText(platform.substr(0, 3), "Win")};
}

std::string TRemotePath::Joined() const {
  std::string text;
  for (const std::string_view part : Parts) {
    if (!text.empty())
      text.push_back('/');
    text.append(part);
  }
  return text;
}

TRemotePath ParseRemotePath(std::string_view name) {
  TRemotePath path;
  if (HasDrive(name))
    path.Start = TRemotePath::TStart::Drive;
  else if (name.starts_with('~'))
    path.Start = TRemotePath::TStart::HomeDirectory;
  else if (!name.empty() && deployment::IsPathDelimiter(name.front()))
    path.Start = TRemotePath::TStart::FileSystemRoot;
  while (!name.empty()) {
    const auto end = std::ranges::find_if(name, deployment::IsPathDelimiter);
    const std::string_view part = name.substr(0, static_cast<std::size_t>(end - name.begin()));
    name.remove_prefix(std::min(part.size() + 1, name.size()));
    if (part.empty() || part == ".")
      continue;
    // The home directory is where such a path begins; it is not left by "..".
    const std::size_t first = path.Start == TRemotePath::TStart::HomeDirectory ? 1 : 0;
    if (part != "..")
      path.Parts.push_back(part);
    else if (path.Parts.size() <= first)
      path.Climbs = true;
    else
      path.Parts.pop_back();
  }
  return path;
}

std::string NameProblem(std::string_view part, const TNameRules& rules) {
  if (part.find('\0') != std::string_view::npos)
    return "has a NUL character";
  if (part.size() > LongestName)
    return "is longer than " + std::to_string(LongestName) + " bytes";
  if (IsUnfinishedName(part))
    return "is kept for files that are not whole yet";
  return rules.WindowsNames ? WindowsNameProblem(part) : std::string();
}

bool IsUnfinishedName(std::string_view name) {
  return name.size() > UnfinishedPrefix.size() + UnfinishedSuffix.size() &&
         name.starts_with(UnfinishedPrefix) && name.ends_with(UnfinishedSuffix);
}

} // namespace workbench
