#include "workbench/archive/member_rules.h"

#include "workbench/text/visible_text.h"

#include <algorithm>
#include <unordered_map>

namespace workbench {
namespace {

using TKind = TArchiveMember::TKind;

constexpr std::size_t LongestName = 4095; // bytes
constexpr std::ptrdiff_t MostParts = 256;

[[noreturn]] void Refuse(std::string_view name, const std::string& reason) {
  throw TArchiveError("\"" + Visible(name) + "\" in it " + reason);
}

// What stands before the first of the delimiters, which goes with it.
std::string_view TakePart(std::string_view& rest, std::string_view delimiters) {
  const std::size_t end = std::min(rest.find_first_of(delimiters), rest.size());
  const std::string_view part = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return part;
}

// Climbing is counted from where the link stands, and only before names: what a name leads to may
// be a link itself, and what is above that is not known.
void CheckLink(const TArchiveMember& link) {
  if (link.LinkText.empty() || link.LinkText.starts_with('/'))
    Refuse(link.Name, "is a link that leads out: " + Visible(link.LinkText));
  auto height = std::ranges::count(link.Name, '/');
  bool hasName = false;
  for (std::string_view rest = link.LinkText; !rest.empty();) {
    const std::string_view part = TakePart(rest, "/");
    if (part.empty() || part == ".")
      continue;
    if (part != "..")
      hasName = true;
    else if (hasName || --height < 0)
      Refuse(link.Name, "is a link that leads out: " + Visible(link.LinkText));
  }
}

} // namespace

std::string MemberName(std::string_view stored) {
  if (stored.starts_with('/') || stored.starts_with('\\'))
    Refuse(stored, "has an absolute name");
  if (stored.size() > 1 && stored[1] == ':')
    Refuse(stored, "has a name with a drive");
  std::string name;
  for (std::string_view rest = stored; !rest.empty();) {
    const std::string_view part = TakePart(rest, "/\\");
    if (part.empty() || part == ".")
      continue;
    if (part == "..")
      Refuse(stored, "leads out of the directory that it is unpacked into");
    if (!name.empty())
      name += '/';
    name += part;
  }
  if (name.size() > LongestName || std::ranges::count(name, '/') >= MostParts)
    Refuse(stored.substr(0, 64), "has a name that is too long or too deep");
  return name;
}

void CheckMembersTogether(std::span<const TArchiveMember> members) {
  std::unordered_map<std::string_view, TKind> kinds;
  for (const TArchiveMember& member : members)
    kinds.emplace(member.Name, member.Kind);
  for (const TArchiveMember& member : members) {
    if (member.Kind == TKind::Link)
      CheckLink(member);
    const std::string_view name = member.Name;
    for (std::size_t end = name.find('/'); end != std::string_view::npos;
         end = name.find('/', end + 1)) {
      const auto above = kinds.find(name.substr(0, end));
      if (above != kinds.end() && above->second != TKind::Directory)
        Refuse(name, "is below " + Visible(above->first) + ", which is no directory");
    }
  }
}

} // namespace workbench
