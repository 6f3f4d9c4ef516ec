// A source tree and a build directory, as a build tool leaves them.
#pragma once

#include "package/common/errors.h"
#include "workbench/project/build_import/build_directory.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace workbench::testing {

class TBuildPlace {
public:
  TBuildPlace() {
    std::string name = (std::filesystem::temp_directory_path() / "build-XXXXXX").string();
    if (!::mkdtemp(name.data()))
      throw std::runtime_error("no temporary directory");
    FDirectory = std::filesystem::canonical(name);
  }
  ~TBuildPlace() {
    std::error_code ignored;
    std::filesystem::remove_all(FDirectory, ignored);
  }
  TBuildPlace(const TBuildPlace&) = delete;
  TBuildPlace& operator=(const TBuildPlace&) = delete;

  std::filesystem::path Path(const std::string& name = {}) const {
    return name.empty() ? FDirectory : FDirectory / name;
  }
  void Write(const std::string& name, const std::string& content) const {
    std::filesystem::create_directories(Path(name).parent_path());
    std::ofstream(Path(name), std::ios::binary) << content;
  }

  /// The plan of "build", without a tool being run.
  TInstallPlan Read(const std::vector<std::string>& components = {}) const {
    return ReadBuildDirectory(Path("build"), components, /*mayRun=*/false);
  }
  /// "FILE:LINE: text" of the error of reading it; the place's directory is left out.
  std::string ErrorOf(const std::vector<std::string>& components = {}) const {
    try {
      Read(components);
    } catch (const deployment::TInputError& error) {
      return Text(error.Place().File, error.Place().Line, error.what());
    }
    return "no error";
  }
  std::vector<std::string> WarningsOf(const TInstallPlan& plan) const {
    std::vector<std::string> texts;
    for (const TWarning& warning : plan.Warnings)
      texts.push_back(Text(warning.File, warning.Line, warning.Text));
    return texts;
  }
  /// "configuration component local -> directory/name (program) at line" for each file.
  std::vector<std::string> LinesOf(const TInstallPlan& plan) const {
    std::vector<std::string> lines;
    for (const TInstalledFile& file : plan.Files)
      lines.push_back(file.Configuration + " " + file.Component + " " +
                      file.LocalFile.lexically_relative(FDirectory).string() + " -> " +
                      file.Directory + "/" + file.Name + (file.IsProgram ? " program" : "") + " @" +
                      std::to_string(file.Rule.Line));
    return lines;
  }

private:
  std::string Text(const std::string& file, unsigned line, std::string text) const {
    const std::string directory = FDirectory.string() + "/";
    for (std::size_t at = text.find(directory); at != std::string::npos; at = text.find(directory))
      text.erase(at, directory.size());
    const std::string name = file.starts_with(directory) ? file.substr(directory.size()) : file;
    return name + (line ? ":" + std::to_string(line) : "") + ": " + text;
  }

  std::filesystem::path FDirectory;
};

} // namespace workbench::testing
