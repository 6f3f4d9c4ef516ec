#include "package/common/errors.h"
#include "tests/workbench/files/save_fixture.h"
#include "workbench/files/save_error.h"
#include "workbench/settings/settings_store.h"

#include <sys/stat.h>
#include <thread>

namespace workbench {
namespace {

using deployment::TInputError;
using testing::ErrorOf;

class Settings : public testing::TSaveTest {
protected:
  void SetUp() override {
    TSaveTest::SetUp();
    FFile = FRoot / "config" / "deployment-manager" / "settings.json";
  }
  void WriteSettings(std::string_view text) {
    std::filesystem::create_directories(FFile.parent_path());
    Write(FFile, text);
  }
};

TEST_F(Settings, MakeTheFileForTheUserAloneOnTheFirstWriteOnly) {
  TSettings settings(FFile);
  EXPECT_EQ(settings.Get("product-name"), std::nullopt);
  EXPECT_FALSE(settings.Unset("product-name"));
  EXPECT_FALSE(std::filesystem::exists(FFile.parent_path()));
  settings.Set("product-name", "Pocket");
  struct stat status = {};
  ASSERT_EQ(stat(FFile.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
  ASSERT_EQ(stat(FFile.parent_path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0700U);
  EXPECT_EQ(Read(FFile), "{\n  \"product-name\": \"Pocket\"\n}\n");
}

TEST_F(Settings, KeepListAndForgetTexts) {
  TSettings settings(FFile);
  settings.Set("sdk.r21.platform", "Android");
  settings.Set("library-path.Win32", "C:\\lib;\"D:\\x\"");
  settings.AddToHistory("dirs", "a");
  const std::vector<std::pair<std::string, std::string>> expected = {
      {"library-path.Win32", "C:\\lib;\"D:\\x\""}, {"sdk.r21.platform", "Android"}};
  EXPECT_EQ(settings.List(), expected);
  EXPECT_EQ(TSettings(FFile).List(), expected);
  EXPECT_TRUE(settings.Unset("sdk.r21.platform"));
  EXPECT_EQ(TSettings(FFile).Get("sdk.r21.platform"), std::nullopt);
}

TEST_F(Settings, ReadBooleansWithADefaultAndWarnOnceOfOtherTexts) {
  WriteSettings(R"({"view.shown": "TRUE", "view.other": "perhaps", "view.plain": false})");
  std::vector<TWarning> warnings;
  TSettings settings(FFile, [&](const TWarning& warning) { warnings.push_back(warning); });
  EXPECT_TRUE(settings.ReadBool("view", "shown", false));
  EXPECT_FALSE(settings.ReadBool("view", "plain", true));
  EXPECT_TRUE(settings.ReadBool("view", "absent", true));
  EXPECT_TRUE(settings.ReadBool("view", "other", true));
  EXPECT_TRUE(settings.ReadBool("view", "other", true));
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(warnings[0].Text,
            "the setting \"view.other\" is \"perhaps\", which is neither true nor "
            "false; it counts as true");
  EXPECT_EQ(warnings[0].File, FFile.string());
  settings.WriteBool("view", "other", false);
  EXPECT_FALSE(TSettings(FFile).ReadBool("view", "other", true));
}

TEST_F(Settings, KeepTheNewestTwentyTextsOfAHistory) {
  TSettings settings(FFile);
  for (int i = 0; i < 25; ++i)
    settings.AddToHistory("dirs", std::to_string(i));
  settings.AddToHistory("dirs", "20");
  const std::vector<std::string> history = TSettings(FFile).ReadHistory("dirs");
  ASSERT_EQ(history.size(), 20U);
  EXPECT_EQ(history[0], "20");
  EXPECT_EQ(history[1], "24");
  EXPECT_EQ(history[19], "5");
  EXPECT_TRUE(settings.ReadHistory("others").empty());
}

TEST_F(Settings, RefuseADamagedFileAndLeaveItAsItIs) {
  const std::string damaged = "{\n  \"a\": \"b\",\n  \"c\" \"d\"\n}\n";
  WriteSettings(damaged);
  try {
    const TSettings settings(FFile);
    FAIL();
  } catch (const TInputError& error) {
    EXPECT_STREQ(error.what(),
                 "the settings file is damaged: it is no JSON at byte 23; mend it or remove it");
    EXPECT_EQ(error.Place().File, FFile.string());
    EXPECT_EQ(error.Place().Line, 3U);
  }
  EXPECT_EQ(Read(FFile), damaged);
}

TEST_F(Settings, RefuseToChangeAFileThatWasDamagedMeanwhile) {
  TSettings settings(FFile);
  settings.Set("a.b", "c");
  WriteSettings("[]");
  EXPECT_EQ(
      ErrorOf<TInputError>([&] { settings.Set("a.b", "d"); }),
      "the settings file is damaged: it should be an object, but is []; mend it or remove it");
  WriteSettings(R"({"a": {"b": 1}})");
  EXPECT_EQ(ErrorOf<TInputError>([&] { settings.Set("a.b", "d"); }),
            "the settings file is damaged: \"a\" is neither a text nor a list of texts; mend it or "
            "remove it");
  EXPECT_EQ(Read(FFile), R"({"a": {"b": 1}})");
}

TEST_F(Settings, RefuseNumbersBeyondAllRanges) {
  WriteSettings("{\n  \"a\": 1e999\n}\n");
  EXPECT_EQ(ErrorOf<TInputError>([&] { const TSettings settings(FFile); }),
            "the settings file is damaged: a number is beyond all ranges at byte 14; mend it or "
            "remove it");
}

TEST_F(Settings, ThatCannotBeReachedAreNotTakenForNone) {
  std::filesystem::create_directories(FFile.parent_path().parent_path());
  std::filesystem::create_symlink(FFile.parent_path(), FFile.parent_path()); // leads to itself
  try {
    const TSettings settings(FFile);
    FAIL();
  } catch (const TInputError& error) {
    EXPECT_STREQ(error.what(),
                 "the settings file cannot be read: Too many levels of symbolic links");
    EXPECT_EQ(error.Place().File, FFile.string());
  }
}

TEST_F(Settings, RefuseNamesAndTextsThatCannotBeKept) {
  TSettings settings(FFile);
  EXPECT_EQ(ErrorOf<TInputError>([&] { settings.Set("", "x"); }), "the name of a setting is empty");
  EXPECT_EQ(ErrorOf<TInputError>([&] { settings.Set("a\nb", "x"); }),
            "the name of a setting has a control character");
  EXPECT_EQ(ErrorOf<TInputError>([&] { settings.Set("a.b", "\xFF"); }),
            "the settings would hold a text that is not UTF-8 and cannot be kept");
  EXPECT_EQ(ErrorOf<TInputError>([&] { settings.Set("history.x", "y"); }),
            "the setting \"history.x\" is a history, which grows by what is entered");
  EXPECT_FALSE(std::filesystem::exists(FFile));
}

TEST_F(Settings, SayThatThereIsNoHomeDirectory) {
  TSettings settings{std::filesystem::path()};
  EXPECT_EQ(ErrorOf<TSaveError>([&] { settings.Set("a.b", "c"); }),
            "the settings were not written: neither XDG_CONFIG_HOME nor HOME names a directory; "
            "no file was made");
}

TEST_F(Settings, LoseNoChangeOfRunsSideBySide) {
  std::vector<std::thread> runs;
  for (int run = 0; run < 4; ++run)
    runs.emplace_back([this, run] {
      TSettings settings(FFile);
      for (int i = 0; i < 5; ++i)
        settings.Set("run" + std::to_string(run) + "." + std::to_string(i), "x");
    });
  for (std::thread& run : runs)
    run.join();
  EXPECT_EQ(TSettings(FFile).List().size(), 20U);
}

} // namespace
} // namespace workbench
