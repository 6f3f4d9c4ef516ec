// A directory to run deploymgr in, and projects to put there.
#pragma once

#include "tests/integration/run_program.h"
#include "tests/support/temporary_directory.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace integration {

/// The tree that holds the sources and the data that ship.
inline const std::filesystem::path Tree = SOURCE_TREE;

/// A directory of its own for each test, with settings and state of its own, removed at the end.
class TWorkplace {
public:
  TWorkplace();
  TWorkplace(const TWorkplace&) = delete;
  TWorkplace& operator=(const TWorkplace&) = delete;

  const std::filesystem::path& Directory() const { return FDirectory; }
  std::filesystem::path Path(std::string_view name) const { return FDirectory / name; }
  std::filesystem::path Write(std::string_view name, std::string_view content) const;
  std::string Read(std::string_view name) const;
  std::filesystem::path CopyOf(const std::filesystem::path& file) const;
  /// A copy of the data that ship, to be named by "--root root" and changed.
  void CopyRoot() const;
  /// Names of all files below, sorted; settings and state left out.
  std::vector<std::string> Files() const;
  /// "files" of "show PROJECT --json".
  nlohmann::ordered_json FilesOf(std::string_view project) const;

  /// Runs deploymgr there, with the data that ship.
  TRun Run(std::vector<std::string> arguments) const;
  /// Runs deploymgr at a terminal, where a person answers.
  TRun RunAtTerminal(std::vector<std::string> arguments,
                     std::function<std::string(const TQuestion&)> answer) const;
  /// Runs another program there; its name is looked up.
  TRun RunProgram(std::vector<std::string> command) const;
  /// A run of deploymgr that is not started yet.
  TStart Start(std::vector<std::string> arguments) const;
  /// For runs from now on, such as "LANG=de_DE.UTF-8"; in place of an earlier value.
  void SetVariable(std::string assignment);
  /// Runs as an ordinary user from now on, when the tests run as root; false when that fails.
  bool BecomeOrdinary();

private:
  workbench::testing::TTemporaryDirectory FTemporary;
  std::filesystem::path FDirectory = FTemporary.Path();
  std::vector<std::string> FVariables;
  bool FOrdinary = false;
};

/// A project with this content in its ProjectExtensions ("" for none at all).
std::string ProjectWith(std::string_view section);
/// A section of the current version with these entries.
std::string ListOf(std::string_view entries);
/// One entry of class "File" with one platform.
std::string Entry(std::string_view name, std::string_view configuration, std::string_view platform);

/// The text outside the Deployment element.
std::string WithoutSection(std::string_view project);

/// Every place of `from` replaced.
std::string Replaced(std::string text, std::string_view from, std::string_view to);
/// How often `part` stands in the text.
std::size_t CountOf(std::string_view text, std::string_view part);

} // namespace integration
