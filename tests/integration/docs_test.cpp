// Every command that the texts print works as it stands there, in a plain shell.
#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>

namespace integration {
namespace {

using TTexts = std::vector<std::string>;

// They need another machine, a screen or a person.
const std::set<std::string> Elsewhere{
    "deploymgr profile test lab",
    "deploymgr profile test mac-mini",
    "deploymgr deploy sky-chart/SkyChart.vproj -p OSX32",
    "deploymgr open demo.vproj",
    "deploymgr fleet deploy demo.vproj -p Linux64 -c Release --inventory hosts.yml --check",
    "deploymgr fleet deploy demo.vproj -p Linux64 -c Release --inventory hosts.yml --limit "
    "'bench-*' --forks 20",
};

// A word in capitals, or one in brackets, stands for something else.
bool HasPlaceholder(const std::string& command) {
  std::istringstream words(command);
  for (std::string word; words >> word;) {
    const bool isUpper = std::ranges::all_of(
        word, [](char c) { return (c >= 'A' && c <= 'Z') || c == '.' || c == '[' || c == ']'; });
    if ((isUpper && word.size() > 1) || word.starts_with('['))
      return true;
  }
  return false;
}

// The commands inside of one line of prose.
void AddInline(const std::string& line, TTexts& commands) {
  for (std::size_t at = line.find('`'); at != std::string::npos;) {
    const std::size_t end = line.find('`', at + 1);
    if (end == std::string::npos)
      return;
    const std::string text = line.substr(at + 1, end - at - 1);
    if (text.starts_with("deploymgr ") && !HasPlaceholder(text))
      commands.push_back(text);
    at = line.find('`', end + 1);
  }
}

// All commands of a text, in order: in blocks behind "$ " or as they are, and in the prose.
TTexts CommandsOf(const std::string& text) {
  TTexts commands;
  bool inBlock = false;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("```")) {
      inBlock = !inBlock;
      continue;
    }
    if (!inBlock) {
      AddInline(line, commands);
      continue;
    }
    const std::string command = line.starts_with("$ ") ? line.substr(2) : line;
    if (command.starts_with("deploymgr ") && !HasPlaceholder(command))
      commands.push_back(command);
  }
  return commands;
}

class PrintedCommands : public testing::Test {
protected:
  PrintedCommands() {
    Place.CopyOf(Tree / "examples/sky-chart");
    Place.CopyOf(Tree / "examples/tide-logger");
    Place.CopyOf(Tree / "examples/wind-gauge");
    std::filesystem::create_directories(Place.Path("examples"));
    for (const std::string name : {"sky-chart", "tide-logger", "wind-gauge"})
      std::filesystem::copy(Tree / "examples" / name, Place.Path("examples") / name,
                            std::filesystem::copy_options::recursive);
    std::filesystem::create_directories(Place.Path("home"));
    const std::string programs = std::filesystem::path(DEPLOYMGR_PROGRAM).parent_path().string();
    Place.SetVariable("PATH=" + programs + ":/usr/local/bin:/usr/bin:/bin");
  }

  // The program of the guide, built by CMake.
  void BuildHarbour() {
    Place.Write("source/CMakeLists.txt", "cmake_minimum_required(VERSION 3.25)\n"
                                         "project(harbour LANGUAGES C)\n"
                                         "add_executable(harbour main.c)\n"
                                         "install(TARGETS harbour)\n");
    Place.Write("source/main.c", "int main(void) { return 0; }\n");
    ASSERT_EQ(Place.RunProgram({"cmake", "-S", "source", "-B", "build"}).Status, 0);
    ASSERT_EQ(Place.RunProgram({"cmake", "--build", "build"}).Status, 0);
  }

  // What a build would have made of the guide's project, and a file that is on its list already.
  void FillDemo() {
    Place.Write("Win32/Debug/demo.exe", "x");
    Place.Write("data/levels.dat", "x");
    Place.Write("all.sln", "Solution File, Format Version 12.00\n"
                           "Project(\"{1}\") = \"demo\", \"demo.vproj\", \"{2}\"\nEndProject\n");
    ASSERT_EQ(Place.Run({"add", "demo.vproj", "data/levels.dat"}).Status, 0);
  }

  // Returns how many were run.
  std::size_t RunAllOf(const char* document) {
    std::ostringstream text;
    text << std::ifstream(Tree / document).rdbuf();
    std::size_t count = 0;
    for (const std::string& command : CommandsOf(text.str())) {
      FSeen.insert(command);
      if (Elsewhere.contains(command))
        continue;
      const TRun run = Place.RunProgram({"sh", "-c", command});
      // A question may be answered with yes.
      const bool isAnswer = command.find("--check") != std::string::npos && run.Status == 7;
      EXPECT_TRUE(run.Status == 0 || isAnswer) << document << ": " << command << "\n"
                                               << run.Errors << run.Output;
      ++count;
      if (command.starts_with("deploymgr new demo.vproj"))
        FillDemo();
      if (command.starts_with("deploymgr new post.vproj"))
        Place.Write("lib/libx.so", "x");
    }
    return count;
  }

  std::set<std::string> FSeen;
  TWorkplace Place;
};

TEST_F(PrintedCommands, Work) {
  ASSERT_NO_FATAL_FAILURE(BuildHarbour());
  EXPECT_GE(RunAllOf("docs/tour.md"), 10U);
  RunAllOf("docs/command-line.md");
  EXPECT_GE(RunAllOf("docs/ssh-profiles.md"), 2U);
  std::filesystem::remove(Place.Path("harbour.vproj")); // the guide makes it anew
  EXPECT_GE(RunAllOf("docs/user-guide.md"), 12U);
  EXPECT_GE(RunAllOf("docs/drift.md"), 5U);
  EXPECT_GE(RunAllOf("examples/README.md"), 2U);
  for (const std::string& command : Elsewhere)
    EXPECT_TRUE(FSeen.contains(command)) << command << " stands in no text any more";
}

// The program speaks of commands and options of its own that exist.
TEST(Help, NamesEveryExitStatusForEveryCommand) {
  TWorkplace place;
  const TRun help = place.Run({"--help"});
  std::istringstream lines(help.Output.substr(help.Output.find("Subcommands:")));
  std::string line;
  std::getline(lines, line);
  std::size_t count = 0;
  while (std::getline(lines, line) && line.starts_with("  ")) {
    const std::string name = line.substr(2, line.find(' ', 2) - 2);
    if (name.empty())
      continue; // the rest of a long line
    const TRun run = place.Run({name, "--help"});
    EXPECT_EQ(run.Status, 0) << name;
    for (const char* status : {"0 done", "1 the", "2 wrong", "3 an", "4 the", "5 no", "6 the",
                               "7 --", "8 the", "130, 143"})
      EXPECT_NE(run.Output.find(status), std::string::npos) << name << ": " << status;
    ++count;
  }
  EXPECT_GE(count, 19U);
}

} // namespace
} // namespace integration
