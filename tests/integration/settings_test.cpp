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
  EXPECT_EQ(place.Run({"settings", "set", "a", "1", "--dry-run"}).Output, "would set a\n");
  EXPECT_EQ(place.Run({"settings", "list"}).Output, "");
  for (const std::vector<std::string>& command : {std::vector<std::string>{"settings"},
                                                  {"settings", "set", "a"},
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
  const TRun run = place.Run({"settings", "set", "a", "1"});
  EXPECT_EQ(run.Status, 3);
  EXPECT_NE(run.Errors.find("settings.json:2: "), std::string::npos) << run.Errors;
  EXPECT_EQ(place.Read("home/.config/deployment-manager/settings.json"), "{\n  oops\n}");
}

} // namespace
} // namespace integration
