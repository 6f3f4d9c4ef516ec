// A program that runs beside this one and is talked to.
#pragma once

#include "workbench/files/file_descriptor.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace workbench {

/// How a program is started.
struct TProcessStart {
  std::vector<std::string> Command;     ///< the program, looked up, and its arguments
  std::vector<std::string> Environment; ///< "NAME=VALUE", whole
  std::filesystem::path Directory = {}; ///< where it runs; empty for that of this program
  bool JoinErrors = false;              ///< standard error output goes where the output goes
};

/// The environment of this program with some variables set anew.
std::vector<std::string> EnvironmentWith(const std::vector<std::string>& changes);

/// Owns the process: it is ended with the object. Reading and writing never block; whoever wants to
/// wait polls the descriptors.
class TChildProcess {
public:
  /// Starts it in a group of its own. Throws std::system_error.
  explicit TChildProcess(const TProcessStart& start);
  ~TChildProcess() { End(); }
  TChildProcess(const TChildProcess&) = delete;
  TChildProcess& operator=(const TChildProcess&) = delete;

  int Input() const { return FInput.Get(); }   ///< written to; -1 after CloseInput
  int Output() const { return FOutput.Get(); } ///< its standard output
  int Errors() const { return FErrors.Get(); } ///< its standard error output

  /// Writes as much as goes in without waiting; as write(2), but a program that hears no more is an
  /// error and no signal.
  ssize_t Write(std::string_view bytes);
  void CloseInput() { FInput = TFileDescriptor(); }
  /// Takes what stands in the standard error output so far. Beyond 64 KiB in all the rest is
  /// dropped, since a program that says so much says nothing that helps.
  void ReadErrors();
  const std::string& ErrorText() const { return FErrorText; }

  /// Waits for its end; nothing when that does not come in time. Status as the shell has it: 128
  /// and the signal for a killed one.
  std::optional<int> Wait(std::chrono::milliseconds patience);
  /// Ends the process and whatever it started.
  void End();

private:
  TFileDescriptor FInput, FOutput, FErrors;
  std::string FErrorText;
  pid_t FProcess = -1;
  std::optional<int> FStatus;
};

} // namespace workbench
