// A directory to deploy from and one to deploy to.
#pragma once

#include "tests/support/temporary_directory.h"
#include "workbench/deploy/deploy_executor.h"
#include "workbench/remote/folder/folder_connection.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <string>
#include <vector>

namespace workbench::testing {

/// How a plan is to be carried out, and what comes of it.
struct TTestRun {
  unsigned Jobs = 0;
  IDeployObserver* Observer = nullptr; ///< null: nobody hears of it
  std::atomic<int> Cancelled = 0;
  TDeployReport Report = {};

  void Execute(const TDeployPlan& plan, IRemoteConnection& connection, const TConnect& connect,
               const std::filesystem::path& directory) {
    TSilentObserver nobody;
    Report.Rows = RowsOf(plan);
    ExecuteDeployPlan(plan,
                      {.Connection = connection,
                       .Connect = connect,
                       .Directory = directory,
                       .Jobs = Jobs,
                       .Observer = Observer ? *Observer : nobody,
                       .Cancelled = Cancelled},
                      Report);
  }
};

class TRemotePlace {
public:
  TRemotePlace() {
    std::filesystem::create_directories(FDirectory / "local");
    std::filesystem::create_directories(FDirectory / "target");
  }
  TRemotePlace(const TRemotePlace&) = delete;
  TRemotePlace& operator=(const TRemotePlace&) = delete;

  std::filesystem::path Target(const std::string& name = {}) const {
    return name.empty() ? FDirectory / "target" : FDirectory / "target" / name;
  }
  std::filesystem::path Local(const std::string& name = {}) const {
    return name.empty() ? FDirectory / "local" : FDirectory / "local" / name;
  }
  static void Write(const std::filesystem::path& file, const std::string& content) {
    WriteText(file, content);
  }
  static std::string Read(const std::filesystem::path& file) { return ReadText(file); }
  /// A local file with this content, to be deployed under a remote name.
  TDeployFile File(const std::string& name, const std::string& remoteName,
                   const std::string& content = "content") const {
    Write(Local(name), content);
    return {.LocalName = name, .LocalFile = Local(name), .RemoteName = remoteName};
  }

  TDeployPlan Plan(std::vector<TDeployFile> files, const TPlanOptions& options = {}) const {
    TFolderConnection connection(Target());
    return MakeDeployPlan(
        std::move(files), options, [&]() -> IRemoteConnection& { return connection; },
        [this]() -> const TTargetRecord& { return Record; });
  }
  void Execute(const TDeployPlan& plan, TTestRun& run) const {
    TFolderConnection connection(Target());
    const TConnect connect = [this] { return std::make_unique<TFolderConnection>(Target()); };
    run.Execute(plan, connection, connect, Local());
  }

  TTargetRecord Record = {}; ///< what plans know of earlier deploys

private:
  TTemporaryDirectory FTemporary;
  std::filesystem::path FDirectory = FTemporary.Path();
};

} // namespace workbench::testing
