#include "package/common/errors.h"
#include "tests/workbench/files/save_fixture.h"
#include "workbench/files/file_reader.h"

#include <atomic>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>

namespace workbench {
namespace {

using deployment::TInputError;
using testing::ErrorOf;

class FileReader : public testing::TSaveTest {
protected:
  static std::string ReadError(const std::filesystem::path& file,
                               std::uint64_t limit = MaximumFileSize) {
    return ErrorOf<TInputError>([&] { ReadWholeFile(file, limit); });
  }
};

TEST_F(FileReader, GivesEveryByteOfAPlainFile) {
  const std::string bytes("\xEF\xBB\xBF<a>\0\r\n\xFF", 11);
  Write(FFile, bytes);
  const TFileContent content = ReadWholeFile(FFile);
  EXPECT_EQ(content.Text(), bytes);
  EXPECT_EQ(content.Identity().Size, 11);
  struct stat status = {};
  ASSERT_EQ(stat(FFile.c_str(), &status), 0);
  EXPECT_EQ(content.Identity(), IdentityOf(status));
}

TEST_F(FileReader, ReadsAnEmptyFile) {
  Write(FFile, "");
  EXPECT_EQ(ReadWholeFile(FFile).Text(), "");
}

TEST_F(FileReader, FollowsASymbolicLink) {
  Write(FFile, "content");
  std::filesystem::create_symlink("demo.vproj", FDirectory / "link.vproj");
  EXPECT_EQ(ReadWholeFile(FDirectory / "link.vproj").Text(), "content");
}

TEST_F(FileReader, NamesTheKindOfWhatIsNoPlainFile) {
  EXPECT_EQ(ReadError(FDirectory), "the path names a directory, not a project file");
  EXPECT_EQ(testing::ErrorOf<deployment::TInputError>(
                [this] { ReadWholeFile(FDirectory, 1, "imported project file"); }),
            "the path names a directory, not an imported project file");
  EXPECT_EQ(ReadError("/dev/null"), "the path names a device, not a project file");
  ASSERT_EQ(mkfifo(FFile.c_str(), 0600), 0);
  EXPECT_EQ(ReadError(FFile), "the path names a pipe, not a project file");
}

TEST_F(FileReader, RefusesASocket) {
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  const std::string name = (FDirectory / "socket").string();
  std::copy(name.begin(), name.end(), address.sun_path);
  const TFileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM, 0));
  ASSERT_EQ(bind(socket.Get(), reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
  EXPECT_EQ(ReadError(name), "the path names a socket, not a project file");
}

TEST_F(FileReader, GivesTheSystemsReasonAndThePlace) {
  EXPECT_EQ(ReadError(FFile), "the project file cannot be read: No such file or directory");
  EXPECT_EQ(ReadError(""), "the project file cannot be read: No such file or directory");
  try {
    ReadWholeFile(FFile, MaximumFileSize, "template");
    FAIL();
  } catch (const TInputError& error) {
    EXPECT_STREQ(error.what(), "the template cannot be read: No such file or directory");
    EXPECT_EQ(error.Place().File, FFile.string());
  }
}

TEST_F(FileReader, RefusesAFileOverTheLimitWithoutReadingIt) {
  Write(FFile, "12345");
  EXPECT_EQ(ReadError(FFile, 4), "the project file has 5 bytes; at most 4 are read");
  EXPECT_EQ(ReadWholeFile(FFile, 5).Text(), "12345");
  std::filesystem::resize_file(FFile, MaximumFileSize + 1);
  EXPECT_EQ(ReadError(FFile), "the project file has 268435457 bytes; at most 268435456 are read");
}

TEST_F(FileReader, GivesUpOnAFileThatNeverHasTheSizeItSays) {
  EXPECT_EQ(ReadError("/proc/self/status"),
            "the project file was changed by another program each time it was read");
}

TEST_F(FileReader, ReadsAReplacedFileWholeInOneOfItsStates) {
  const std::string one(300000, 'a');
  const std::string two(500000, 'b');
  Write(FFile, one);
  std::atomic<bool> done = false;
  std::thread other([&] {
    const std::filesystem::path next = FDirectory / "next";
    for (int i = 0; !done; ++i) {
      Write(next, i % 2 == 0 ? two : one);
      std::filesystem::rename(next, FFile);
    }
  });
  for (int i = 0; i < 50; ++i) {
    const TFileContent content = ReadWholeFile(FFile);
    EXPECT_TRUE(content.Text() == one || content.Text() == two);
  }
  done = true;
  other.join();
}

} // namespace
} // namespace workbench
