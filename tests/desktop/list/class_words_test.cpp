#include "workbench/desktop/text/class_words.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

TEST(ClassWords, PartTheNameWhereANewWordBegins) {
  const auto words = [](std::string_view name) { return ClassWords(name).toStdString(); };
  EXPECT_EQ(words("AndroidClassesDexFile"), "Android Classes Dex File");
  EXPECT_EQ(words("ProjectOutput"), "Project Output");
  EXPECT_EQ(words("ProjectOSXResource"), "Project OSX Resource");
  EXPECT_EQ(words("File"), "File");
  EXPECT_EQ(words(""), "");
}

TEST(ClassWords, KeepNamesAndSizesWhole) {
  const auto words = [](std::string_view name) { return ClassWords(name).toStdString(); };
  EXPECT_EQ(words("ProjectOutput_iOS32"), "Project Output iOS 32");
  EXPECT_EQ(words("iPhone_AppIcon57x57"), "iPhone App Icon 57x57");
  EXPECT_EQ(words("AndroidLibnativeX86File"), "Android Libnative X86 File");
}

} // namespace
} // namespace workbench
