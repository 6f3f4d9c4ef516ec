#include "workbench/session/link_chain.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>

namespace workbench {
namespace {

namespace fs = std::filesystem;

class LinkChains : public ::testing::Test {
protected:
  LinkChains() {
    std::string name = (fs::temp_directory_path() / "links-XXXXXX").string();
    FDirectory = ::mkdtemp(name.data());
    File("libx.so.1.2.3");
    Link("libx.so.1", "libx.so.1.2.3");
    Link("libx.so", "libx.so.1");
  }
  ~LinkChains() override { fs::remove_all(FDirectory); }

  void File(const std::string& name) const { std::ofstream(FDirectory / name) << name; }
  void Link(const std::string& name, const std::string& text) const {
    fs::create_symlink(text, FDirectory / name);
  }
  std::string Chain(const std::string& name) const {
    std::string text;
    for (const fs::path& each : LinkChain(FDirectory / name)) {
      EXPECT_EQ(each.parent_path(), FDirectory);
      text += (text.empty() ? "" : " ") + each.filename().string();
    }
    return text;
  }

private:
  fs::path FDirectory;
};

TEST_F(LinkChains, OfALibraryComeWholeFromAnyOfItsNames) {
  const std::string whole = "libx.so.1.2.3 libx.so.1 libx.so";
  EXPECT_EQ(Chain("libx.so"), whole);
  EXPECT_EQ(Chain("libx.so.1"), whole);
  EXPECT_EQ(Chain("libx.so.1.2.3"), whole);
}

TEST_F(LinkChains, LeaveOtherLibrariesAlone) {
  File("libx.so.2.0.0");
  Link("libx.so.2", "libx.so.2.0.0");
  File("libxy.so.1.2.3");
  Link("libxy.so", "libxy.so.1.2.3");
  EXPECT_EQ(Chain("libx.so"), "libx.so.1.2.3 libx.so.1 libx.so");
  EXPECT_EQ(Chain("libx.so.2"), "libx.so.2.0.0 libx.so.2");
}

TEST_F(LinkChains, OfOtherFilesFollowTheLinkThatIsNamed) {
  File("data-7.bin");
  Link("current", "data-7.bin");
  Link("other", "data-7.bin");
  EXPECT_EQ(Chain("current"), "data-7.bin current");
  EXPECT_EQ(Chain("data-7.bin"), "data-7.bin");
}

TEST_F(LinkChains, ThatLeaveTheDirectoryOrLeadNowhereAreTheNameAlone) {
  Link("up", "../somewhere");
  Link("full", "/etc/hostname");
  Link("nowhere", "missing");
  Link("ring", "ring2");
  Link("ring2", "ring");
  for (const char* name : {"up", "full", "nowhere", "ring", "none"})
    EXPECT_EQ(Chain(name), name);
}

} // namespace
} // namespace workbench
