#include "package/common/path_text.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

TEST(PathText, CutsNamesAtBothDelimiters) {
  EXPECT_EQ(FileNamePart(R"(lib\b.dylib)"), "b.dylib");
  EXPECT_EQ(FileNamePart("lib/b.dylib"), "b.dylib");
  EXPECT_EQ(FileNamePart("C:b.dll"), "b.dll");
  EXPECT_EQ(FileNamePart("b.dll"), "b.dll");
  EXPECT_EQ(FileNamePart(R"(lib\)"), "");
  EXPECT_EQ(DirectoryPart(R"(lib\b.dylib)"), R"(lib\)");
  EXPECT_EQ(DirectoryPart("b"), "");
}

TEST(PathText, TakesTheExtensionFromTheNameAlone) {
  EXPECT_EQ(ExtensionPart(R"(a.b\c)"), "");
  EXPECT_EQ(ExtensionPart("Proj.v2.exe"), ".exe");
  EXPECT_EQ(ExtensionPart("a."), ".");
  EXPECT_EQ(ChangeExtension(R"(a.b\c)", ".x"), R"(a.b\c.x)");
  EXPECT_EQ(ChangeExtension("Proj.v2.exe", ".deployproj"), "Proj.v2.deployproj");
  EXPECT_EQ(ChangeExtension("lib.so", ""), "lib");
}

TEST(PathText, JoinsWithOneDelimiter) {
  EXPECT_EQ(Combine("a", "b"), R"(a\b)");
  EXPECT_EQ(Combine("a/", "b"), "a/b");
  EXPECT_EQ(Combine("", "b"), "b");
  EXPECT_EQ(Combine("a", R"(\b)"), R"(\b)");
  EXPECT_EQ(Combine("a", R"(C:\b)"), R"(C:\b)");
  EXPECT_EQ(WithTrailingDelimiter(""), R"(\)");
  EXPECT_EQ(WithTrailingDelimiter("a"), R"(a\)");
  EXPECT_EQ(WithTrailingDelimiter("a/"), "a/");
}

TEST(PathText, KnowsAbsolutePaths) {
  EXPECT_TRUE(IsAbsolutePath(R"(\a)"));
  EXPECT_TRUE(IsAbsolutePath("/a"));
  EXPECT_TRUE(IsAbsolutePath("c:"));
  EXPECT_FALSE(IsAbsolutePath("a"));
  EXPECT_FALSE(IsAbsolutePath(""));
  EXPECT_FALSE(IsAbsolutePath("1:a"));
}

TEST(PathText, CanonicalizesDotsAndDelimiters) {
  EXPECT_EQ(CanonicalizePath(R"(App\..\lib)"), "lib");
  EXPECT_EQ(CanonicalizePath("App/./x//y/"), R"(App\x\y\)");
  EXPECT_EQ(CanonicalizePath(R"(..\..\a)"), R"(..\..\a)");
  EXPECT_EQ(CanonicalizePath(R"(\..\a)"), R"(\a)");
  EXPECT_EQ(CanonicalizePath(R"(C:\..\a)"), R"(C:\a)");
  EXPECT_EQ(CanonicalizePath(R"(\\host\share\.)"), R"(\\host\share)");
  EXPECT_EQ(CanonicalizePath("a/.."), "");
  EXPECT_EQ(CanonicalizePath(""), "");
}

TEST(PathText, ComparesFileNamesIgnoringCaseAndDelimiter) {
  EXPECT_TRUE(SameFileName(R"(Art\Ä.png)", "art/ä.PNG"));
  EXPECT_FALSE(SameFileName("a", "b"));
}

} // namespace
} // namespace deployment
