#include "workbench/files/user_name.h"

#include <array>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace workbench {

std::string UserName() {
  std::vector<char> room(16384);
  passwd entry = {};
  passwd* found = nullptr;
  if (::getpwuid_r(::geteuid(), &entry, room.data(), room.size(), &found) == 0 && found)
    return found->pw_name;
  return std::to_string(::geteuid());
}

std::string MachineName() {
  std::array<char, 256> name{};
  return ::gethostname(name.data(), name.size() - 1) == 0 && name.front() ? name.data()
                                                                          : "localhost";
}

} // namespace workbench
