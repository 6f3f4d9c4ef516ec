// A project whose target is another machine: an SSH server of the test's own.
#pragma once

#include "tests/integration/temporary_project.h"
#include "tests/support/ssh/ssh_server.h"

#include <gtest/gtest.h>

#include <string>
#include <unistd.h>
#include <vector>

namespace integration {

/// The files of the project go to the directory "target/demo" of the workplace, through the profile
/// "box", whose host key is not known yet.
class TSshPlace : public TWorkplace {
public:
  explicit TSshPlace(const std::string& entries);

  workbench::testing::TSshServer& Server() { return FServer; }
  /// Adds a profile for the project's platform that leads to the server; later options win.
  TRun AddProfile(const std::string& name, const std::vector<std::string>& options = {}) const;
  /// Adds the profile "box" anew.
  void ChangeProfile(const std::vector<std::string>& options) const;

  TRun Deploy(const std::vector<std::string>& options = {}) const;
  TRun Status() const { return Run({"status", "demo.vproj", "--json"}); }
  /// A deploy that is not started yet.
  TStart StartDeploy(const std::vector<std::string>& options = {}) const;
  /// Remote states of the files in the list, by name, such as "a.dat Same".
  std::vector<std::string> States() const;
  /// Names below the target, unfinished files left out; sorted.
  std::vector<std::string> TargetFiles() const;
  /// Files that a deploy left unfinished.
  std::size_t UnfinishedCount() const;
  /// Waits until a deploy has begun to write a file. False when it does not.
  bool WaitForUnfinished() const;

  /// From now on the server takes that many bytes of a conversation and no more, until the file
  /// "go" is there.
  void HoldTransferAfter(std::size_t bytes);

private:
  workbench::testing::TSshServer FServer;
};

/// An entry of every configuration, with more elements in its platform record.
std::string RemoteEntry(const std::string& name, const std::string& record = {});

} // namespace integration

/// Ends a test where there can be no SSH server.
#define NEEDS_SSH_SERVER()                                                                         \
  do {                                                                                             \
    if (const std::string reason = workbench::testing::TSshServer::WhyNot(); !reason.empty())      \
      GTEST_SKIP() << reason;                                                                      \
  } while (false)
