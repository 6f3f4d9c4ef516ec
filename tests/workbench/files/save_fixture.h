// A directory of its own for tests that write files, with the user's directories inside.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace workbench::testing {

class TSaveTest : public ::testing::Test {
protected:
  void SetUp() override {
    std::string name = (std::filesystem::temp_directory_path() / "save-XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    FRoot = name;
    FDirectory = FRoot / "project";
    std::filesystem::create_directory(FDirectory);
    FFile = FDirectory / "demo.vproj";
    setenv("XDG_STATE_HOME", (FRoot / "state").c_str(), 1);
  }
  void TearDown() override {
    std::error_code ignored;
    std::filesystem::remove_all(FRoot, ignored);
    unsetenv("XDG_STATE_HOME");
  }

  static void Write(const std::filesystem::path& file, std::string_view text) {
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(text.data(), static_cast<std::streamsize>(text.size()));
  }
  static std::string Read(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
  }
  /// Names in the project's directory, sorted.
  std::vector<std::string> Names() const { return NamesIn(FDirectory); }
  static std::vector<std::string> NamesIn(const std::filesystem::path& directory) {
    std::vector<std::string> names;
    std::error_code absent;
    for (const auto& entry : std::filesystem::directory_iterator(directory, absent))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }
  /// The exit status of a shell command; 128 + signal for a killed one.
  static int Shell(const std::string& command) {
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  }
  /// A program that is built beside the tests.
  static std::string Neighbour(const std::string& name) {
    return (std::filesystem::read_symlink("/proc/self/exe").parent_path() / name).string();
  }

  std::filesystem::path FRoot;
  std::filesystem::path FDirectory;
  std::filesystem::path FFile;
};

/// The text of the exception that the action throws; empty when it throws none.
template <class TError, class TAction>
std::string ErrorOf(TAction action) {
  try {
    action();
  } catch (const TError& error) {
    return error.what();
  }
  return {};
}

} // namespace workbench::testing
