#include "workbench/cli/command_line.h"

#include "package/common/errors.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/name_hint.h"
#include "workbench/cli/context/terminal_interaction.h"
#include "workbench/files/save_error.h"
#include "workbench/text/utf8.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#ifndef DEPLOYMENT_VERSION
#define DEPLOYMENT_VERSION "unknown"
#endif

namespace workbench {
namespace {

constexpr const char* Description =
    "Keeps the list of files that must reach each target platform of a project.";
constexpr const char* Footer =
    "Run \"deploymgr COMMAND --help\" for the options of a command.\n"
    "Exit status: 0 done, 1 the work failed, 2 wrong usage, 3 an input cannot be read.";

void AddCommonOptions(CLI::App& app, TCommonOptions& options) {
  app.add_option("-c,--config", options.Configuration, "Build configuration; \"\" is \"Base\"")
      ->type_name("NAME");
  app.add_option("-p,--platform", options.Platform, "Target platform, or \"all\"")
      ->type_name("NAME");
  app.add_flag("--json", options.Json, "Print one JSON document");
  app.add_flag("--quiet", options.Quiet,
               "Print the document of --json and errors only; ask nothing");
  app.add_flag("--no-color", options.NoColor, "Print without colours");
  app.add_option("--root", options.Root, "Directory that holds ObjRepos")->type_name("DIR");
}

// What the command line says, before any of it is acted upon.
struct TInvocation {
  TInvocation() : App(Description, "deploymgr") {
    App.footer(Footer);
    App.require_subcommand(1);
    App.set_version_flag("--version", std::string("deploymgr ") + DEPLOYMENT_VERSION);
    App.set_help_flag("-h,--help", "Print this help and end");
    AddCommonOptions(App, Options);
    for (auto& command : AllCommands()) {
      CLI::App* sub = App.add_subcommand(command->Name(), command->Summary());
      sub->set_help_flag("-h,--help", "Print this help and end");
      sub->set_version_flag("--version", std::string("deploymgr ") + DEPLOYMENT_VERSION);
      command->AddOptions(*sub);
      AddCommonOptions(*sub, Options);
      Commands.emplace_back(sub, std::move(command));
    }
  }

  std::pair<CLI::App*, ICommand*> Chosen() const {
    for (const auto& [sub, command] : Commands) {
      if (sub->parsed())
        return {sub, command.get()};
    }
    throw TUsageError("no command is given");
  }

  CLI::App App;
  TCommonOptions Options;
  std::vector<std::pair<CLI::App*, std::unique_ptr<ICommand>>> Commands;
};

// Names that were meant, when the first argument is no command.
std::string UnknownCommand(const TInvocation& invocation, const std::string& word) {
  std::vector<std::string> names;
  for (const auto& [sub, command] : invocation.Commands)
    names.push_back(command->Name());
  return "there is no command \"" + word + "\"" + HintAt(word, names);
}

void CheckArguments(const TInvocation& invocation, int argc, const char* const* argv) {
  for (int i = 1; i < argc; ++i) {
    if (!IsUtf8(argv[i]))
      throw TUsageError("argument " + std::to_string(i) + " is not UTF-8 text");
  }
  if (argc < 2)
    throw TUsageError("no command is given; try \"deploymgr --help\"");
  const std::string first = argv[1];
  if (first.empty() || first.front() == '-')
    return;
  for (const auto& [sub, command] : invocation.Commands) {
    if (command->Name() == first)
      return;
  }
  throw TUsageError(UnknownCommand(invocation, first));
}

// Values that are given without being any, and those given on both sides of the command.
void CheckValues(TInvocation& invocation) {
  CLI::App* chosen = invocation.Chosen().first;
  for (const char* name : {"--config", "--platform", "--root"}) {
    if (invocation.App.get_option(name)->count() > 0 && chosen->get_option(name)->count() > 0)
      throw TUsageError(std::string(name) + " is given twice");
  }
  const auto isEmpty = [&](const char* name) {
    for (CLI::App* app : {&invocation.App, chosen}) {
      const CLI::Option* option = app->get_option_no_throw(name);
      if (option && option->count() > 0 && option->results().front().empty())
        return true;
    }
    return false;
  };
  if (isEmpty("--platform"))
    throw TUsageError("the name of the platform is empty");
  if (isEmpty("--root"))
    throw TUsageError("the name of the root directory is empty");
  if (isEmpty("PROJECT"))
    throw TUsageError("the name of the project file is empty");
  if (isEmpty("--config"))
    invocation.Options.Configuration = deployment::BaseConfiguration;
}

// The arguments in the order in which the parser takes them, the last one first. An empty value
// behind "=" stands alone, since the parser would miss it.
std::vector<std::string> ParserArguments(int argc, const char* const* argv) {
  std::vector<std::string> arguments;
  bool names = false;
  for (int i = 1; i < argc; ++i) {
    std::string argument = argv[i];
    names = names || argument == "--";
    const bool emptyValue =
        !names && argument.starts_with("--") && argument.find('=') == argument.size() - 1;
    if (emptyValue)
      argument.pop_back();
    arguments.push_back(std::move(argument));
    if (emptyValue)
      arguments.emplace_back();
  }
  std::reverse(arguments.begin(), arguments.end());
  return arguments;
}

bool HasArgument(int argc, const char* const* argv, std::string_view wanted) {
  for (int i = 1; i < argc && std::string_view(argv[i]) != "--"; ++i) {
    if (argv[i] == wanted)
      return true;
  }
  return false;
}

int Report(TOutput& output, const TFailure& failure) {
  output.Error(failure);
  output.Flush();
  return failure.Status;
}

// Turns whatever an action throws into a message and an exit status.
template <class TAction>
int Reported(TOutput& output, TAction action) {
  try {
    return action();
  } catch (const TUsageError& error) {
    return Report(output, {exit_status::WrongUsage, error.what(), {}, 0, false});
  } catch (const deployment::TInputError& error) {
    return Report(output, {exit_status::UnreadableInput, error.what(), error.Place().File,
                           error.Place().Line, false});
  } catch (const TExitError& error) {
    return Report(output, {error.Status(), error.what(), {}, 0, false});
  } catch (const TSaveError& error) {
    return Report(output, {exit_status::WorkFailed, error.what(), error.File().string(), 0, true});
  } catch (const std::exception& error) {
    return Report(output, {exit_status::WorkFailed, error.what(), {}, 0, false});
  }
}

void CheckWritten(bool written) {
  if (!written)
    throw TWorkError("the result could not be written to standard output");
}

// A root without files of its own is a plain installation; one that is not there is a slip.
void WarnOfRoot(const std::string& root, TOutput& output) {
  std::error_code ignored;
  if (!root.empty() && !std::filesystem::is_directory(root, ignored))
    output.Warn({"there is no such directory; only the built-in platforms are known", root, 0});
}

// What the command throws is reported while the session lives: an error that the package raised is
// made of the package's code, which goes with the session.
int RunCommand(const TInvocation& invocation, TOutput& output) {
  TSession session(TSessionOptions{invocation.Options.Root});
  WarnOfRoot(invocation.Options.Root, output);
  const auto interaction = std::make_shared<TTerminalInteraction>(output);
  session.RemoteProfiles().SetInteraction(interaction);
  TCommandContext context{invocation.Options, session, output, *interaction};
  return Reported(output, [&] {
    const int status = invocation.Chosen().second->Run(context);
    CheckWritten(output.Flush());
    return status;
  });
}

int Run(int argc, const char* const* argv) {
  TInvocation invocation;
  TOutput early(HasArgument(argc, argv, "--json"), false, true);
  bool complete = false;
  const int status = Reported(early, [&] {
    CheckArguments(invocation, argc, argv);
    try {
      invocation.App.parse(ParserArguments(argc, argv));
    } catch (const CLI::Success& success) {
      // Help and version; CLI11 prints them.
      const int ended = invocation.App.exit(success);
      CheckWritten(std::cout.flush().good());
      return ended;
    } catch (const CLI::ParseError& error) {
      throw TUsageError(error.what());
    }
    CheckValues(invocation);
    complete = true;
    return exit_status::Done;
  });
  if (!complete)
    return status;
  TOutput output(invocation.Options.Json, invocation.Options.Quiet, invocation.Options.NoColor);
  return Reported(output, [&] { return RunCommand(invocation, output); });
}

} // namespace

int RunCommandLine(int argc, const char* const* argv) noexcept {
  try {
    return Run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "deploymgr: " << error.what() << '\n';
  } catch (...) {
    std::cerr << "deploymgr: an unknown error ended the run\n";
  }
  return exit_status::WorkFailed;
}

} // namespace workbench
