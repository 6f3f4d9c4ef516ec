// What a command of deploymgr is: its name, its help, its options and its run.
#pragma once

#include "workbench/cli/context/options.h"
#include "workbench/cli/context/output.h"
#include "workbench/session/session.h"

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

class TTerminalInteraction;

/// Exit statuses that scripts rely on.
namespace exit_status {
inline constexpr int Done = 0;
inline constexpr int WorkFailed = 1;
inline constexpr int WrongUsage = 2;
inline constexpr int UnreadableInput = 3;
inline constexpr int CannotReconcile = 4;
inline constexpr int NoConnection = 5;
inline constexpr int NoConsent = 6;
inline constexpr int WouldChange = 7; ///< "--check": something would change
inline constexpr int Unexpected = 8;  ///< the target is not what was expected
} // namespace exit_status

/// The command line asks for what cannot be.
class TUsageError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// The work could not be done, though input and usage were right.
class TWorkError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// The work could not be done, for a reason that has an exit status of its own.
class TExitError : public std::runtime_error {
public:
  TExitError(int status, const std::string& text) : std::runtime_error(text), FStatus(status) {}
  int Status() const { return FStatus; }

private:
  int FStatus;
};

/// Options that every command takes.
struct TCommonOptions {
  std::string Configuration; ///< empty: the project's active one, or no narrowing
  std::string Platform;      ///< "all" stands for every platform; empty as above
  std::string Root;
  std::vector<std::string> Properties; ///< "NAME=VALUE", as a build would be given them
  bool Json = false;
  bool Quiet = false;
  bool NoColor = false;
};

/// Options that every command takes which changes something.
struct TChangeOptions {
  bool DryRun = false;
  bool Yes = false;
  bool ForceSave = false;
  bool Check = false; ///< for commands that have it

  /// True when nothing may be saved.
  bool IsDry() const { return DryRun || Check; }
  TOpenPurpose Purpose() const { return IsDry() ? TOpenPurpose::Look : TOpenPurpose::Edit; }
};

/// The platform argument that stands for every platform.
inline constexpr std::string_view AllPlatformsArgument = "all";

/// What a running command works with.
struct TCommandContext {
  const TCommonOptions& Options;
  TSession& Session;
  TOutput& Output;
  const TTerminalInteraction& Interaction;
  /// Of the project in the solution that the run takes part by part, as it is shown; else empty.
  std::string PartName = {};
};

/// One command. Made anew for each run; its options land in its fields.
class ICommand {
public:
  virtual ~ICommand() = default;
  virtual std::string Name() const = 0;
  virtual std::string Summary() const = 0;
  /// Declares the command's own options and arguments.
  virtual void AddOptions(IOptions& options) = 0;
  /// Does the work; returns the exit status. Throws TUsageError, TWorkError, TExitError,
  /// TInputError and TSaveError.
  virtual int Run(TCommandContext& context) = 0;
};

/// Declares the options of commands that change something.
void AddChangeOptions(IOptions& options, TChangeOptions& change);

/// Declares --check.
void AddCheckOption(IOptions& options, TChangeOptions& change);

/// The exit status of a command that changed something or would have.
int StatusOf(const TChangeOptions& change, bool changed);

/// Declares the project argument.
void AddProjectArgument(IOptions& options, std::string& project, bool required = true);

/// The same for commands that take solutions too.
void AddProjectsArgument(IOptions& options, std::string& project);

/// Opens the project, which a directory may stand for, and warns of what reading it brought up.
/// Throws as FindProject, TSession::CheckInstallation and TSession::Open do.
TOpenProject& OpenProject(TCommandContext& context, const std::string& file, TOpenPurpose purpose);

/// Warns of what came up since the project had `told` warnings.
void WarnSince(TCommandContext& context, const TOpenProject& project, std::size_t told);

} // namespace workbench
