// The directory that the runs of a family work in.
#pragma once

#include "tests/faults/traced_run.h"
#include "tests/faults/tree_state.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace faults {

/// The programs that are run.
struct TPrograms {
  std::filesystem::path Deploymgr;
  std::filesystem::path Probe;       ///< fault_probe
  std::filesystem::path LyingServer; ///< fault_server
  std::filesystem::path Root;        ///< that holds ObjRepos
};

/// A place with a home directory of its own. It always has the same path, since projects, profiles
/// and consents name it. Gone with the object.
class TFaultPlace {
public:
  explicit TFaultPlace(TPrograms programs);
  ~TFaultPlace();
  TFaultPlace(const TFaultPlace&) = delete;
  TFaultPlace& operator=(const TFaultPlace&) = delete;

  std::filesystem::path Path(std::string_view name = {}) const { return FWork / name; }
  void Write(std::string_view name, std::string_view text) const;
  std::string Read(std::string_view name) const;

  /// A run of deploymgr in the place, with the data that ship; of another program.
  TProgramStart Deploymgr(std::vector<std::string> arguments) const;
  TProgramStart Probe(std::vector<std::string> arguments) const;
  /// A run of any program in the place.
  TProgramStart Of(std::vector<std::string> command) const { return Start(std::move(command)); }
  const TPrograms& Programs() const { return FPrograms; }
  /// Further variables of runs, such as "PATH=...".
  void SetVariables(std::vector<std::string> variables) { FVariables = std::move(variables); }

  /// Runs deploymgr to set the place up. Throws std::runtime_error when the status is another one.
  void Prepare(std::vector<std::string> arguments, int expectedStatus = 0) const;
  /// What stands here now is what Reset brings back.
  void Keep() const;
  void Reset() const { Restore(FKept, FWork); }
  TTreeState State() const { return StateOf(FWork); }

private:
  TProgramStart Start(std::vector<std::string> command) const;

  TPrograms FPrograms;
  std::filesystem::path FDirectory;
  std::filesystem::path FWork;
  std::filesystem::path FKept;
  std::vector<std::string> FVariables;
};

} // namespace faults
