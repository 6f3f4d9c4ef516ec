#include "tests/support/temporary_directory.h"
#include "workbench/deploy/plan/link_texts.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace workbench {
namespace {

namespace fs = std::filesystem;
using TLinkTexts = std::vector<std::string>;

class LinkTextsTest : public ::testing::Test {
protected:
  fs::path File(const std::string& name) const {
    testing::WriteText(FDirectory.Path() / name, name);
    return FDirectory.Path() / name;
  }
  fs::path Link(const std::string& name, const std::string& text) const {
    fs::create_directories((FDirectory.Path() / name).parent_path());
    fs::create_symlink(text, FDirectory.Path() / name);
    return FDirectory.Path() / name;
  }

private:
  testing::TTemporaryDirectory FDirectory;
};

TEST_F(LinkTextsTest, LeadToThePlacesOnTheTarget) {
  const std::vector<TLinkCandidate> files{{File("lib/a.so.1"), {"/t/lib", "a.so.1"}},
                                          {Link("lib/a.so", "a.so.1"), {"/t/lib", "a.so"}},
                                          {Link("bin/a.so", "../lib/a.so"), {"/t/bin", "x.so"}},
                                          {Link("bin/b.so", "../lib/a.so.1"), {"/t", "b.so"}}};
  EXPECT_EQ(LinkTexts(files), (TLinkTexts{"", "a.so.1", "../lib/a.so", "lib/a.so.1"}));
}

TEST_F(LinkTextsTest, AreNoneForWhatLeadsOutOfTheDeploy) {
  File("secret");
  const std::vector<TLinkCandidate> files{
      {File("lib/a.so.1"), {"/t", "a.so.1"}, /*MayTakePart=*/false},
      {Link("lib/a.so", "a.so.1"), {"/t", "a.so"}},
      {Link("lib/b", "../secret"), {"/t", "b"}},
      {Link("lib/c", "/etc/hostname"), {"/t", "c"}},
      {Link("lib/d", "d"), {"/t", "d"}}};
  EXPECT_EQ(LinkTexts(files), TLinkTexts(5));
}

} // namespace
} // namespace workbench
