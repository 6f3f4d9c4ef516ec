// Modules that belong to the program and are loaded when they are needed: what most runs do without
// costs no start.
#pragma once

#include <filesystem>
#include <string_view>

namespace workbench {

/// The module of that name, such as "deployment-package.so": beside the running program, else where
/// it was installed with it. The file need not exist.
std::filesystem::path OwnModuleFile(std::string_view name);

/// A function that the module exports. The module stays loaded to the end. Throws TInputError when
/// it cannot be loaded or has no such function. Any thread may call it.
void* OwnModuleFunction(std::string_view module, const char* function);

} // namespace workbench
