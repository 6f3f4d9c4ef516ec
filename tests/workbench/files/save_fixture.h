// A directory of its own for tests that write files, with the user's directories inside.
#pragma once

#include "tests/support/environment.h"
#include "tests/support/temporary_directory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace workbench::testing {

class TSaveTest : public ::testing::Test {
protected:
  void SetUp() override {
    std::filesystem::create_directory(FDirectory);
    FEnvironment.Set("XDG_STATE_HOME", (FRoot / "state").string());
  }

  static void Write(const std::filesystem::path& file, std::string_view text) {
    WriteText(file, text);
  }
  static std::string Read(const std::filesystem::path& file) { return ReadText(file); }
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

  TTemporaryDirectory FTemporary;
  TEnvironment FEnvironment;
  std::filesystem::path FRoot = FTemporary.Path();
  std::filesystem::path FDirectory = FRoot / "project";
  std::filesystem::path FFile = FDirectory / "demo.vproj";
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
