// A project for Linux machines, and inventories of machines that are directories of a workplace.
#pragma once

#include "tests/integration/temporary_project.h"
#include "tests/support/sanitized.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace integration {

/// An entry for Linux machines with more elements in its platform record.
inline std::string FleetEntry(const std::string& name, const std::string& record = {}) {
  return "<DeployFile LocalName=\"" + name +
         "\" Configuration=\"Base\" Class=\"File\"><Platform Name=\"Linux64\">" + record +
         "</Platform></DeployFile>\n";
}

/// The profile "box" of the project leads to the directory "box".
class TFleetPlace : public TWorkplace {
public:
  explicit TFleetPlace(const std::string& entries, const std::vector<std::string>& options = {}) {
    SetEntries(entries);
    std::vector<std::string> add{"profile", "add",    "box", "-p",
                                 "Linux64", "--path", "box", "--default"};
    add.insert(add.end(), options.begin(), options.end());
    EXPECT_EQ(Run(add).Status, 0);
  }
  void SetEntries(const std::string& entries) const {
    Write("demo.vproj",
          Replaced(ProjectWith(ListOf("<DeployClass Name=\"File\"/>"
                                      "<DeployFile LocalName=\"demo\" Configuration=\"Debug\" "
                                      "Class=\"ProjectOutput\"><Platform Name=\"Linux64\"><Enabled>"
                                      "false</Enabled></Platform></DeployFile>" +
                                      entries)),
                   "Win32", "Linux64"));
  }
  /// Machines that are no others than this one, each with a root of its name.
  void SetInventory(const std::vector<std::string>& names, const std::string& more = {}) const {
    std::string text = "all:\n  hosts:\n";
    for (const std::string& name : names)
      text += "    " + name + ": {deployment_root: \"" + Path(name).string() + "\"}\n";
    Write("machines.yml",
          text + more +
              "  vars:\n    ansible_connection: local\n"
              "    ansible_python_interpreter: \"{{ ansible_playbook_python }}\"\n");
  }
  TRun Export(std::vector<std::string> options = {}) const {
    options.insert(options.begin(),
                   {"fleet", "export", "demo.vproj", "-c", "Debug", "--out", "out", "--json"});
    return Run(options);
  }
  std::vector<std::string> DeployCommand(const std::vector<std::string>& options = {}) const {
    std::vector<std::string> command{"fleet", "deploy",      "demo.vproj",   "-c",
                                     "Debug", "--inventory", "machines.yml", "--json"};
    command.insert(command.end(), options.begin(), options.end());
    return command;
  }
  TRun Deploy(const std::vector<std::string>& options = {}) const {
    return Run(DeployCommand(options));
  }
  /// Name and exit status of each machine.
  static std::string Exits(const TRun& run) {
    std::string text;
    const auto document = run.Json();
    for (const auto& target : document["targets"])
      text += target["profile"].get<std::string>() + " " +
              std::to_string(target["exit"].get<int>()) + ";";
    return text;
  }
  /// The document of a machine.
  static nlohmann::ordered_json DocumentOf(const TRun& run, const std::string& name) {
    const auto document = run.Json();
    for (const auto& target : document["targets"]) {
      if (target["profile"] == name)
        return target["document"];
    }
    return {};
  }
};

} // namespace integration

/// Ends a test where the engine is not installed, and under sanitizers: what machines run is
/// Python.
#define NEEDS_ANSIBLE()                                                                            \
  do {                                                                                             \
    if (!std::filesystem::exists("/usr/bin/ansible-playbook"))                                     \
      GTEST_SKIP() << "ansible-playbook is not installed";                                         \
    if (testing_support::IsSanitized)                                                              \
      GTEST_SKIP() << "what machines run is not sanitized";                                        \
  } while (false)
