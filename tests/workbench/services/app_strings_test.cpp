#include "tests/workbench/files/save_fixture.h"
#include "tests/support/environment.h"
#include "workbench/files/machine_path.h"
#include "workbench/services/app_strings.h"

namespace workbench {
namespace {

class AppStrings : public testing::TSaveTest {
protected:
  void SetUp() override {
    TSaveTest::SetUp();
    for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"})
      FEnvironment.Set(name, std::nullopt);
  }
  std::string LocaleFile() const {
    const TSettings settings(FRoot / "settings.json");
    const std::string stored = ToStoredPath(FDirectory / "defaults.xml");
    return ToMachinePath(TAppStrings(FDirectory, settings).GetLocaleFile(stored)).filename();
  }

  testing::TEnvironment FEnvironment;
};

TEST_F(AppStrings, PreferTheFileOfTheUsersCountryThenOfTheLanguage) {
  FEnvironment.Set("LANG", "de_AT.UTF-8@euro");
  EXPECT_EQ(LocaleFile(), "defaults.xml");
  Write(FDirectory / "defaults.de.xml", "");
  EXPECT_EQ(LocaleFile(), "defaults.de.xml");
  Write(FDirectory / "defaults.de_AT.xml", "");
  EXPECT_EQ(LocaleFile(), "defaults.de_AT.xml");
  FEnvironment.Set("LC_ALL", "C");
  EXPECT_EQ(LocaleFile(), "defaults.xml");
}

TEST_F(AppStrings, FollowTheListOfLanguagesUpToEnglish) {
  Write(FDirectory / "defaults.de.xml", "");
  FEnvironment.Set("LANG", "fr_FR.UTF-8");
  FEnvironment.Set("LANGUAGE", "pt:de");
  EXPECT_EQ(LocaleFile(), "defaults.de.xml");
  FEnvironment.Set("LANGUAGE", "en_GB:de");
  EXPECT_EQ(LocaleFile(), "defaults.xml");
  Write(FDirectory / "defaults.en.xml", "");
  EXPECT_EQ(LocaleFile(), "defaults.en.xml");
}

TEST_F(AppStrings, IgnoreALanguageThatIsAPath) {
  Write(FRoot / "secret.xml", "");
  FEnvironment.Set("LANG", "x/../../secret");
  EXPECT_EQ(LocaleFile(), "defaults.xml");
}

TEST_F(AppStrings, AnswerWithStoredPathsAndTheProductOfTheSettings) {
  TSettings settings(FRoot / "config" / "settings.json");
  const TAppStrings strings("/opt/root", settings);
  EXPECT_EQ(strings.fnRootDir(), "\\opt\\root");
  EXPECT_EQ(strings.rkBaseRegKey(), "Software\\DeploymentManager");
  EXPECT_EQ(strings.CoreProductName(), "Deployment Manager");
  settings.Set("product-name", "Pocket");
  EXPECT_EQ(strings.CoreProductName(), "Pocket");
}

TEST_F(AppStrings, FindTheRootByOptionThenByEnvironment) {
  FEnvironment.Set("ZELK", "/from/../environment");
  EXPECT_EQ(FindRoot("/from/option"), "/from/option");
  EXPECT_EQ(FindRoot({}), "/environment");
  FEnvironment.Set("ZELK", std::nullopt);
  EXPECT_TRUE(FindRoot({}).is_absolute());
}

} // namespace
} // namespace workbench
