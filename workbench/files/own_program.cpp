#include "workbench/files/own_program.h"

#include "workbench/files/machine_path.h"

#include <dlfcn.h>
#include <link.h>

namespace workbench {
namespace {

namespace fs = std::filesystem;

// The shared object that this code was linked into; empty for the program itself.
fs::path OwnSharedObject() {
  Dl_info info;
  link_map* map = nullptr;
  const bool found = ::dladdr1(reinterpret_cast<const void*>(&OwnSharedObject), &info,
                               reinterpret_cast<void**>(&map), RTLD_DL_LINKMAP) != 0;
  return found && map && map->l_name ? fs::path(map->l_name) : fs::path();
}

} // namespace

fs::path OwnProgram() {
  const fs::path plugin = OwnSharedObject();
  return plugin.empty() ? RunningProgram() : ProgramAround(plugin);
}

fs::path ProgramAround(const fs::path& plugin) {
  const fs::path program = fs::path("bin") / "deploymgr";
  std::error_code ignored;
  fs::path directory = fs::weakly_canonical(plugin, ignored).parent_path();
  for (; directory.has_relative_path(); directory = directory.parent_path()) {
    if (fs::is_directory(directory / "share" / "deployment-manager", ignored) ||
        fs::exists(directory / "bin" / "deployment-package.so", ignored))
      return directory / program;
  }
  return fs::path(DEPLOYMENT_PREFIX) / program;
}

} // namespace workbench
