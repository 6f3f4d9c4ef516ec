#include "workbench/desktop/text/package_texts.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTranslator>
#include <ctime>

namespace workbench {
namespace {

// Marks what it is asked for, so that tests see what a translator would get.
class TMarks final : public QTranslator {
public:
  QString translate(const char* context, const char* source, const char*, int) const override {
    return QString::fromLatin1(context) == "Package" ? "<" + QString::fromUtf8(source) + ">"
                                                     : QString();
  }
  bool isEmpty() const override { return false; }
};

class TPackageTexts : public ::testing::Test {
protected:
  void SetUp() override { QCoreApplication::installTranslator(&FMarks); }
  void TearDown() override { QCoreApplication::removeTranslator(&FMarks); }
  static std::string Text(const char* text) { return PackageText(text).toStdString(); }

  TMarks FMarks;
};

TEST_F(TPackageTexts, AreTranslatedWhole) {
  EXPECT_EQ(Text("Keep added files"), "<Keep added files>");
}

// A list that is scrolled asks for thousands of them.
TEST_F(TPackageTexts, OfCellsCostNoPatterns) {
  const std::clock_t start = std::clock();
  for (int i = 0; i < 20000; ++i)
    ASSERT_EQ(PackageText("Same").size(), 6);
  EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC);
}

TEST_F(TPackageTexts, KeepTheNamesInQuestions) {
  EXPECT_EQ(Text("Are you sure you want to delete file \"a%s\nb\"?"),
            "<Are you sure you want to delete file \"a%s\nb\"?>");
  EXPECT_EQ(Text("The active platform is \"A\". Would you like to set the \"B\" platform as the "
                 "active platform?"),
            "<The active platform is \"A\". Would you like to set the \"B\" platform as the active "
            "platform?>");
}

TEST(PackageTexts, StayAsTheyAreWithoutATranslation) {
  EXPECT_EQ(PackageText("there is no profile \"pi\"").toStdString(), "there is no profile \"pi\"");
  EXPECT_EQ(PackageText("Are you sure you want to delete file \"%1\"?").toStdString(),
            "Are you sure you want to delete file \"%1\"?");
}

} // namespace
} // namespace workbench
