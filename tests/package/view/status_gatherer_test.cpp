// The status of files without a frame around it.
#include "package/view/status_gatherer.h"
#include "package/view/view_threads.h"
#include "tests/package/host/api/entry_world.h"
#include "workbench/controls/main_thread_queue.h"

namespace deployment {
namespace {

class StatusGatherer : public EntryWorld {
protected:
  StatusGatherer() {
    Module->GivenDeployment = &Deployment;
    Module->Platforms.Profiles["Win32"] = "lab";
    Profiles.Profiles["lab"] = std::make_shared<TMemoryProfile>("lab");
    Target = {Module, "Win32", "Debug"};
  }
  void Connect() {
    Connection.Start(nullptr, nullptr, std::make_shared<workbench::TMainThreadQueue>(),
                     [](const TConnectThread&) {});
    Threads->Join();
    Connection.End(/*failed=*/false);
  }

  TFrameTarget Target;
  std::shared_ptr<TViewThreads> Threads = std::make_shared<TViewThreads>();
  TConnection Connection{Threads};
  TStatusGatherer Status{Host, Target, Connection};
};

TEST_F(StatusGatherer, LooksForLocalFilesWithoutAConnection) {
  const IProjectDeploymentFile& here = Add("here");
  const IProjectDeploymentFile& gone = Add("gone");
  Host.Files[R"(C:\work\App\here)"] = "content";
  EXPECT_TRUE(Status.GatherInformation());
  EXPECT_TRUE(Status.LocalFileExists(here));
  EXPECT_FALSE(Status.LocalFileExists(gone));
  EXPECT_EQ(Status.RemoteStatusText(here), "Not Connected");
  EXPECT_TRUE(Profiles.Asked.empty());
}

TEST_F(StatusGatherer, ComparesWithTheMachineOfTheProfile) {
  const IProjectDeploymentFile& file = Add("a");
  Profiles.Local[R"(C:\work\App\a)"] = TimeOf(11);
  Profiles.Remote[R"(App\a)"] = TimeOf(10);
  Connect();
  EXPECT_TRUE(Status.GatherRemoteFileInfo());
  EXPECT_EQ(Status.LocalStatusText(file), "Newer");
  EXPECT_EQ(Status.RemoteStatusText(file), "Older");
  EXPECT_EQ(Connection.Profile(), Profiles.Profiles["lab"]);
}

TEST_F(StatusGatherer, LeavesTheCacheWithoutAProfile) {
  const IProjectDeploymentFile& file = Add("a");
  Status.Cache().Store("a", {TRemoteState::Same, true});
  Connect();
  Module->Platforms.Profiles.clear();
  EXPECT_FALSE(Status.GatherRemoteFileInfo());
  EXPECT_FALSE(Status.UpdateFileCache(file));
  EXPECT_EQ(Status.LocalStatusText(file), "Same");
}

TEST_F(StatusGatherer, ForgetsEverythingWithoutADeployment) {
  Status.Cache().Store("a", {TRemoteState::Same, true});
  Module->GivenDeployment = nullptr;
  EXPECT_FALSE(Status.GatherInformation());
  EXPECT_EQ(Status.Cache().Find("a"), nullptr);
}

} // namespace
} // namespace deployment
