#include "workbench/files/file_attributes.h"

#include <algorithm>
#include <string_view>
#include <sys/xattr.h>

namespace workbench {
namespace {

constexpr mode_t AllRights = 07777;
constexpr mode_t WithoutOwnersProgram = 03777; // an owner's program must not become another's

// Rights of a file whose group could not be kept: the new group gets what everybody has.
mode_t WithoutGroupRights(mode_t mode) {
  return (mode & ~static_cast<mode_t>(S_IRWXG | S_ISGID)) | ((mode & S_IRWXO) << 3);
}

// The rights that suit the owner and group that the system let us set.
mode_t CopyOwner(const struct stat& wanted, const TFileDescriptor& target,
                 std::vector<std::string>& warnings) {
  const mode_t mode = wanted.st_mode & AllRights;
  struct stat made = {};
  if (::fstat(target.Get(), &made) != 0)
    ThrowSystemError("examining the temporary file");
  if (made.st_uid == wanted.st_uid && made.st_gid == wanted.st_gid)
    return mode;
  if (::fchown(target.Get(), wanted.st_uid, wanted.st_gid) == 0)
    return mode;
  const bool groupKept = made.st_gid == wanted.st_gid ||
                         ::fchown(target.Get(), static_cast<uid_t>(-1), wanted.st_gid) == 0;
  const bool ownerKept = made.st_uid == wanted.st_uid;
  warnings.push_back(std::string("the file has another ") +
                     (ownerKept ? "group" : (groupKept ? "owner" : "owner and group")) +
                     " than before");
  return (groupKept ? mode : WithoutGroupRights(mode)) &
         (ownerKept ? AllRights : WithoutOwnersProgram);
}

// Attributes that belong to the user's data; the others are the system's own to set.
bool IsKept(std::string_view name) {
  return name.starts_with("user.") || name == "system.posix_acl_access";
}

void CopyAttribute(int source, int target, const std::string& name,
                   std::vector<std::string>& warnings) {
  const ssize_t size = ::fgetxattr(source, name.c_str(), nullptr, 0);
  std::vector<char> value(size > 0 ? static_cast<std::size_t>(size) : 0);
  if (size < 0 || ::fgetxattr(source, name.c_str(), value.data(), value.size()) != size ||
      ::fsetxattr(target, name.c_str(), value.data(), value.size(), 0) != 0)
    warnings.push_back("the file's attribute \"" + name + "\" was not kept");
}

} // namespace

void CopyFileAttributes(const TFileDescriptor& source, const struct stat& status,
                        const TFileDescriptor& target, std::vector<std::string>& warnings) {
  const mode_t mode = CopyOwner(status, target, warnings);
  if (::fchmod(target.Get(), mode) != 0)
    ThrowSystemError("setting the rights of the temporary file");
  const ssize_t size = ::flistxattr(source.Get(), nullptr, 0);
  if (size <= 0)
    return;
  std::vector<char> names(static_cast<std::size_t>(size));
  const ssize_t listed = ::flistxattr(source.Get(), names.data(), names.size());
  std::string_view rest(names.data(), listed > 0 ? static_cast<std::size_t>(listed) : 0);
  while (!rest.empty()) {
    const std::string name(rest.substr(0, rest.find('\0')));
    rest.remove_prefix(std::min(name.size() + 1, rest.size()));
    // An access list would give the kept group's rights to another group.
    const bool isWidening =
        name == "system.posix_acl_access" && mode != (status.st_mode & AllRights);
    if (IsKept(name) && !isWidening)
      CopyAttribute(source.Get(), target.Get(), name, warnings);
  }
}

} // namespace workbench
