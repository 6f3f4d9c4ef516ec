// Runs a program under a tracer that makes one of its system calls fail, cuts it short or kills the
// program there.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace faults {

enum class TFaultKind {
  None,        ///< the calls are counted only
  Error,       ///< the call is not made and answers with an errno
  Kill,        ///< the program is killed in front of the call
  Short,       ///< a read or write takes half of its bytes
  AllShort,    ///< every read and write does
  Interrupted, ///< every third read and write answers with EINTR first
  Allocation,  ///< an allocation finds no memory
};

/// What is done to a run, and where. Calls and allocations are counted from 1, from the moment when
/// the program looks at the place that it works in for the first time: what goes before is the
/// loader's.
struct TFault {
  TFaultKind Kind = TFaultKind::None;
  std::uint64_t At = 0; ///< the call or allocation; 0: none
  int Error = 0;        ///< errno of an Error
};

/// "write fails with ENOSPC" and the like.
std::string FaultText(const TFault& fault);

struct TProgramStart {
  std::vector<std::string> Command; ///< the program's full path and its arguments
  std::vector<std::string> Environment;
  std::filesystem::path Directory; ///< where it runs, and the place that it works in
};

/// How a run ended.
struct TRunEnd {
  int Status = 0; ///< as the shell has it: 128 and the signal for a killed program
  bool IsFired = false;
  bool IsEndless = false;        ///< it had to be stopped
  std::uint64_t Calls = 0;       ///< that could have been hit
  std::uint64_t Transfers = 0;   ///< reads and writes of more than one byte
  std::uint64_t Allocations = 0; ///< counted when the fault is an Allocation
  std::string Where;             ///< name of the call that was hit, and the file it was about
  bool HitsMessages = false;     ///< it was about standard output or error
  bool LacksMemory = false;      ///< the fault was an Allocation
  std::string Output;
  std::string Errors;

  /// The program could do nothing more: it was killed, or it had no memory and broke.
  bool WasEnded() const { return Status == 128 + 9 || (LacksMemory && Status > 128); }
  /// Ended by a signal that a program gets when it breaks.
  bool HasCrashed() const;
};

/// Runs the program to its end, at most 20 seconds. Throws std::system_error when it cannot be
/// started or traced.
TRunEnd RunTraced(const TProgramStart& start, const TFault& fault);

/// The same without a tracer and without a fault; nothing is counted.
TRunEnd RunPlainly(const TProgramStart& start);

} // namespace faults
