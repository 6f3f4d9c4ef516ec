// What may stand in a place of a command line, where the program knows: names of this machine's
// tables, of the user's profiles and of the project at hand.
#pragma once

#include "workbench/cli/context/command.h"

#include <memory>
#include <string>
#include <vector>

namespace workbench {

/// One way to complete a word.
struct TCandidate {
  std::string Text;
  std::string Description; ///< may be empty
};

/// Each is read when it is asked for. Installation and project that cannot be read have nothing to
/// offer; what throws besides are damaged files of the user and the tables.
class TCompletionValues {
public:
  /// `root` as "--root" gives it; `project` may be empty, which stands for the one project in the
  /// present directory.
  TCompletionValues(std::string root, std::string project);
  ~TCompletionValues();
  TCompletionValues(const TCompletionValues&) = delete;
  TCompletionValues& operator=(const TCompletionValues&) = delete;

  /// The project's platforms first, then all others.
  std::vector<TCandidate> Platforms();
  std::vector<TCandidate> Configurations();
  std::vector<TCandidate> Profiles();
  /// Local names of the project's list, with "/" between their parts.
  std::vector<TCandidate> Entries();
  std::vector<TCandidate> Classes();
  std::vector<TCandidate> Settings();

private:
  TSession* Session();
  TOpenProject* Project();

  std::string FRoot;
  std::string FProject;
  std::unique_ptr<TSession> FSession;
  TOpenProject* FOpen = nullptr;
  bool FAskedForSession = false;
  bool FAskedForProject = false;
};

} // namespace workbench
