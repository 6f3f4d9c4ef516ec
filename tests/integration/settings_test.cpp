#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

namespace integration {
namespace {

TEST(Settings, AreKeptFromRunToRun) {
  TWorkplace place;
  EXPECT_EQ(place.Run({"settings", "list"}).Output, "");
  EXPECT_EQ(place.Run({"settings", "get", "library-path.Win32"}).Status, 1);
  EXPECT_EQ(place.Run({"settings", "set", "library-path.Win32", "C:\\lib"}).Output,
            "set library-path.Win32\n");
  EXPECT_EQ(place.Run({"settings", "get", "library-path.Win32"}).Output, "C:\\lib\n");
  EXPECT_EQ(place.Run({"settings", "list", "--json"}).Json().dump(),
            R"({"settings":{"library-path.Win32":"C:\\lib"}})");
  EXPECT_EQ(place.Run({"settings", "set", "library-path.Win32", "C:\\lib"}).Output,
            "nothing to do\n");
  EXPECT_EQ(place.Run({"settings", "unset", "library-path.Win32"}).Status, 0);
  EXPECT_EQ(place.Run({"settings", "list"}).Output, "");
}

TEST(Settings, AreLeftAloneByADryRunAndByWrongUsage) {
  TWorkplace place;
  EXPECT_EQ(place.Run({"settings", "set", "language", "de", "--dry-run"}).Output,
            "would set language\n");
  EXPECT_EQ(place.Run({"settings", "list"}).Output, "");
  for (const std::vector<std::string>& command : {std::vector<std::string>{"settings"},
                                                  {"settings", "set", "language"},
                                                  {"settings", "get"},
                                                  {"settings", "get", "a", "b"},
                                                  {"settings", "list", "a"},
                                                  {"settings", "put", "a", "1"}})
    EXPECT_EQ(place.Run(command).Status, 2) << testing::PrintToString(command);
}

TEST(Settings, WithANumberThatCannotBeAreNamedByEveryCommand) {
  TWorkplace place;
  place.Write("home/.config/deployment-manager/settings.json", "{\n  \"a\": 1e999\n}");
  const TRun run = place.Run({"settings", "list"});
  EXPECT_EQ(run.Status, 3);
  EXPECT_NE(run.Errors.find("settings.json:2: the settings file is damaged: a number is beyond "),
            std::string::npos)
      << run.Errors;
}

TEST(Settings, ThatAreDamagedAreNamedAndKept) {
  TWorkplace place;
  place.Write("home/.config/deployment-manager/settings.json", "{\n  oops\n}");
  const TRun run = place.Run({"settings", "set", "language", "de"});
  EXPECT_EQ(run.Status, 3);
  EXPECT_NE(run.Errors.find("settings.json:2: "), std::string::npos) << run.Errors;
  EXPECT_EQ(place.Read("home/.config/deployment-manager/settings.json"), "{\n  oops\n}");
}

TEST(Settings, ThatNobodyReadsAreRefusedWithAHint) {
  TWorkplace place;
  const auto error = [&](std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "settings");
    const TRun run = place.Run(arguments);
    EXPECT_EQ(run.Status, 2) << run.Errors;
    return run.Errors;
  };
  EXPECT_EQ(error({"set", "libary-path.Win32", "x"}),
            "deploymgr: there is no setting \"libary-path.Win32\"; did you mean "
            "\"library-path.Win32\"?\n");
  EXPECT_EQ(error({"get", "product"}).substr(0, 40), "deploymgr: there is no setting \"product\"");
  EXPECT_NE(error({"set", "library-path.win32", "x"}).find("did you mean \"library-path.Win32\"?"),
            std::string::npos);
  EXPECT_EQ(error({"set", "DeploymentManager.ShowFeaturedFormAuto", "maybe"}),
            "deploymgr: the setting \"DeploymentManager.ShowFeaturedFormAuto\" is true or false, "
            "not \"maybe\"\n");
  EXPECT_EQ(error({"set", "undo-runs", "-1"}),
            "deploymgr: the setting \"undo-runs\" is a whole number, not \"-1\"\n");
  EXPECT_EQ(place.Run({"settings", "list"}).Output, "");
}

TEST(Settings, OfAnotherVersionCanBeReadAndTakenAway) {
  TWorkplace place;
  place.Write("home/.config/deployment-manager/settings.json", R"({"old": "x"})");
  EXPECT_EQ(place.Run({"settings", "get", "old"}).Output, "x\n");
  EXPECT_EQ(place.Run({"settings", "set", "old", "y"}).Status, 2);
  EXPECT_EQ(place.Run({"settings", "unset", "old"}).Status, 0);
  EXPECT_EQ(place.Run({"settings", "unset", "old"}).Status, 2);
}

} // namespace
} // namespace integration
