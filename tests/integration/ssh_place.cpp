#include "tests/integration/ssh_place.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace integration {
namespace {

constexpr const char* Platform = "OSX32";
constexpr const char* UnfinishedStart = ".deploymgr-";
constexpr std::chrono::seconds Patience(30);

// What a build would make is not part of what these tests look at.
std::string DisabledEntry(const std::string& name, const std::string& className) {
  return "<DeployFile LocalName=\"" + name + R"(" Configuration="Debug" Class=")" + className +
         R"("><Platform Name="OSX32"><Enabled>false</Enabled></Platform></DeployFile>)" + "\n";
}

std::string ProjectOf(const std::string& entries) {
  const std::string list =
      ListOf("<DeployClass Name=\"File\"/>\n" + DisabledEntry("demo", "ProjectOutput") +
             DisabledEntry("demo.info.plist", "ProjectOSXInfoPList") +
             DisabledEntry("demo.entitlements", "ProjectOSXEntitlements") + entries);
  return Replaced(Replaced(ProjectWith(list), "Win32", Platform),
                  "<TargetPlatform Include=\"OSX32\"/>",
                  "<TargetPlatform Include=\"OSX32\"><Profile>box</Profile></TargetPlatform>");
}

} // namespace

TSshPlace::TSshPlace(const std::string& entries) : FServer(Path("server")) {
  Write("demo.vproj", ProjectOf(entries));
  const TRun run = AddProfile("box");
  EXPECT_EQ(run.Status, 0) << run.Errors;
}

TRun TSshPlace::AddProfile(const std::string& name, const std::vector<std::string>& options) const {
  std::vector<std::string> arguments{"profile", "add", name, "--kind", "ssh"};
  const auto isGiven = [&](const char* option) { return std::ranges::count(options, option) > 0; };
  const auto add = [&](const char* option, const std::string& value) {
    if (!isGiven(option))
      arguments.insert(arguments.end(), {option, value});
  };
  add("-p", Platform);
  add("--host", "127.0.0.1");
  add("--port", std::to_string(FServer.Port()));
  add("--identity", FServer.Identity().string());
  add("--path", Path("target").string());
  for (const std::string& option : FServer.ClientOptions())
    arguments.insert(arguments.end(), {"--ssh-option", option});
  arguments.insert(arguments.end(), options.begin(), options.end());
  return Run(arguments);
}

void TSshPlace::ChangeProfile(const std::vector<std::string>& options) const {
  EXPECT_EQ(Run({"profile", "remove", "box"}).Status, 0);
  const TRun run = AddProfile("box", options);
  EXPECT_EQ(run.Status, 0) << run.Errors;
}

TStart TSshPlace::StartDeploy(const std::vector<std::string>& options) const {
  std::vector<std::string> arguments{"deploy", "demo.vproj"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  return Start(arguments);
}

TRun TSshPlace::Deploy(const std::vector<std::string>& options) const {
  return integration::RunProgram(StartDeploy(options));
}

std::vector<std::string> TSshPlace::States() const {
  const TRun run = Status();
  EXPECT_EQ(run.Status, 0) << run.Errors;
  std::vector<std::string> states;
  if (run.Status != 0)
    return states;
  const auto document = run.Json();
  for (const auto& row : document["rows"]) {
    if (row["checked"] == true)
      states.push_back(row["localName"].get<std::string>() + " " +
                       row["remoteStatus"].get<std::string>());
  }
  std::ranges::sort(states);
  return states;
}

std::vector<std::string> TSshPlace::TargetFiles() const {
  std::vector<std::string> names;
  for (const std::string& name : Files()) {
    if (name.starts_with("target/") && name.find(UnfinishedStart) == std::string::npos &&
        !name.starts_with("target/.deployment-manager/"))
      names.push_back(name.substr(std::string_view("target/").size()));
  }
  return names;
}

std::size_t TSshPlace::UnfinishedCount() const {
  std::size_t count = 0;
  std::error_code ignored;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(Path("target"), ignored))
    count += entry.path().filename().string().starts_with(UnfinishedStart) ? 1 : 0;
  return count;
}

bool TSshPlace::WaitForUnfinished() const {
  const auto end = std::chrono::steady_clock::now() + Patience;
  while (std::chrono::steady_clock::now() < end) {
    for (const std::string& name : Files()) {
      if (name.starts_with("target/") && !name.starts_with("target/.deployment-manager/") &&
          name.find(UnfinishedStart) != std::string::npos)
        return true;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return false;
}

void TSshPlace::HoldTransferAfter(std::size_t bytes) {
  // It ends with the workplace, too. What is read is counted in blocks, however little is in one.
  FServer.SetTransfer("cd '" + Directory().string() +
                      "'\n(dd bs=16 iflag=count_bytes status=none count=" + std::to_string(bytes) +
                      "\nwhile [ ! -e go ] && [ -e demo.vproj ]; do sleep 0.02; done\n"
                      "exec cat) | /usr/lib/openssh/sftp-server");
}

std::string RemoteEntry(const std::string& name, const std::string& record) {
  return "<DeployFile LocalName=\"" + name +
         R"(" Configuration="Base" Class="File"><Platform Name="OSX32">)" + record +
         "</Platform></DeployFile>\n";
}

} // namespace integration
