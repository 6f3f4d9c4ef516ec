// A target behind a real SFTP server that is talked to through a pipe, without a network.
#pragma once

#include "tests/workbench/remote/target/remote_fixture.h"
#include "workbench/remote/sftp/sftp_connection.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace workbench::testing {

inline constexpr const char* SftpServer = "/usr/lib/openssh/sftp-server";

/// A program that speaks to us instead of a server.
inline TProcessStart Program(std::vector<std::string> command) {
  return {.Command = std::move(command), .Environment = EnvironmentWith({})};
}

class SftpTest : public ::testing::Test {
protected:
  void SetUp() override {
    if (!std::filesystem::exists(SftpServer))
      GTEST_SKIP() << SftpServer << " is not installed";
  }

  TSftpMachine Machine() const {
    return {.Sftp = Program({SftpServer}),
            .Exec =
                [](const std::string& command) {
                  return Program({"/bin/sh", "-c", command});
                },
            .Root = Place.Target().string()};
  }
  std::unique_ptr<TSftpConnection> Connect() const {
    return std::make_unique<TSftpConnection>(Machine(), Facts);
  }
  TDeployPlan Plan(std::vector<TDeployFile> files, const TPlanOptions& options = {}) const {
    const auto connection = Connect();
    return MakeDeployPlan(
        std::move(files), options, [&]() -> IRemoteConnection& { return *connection; },
        [this]() -> const TTargetRecord& { return Place.Record; });
  }
  void Execute(const TDeployPlan& plan, TTestRun& run) const {
    const auto connection = Connect();
    run.Execute(
        plan, *connection, [this] { return Connect(); }, Place.Local());
  }
  /// Names of unfinished files below the target.
  std::vector<std::string> Unfinished() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(Place.Target())) {
      if (IsUnfinishedName(entry.path().filename().string()))
        names.push_back(entry.path().filename().string());
    }
    return names;
  }

  TRemotePlace Place;
  std::shared_ptr<TMachineFacts> Facts = std::make_shared<TMachineFacts>();
};

} // namespace workbench::testing
