#include "workbench/files/ended_process.h"

#include <cerrno>
#include <csignal>
#include <fstream>
#include <iterator>
#include <string>

namespace workbench {

bool HasProcessEnded(long process) {
  if (process <= 0)
    return false;
  if (::kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH)
    return true;
  // In a container without an init, what was killed stays in the table until the container ends.
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  const std::string text(std::istreambuf_iterator<char>(file), {});
  const std::size_t name = text.rfind(')'); // the name of a program may hold anything
  if (name == std::string::npos || name + 2 >= text.size())
    return false;
  const char state = text[name + 2];
  return state == 'Z' || state == 'X';
}

} // namespace workbench
