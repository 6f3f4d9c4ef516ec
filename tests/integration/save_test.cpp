#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <future>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace integration {
namespace {

std::string LargeProject(int entries) {
  std::string section = "<Deployment Version=\"2\">\n";
  for (int i = 0; i < entries; ++i)
    section += "<DeployFile LocalName=\"f" + std::to_string(i) +
               "\" Configuration=\"Debug\" Class=\"File\"><Platform Name=\"Win32\">"
               "<Overwrite>true</Overwrite></Platform></DeployFile>\n";
  return ProjectWith(section + "</Deployment>");
}

TEST(Save, KeepsRightsAndSymbolicLinks) {
  TWorkplace place;
  place.Write("real/p.vproj", ProjectWith(""));
  std::filesystem::permissions(place.Path("real/p.vproj"), std::filesystem::perms(0640));
  std::filesystem::create_symlink("real/p.vproj", place.Path("link.vproj"));
  ASSERT_EQ(place.Run({"add", "link.vproj", "x.dat", "--missing-ok", "--quiet"}).Status, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(place.Path("link.vproj")));
  EXPECT_EQ(std::filesystem::status(place.Path("real/p.vproj")).permissions(),
            std::filesystem::perms(0640));
  EXPECT_NE(place.Read("real/p.vproj").find("x.dat"), std::string::npos);
  EXPECT_EQ(place.Files(),
            std::vector<std::string>({"link.deployproj", "link.vproj", "real/p.vproj"}));
}

TEST(Save, KeepsTheOldContentAsABackup) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  ASSERT_EQ(place.Run({"add", "p.vproj", "x.dat", "--missing-ok", "--quiet"}).Status, 0);
  std::vector<std::filesystem::path> backups;
  for (const auto& entry :
       std::filesystem::recursive_directory_iterator(place.Path("home/.local/state"))) {
    if (entry.is_regular_file())
      backups.push_back(entry.path());
  }
  ASSERT_EQ(backups.size(), 1U);
  EXPECT_EQ(place.Read(backups[0].lexically_relative(place.Directory()).string()), ProjectWith(""));
}

TEST(Save, InAReadOnlyDirectoryFailsAndLeavesTheProject) {
  TWorkplace place;
  place.Write("d/p.vproj", ProjectWith(""));
  if (!place.BecomeOrdinary())
    GTEST_SKIP() << "the tests cannot run a program as an ordinary user here";
  std::filesystem::permissions(place.Path("d"), std::filesystem::perms(0555));
  const TRun run = place.Run({"add", "d/p.vproj", "x.dat", "--missing-ok"});
  std::filesystem::permissions(place.Path("d"), std::filesystem::perms(0755));
  EXPECT_EQ(run.Status, 1);
  EXPECT_NE(run.Errors.find("d/p.vproj"), std::string::npos) << run.Errors;
  EXPECT_EQ(place.Read("d/p.vproj"), ProjectWith(""));
  EXPECT_EQ(place.Files(), std::vector<std::string>({"d/p.vproj"}));
}

TEST(Save, OfTwoRunsAtOnceLosesNothing) {
  TWorkplace place;
  place.Write("p.vproj", LargeProject(2'000));
  std::vector<std::future<TRun>> runs;
  for (int i = 0; i < 4; ++i)
    runs.push_back(std::async(std::launch::async, [&place, i] {
      return place.Run({"add", "p.vproj", "new" + std::to_string(i), "--missing-ok", "--quiet"});
    }));
  for (auto& run : runs)
    EXPECT_EQ(run.get().Status, 0);
  EXPECT_EQ(place.Run({"show", "p.vproj", "--json"}).Json()["files"].size(), 2'004U);
}

TEST(Save, WaitsForAnotherRunUntilItLetsGo) {
  TWorkplace place;
  const auto file = place.Write("p.vproj", ProjectWith(""));
  const int held = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
  ASSERT_EQ(::flock(held, LOCK_EX), 0);
  auto run = std::async(std::launch::async, [&] {
    return place.Run({"add", "p.vproj", "x.dat", "--missing-ok"});
  });
  EXPECT_EQ(run.wait_for(std::chrono::milliseconds(500)), std::future_status::timeout);
  EXPECT_EQ(place.Read("p.vproj"), ProjectWith(""));
  ::close(held);
  EXPECT_EQ(run.get().Status, 0);
  EXPECT_NE(place.Read("p.vproj").find("x.dat"), std::string::npos);
}

// The program is killed after ever longer times, so that the kills fall on every part of a save.
TEST(Save, ThatIsKilledLeavesTheOldOrTheNewFile) {
  TWorkplace place;
  const std::string before = LargeProject(3'000);
  int killed = 0;
  for (int step = 0; step < 40; ++step) {
    place.Write("p.vproj", before);
    const pid_t child = ::fork();
    if (child == 0) {
      const std::string home = "HOME=" + place.Path("home").string();
      const std::string root = std::string("ZELK=") + SOURCE_TREE;
      const std::string project = place.Path("p.vproj").string();
      ::execle(DEPLOYMGR_PROGRAM, "deploymgr", "add", project.c_str(), "/nowhere/x.dat", "--quiet",
               "--missing-ok", "--outside", nullptr,
               std::array{home.c_str(), root.c_str(), static_cast<const char*>(nullptr)}.data());
      ::_exit(127);
    }
    std::this_thread::sleep_for(std::chrono::microseconds(1'000 * step));
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    killed += WIFSIGNALED(status) ? 1 : 0;
    const std::string after = place.Read("p.vproj");
    if (after != before) {
      EXPECT_EQ(place.Run({"show", "p.vproj", "--json"}).Json()["files"].size(), 3'001U) << step;
    }
    std::filesystem::remove(place.Path("p.deployproj"));
  }
  EXPECT_GT(killed, 5);
}

} // namespace
} // namespace integration
