// A project whose target is a directory that remembers deploys.
#pragma once

#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace integration {

inline constexpr const char* RecordFile = "target/.deployment-manager/demo/record.json";
inline constexpr const char* LockFile = "target/.deployment-manager/demo/lock";

/// An entry for Win32 with more elements in its platform record.
inline std::string RecordEntry(const std::string& name, const std::string& record = {}) {
  return "<DeployFile LocalName=\"" + name +
         "\" Configuration=\"Base\" Class=\"File\"><Platform Name=\"Win32\">" + record +
         "</Platform></DeployFile>\n";
}

/// A project of these entries whose profile leads to the directory "target".
class TRecordPlace : public TWorkplace {
public:
  explicit TRecordPlace(const std::string& entries, const std::vector<std::string>& options = {}) {
    SetEntries(entries);
    std::vector<std::string> add{"profile", "add",    "box",    "-p",
                                 "Win32",   "--path", "target", "--default"};
    add.insert(add.end(), options.begin(), options.end());
    EXPECT_EQ(Run(add).Status, 0);
  }
  void SetEntries(const std::string& entries) const {
    Write("demo.vproj",
          ProjectWith(ListOf("<DeployClass Name=\"File\"/>"
                             "<DeployFile LocalName=\"demo.exe\" Configuration=\"Debug\" "
                             "Class=\"ProjectOutput\"><Platform Name=\"Win32\"><Enabled>false"
                             "</Enabled></Platform></DeployFile>" +
                             entries)));
  }
  TRun Do(const std::string& command, std::vector<std::string> options = {}) const {
    std::vector<std::string> arguments{command, "demo.vproj", "-p",    "Win32",
                                       "-c",    "Debug",      "--json"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Run(arguments);
  }
  nlohmann::ordered_json RecordNow() const {
    return nlohmann::ordered_json::parse(Read(RecordFile));
  }
  /// State and action of each file of a deploy or a dry run, by name.
  static std::string Actions(const TRun& run) {
    std::string text;
    const nlohmann::ordered_json document = run.Json();
    for (const auto& file : document["files"])
      text += file["localName"].get<std::string>() + " " +
              (file["state"].is_null() ? "-" : file["state"].get<std::string>()) + " " +
              file["action"].get<std::string>() + ";";
    return text;
  }
  /// Another content of the same size, and a time that tells.
  void ChangeThere(const std::string& name) const {
    const std::filesystem::path file = Path("target/demo/" + name);
    Write("target/demo/" + name, std::string(std::filesystem::file_size(file), '#'));
    std::filesystem::last_write_time(file, std::filesystem::last_write_time(file) +
                                               std::chrono::seconds(30));
  }
};

} // namespace integration
