#include "package/common/errors.h"
#include "tests/workbench/files/save_fixture.h"
#include "workbench/settings/command_consent.h"

namespace workbench {
namespace {

class TCommandConsentTest : public testing::TSaveTest {
protected:
  std::filesystem::path SettingsFile() const { return FRoot / "settings.json"; }
};

TEST_F(TCommandConsentTest, HoldsForExactlyTheSameCommandsOfTheSameProjectAtTheSamePlace) {
  TSettings settings(SettingsFile());
  const std::vector<std::string> commands{"make all", "strip \"x\""};
  EXPECT_FALSE(IsAllowed(settings, FFile, "box", commands));
  Allow(settings, FFile, "box", commands);
  EXPECT_TRUE(IsAllowed(TSettings(SettingsFile()), FFile, "box", commands));
  EXPECT_TRUE(
      IsAllowed(settings, FDirectory / ".." / "project" / FFile.filename(), "box", commands));
  EXPECT_FALSE(IsAllowed(settings, FFile, "box", {"strip \"x\"", "make all"}));
  EXPECT_FALSE(IsAllowed(settings, FFile, "box", {"make all"}));
  EXPECT_FALSE(IsAllowed(settings, FDirectory / "other.vproj", "box", commands));
  EXPECT_FALSE(IsAllowed(settings, FFile, "profile prod (/srv)", commands));
}

TEST_F(TCommandConsentTest, IsListedWithItsProject) {
  TSettings settings(SettingsFile());
  settings.Set("product-name", "x");
  Allow(settings, FFile, "box", {"make all", "strip"});
  settings.Set("allowed-commands./damaged", "{");
  settings.Set("allowed-commands./strange", "[1]");
  const auto consents = ListConsents(settings);
  ASSERT_EQ(consents.size(), 3U);
  EXPECT_EQ(consents[0].Project, "/damaged");
  EXPECT_TRUE(consents[0].Texts.empty());
  EXPECT_TRUE(consents[1].Texts.empty());
  EXPECT_EQ(consents[2].Project, std::filesystem::weakly_canonical(FFile).string());
  EXPECT_EQ(consents[2].Place, "box");
  EXPECT_EQ(consents[2].Texts, (std::vector<std::string>{"make all", "strip"}));
  EXPECT_TRUE(settings.Unset(consents[2].Key));
  EXPECT_FALSE(IsAllowed(settings, FFile, "box", {"make all", "strip"}));
}

TEST_F(TCommandConsentTest, ThatIsDamagedIsNamed) {
  TSettings settings(SettingsFile());
  Allow(settings, FFile, "box", {"make"});
  const std::string key = ListConsents(settings).at(0).Key;
  settings.Set(key, "[1]");
  EXPECT_EQ(testing::ErrorOf<deployment::TInputError>(
                [&] { IsAllowed(settings, FFile, "box", {"make"}); }),
            "the setting \"" + key +
                "\" is damaged: it should be a list of texts, but is [1]; \"settings unset\" "
                "removes it");
}

} // namespace
} // namespace workbench
