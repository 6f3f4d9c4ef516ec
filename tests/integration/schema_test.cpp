// Every document that --json prints is what its schema says, key by key.
#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace integration {
namespace {

using TJson = nlohmann::ordered_json;
using TTexts = std::vector<std::string>;

bool IsOfType(const TJson& value, const std::string& type) {
  return (type == "string" && value.is_string()) || (type == "boolean" && value.is_boolean()) ||
         (type == "integer" && value.is_number_integer()) ||
         (type == "array" && value.is_array()) || (type == "object" && value.is_object()) ||
         (type == "null" && value.is_null());
}

bool HasType(const TJson& schema, const TJson& value) {
  const auto type = schema.find("type");
  if (type == schema.end())
    return true;
  if (type->is_string())
    return IsOfType(value, type->get<std::string>());
  return std::any_of(type->begin(), type->end(),
                     [&](const TJson& each) { return IsOfType(value, each.get<std::string>()); });
}

/// Adds a sentence for each place where the value is not what the schema says. The words that the
/// schemas of this project use are known, and no others.
void CheckAgainst(const TJson& schema, const TJson& value, const std::string& place,
                  TTexts& problems) {
  if (!HasType(schema, value)) {
    problems.push_back(place + " is of another type: " + value.dump());
    return;
  }
  const auto values = schema.find("enum");
  if (values != schema.end() && std::find(values->begin(), values->end(), value) == values->end())
    problems.push_back(place + " has a word that is not listed: " + value.dump());
  if (schema.contains("const") && schema["const"] != value)
    problems.push_back(place + " is not " + schema["const"].dump());
  if (value.is_object()) {
    for (const auto& name : schema.value("required", TJson::array()))
      if (!value.contains(name.get<std::string>()))
        problems.push_back(place + " lacks " + name.dump());
    const TJson properties = schema.value("properties", TJson::object());
    const TJson others = schema.value("additionalProperties", TJson(true));
    for (const auto& [name, member] : value.items()) {
      if (properties.contains(name))
        CheckAgainst(properties[name], member, place + "." + name, problems);
      else if (others.is_object())
        CheckAgainst(others, member, place + "." + name, problems);
      else if (others == false)
        problems.push_back(place + " has " + name + ", which the schema does not know");
    }
  }
  if (value.is_array() && schema.contains("items")) {
    for (std::size_t i = 0; i < value.size(); ++i)
      CheckAgainst(schema["items"], value[i], place + "[" + std::to_string(i) + "]", problems);
  }
}

class Schemas : public testing::Test {
protected:
  Schemas() {
    std::filesystem::copy(Tree / "examples/sky-chart", Place.Path("sky"),
                          std::filesystem::copy_options::recursive);
    Place.Write("demo.vproj",
                ProjectWith(ListOf(
                    "<DeployClass Name=\"File\"/><DeployFile LocalName=\"demo.exe\" "
                    "Configuration=\"Debug\" Class=\"ProjectOutput\"><Platform Name=\"Win32\">"
                    "<Enabled>false</Enabled></Platform></DeployFile>" +
                    Entry("a", "Base", "Win32"))));
    Place.Write("a", "content");
  }
  ~Schemas() override {
    // Each schema is held against something.
    for (const auto& entry : std::filesystem::directory_iterator(Tree / "docs/schemas")) {
      const std::string name = entry.path().filename().string();
      EXPECT_TRUE(FSeen.contains(name.substr(0, name.find('.')))) << name;
    }
  }
  void Expect(const std::string& name, TTexts arguments) {
    arguments.emplace_back("--json");
    const TRun run = Place.Run(arguments);
    std::ifstream file(Tree / "docs/schemas" / (name + ".schema.json"));
    ASSERT_TRUE(file) << name;
    FSeen.insert(name);
    TTexts problems;
    const TJson schema = TJson::parse(file);
    CheckAgainst(schema, TJson::parse(run.Output), "$", problems);
    for (const std::string& problem : problems)
      ADD_FAILURE() << arguments.front() << ": " << problem;
  }

  TWorkplace Place;
  std::set<std::string> FSeen;
};

TEST_F(Schemas, SayWhatEveryCommandPrints) {
  const std::string sky = "sky/SkyChart.vproj";
  const TTexts target{"-p", "Win32", "-c", "Debug"};
  const auto demo = [&](TTexts command) {
    command.insert(command.begin() + 1, "demo.vproj");
    command.insert(command.end(), target.begin(), target.end());
    return command;
  };
  Expect("changed", {"profile", "add", "box", "-p", "Win32", "--path", "target", "--default",
                     "--after-deploy", "true"});
  Expect("profiles", {"profile", "list"});
  Expect("changed", {"profile", "group", "add", "desk", "box"});
  Expect("profile-groups", {"profile", "group", "list"});
  Expect("profile", {"profile", "show", "box"});
  Expect("profile-test", {"profile", "test", "box"});
  Expect("settings", {"settings", "list"});
  Expect("version", {"--version"});
  Place.Write("all.sln", "\nMicrosoft Visual Studio Solution File, Format Version 12.00\n"
                         "Project(\"{8BC9CEB8-8B4A-11D0-8D11-00A0C91BC942}\") = \"p\", "
                         "\"sky\\SkyChart.vproj\", \"{A}\"\nEndProject\n");
  Expect("solution", {"list", "all.sln"});
  Expect("solution", {"deploy", "all.sln", "--dry-run"});
  Expect("show", {"show", sky});
  Expect("list", {"list", sky, "-p", "Win32"});
  Expect("reconcile", {"reconcile", sky, "--all", "--dry-run"});
  Expect("explain", {"explain", sky, "SkyChart.exe", "-p", "Win32"});
  Expect("output", {"explain", sky, "--output", "-p", "Win32"});
  Expect("featured", {"featured", sky});
  Expect("classes", {"classes"});
  Expect("platforms", {"platforms"});
  Expect("export", {"export", sky, "--dry-run"});
  Place.Run({"profile", "add", "lab", "-p", "Linux64", "--path", "target", "--default"});
  Expect("fleet-export", {"fleet", "export", "demo.vproj", "-p", "Linux64", "--out", "fleet"});
  Expect("revert", {"revert", sky, "-p", "Win32", "--dry-run"});
  Expect("edit", {"add", sky, sky, "-p", "Win32", "--dry-run"});
  Expect("edit", {"upgrade", sky});
  Expect("status", demo({"status", "--offline"}));
  Expect("plan", demo({"plan"}));
  Expect("error", demo({"deploy"}));
  Expect("deploy", demo({"deploy", "--dry-run"}));
  Expect("deploy", demo({"deploy", "--allow-commands"}));
  Expect("status", demo({"status"}));
  Expect("status", demo({"status", "--offline"}));
  Expect("verify", demo({"verify"}));
  Expect("history", demo({"history"}));
  for (const std::string command : {"deploy", "status", "verify", "plan", "history", "undo"})
    Expect("targets", demo({command, "--group", "desk"}));
  Expect("undo", demo({"undo", "--yes"}));
}

} // namespace
} // namespace integration
