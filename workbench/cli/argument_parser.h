// From the arguments of a process to a command with its options filled in.
#pragma once

#include "workbench/cli/context/command.h"

#include <memory>
#include <string>
#include <vector>

namespace workbench {

/// What a command line asks for.
struct TParsedArguments {
  ICommand* Command = nullptr; ///< null when only a text is asked for, such as the help
  std::string Text;            ///< that text, save for the version
  bool IsVersion = false;      ///< the version is asked for
};

/// Reads one command line for the commands it is made with.
class TArgumentParser {
public:
  /// The options that every command takes land in `common`, which must outlive the parser.
  TArgumentParser(TCommonOptions& common, std::vector<std::unique_ptr<ICommand>> commands);
  ~TArgumentParser();
  TArgumentParser(const TArgumentParser&) = delete;
  TArgumentParser& operator=(const TArgumentParser&) = delete;

  /// To be called once. The command is owned by the parser. Throws TUsageError for what no command
  /// line can be.
  TParsedArguments Parse(int argc, const char* const* argv);

private:
  class TCommandLine;

  std::unique_ptr<TCommandLine> FCommandLine;
};

} // namespace workbench
