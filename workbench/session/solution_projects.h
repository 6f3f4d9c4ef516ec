// The projects of a solution, as a session opens them.
#pragma once

#include "workbench/project/cpp/solution.h"
#include "workbench/session/session.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// A project of an opened solution.
struct TSolutionMember {
  const TSolutionProject* Project = nullptr; ///< of the solution
  std::filesystem::path File;                ///< beginning as the solution's own name was given
  std::string Name;                          ///< seen from the solution's directory, "/" in it
};

/// A solution that was named by a user.
class TOpenSolution {
public:
  /// Throws TInputError when it cannot be read or has no order to be built in.
  explicit TOpenSolution(const std::filesystem::path& file);

  const TSolution& Solution() const { return *FSolution; }
  /// In the order of the solution.
  const std::vector<TSolutionMember>& Members() const { return FMembers; }
  /// Why a member is of a kind that has no list, such as a directory or an installer; empty for a
  /// project.
  std::string WhyNoProject(const TSolutionMember& member) const;
  /// Opens a member as the builds of the solution see it. Throws as TSession::Open does, and names
  /// the line of the solution when there is no such file.
  TOpenProject& Open(TSession& session, const TSolutionMember& member, TOpenPurpose purpose) const;

private:
  std::shared_ptr<const TSolution> FSolution;
  std::vector<TSolutionMember> FMembers;
};

/// False when there is nothing to deploy for the target: a build makes nothing that is deployed and
/// the list has no entry. An empty configuration or platform stands for every one that the project
/// has. Throws TInputError.
bool HasSomethingToDeploy(TOpenProject& project, std::string_view configuration,
                          std::string_view platform);

} // namespace workbench
