// The system calls that faults are made in.
#pragma once

#include <cstdint>
#include <string>

namespace faults {

/// What a call is to the tracer.
struct TSystemCall {
  const char* Name;
  int PathArgument; ///< the argument that points to a path; -1 for none
  int FileArgument; ///< the argument that is a descriptor; -1 for none
  bool IsTransfer;  ///< its third argument is a number of bytes to be read or written
};

/// Null for a call that no fault is made in: those that only manage memory, threads, time or
/// signals, whose failure a program cannot see or a machine never shows.
const TSystemCall* FindSystemCall(std::uint64_t number);

/// "ENOSPC"; the number for one without a name here.
std::string ErrorName(int error);

} // namespace faults
