#include "package/common/errors.h"
#include "tests/workbench/files/save_fixture.h"
#include "workbench/files/own_modules.h"
#include "workbench/files/sha256.h"

namespace workbench {
namespace {

TEST(OwnModules, StandBesideTheRunningProgram) {
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
  EXPECT_EQ(OwnModuleFile("x.so"), program.parent_path() / "x.so");
}

TEST(OwnModules, ThatAreNotInstalledAreNamed) {
  try {
    OwnModuleFunction("absent-module.so", "Any");
    FAIL();
  } catch (const deployment::TInputError& error) {
    EXPECT_STREQ(error.what(), "there is no such file: the installation is not complete");
    EXPECT_EQ(error.Place().File, OwnModuleFile("absent-module.so").string());
  }
}

TEST(OwnModules, OfAnotherVersionLackTheFunction) {
  EXPECT_TRUE(testing::ErrorOf<deployment::TInputError>([] {
                OwnModuleFunction(CodecsModule, "NoSuchFunction");
              }).starts_with("the module is of another version: "));
}

TEST(OwnModules, OfCodecsComputesDigests) {
  TSHA256 digest;
  digest.Add("a");
  digest.Add("bc");
  EXPECT_EQ(digest.Text(), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

} // namespace
} // namespace workbench
