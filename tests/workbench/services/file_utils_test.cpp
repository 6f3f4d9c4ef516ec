#include "tests/workbench/files/save_fixture.h"
#include "tests/support/environment.h"
#include "workbench/files/machine_path.h"
#include "workbench/services/file_utils.h"

#include <sys/stat.h>

namespace workbench {
namespace {

using deployment::TImageWidth;

class FileUtils : public testing::TSaveTest {
protected:
  TImageWidth WidthOf(std::string_view bytes) {
    Write(FFile, bytes);
    return FUtils.IsImage64Bit(ToStoredPath(FFile));
  }
  static std::string Image(std::string_view machine) {
    std::string bytes(0x80, '\0');
    bytes.replace(0, 2, "MZ");
    bytes[0x3c] = '\x80';
    return bytes.append("PE\0\0", 4).append(machine);
  }

  TFileUtils FUtils;
};

TEST_F(FileUtils, TellTheWidthOfAProgramByItsHeader) {
  EXPECT_EQ(WidthOf(Image("\x64\x86")), TImageWidth::Bits64);
  EXPECT_EQ(WidthOf(Image("\x64\xAA")), TImageWidth::Bits64);
  EXPECT_EQ(WidthOf(Image("\x4C\x01")), TImageWidth::Bits32);
  EXPECT_EQ(WidthOf(Image("\x01\x01")), TImageWidth::Neither);
}

TEST_F(FileUtils, TakeACutOffHeaderForNone) {
  const std::string whole = Image("\x64\x86");
  for (std::size_t size = 0; size < whole.size(); ++size)
    EXPECT_EQ(WidthOf(whole.substr(0, size)), TImageWidth::Neither) << size;
  EXPECT_EQ(FUtils.IsImage64Bit(ToStoredPath(FDirectory)), TImageWidth::Neither);
  std::filesystem::remove(FFile);
  EXPECT_EQ(FUtils.IsImage64Bit(ToStoredPath(FFile)), TImageWidth::Neither);
  ASSERT_EQ(mkfifo(FFile.c_str(), 0600), 0);
  EXPECT_EQ(FUtils.IsImage64Bit(ToStoredPath(FFile)), TImageWidth::Neither);
}

TEST_F(FileUtils, FindFilesButNotDirectories) {
  EXPECT_FALSE(FUtils.FileExists(ToStoredPath(FFile)));
  Write(FFile, "");
  EXPECT_TRUE(FUtils.FileExists(ToStoredPath(FFile)));
  EXPECT_TRUE(FUtils.FileExists(FFile.string()));
  EXPECT_FALSE(FUtils.FileExists(ToStoredPath(FDirectory)));
  EXPECT_FALSE(FUtils.FileExists("C:\\Windows\\notepad.exe"));
}

TEST_F(FileUtils, MakePathsAbsolute) {
  EXPECT_EQ(FUtils.QualifyPath("data\\..\\a.dat", "/home/ada/demo.vproj"), "\\home\\ada\\a.dat");
  EXPECT_EQ(FUtils.MakeAbsolutePath("a.dat", "/home/ada"), "\\home\\ada\\a.dat");
  EXPECT_EQ(FUtils.MakeAbsolutePath("C:\\a.dat", "/home/ada"), "C:\\a.dat");
}

TEST_F(FileUtils, MakePathsRelative) {
  EXPECT_EQ(FUtils.MakeRelativePath("/home/ada/data/a.dat", "/home/ada"), "data\\a.dat");
  EXPECT_EQ(FUtils.MakeRelativePath("\\home\\b\\a.dat", "\\home\\ada\\x\\"), "..\\..\\b\\a.dat");
  EXPECT_EQ(FUtils.MakeRelativePath("/home/Ada/a.dat", "/home/ada"), "..\\Ada\\a.dat");
  EXPECT_EQ(FUtils.MakeRelativePath("c:\\WORK\\a.dat", "C:\\work"), "a.dat");
  EXPECT_EQ(FUtils.MakeRelativePath("D:\\a.dat", "C:\\work"), "D:\\a.dat");
  EXPECT_EQ(FUtils.MakeRelativePath("C:\\a.dat", "/home"), "C:\\a.dat");
  EXPECT_EQ(FUtils.MakeRelativePath("a.dat", "/home"), "a.dat");
  EXPECT_EQ(FUtils.MakeRelativePath("/a.dat", "/"), "a.dat");
}

TEST_F(FileUtils, GiveListsOfTheEnvironmentWithSemicolons) {
  testing::TEnvironment environment;
  environment.Set("PATH", "/usr/bin:/bin");
  environment.Set("DEPLOYMENT_TEST", "a:b");
  EXPECT_EQ(FUtils.GetEnvironmentVariable("PATH"), "/usr/bin;/bin");
  EXPECT_EQ(FUtils.GetEnvironmentVariable("DEPLOYMENT_TEST"), "a:b");
  environment.Set("DEPLOYMENT_TEST", std::nullopt);
  EXPECT_EQ(FUtils.GetEnvironmentVariable("DEPLOYMENT_TEST"), "");
}

} // namespace
} // namespace workbench
