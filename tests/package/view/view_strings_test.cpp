#include "package/view/view_strings.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace deployment {
namespace {

TEST(ViewStrings, HoldSixteenTextsUnderTheirNumbers) {
  const std::vector<std::string_view> expected{
      "All Platforms",
      "Not Connected",
      "Unknown",
      "Newer",
      "Older",
      "Same",
      "Not Found",
      "A connection profile is required for deployment. Would you like to create one and assign it "
      "to the \"%s\" platform?",
      "Are you sure you want to delete file \"%s\"?",
      "The active platform is \"%s\". Would you like to set the \"%s\" platform as the active "
      "platform?",
      "Remote Path",
      "Enter the new Remote Path",
      "Are you sure you want to change the value for the selected items ?",
      "Always",
      "Never",
      "Deployment"};
  std::vector<std::string_view> texts;
  for (int id = 65520; id <= 65535; ++id)
    texts.push_back(LoadText(static_cast<TViewString>(id)));
  EXPECT_EQ(texts, expected);
}

TEST(ViewStrings, TakeValuesInOrderAndAsTheyAre) {
  EXPECT_EQ(FormatText(TViewString::ChangePlatform, {"Win32", "%s"}),
            "The active platform is \"Win32\". Would you like to set the \"%s\" platform as the "
            "active platform?");
  EXPECT_EQ(FormatText(TViewString::Always, {"unused"}), "Always");
}

} // namespace
} // namespace deployment
