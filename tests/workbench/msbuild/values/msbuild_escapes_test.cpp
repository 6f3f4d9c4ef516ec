#include "workbench/msbuild/values/msbuild_escapes.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

TEST(MSBuildEscapes, ResolveToTheCharacterOfThatCode) {
  EXPECT_EQ(UnescapeMSBuild("a%3Bb%2ac"), "a;b*c");
  EXPECT_EQ(UnescapeMSBuild("100%25"), "100%");
}

TEST(MSBuildEscapes, AreCharactersAndNotBytes) {
  EXPECT_EQ(UnescapeMSBuild("%C3%A9"), "\xC3\x83\xC2\xA9");
  EXPECT_EQ(UnescapeMSBuild("%e9"), "\xC3\xA9");
}

TEST(MSBuildEscapes, LeaveEveryOtherPercentSignAlone) {
  EXPECT_EQ(UnescapeMSBuild("%"), "%");
  EXPECT_EQ(UnescapeMSBuild("%4"), "%4");
  EXPECT_EQ(UnescapeMSBuild("%zz%g1"), "%zz%g1");
  EXPECT_EQ(UnescapeMSBuild("%%41"), "%A");
  EXPECT_EQ(UnescapeMSBuild("a%00b"), "a%00b");
}

TEST(MSBuildEscapes, AreMadeForEveryCharacterWithAMeaning) {
  EXPECT_EQ(EscapeMSBuild("a%b*c?d@e$f(g)h;i'j"), "a%25b%2ac%3fd%40e%24f%28g%29h%3bi%27j");
}

TEST(MSBuildEscapes, ComeBackToTheSameText) {
  const std::string name = "100% (Größe); 'neu' $x @y *?";
  EXPECT_EQ(UnescapeMSBuild(EscapeMSBuild(name)), name);
}

} // namespace
} // namespace workbench
