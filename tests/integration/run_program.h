// Runs deploymgr as a user would, and a directory to run it in.
#pragma once

#include <nlohmann/json.hpp>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace integration {

/// What a run left behind.
struct TRun {
  int Status = -1; ///< exit status; 128 and the signal for a killed one
  std::string Output;
  std::string Errors;

  nlohmann::ordered_json Json() const { return nlohmann::ordered_json::parse(Output); }
};

/// A directory of its own for each test, with settings and state of its own, removed at the end.
class TWorkplace {
public:
  TWorkplace();
  ~TWorkplace();
  TWorkplace(const TWorkplace&) = delete;
  TWorkplace& operator=(const TWorkplace&) = delete;

  const std::filesystem::path& Directory() const { return FDirectory; }
  std::filesystem::path Path(std::string_view name) const { return FDirectory / name; }
  std::filesystem::path Write(std::string_view name, std::string_view content) const;
  std::string Read(std::string_view name) const;
  std::filesystem::path CopyOf(const std::filesystem::path& file) const;
  /// Names of all files below, sorted; settings and state left out.
  std::vector<std::string> Files() const;

  /// Runs deploymgr there, with the data of the source tree.
  TRun Run(std::vector<std::string> arguments) const;
  /// Runs another program there; its name is looked up.
  TRun RunProgram(std::vector<std::string> command) const;
  /// For runs from now on, such as "LANG=de_DE.UTF-8".
  void SetVariable(std::string assignment) { FVariables.push_back(std::move(assignment)); }
  /// Runs as an ordinary user from now on, when the tests run as root; false when that fails.
  bool BecomeOrdinary();

private:
  std::filesystem::path FDirectory;
  std::vector<std::string> FVariables;
  bool FOrdinary = false;
};

/// A project with this content in its Deployment section ("" for none at all).
std::string ProjectWith(std::string_view section);

/// The text outside the Deployment element and the import line.
std::string WithoutSection(std::string_view project);

} // namespace integration
