#include "package/common/errors.h"
#include "tests/workbench/files/save_fixture.h"
#include "workbench/files/file_lock.h"
#include "workbench/files/file_saver.h"

#include <array>
#include <future>
#include <optional>
#include <thread>

namespace workbench {
namespace {

using std::chrono::milliseconds;
using testing::ErrorOf;

class FileLock : public testing::TSaveTest {};

TEST_F(FileLock, SaysHowLongItWaitedForAnotherRun) {
  Write(FFile, "x");
  const TFileLock first(FFile);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(ErrorOf<TSaveError>([&] { TFileLock(FFile, milliseconds(120)); }),
            FFile.string() +
                " is in use by another run; waited 120 milliseconds; nothing was written");
  EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(120));
  EXPECT_EQ(ErrorOf<TSaveError>([&] { TFileLock(FFile, milliseconds(1000)); }),
            FFile.string() + " is in use by another run; waited 1 second; nothing was written");
  EXPECT_EQ(LockPatience, std::chrono::seconds(10));
}

TEST_F(FileLock, GetsTheFileWhenTheOtherRunLetsGo) {
  Write(FFile, "x");
  std::optional<TFileLock> first(FFile);
  auto second = std::async(std::launch::async, [this] { TFileLock lock(FFile); });
  EXPECT_EQ(second.wait_for(milliseconds(100)), std::future_status::timeout);
  first.reset();
  second.get();
}

TEST_F(FileLock, WaitsOnForTheFileThatASavePutInPlace) {
  Write(FFile, "old");
  std::optional<TFileLock> first(FFile);
  auto second = std::async(std::launch::async, [this] {
    TFileLock lock(FFile);
    return Read("/proc/self/fd/" + std::to_string(lock.File().Get()));
  });
  std::this_thread::sleep_for(milliseconds(100));
  SaveFile({.Target = FFile,
            .Content = std::array{std::string_view("new")},
            .Expected = "old",
            .Lock = &*first});
  EXPECT_EQ(second.wait_for(milliseconds(200)), std::future_status::timeout);
  first.reset();
  EXPECT_EQ(second.get(), "new");
}

TEST_F(FileLock, RefusesWhatIsNoFile) {
  EXPECT_EQ(ErrorOf<deployment::TInputError>([&] { const TFileLock lock(FFile); }),
            "the project file cannot be read: No such file or directory");
  EXPECT_EQ(ErrorOf<deployment::TInputError>([&] { const TFileLock lock(FDirectory); }),
            "the path names a directory, not a project file");
}

} // namespace
} // namespace workbench
