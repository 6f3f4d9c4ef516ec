// Deployments for many machines, by way of Ansible.
#include "tests/integration/fleet_place.h"
#include "tests/integration/ssh_place.h"

#include <csignal>
#include <memory>
#include <sys/stat.h>
#include <thread>

namespace integration {
namespace {

namespace fs = std::filesystem;
using TJson = nlohmann::ordered_json;

constexpr const char* FleetContents = "out/roles/deployment/files/deployment/contents.zip";
constexpr const char* FleetList = "out/roles/deployment/files/deployment/list.json";

/// Path and content of every file below a directory but what deploys keep there.
std::string ContentsBelow(const TFleetPlace& place, const std::string& directory) {
  std::string text;
  for (const std::string& file : place.Files()) {
    if (file.starts_with(directory + "/") && file.find(".deployment-manager") == std::string::npos)
      text += file.substr(directory.size() + 1) + "=" + place.Read(file) + ";";
  }
  return text;
}

TEST(FleetExport, IsAnAnsibleProjectThatHasEqualContentsOnce) {
  const TFleetPlace place(FleetEntry("one") + FleetEntry("two") +
                          FleetEntry("sub\\three", "<RemoteDir>sub\\</RemoteDir>"));
  place.Write("one", "equal");
  place.Write("two", "equal");
  place.Write("sub/three", "other");
  const TRun run = place.Export();
  ASSERT_EQ(run.Status, 0) << run.Errors;
  for (const char* file :
       {"deploy.yml", "README.md", "inventory.example.yml", "roles/deployment/tasks/main.yml",
        "roles/deployment/library/deployment_files.py"})
    EXPECT_TRUE(fs::exists(place.Path("out") / file)) << file;
  EXPECT_NE(place.Read("out/deploy.yml").find("hosts: all"), std::string::npos);
  EXPECT_NE(place.Read("out/roles/deployment/defaults/main.yml")
                .find("deployment_root: !unsafe \"" + place.Path("box").string() + "\""),
            std::string::npos);
  const TJson list = TJson::parse(place.Read(FleetList));
  ASSERT_EQ(list["files"].size(), 3U);
  EXPECT_EQ(list["files"][0]["sha256"], list["files"][1]["sha256"]);
  EXPECT_EQ(list["files"][2]["path"], "demo/sub/three");
  const std::string archive = place.Read(FleetContents);
  EXPECT_EQ(CountOf(archive, "PK\x01\x02"), 2U);    // one such mark for each member
  EXPECT_FALSE(fs::exists(place.Path("box/demo"))); // nobody was deployed to
}

TEST(FleetExport, ReplacesAnExportAndNothingElse) {
  const TFleetPlace place(FleetEntry("one"));
  place.Write("one", "first");
  ASSERT_EQ(place.Export().Status, 0);
  place.Write("out/of/mine", "x");
  place.Write("one", "second, and longer");
  ASSERT_EQ(place.Export().Status, 0);
  EXPECT_FALSE(fs::exists(place.Path("out/of/mine")));
  EXPECT_EQ(TJson::parse(place.Read(FleetList))["files"][0]["size"], 18);

  fs::remove_all(place.Path("out"));
  place.Write("out/deployment-fleet.json", "{\"mine\": 1}");
  place.Write("out/precious", "x");
  const TRun other = place.Export();
  EXPECT_EQ(other.Status, 1);
  EXPECT_NE(other.Errors.find("is no export of ours"), std::string::npos) << other.Errors;
  EXPECT_EQ(place.Read("out/precious"), "x");
  fs::remove_all(place.Path("out"));
  place.Write("out", "a file");
  EXPECT_EQ(place.Export().Status, 1);
  EXPECT_EQ(place.Read("out"), "a file");
}

TEST(FleetExport, RefusesPlatformsWithoutPythonAndPathsThatLeaveTheRoot) {
  const TFleetPlace place(FleetEntry("one"));
  place.Write("one", "x");
  EXPECT_EQ(place.Export({"-p", "Android"}).Status, 2);
  EXPECT_EQ(place.Export({"-p", "all"}).Status, 2);
  for (const char* directory : {"..\\..\\out\\", "/etc/", "~/x/"}) {
    place.SetEntries(FleetEntry("one", "<RemoteDir>" + std::string(directory) + "</RemoteDir>"));
    EXPECT_EQ(place.Export().Status, 1) << directory;
  }
  EXPECT_EQ(place.Run({"profile", "remove", "box"}).Status, 0);
  EXPECT_EQ(place.Export().Status, 5);
  EXPECT_FALSE(fs::exists(place.Path("out")));
}

TEST(FleetExport, TakesCommandsWithConsentAndRunsLocalOnesOnce) {
  const TFleetPlace place(
      FleetEntry("one", "<LocalCommand>echo built &gt;&gt; one</LocalCommand>") +
      FleetEntry("gone"));
  place.Write("one", "");
  const TRun refused = place.Export();
  EXPECT_EQ(refused.Status, 6);
  EXPECT_NE(refused.Errors.find("on this machine: echo built >> one"), std::string::npos);
  EXPECT_EQ(place.Export({"--dry-run"}).Status, 1); // a file is missing
  EXPECT_EQ(place.Read("one"), "");
  EXPECT_EQ(place.Export({"--allow-commands", "--skip-missing"}).Status, 0);
  EXPECT_EQ(place.Read("one"), "built\n");
  EXPECT_EQ(TJson::parse(place.Read(FleetList))["files"][0]["size"], 6);
  EXPECT_EQ(place.Export({"--allow-commands"}).Status, 1);
}

TEST(FleetExport, TakesFilesFromElsewhereWithConsent) {
  const TFleetPlace place(FleetEntry("\\etc\\passwd"));
  const TRun refused = place.Export();
  EXPECT_EQ(refused.Status, 6);
  EXPECT_NE(refused.Errors.find("--allow-outside gives it. They are: /etc/passwd"),
            std::string::npos)
      << refused.Errors;
  EXPECT_FALSE(fs::exists(place.Path("out")));
  EXPECT_EQ(place.Export({"--allow-outside"}).Status, 0);
}

TEST(FleetExport, IsCleanForTheLinterOfTheEngine) {
  if (!fs::exists("/usr/bin/ansible-lint"))
    GTEST_SKIP() << "ansible-lint is not installed";
  const TFleetPlace place(FleetEntry("one"));
  place.Write("one", "x");
  ASSERT_EQ(place.Export().Status, 0);
  const TRun run =
      place.RunProgram({"/bin/sh", "-c", "cd out && ansible-lint --offline --nocolor"});
  EXPECT_EQ(run.Status, 0) << run.Output << run.Errors;
}

TEST(FleetArguments, AreSaidToBeWrongBeforeAnythingIsDone) {
  const TFleetPlace place(FleetEntry("one"));
  place.Write("one", "x");
  EXPECT_EQ(place.Run({"fleet", "deploy", "demo.vproj"}).Status, 2);
  EXPECT_EQ(place.Run({"fleet", "export", "demo.vproj"}).Status, 2);
  EXPECT_EQ(place.Export({"--limit", "m1"}).Status, 2);
  EXPECT_EQ(place.Deploy({"--out", "out"}).Status, 2);
  const TRun missing = place.Deploy();
  EXPECT_EQ(missing.Status, 3);
  EXPECT_EQ(missing.Json()["error"]["file"], "machines.yml");
}

TEST(FleetArguments, SayWhatToInstallWhereTheEngineIsNot) {
  TFleetPlace place(FleetEntry("one"));
  place.Write("one", "x");
  place.SetInventory({"m1"});
  place.SetVariable("PATH=" + place.Path("empty").string());
  const TRun run = place.Deploy();
  EXPECT_EQ(run.Status, 1);
  EXPECT_NE(run.Errors.find("install ansible-core 2.14 or newer"), std::string::npos);
}

TEST(Fleet, BringsEveryMachineInLineAndRefusesWhatOthersChanged) {
  NEEDS_ANSIBLE();
  const TFleetPlace place(FleetEntry("one") + FleetEntry("two") + FleetEntry("link"));
  place.Write("one", "first");
  place.Write("two", "second");
  fs::create_symlink("one", place.Path("link"));
  ::chmod(place.Path("two").c_str(), 0750);
  // One of them was deployed to by other means.
  ASSERT_EQ(place.Run({"deploy", "demo.vproj", "-c", "Debug"}).Status, 0);
  const std::string record = place.Read("box/.deployment-manager/demo/record.json");
  place.SetInventory({"box", "m1", "m2"});
  const TRun check = place.Deploy({"--check"});
  EXPECT_EQ(check.Status, 7) << check.Errors;
  EXPECT_EQ(TFleetPlace::Exits(check), "box 0;m1 7;m2 7;");
  EXPECT_FALSE(fs::exists(place.Path("m1")));

  const TRun first = place.Deploy({"--forks", "2"});
  ASSERT_EQ(first.Status, 0) << first.Errors;
  EXPECT_EQ(TFleetPlace::DocumentOf(first, "box")["unchanged"], 3);
  EXPECT_EQ(place.Read("box/.deployment-manager/demo/record.json"), record);
  const TJson document = TFleetPlace::DocumentOf(first, "m1");
  EXPECT_EQ(document["schema"], 1);
  EXPECT_EQ(document["copied"], 3);
  EXPECT_EQ(document["files"][0]["remoteFile"], place.Path("m1/demo/one").string());
  EXPECT_EQ(fs::read_symlink(place.Path("m2/demo/link")), "one");
  EXPECT_EQ(fs::status(place.Path("m2/demo/two")).permissions(), fs::perms(0750));

  place.Write("m2/demo/one", "mine!");
  place.Write("one", "third one");
  const TRun second = place.Deploy();
  EXPECT_EQ(second.Status, 8);
  EXPECT_EQ(TFleetPlace::Exits(second), "box 0;m1 0;m2 8;");
  EXPECT_EQ(TFleetPlace::DocumentOf(second, "m2")["files"][0]["state"], "conflict");
  EXPECT_NE(second.Errors.find(place.Path("m2/demo/one").string()), std::string::npos);
  EXPECT_EQ(place.Read("m1/demo/one"), "third one");
  EXPECT_EQ(place.Read("m2/demo/one"), "mine!");

  // What a fleet did can be looked at and taken back by every other means.
  EXPECT_EQ(place.Run({"verify", "demo.vproj", "-c", "Debug"}).Status, 0);
  ASSERT_EQ(place.Run({"undo", "demo.vproj", "-c", "Debug", "--yes"}).Status, 0);
  EXPECT_EQ(ContentsBelow(place, "box"), "demo/link=first;demo/one=first;demo/two=second;");
}

TEST(Fleet, RunsAnExportAnywhereAndChangesNothingTwice) {
  NEEDS_ANSIBLE();
  const TFleetPlace place(FleetEntry("one") + FleetEntry("two",
                                                         "<RemoteCommand>echo ran &gt;&gt; log"
                                                         "</RemoteCommand>"));
  place.Write("one", "first");
  place.Write("two", "second");
  ASSERT_EQ(place.Export({"--allow-commands"}).Status, 0);
  fs::create_directory(place.Path("elsewhere"));
  fs::rename(place.Path("out"), place.Path("elsewhere/fleet"));
  fs::remove(place.Path("one"));
  place.SetInventory({"m1", "m2"});
  const std::vector<std::string> play{"ansible-playbook", "-i", "machines.yml",
                                      "elsewhere/fleet/deploy.yml"};
  const TRun first = place.RunProgram(play);
  ASSERT_EQ(first.Status, 0) << first.Output;
  EXPECT_EQ(CountOf(first.Output, "changed=1"), 2U) << first.Output;
  EXPECT_EQ(ContentsBelow(place, "m1"), "demo/log=ran\n;demo/one=first;demo/two=second;");
  const TRun second = place.RunProgram(play);
  EXPECT_EQ(second.Status, 0) << second.Output;
  EXPECT_EQ(CountOf(second.Output, "changed=0"), 2U) << second.Output;
}

TEST(Fleet, RefusesOneMachineUnderTwoNames) {
  NEEDS_ANSIBLE();
  const TFleetPlace place(FleetEntry("one"));
  place.Write("one", "first");
  place.SetInventory({"m1", "m2"},
                     "    twin: {deployment_root: \"" + place.Path("x").string() + "/../m2/\"}\n");
  const TRun run = place.Deploy();
  EXPECT_EQ(run.Status, 2) << run.Errors;
  EXPECT_NE(run.Errors.find("m2 and twin"), std::string::npos) << run.Errors;
  EXPECT_FALSE(fs::exists(place.Path("m1")));
  const TRun nobody = place.Deploy({"--limit", "nobody"});
  EXPECT_EQ(nobody.Status, 2) << nobody.Errors;
}

TEST(Fleet, NamesEveryMachineThatHasATroubleOfItsOwn) {
  NEEDS_ANSIBLE();
  NEEDS_SSH_SERVER();
  const TFleetPlace place(FleetEntry("one") + FleetEntry("two"));
  place.Write("one", "first");
  place.Write("two", "second");
  std::vector<std::unique_ptr<workbench::testing::TSshServer>> servers;
  std::string hosts = "all:\n  hosts:\n";
  const auto add = [&](const std::string& name, unsigned port, const std::string& more) {
    hosts += "    " + name + ": {ansible_port: " + std::to_string(port) + ", deployment_root: \"" +
             place.Path(name).string() + "\"" + more + "}\n";
  };
  const std::string python = "ansible_python_interpreter: ";
  add("down", workbench::testing::ClosedPort(), "");
  for (int i = 0; i < 5; ++i) {
    const std::string name = "m" + std::to_string(i);
    servers.push_back(std::make_unique<workbench::testing::TSshServer>(place.Path("s" + name)));
    servers.back()->Introduce();
    std::string options;
    for (const std::string& option : servers.back()->ClientOptions())
      options.append(" -o ").append(option);
    const std::string interpreter = i == 3 ? "/missing/python3" : "/usr/bin/python3";
    add(name, servers.back()->Port(),
        ", " + python + interpreter + ", ansible_ssh_private_key_file: \"" +
            servers.back()->Identity().string() + "\", ansible_ssh_common_args: \"" + options +
            "\"");
  }
  place.Write("machines.yml", hosts + "  vars: {ansible_host: 127.0.0.1}\n");
  place.Write("m4", "no directory");
  const TRun run = place.Deploy({"--forks", "6"});
  EXPECT_EQ(run.Status, 5) << run.Errors;
  EXPECT_EQ(TFleetPlace::Exits(run), "down 5;m0 0;m1 0;m2 0;m3 1;m4 1;") << run.Errors;
  EXPECT_EQ(ContentsBelow(place, "m2"), "demo/one=first;demo/two=second;");
  for (const auto& [name, text] : std::vector<std::pair<std::string, std::string>>{
           {"m3", "/missing/python3"}, {"m4", "cannot be the root"}, {"down", "ssh"}}) {
    const TJson document = TFleetPlace::DocumentOf(run, name);
    EXPECT_NE(document["error"]["message"].get<std::string>().find(text), std::string::npos)
        << document;
    EXPECT_NE(run.Errors.find(name + ": "), std::string::npos);
  }
}

TEST(Fleet, LeavesEveryMachineWholeAfterCtrlC) {
  NEEDS_ANSIBLE();
  const TFleetPlace place(
      FleetEntry("one") +
      FleetEntry("two", "<RemoteCommand>test -e ../go || sleep 30</RemoteCommand>"));
  place.Write("one", "first");
  place.Write("two", "second");
  place.SetInventory({"m1", "m2"});
  place.Write("m1/go", "");
  TStart start = place.Start(place.DeployCommand({"--allow-commands", "--forks", "1"}));
  start.Meanwhile = [&](pid_t process) {
    for (int i = 0; i < 2000 && !fs::exists(place.Path("m2/demo/two")); ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    ::kill(process, SIGINT);
  };
  const TRun run = integration::RunProgram(std::move(start));
  EXPECT_EQ(run.Status, 130) << run.Errors;
  EXPECT_EQ(TFleetPlace::Exits(run), "m1 0;m2 130;") << run.Errors;
  // The machine hears that nobody waits for it any more, and ends in order.
  const fs::path lock = place.Path("m2/.deployment-manager/demo/lock");
  for (int i = 0; i < 1000 && fs::exists(lock); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  EXPECT_FALSE(fs::exists(lock));
  EXPECT_EQ(ContentsBelow(place, "m2"), "demo/one=first;demo/two=second;");
  const TJson record = TJson::parse(place.Read("m2/.deployment-manager/demo/record.json"));
  EXPECT_EQ(record["runs"][0]["result"], "partly");
  EXPECT_EQ(record["owed"]["demo/two"].size(), 1U);
}

} // namespace
} // namespace integration
