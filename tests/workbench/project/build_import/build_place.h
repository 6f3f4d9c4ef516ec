// A source tree and a build directory, as a build tool leaves them.
#pragma once

#include "package/common/errors.h"
#include "tests/support/temporary_directory.h"
#include "workbench/project/build_import/build_directory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace workbench::testing {

class TBuildPlace {
public:
  std::filesystem::path Path(const std::string& name = {}) const {
    return name.empty() ? FDirectory.Path() : FDirectory.Path() / name;
  }
  void Write(const std::string& name, const std::string& content) const {
    WriteText(Path(name), content);
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
                      file.LocalFile.lexically_relative(Path()).string() + " -> " + file.Directory +
                      "/" + file.Name + (file.IsProgram ? " program" : "") + " @" +
                      std::to_string(file.Rule.Line));
    return lines;
  }

private:
  std::string Text(const std::string& file, unsigned line, std::string text) const {
    const std::string directory = Path().string() + "/";
    for (std::size_t at = text.find(directory); at != std::string::npos; at = text.find(directory))
      text.erase(at, directory.size());
    const std::string name = file.starts_with(directory) ? file.substr(directory.size()) : file;
    return name + (line ? ":" + std::to_string(line) : "") + ": " + text;
  }

  TTemporaryDirectory FDirectory;
};

} // namespace workbench::testing
