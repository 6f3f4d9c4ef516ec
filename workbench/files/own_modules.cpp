#include "workbench/files/own_modules.h"

#include "package/common/errors.h"
#include "workbench/files/own_program.h"

#include <dlfcn.h>
#include <string>

namespace workbench {
namespace {

constexpr const char* InstalledDirectory = "deployment-manager";

std::string ReasonOfLoader() {
  const char* reason = ::dlerror();
  return reason ? reason : "no reason was given";
}

} // namespace

std::filesystem::path OwnModuleFile(std::string_view name) {
  const std::filesystem::path directory = OwnProgram().parent_path();
  std::filesystem::path beside = directory / name;
  const std::filesystem::path prefix = (directory / "..").lexically_normal();
  std::error_code ignored;
  // Files that are shared stand where the program was installed, and nowhere else.
  if (std::filesystem::exists(beside, ignored) ||
      !std::filesystem::is_directory(prefix / "share" / InstalledDirectory, ignored))
    return beside;
  return prefix / "lib" / InstalledDirectory / name;
}

void* OwnModuleFunction(std::string_view module, const char* function) {
  const std::filesystem::path file = OwnModuleFile(module);
  const deployment::TErrorPlace place{file.string(), 0};
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored))
    throw deployment::TInputError("there is no such file: the installation is not complete", place);
  // A second call counts the module once more, and nobody gives it back.
  void* loaded = ::dlopen(std::filesystem::absolute(file).c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!loaded)
    throw deployment::TInputError("the module cannot be loaded: " + ReasonOfLoader(), place);
  void* found = ::dlsym(loaded, function);
  if (!found)
    throw deployment::TInputError("the module is of another version: " + ReasonOfLoader(), place);
  return found;
}

} // namespace workbench
