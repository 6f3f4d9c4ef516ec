// Runs a program from its start to its end.
#pragma once

#include "workbench/process/byte_buffer.h"
#include "workbench/process/child_process.h"

#include <functional>
#include <string>
#include <string_view>

namespace workbench {

/// Hears a line of what a program prints, without its end.
using THearLine = std::function<void(std::string_view line)>;

/// How a program ended.
struct TProcessEnd {
  int Status = 0;           ///< as the shell has it
  bool Interrupted = false; ///< it was ended because the run was cancelled
  std::string Errors = {};  ///< what it wrote to the standard error output, cut where it gets long

  /// "ended with status 3" and the like; empty when all went well.
  std::string Problem() const;
};

/// Makes the start of a program that runs a command line on another machine.
using TRemoteExec = std::function<TProcessStart(const std::string& command)>;

/// Appends some bytes more for a program to read; false when there are no more.
using TFeed = std::function<bool(TByteBuffer&)>;
/// Asked again and again; true ends a program.
using TIsCancelled = std::function<bool()>;

/// Gives the program the input and hands over what it prints, bytes as they come. Without a feed it
/// reads nothing. Throws std::system_error when it cannot be started.
TProcessEnd RunProcess(const TProcessStart& start, const TFeed& feed,
                       const std::function<void(std::string_view)>& hearOutput,
                       const TIsCancelled& isCancelled);

/// Makes lines of bytes as they come.
class TLineSplitter {
public:
  explicit TLineSplitter(const THearLine& hear) : FHear(hear) {}
  void Add(std::string_view bytes);
  /// The last line, when no line end followed it.
  void Finish();

private:
  const THearLine& FHear;
  std::string FRest;
};

} // namespace workbench
