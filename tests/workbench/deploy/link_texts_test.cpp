#include "workbench/deploy/link_texts.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace workbench {
namespace {

namespace fs = std::filesystem;

class LinksOfADeploy : public ::testing::Test {
protected:
  LinksOfADeploy() {
    std::string name = (fs::temp_directory_path() / "texts-XXXXXX").string();
    Directory = ::mkdtemp(name.data());
    fs::create_directories(Directory / "lib/deep");
    std::ofstream(Directory / "lib/libx.so.1.2");
    fs::create_symlink("libx.so.1.2", Directory / "lib/libx.so.1");
    fs::create_symlink("libx.so.1", Directory / "lib/libx.so");
  }
  ~LinksOfADeploy() override { fs::remove_all(Directory); }

  // Local name, and directory and name on the target.
  void Add(const std::string& local, const std::string& directory, const std::string& name,
           bool mayTakePart = true) {
    Files.push_back({Directory / local, {directory, name}, mayTakePart});
  }
  using TTexts = std::vector<std::string>;

  fs::path Directory;
  std::vector<TLinkCandidate> Files;
};

TEST_F(LinksOfADeploy, StayLinksWhereWhatTheyLeadToIsDeployedToo) {
  Add("lib/libx.so", "/opt/lib", "libx.so");
  Add("lib/libx.so.1", "/opt/lib", "libx.so.1");
  Add("lib/libx.so.1.2", "/opt/lib", "libx.so.1.2");
  EXPECT_EQ(LinkTexts(Files), (TTexts{"libx.so.1", "libx.so.1.2", ""}));
}

TEST_F(LinksOfADeploy, LeadToThePlaceOnTheTargetUnderItsNameThere) {
  Add("lib/libx.so", "/opt/bin", "plugin.so");
  Add("lib/libx.so.1", "/opt/lib/deep", "renamed.so");
  EXPECT_EQ(LinkTexts(Files), (TTexts{"../lib/deep/renamed.so", ""}));
}

TEST_F(LinksOfADeploy, AreContentWhereWhatTheyLeadToStaysHere) {
  Add("lib/libx.so", "/opt/lib", "libx.so");
  Add("lib/libx.so.1.2", "/opt/lib", "libx.so.1.2");
  EXPECT_EQ(LinkTexts(Files), (TTexts{"", ""}));
  Files.clear();
  Add("lib/libx.so.1", "/opt/lib", "libx.so.1");
  Add("lib/libx.so.1.2", "/opt/lib", "libx.so.1.2", /*mayTakePart=*/false);
  EXPECT_EQ(LinkTexts(Files), (TTexts{"", ""}));
}

TEST_F(LinksOfADeploy, WithAnAbsoluteTextAreContent) {
  fs::create_symlink(Directory / "lib/libx.so.1.2", Directory / "full");
  fs::create_symlink("/etc/hostname", Directory / "outside");
  Add("full", "/opt/lib", "full");
  Add("outside", "/opt/lib", "outside");
  Add("lib/libx.so.1.2", "/opt/lib", "libx.so.1.2");
  EXPECT_EQ(LinkTexts(Files), (TTexts{"", "", ""}));
}

TEST_F(LinksOfADeploy, AreSeenThroughLinksOfDirectories) {
  fs::create_directory_symlink("lib", Directory / "alias");
  fs::create_symlink("../libx.so.1.2", Directory / "lib/deep/up.so");
  Add("alias/libx.so.1", "/opt", "a");
  Add("alias/deep/up.so", "/opt", "b");
  Add("lib/libx.so.1.2", "/opt", "c");
  EXPECT_EQ(LinkTexts(Files), (TTexts{"c", "c", ""}));
}

} // namespace
} // namespace workbench
