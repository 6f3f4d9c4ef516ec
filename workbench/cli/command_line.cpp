#include "workbench/cli/command_line.h"

#include "package/common/case_fold.h"
#include "workbench/cli/argument_parser.h"
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/completion/completion.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/failure_report.h"
#include "workbench/cli/context/terminal_interaction.h"
#include "workbench/files/file_descriptor.h"
#include "workbench/msbuild/values/property_names.h"
#include "workbench/services/remote_profile_services.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace workbench {
namespace {

bool HasArgument(int argc, const char* const* argv, std::string_view wanted) {
  for (int i = 1; i < argc && std::string_view(argv[i]) != "--"; ++i) {
    if (argv[i] == wanted)
      return true;
  }
  return false;
}

// The status of a run whose work ended with `status`, once its result is written. Like other
// programs whose reader is gone ("| head -1"), this one ends as by the signal, without a word.
int StatusOnceWritten(TOutput& output, int status) {
  if (output.Flush())
    return status;
  if (output.WriteError() == EPIPE)
    return 128 + SIGPIPE;
  throw TWorkError("the result could not be written to standard output: " +
                   SystemReason(output.WriteError()) + "; the work itself " +
                   (status == exit_status::Done ? std::string("is done")
                                                : "ended with status " + std::to_string(status)));
}

// A root without files of its own is a plain installation; one that is not there is a slip.
void WarnOfRoot(const std::string& root, TOutput& output) {
  std::error_code ignored;
  if (!root.empty() && !std::filesystem::is_directory(root, ignored))
    output.Warn({"there is no such directory; only the built-in platforms are known", root, 0});
}

// Properties that only the build itself sets cannot be given.
TNamedTexts GivenProperties(const std::vector<std::string>& texts) {
  TNamedTexts properties;
  for (const std::string& text : texts) {
    const std::size_t sign = text.find('=');
    const std::string name = text.substr(0, sign);
    if (sign == std::string::npos || !IsPropertyName(name))
      throw TUsageError("\"" + text + "\" is no property: NAME=VALUE is wanted");
    if (deployment::LowerCaseAscii(name).starts_with("msbuildproject") ||
        deployment::LowerCaseAscii(name).starts_with("msbuildthisfile"))
      throw TUsageError("the property \"" + name + "\" cannot be given: the build sets it");
    properties.push_back({name, text.substr(sign + 1)});
  }
  return properties;
}

// What the command throws is reported while the session lives: an error that the package raised is
// made of the package's code, which goes with the session.
int RunCommand(ICommand& command, const TCommonOptions& options, TOutput& output) {
  TSession session(TSessionOptions{options.Root, GivenProperties(options.Properties)});
  WarnOfRoot(options.Root, output);
  const auto interaction = std::make_shared<TTerminalInteraction>(output);
  session.RemoteProfiles().SetInteraction(interaction);
  TCommandContext context{options, session, output, *interaction};
  return Reported(output, [&] { return StatusOnceWritten(output, command.Run(context)); });
}

void PrintVersion(const TProgramVersion& version, TOutput& output) {
  if (output.IsJson())
    return output.Document({{"program", "deploymgr"},
                            {"version", std::string(version.Version)},
                            {"commit", std::string(version.Commit)}});
  const std::string commit = version.Commit;
  output.Write(std::string("deploymgr ") + version.Version +
               (commit.empty() ? "" : " (" + commit + ")") + "\n");
}

// What goes wrong here would disturb a line that is being typed, so nothing is said of it.
int RunCompletion(int argc, const char* const* argv) {
  const std::string shell = argc > 2 ? argv[2] : "";
  const std::vector<std::string> words(argv + std::min(argc, 3), argv + argc);
  TOutput output(false, false, true);
  output.Write(CompletionsOf(AllCommands(), shell, words));
  return output.Flush() ? exit_status::Done : exit_status::WorkFailed;
}

int Run(int argc, const char* const* argv, const TProgramVersion& version) {
  if (argc > 1 && argv[1] == CompletionArgument)
    return RunCompletion(argc, argv);
  TCommonOptions options;
  TArgumentParser parser(options, AllCommands());
  TOutput early(HasArgument(argc, argv, "--json"), false, true);
  ICommand* command = nullptr;
  const int status = Reported(early, [&] {
    const TParsedArguments parsed = parser.Parse(argc, argv);
    command = parsed.Command;
    if (!command) {
      if (parsed.IsVersion)
        PrintVersion(version, early);
      else
        early.Write(parsed.Text);
      return StatusOnceWritten(early, exit_status::Done);
    }
    return exit_status::Done;
  });
  if (!command)
    return status;
  TOutput output(options.Json, options.Quiet, options.NoColor);
  return Reported(output, [&] { return RunCommand(*command, options, output); });
}

} // namespace

int RunCommandLine(int argc, const char* const* argv, const TProgramVersion& version) noexcept {
  try {
    return Run(argc, argv, version);
  } catch (const std::exception& error) {
    std::cerr << "deploymgr: " << error.what() << '\n';
  } catch (...) {
    std::cerr << "deploymgr: an unknown error ended the run\n";
  }
  return exit_status::WorkFailed;
}

} // namespace workbench
