#include "workbench/archive/content_archive.h"

#include "workbench/files/own_modules.h"
#include "workbench/files/sha256.h"

namespace workbench {

std::unique_ptr<IContentArchive> NewContentArchive(const std::filesystem::path& file) {
  static const auto make = reinterpret_cast<TNewContentArchive>(
      OwnModuleFunction(CodecsModule, NewContentArchiveFunction));
  std::unique_ptr<IContentArchive> made;
  make(file, made);
  return made;
}

} // namespace workbench
