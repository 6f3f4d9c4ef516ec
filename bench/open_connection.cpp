// Times what goes over a connection that is open already, as the window does it.
// Usage: open_connection PROJECT. Reads words from standard input, does what each says, and prints
// the milliseconds that it took: "status" asks for all files, "deploy" brings what differs.
#include "workbench/services/remote_profile_services.h"
#include "workbench/session/session.h"

#include <chrono>
#include <cstdio>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace workbench;

class TBench {
public:
  explicit TBench(const char* project)
      : FProject(FSession.Open(project, TOpenPurpose::Look).Project()),
        FPlatform(FProject.GetCurrentPlatform()),
        FConfiguration(FProject.GetCurrentConfiguration()), FServices(FSession.RemoteProfiles()),
        FProfile(FServices.FindProfile(FProject.GetProjectPlatforms()->GetProfileName(FPlatform))) {
    if (!FProfile)
      throw std::runtime_error("the project has no profile");
    const auto& root = dynamic_cast<const TRemoteProfile&>(*FProfile).Profile().Path;
    for (const TDeployRow& row : Deploy(/*dryRun=*/true).Rows)
      FNames.push_back(row.RemoteFile.substr(root.size() + 1));
  }

  void Do(const std::string& word) {
    if (word == "status")
      AskForAll();
    else if (word == "deploy")
      Deploy(/*dryRun=*/false);
    else
      throw std::runtime_error("what is \"" + word + "\"?");
  }

private:
  void AskForAll() {
    FServices.BeginRemoteQueries(*FProfile);
    FServices.ExpectRemoteQueries(*FProfile, FNames);
    for (const std::string& name : FNames) {
      if (!FServices.GetRemoteFileTime(*FProfile, name))
        throw std::runtime_error(name + " is not there");
    }
    FServices.EndRemoteQueries(*FProfile);
  }
  TDeployReport Deploy(bool dryRun) {
    TSilentObserver nobody;
    TDeployReport report = FServices.Deploys().Deploy(
        {.Project = FProject, .Target = {FConfiguration, FPlatform}, .Options = {.DryRun = dryRun}},
        nobody);
    if (report.End != TDeployEnd::Done)
      throw std::runtime_error("the deploy failed: " + report.Message);
    return report;
  }

  TSession FSession{TSessionOptions{}};
  deployment::IOTAProject& FProject;
  const std::string FPlatform;
  const std::string FConfiguration;
  TRemoteProfileServices& FServices;
  const std::shared_ptr<deployment::IOTARemoteProfile> FProfile;
  std::vector<std::string> FNames;
};

} // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: open_connection PROJECT\n", stderr);
    return 2;
  }
  try {
    TBench bench(argv[1]);
    for (std::string word; std::getline(std::cin, word);) {
      const auto start = std::chrono::steady_clock::now();
      bench.Do(word);
      const std::chrono::duration<double, std::milli> time =
          std::chrono::steady_clock::now() - start;
      std::printf("%.1f\n", time.count());
      std::fflush(stdout);
    }
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "open_connection: %s\n", error.what());
    return 1;
  }
}
