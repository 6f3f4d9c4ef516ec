#include "workbench/deploy/fleet/fleet_folder.h"

#include "workbench/files/file_descriptor.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>

namespace workbench {
namespace {

constexpr mode_t FleetFolderRights = 0777; // what the user's mask takes from it
constexpr mode_t FleetFileRights = 0666;

std::filesystem::path WithoutLastDelimiter(const std::filesystem::path& path) {
  const auto full = std::filesystem::absolute(path).lexically_normal();
  return full.has_filename() ? full : full.parent_path();
}

} // namespace

TFleetFolder::TFleetFolder(const std::filesystem::path& target)
    : FTarget(WithoutLastDelimiter(target)) {
  // A link stays, and leads to the new folder.
  if (std::filesystem::is_symlink(FTarget))
    FTarget = std::filesystem::weakly_canonical(FTarget);
  std::filesystem::create_directories(FTarget.parent_path());
  std::string name =
      (FTarget.parent_path() / ("." + FTarget.filename().string() + ".XXXXXX")).string();
  if (!::mkdtemp(name.data()))
    ThrowSystemError("making a folder beside it");
  FPath = name;
  const mode_t mask = ::umask(0);
  ::umask(mask);
  if (::chmod(FPath.c_str(), FleetFolderRights & ~mask) != 0)
    ThrowSystemError("setting the rights of the folder");
}

TFleetFolder::~TFleetFolder() {
  std::error_code ignored;
  if (!FPath.empty())
    std::filesystem::remove_all(FPath, ignored);
}

void TFleetFolder::PutInPlace() {
  // The two change places at once; what was there goes with the object.
  if (::renameat2(AT_FDCWD, FPath.c_str(), AT_FDCWD, FTarget.c_str(), RENAME_EXCHANGE) == 0)
    return;
  if (errno != ENOENT) {
    const std::filesystem::path old = FPath.string() + ".old";
    std::filesystem::rename(FTarget, old);
    std::filesystem::rename(FPath, FTarget);
    FPath = old;
    return;
  }
  std::filesystem::rename(FPath, FTarget);
  FPath.clear();
}

TPrivateDirectory::TPrivateDirectory() {
  std::string name = (std::filesystem::temp_directory_path() / "deploymgr-XXXXXX").string();
  if (!::mkdtemp(name.data()))
    ThrowSystemError("making a directory for the fleet");
  FPath = name;
}

TPrivateDirectory::~TPrivateDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(FPath, ignored);
}

void WriteFleetFile(const std::filesystem::path& file, std::string_view text) {
  std::filesystem::create_directories(file.parent_path());
  const TFileDescriptor opened(
      ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, FleetFileRights));
  if (!opened.IsOpen())
    ThrowSystemError("making a file of the folder");
  while (!text.empty()) {
    const ssize_t count = ::write(opened.Get(), text.data(), text.size());
    if (count < 0 && errno != EINTR)
      ThrowSystemError("writing a file of the folder");
    text.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : 0);
  }
}

} // namespace workbench
