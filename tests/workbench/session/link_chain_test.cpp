#include "tests/support/temporary_directory.h"
#include "workbench/session/link_chain.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace workbench {
namespace {

namespace fs = std::filesystem;

class LinkChainTest : public ::testing::Test {
protected:
  void MakeFile(const std::string& name) const {
    testing::WriteText(FDirectory.Path() / name, name);
  }
  void MakeLink(const std::string& name, const std::string& text) const {
    fs::create_symlink(text, FDirectory.Path() / name);
  }
  std::vector<std::string> ChainOf(const std::string& name) const {
    std::vector<std::string> names;
    for (const fs::path& file : LinkChain(FDirectory.Path() / name)) {
      EXPECT_EQ(file.parent_path(), FDirectory.Path());
      names.push_back(file.filename().string());
    }
    return names;
  }

private:
  testing::TTemporaryDirectory FDirectory;
};

using TNames = std::vector<std::string>;

TEST_F(LinkChainTest, HasAllNamesOfALibraryWhicheverIsGiven) {
  MakeFile("libx.so.1.2.3");
  MakeLink("libx.so.1", "libx.so.1.2.3");
  MakeLink("libx.so", "libx.so.1");
  MakeFile("libx.so.1.2");
  MakeLink("liby.so", "libx.so.1.2.3");
  for (const char* name : {"libx.so", "libx.so.1", "libx.so.1.2.3"})
    EXPECT_EQ(ChainOf(name), (TNames{"libx.so.1.2.3", "libx.so.1", "libx.so"})) << name;
  EXPECT_EQ(ChainOf("libx.so.1.2"), TNames{"libx.so.1.2"});
  EXPECT_EQ(ChainOf("liby.so"), TNames{"liby.so"});
}

TEST_F(LinkChainTest, KnowsTheNamesOfApple) {
  MakeFile("libx.1.2.dylib");
  MakeLink("libx.1.dylib", "libx.1.2.dylib");
  MakeLink("libx.dylib", "libx.1.dylib");
  EXPECT_EQ(ChainOf("libx.dylib"), (TNames{"libx.1.2.dylib", "libx.1.dylib", "libx.dylib"}));
}

TEST_F(LinkChainTest, IsTheNameAloneWhereALinkEndsNowhereOrElsewhere) {
  MakeLink("ring.so", "ring.so.1");
  MakeLink("ring.so.1", "ring.so");
  MakeLink("gone.so", "gone.so.1");
  MakeLink("far.so", "../far.so.1");
  MakeFile("current.cfg.1");
  MakeLink("current.cfg", "current.cfg.1");
  for (const char* name : {"ring.so", "gone.so", "far.so", "current.cfg", "none"})
    EXPECT_EQ(ChainOf(name), TNames{name});
}

} // namespace
} // namespace workbench
