#include "package/common/errors.h"
#include "tests/workbench/files/save_fixture.h"
#include "workbench/settings/command_consent.h"
#include "workbench/settings/source_consent.h"

namespace workbench {
namespace {

class SourceConsent : public testing::TSaveTest {
protected:
  std::filesystem::path SettingsFile() const { return FRoot / "settings.json"; }
  TSettings Settings{SettingsFile()};
};

using TFiles = std::vector<std::string>;

TEST_F(SourceConsent, IsGivenOnceForEachFileOfAProject) {
  EXPECT_EQ(SourcesWithoutConsent(Settings, FFile, {"/a", "/b"}), (TFiles{"/a", "/b"}));
  AllowSources(Settings, FFile, {"/b"});
  AllowSources(Settings, FFile, {"/c"});
  EXPECT_EQ(SourcesWithoutConsent(TSettings(SettingsFile()), FFile, {"/a", "/b", "/c"}),
            TFiles{"/a"});
  EXPECT_EQ(SourcesWithoutConsent(Settings, FDirectory / "other.vproj", {"/b"}), TFiles{"/b"});
}

TEST_F(SourceConsent, IsListedBesideThatForCommands) {
  AllowSources(Settings, FFile, {"/b", "/a", "/b"});
  const auto consents = ListConsents(Settings);
  ASSERT_EQ(consents.size(), 1U);
  EXPECT_EQ(consents[0].Project, std::filesystem::weakly_canonical(FFile).string());
  EXPECT_EQ(consents[0].Place, "");
  EXPECT_EQ(consents[0].Texts, (TFiles{"/a", "/b"}));
}

TEST_F(SourceConsent, ThatIsDamagedIsNamed) {
  AllowSources(Settings, FFile, {"/a"});
  Settings.Set(ListConsents(Settings).at(0).Key, "{");
  EXPECT_THROW(SourcesWithoutConsent(Settings, FFile, {"/a"}), deployment::TInputError);
  EXPECT_THROW(AllowSources(Settings, FFile, {"/b"}), deployment::TInputError);
}

} // namespace
} // namespace workbench
