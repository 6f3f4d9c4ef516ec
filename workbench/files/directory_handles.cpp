#include "workbench/files/directory_handles.h"

#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>

namespace workbench {
namespace {

constexpr std::size_t MostOpened = 64;

enum class TMissing { Fail, Make };

TFileDescriptor OpenStep(int parent, const std::string& name) {
  return TFileDescriptor(
      ::openat(parent, name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

TFileDescriptor Walk(const std::string& path, TMissing missing) {
  TFileDescriptor opened(::open("/", O_PATH | O_DIRECTORY | O_CLOEXEC));
  for (const std::filesystem::path& step : std::filesystem::path(path).relative_path()) {
    TFileDescriptor next = OpenStep(opened.Get(), step.native());
    if (!next.IsOpen() && errno == ENOENT && missing == TMissing::Make) {
      if (::mkdirat(opened.Get(), step.c_str(), 0777) != 0 && errno != EEXIST)
        ThrowSystemError("making the directory");
      next = OpenStep(opened.Get(), step.native());
    }
    if (!next.IsOpen())
      ThrowSystemError("opening the directory");
    opened = std::move(next);
  }
  return opened;
}

} // namespace

int TDirectoryHandles::Open(const std::string& path) {
  if (const auto found = FOpened.find(path); found != FOpened.end())
    return found->second.Get();
  TFileDescriptor opened = Walk(path, TMissing::Fail);
  if (FOpened.size() >= MostOpened)
    FOpened.clear();
  return FOpened.insert_or_assign(path, std::move(opened)).first->second.Get();
}

void TDirectoryHandles::Make(const std::string& path) {
  static_cast<void>(Walk(path, TMissing::Make));
}

} // namespace workbench
