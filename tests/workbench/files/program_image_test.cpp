#include "workbench/files/program_image.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <string_view>

namespace workbench {
namespace {

class ProgramImage : public ::testing::Test {
protected:
  ~ProgramImage() override { std::filesystem::remove(FFile); }

  std::string Describe(std::string_view bytes) const {
    std::ofstream(FFile, std::ios::binary) << bytes;
    return DescribeProgramImage(ReadProgramImage(FFile));
  }
  static std::string PE(std::string_view machine) {
    std::string bytes(0x80, '\0');
    bytes.replace(0, 2, "MZ");
    bytes[0x3c] = '\x80';
    return bytes.append("PE\0\0", 4).append(machine);
  }
  static std::string ELF(char width, char order, std::string_view machine) {
    std::string bytes("\x7F"
                      "ELF");
    bytes.append({width, order}).resize(18);
    return bytes.append(machine);
  }

  const std::filesystem::path FFile =
      std::filesystem::temp_directory_path() /
      ("program-image-" +
       std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
};

TEST_F(ProgramImage, KnowsWindowsPrograms) {
  EXPECT_EQ(Describe(PE("\x64\x86")), "64-bit Windows program for x86-64");
  EXPECT_EQ(Describe(PE("\x4C\x01")), "32-bit Windows program for x86");
  EXPECT_EQ(Describe(PE("\x64\xAA")), "64-bit Windows program for ARM64");
  EXPECT_EQ(Describe(PE("\x01\x01")), "Windows program");
}

TEST_F(ProgramImage, KnowsProgramsOfLinuxAndAndroidInBothByteOrders) {
  using namespace std::string_view_literals;
  EXPECT_EQ(Describe(ELF(2, 1, "\x3E\x00"sv)), "64-bit ELF program for x86-64");
  EXPECT_EQ(Describe(ELF(1, 1, "\x28\x00"sv)), "32-bit ELF program for ARM");
  EXPECT_EQ(Describe(ELF(1, 2, "\x00\x08"sv)), "32-bit ELF program for MIPS");
  EXPECT_EQ(Describe(ELF(3, 1, "\x3E\x00"sv)), "no program");
}

TEST_F(ProgramImage, KnowsProgramsOfApplesSystems) {
  using namespace std::string_view_literals;
  EXPECT_EQ(Describe("\xCE\xFA\xED\xFE\x0C\x00\x00\x00"sv), "32-bit Mach-O program for ARM");
  EXPECT_EQ(Describe("\xCF\xFA\xED\xFE\x0C\x00\x00\x01"sv), "64-bit Mach-O program for ARM64");
  EXPECT_EQ(Describe("\xFE\xED\xFA\xCF\x01\x00\x00\x07"sv), "64-bit Mach-O program for x86-64");
  EXPECT_EQ(Describe("\xCA\xFE\xBA\xBE\x00\x00\x00\x02"sv), "universal Mach-O program");
}

TEST_F(ProgramImage, TellsACompiledClassOfJavaFromAUniversalProgram) {
  using namespace std::string_view_literals;
  EXPECT_EQ(Describe("\xCA\xFE\xBA\xBE\x00\x00\x00\x34"sv), "no program");
}

TEST_F(ProgramImage, TakesWhatIsCutOffOrMissingForNone) {
  const std::string whole = PE("\x64\x86");
  for (std::size_t size = 0; size < whole.size(); ++size)
    EXPECT_EQ(Describe(whole.substr(0, size)), "no program") << size;
  const std::string elf = ELF(2, 1, std::string_view("\x3E\x00", 2));
  for (std::size_t size = 0; size < elf.size(); ++size)
    EXPECT_EQ(Describe(elf.substr(0, size)), "no program") << size;
  std::filesystem::remove(FFile);
  EXPECT_EQ(DescribeProgramImage(ReadProgramImage(FFile)), "no program");
  EXPECT_EQ(DescribeProgramImage(ReadProgramImage(FFile.parent_path())), "no program");
}

} // namespace
} // namespace workbench
