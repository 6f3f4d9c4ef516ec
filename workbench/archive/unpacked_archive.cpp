#include "workbench/archive/unpacked_archive.h"

#include "workbench/files/own_modules.h"
#include "workbench/files/sha256.h"

namespace workbench {

std::vector<TArchiveMember> UnpackArchive(const std::filesystem::path& archive,
                                          const std::filesystem::path& directory,
                                          const std::function<bool()>& isCancelled,
                                          const TArchiveLimits& limits) {
  static const auto unpack =
      reinterpret_cast<TUnpackFunction>(OwnModuleFunction(CodecsModule, UnpackFunctionName));
  std::vector<TArchiveMember> members;
  unpack(archive, directory, isCancelled, limits, members);
  return members;
}

} // namespace workbench
