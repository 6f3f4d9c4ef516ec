#include "workbench/files/private_directory.h"

#include "workbench/files/file_descriptor.h"
#include "workbench/files/text_hash.h"

#include <sys/stat.h>

namespace workbench {

void MakePrivateDirectories(const std::filesystem::path& directory) {
  if (::mkdir(directory.c_str(), 0700) == 0 || errno == EEXIST)
    return;
  if (errno != ENOENT || !directory.has_relative_path())
    ThrowSystemError("making the directory");
  MakePrivateDirectories(directory.parent_path());
  if (::mkdir(directory.c_str(), 0700) != 0 && errno != EEXIST)
    ThrowSystemError("making the directory");
}

std::string NameForFile(const std::filesystem::path& file) {
  constexpr std::size_t NameBytesKept = 200;
  std::error_code error;
  std::filesystem::path full = std::filesystem::weakly_canonical(file, error);
  if (error)
    full = std::filesystem::absolute(file, error).lexically_normal();
  return full.filename().string().substr(0, NameBytesKept) + "-" + TextHash(full.native());
}

} // namespace workbench
