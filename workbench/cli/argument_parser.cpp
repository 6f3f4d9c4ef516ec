#include "workbench/cli/argument_parser.h"

#include "package/common/delimited_list.h"
#include "workbench/cli/context/common_options.h"
#include "workbench/cli/context/name_hint.h"
#include "workbench/cli/context/options.h"
#include "workbench/text/utf8.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <sstream>
#include <unordered_map>
#include <utility>

namespace workbench {
namespace {

constexpr const char* MainFooter =
    "Run \"deploymgr COMMAND --help\" for the options of a command.\n"
    "\"deploymgr help COMMAND\" prints the same.";

// The parser takes the text "[a,b]" for a list of two, so it is given such a text behind a guard.
constexpr char Guard = '\x01';

std::string Guarded(const std::string& text) {
  const bool isGuarded = text.starts_with('[') || text.starts_with(Guard);
  return isGuarded ? Guard + text : text;
}

std::string Unguarded(const std::string& text) {
  return text.starts_with(Guard) ? text.substr(1) : text;
}

std::string WithoutGuards(std::string message) {
  std::erase(message, Guard);
  return message;
}

class TOption final : public IOption {
public:
  explicit TOption(CLI::Option* option) : FOption(option) {}

  IOption& Required() override {
    FOption->required();
    return *this;
  }
  IOption& ValueName(const std::string& name) override {
    FOption->type_name(name);
    return *this;
  }
  IOption& ShowDefault() override {
    FOption->capture_default_str();
    return *this;
  }
  IOption& Hidden() override {
    FOption->group("");
    return *this;
  }
  std::string Name() const override { return FOption->get_name(); }
  bool IsGiven() const override { return FOption->count() > 0; }

private:
  CLI::Option* FOption;
};

class TOptions final : public IOptions {
public:
  explicit TOptions(CLI::App& app) : FApp(app) {}

  IOption& Flag(const std::string& name, bool& value, const std::string& help) override {
    return Declared(FApp.add_flag(name, value, help));
  }

  IOption& Text(const std::string& name, std::string& value, const std::string& help) override {
    return Declared(AddText(name, value, help));
  }

  IOption& Texts(const std::string& name, std::vector<std::string>& values,
                 const std::string& help) override {
    const auto store = [&values](const CLI::results_t& given) {
      values.clear();
      for (const std::string& text : given)
        values.push_back(Unguarded(text));
      return true;
    };
    CLI::Option* option = FApp.add_option(name, store, help);
    option->type_name("TEXT")->expected(CLI::detail::expected_max_vector_size);
    option->allow_extra_args(!name.starts_with('-'));
    return Declared(option);
  }

  IOption& Sequence(const std::string& name, std::vector<TGivenText>& values,
                    const std::string& help) override {
    // Every option of the list makes it anew, of what all of them were given.
    const auto store = [this, &values](const CLI::results_t&) {
      values.clear();
      std::unordered_map<const CLI::Option*, std::size_t> taken;
      const std::vector<const CLI::Option*>& sharing = FSequences[&values];
      for (const CLI::Option* given : FApp.parse_order()) {
        if (std::find(sharing.begin(), sharing.end(), given) == sharing.end())
          continue;
        const std::size_t place = taken[given]++;
        if (place < given->results().size())
          values.push_back({given->get_name(), Unguarded(given->results()[place])});
      }
      return true;
    };
    CLI::Option* option = FApp.add_option(name, store, help);
    option->type_name("TEXT")->expected(CLI::detail::expected_max_vector_size);
    option->allow_extra_args(false);
    FSequences[&values].push_back(option);
    return Declared(option);
  }

  IOption& Choice(const std::string& name, std::string& value,
                  const std::vector<std::string>& choices, const std::string& help) override {
    const auto check = [choices](const std::string& given) {
      const std::string text = Unguarded(given);
      if (std::find(choices.begin(), choices.end(), text) != choices.end())
        return std::string();
      return "\"" + text + "\" is none of " + deployment::JoinDelimited(choices, ", ") +
             HintAt(text, choices);
    };
    CLI::Option* option = AddText(name, value, help);
    return Declared(option->check(check, "{" + deployment::JoinDelimited(choices, ",") + "}"));
  }

  IOption& Number(const std::string& name, unsigned& value, int least, int most,
                  const std::string& help) override {
    return Declared(FApp.add_option(name, value, help)->check(CLI::Range(least, most)));
  }

  void Footer(const std::string& text) override { FApp.footer(text + "\n" + ExitStatusLine()); }

private:
  CLI::Option* AddText(const std::string& name, std::string& value, const std::string& help) {
    const auto store = [&value](const CLI::results_t& given) {
      value = Unguarded(given.front());
      return true;
    };
    CLI::Option* option = FApp.add_option(name, store, help);
    option->type_name("TEXT")->default_function([&value] { return value; });
    return option;
  }

  IOption& Declared(CLI::Option* option) {
    FDeclared.push_back(std::make_unique<TOption>(option));
    return *FDeclared.back();
  }

  CLI::App& FApp;
  std::vector<std::unique_ptr<IOption>> FDeclared;
  // The options that share a list, by that.
  std::unordered_map<const void*, std::vector<const CLI::Option*>> FSequences;
};

// The arguments, with "help", "help COMMAND" and "version" as the options that they stand for.
std::vector<std::string> WordsOf(int argc, const char* const* argv) {
  std::vector<std::string> words(argv + 1, argv + argc);
  if (words.front() == "version")
    words.front() = "--version";
  else if (words.front() == "help") {
    words.erase(words.begin());
    words.emplace_back("--help");
  }
  return words;
}

// The arguments in the order in which the parser takes them, the last one first. An empty value
// behind "=" stands alone, since the parser would miss it.
std::vector<std::string> ParserArguments(const std::vector<std::string>& words) {
  std::vector<std::string> arguments;
  bool names = false;
  for (std::string argument : words) {
    names = names || argument == "--";
    const bool emptyValue =
        !names && argument.starts_with("--") && argument.find('=') == argument.size() - 1;
    if (emptyValue)
      argument.pop_back();
    arguments.push_back(Guarded(argument));
    if (emptyValue)
      arguments.emplace_back();
  }
  std::reverse(arguments.begin(), arguments.end());
  return arguments;
}

// The text of the version is the caller's to print.
void SetInformation(CLI::App& app) {
  app.set_help_flag(std::string(HelpOption.Names), std::string(HelpOption.Help));
  app.set_version_flag(std::string(VersionOption.Names), std::string(),
                       std::string(VersionOption.Help));
}

} // namespace

class TArgumentParser::TCommandLine {
public:
  TCommandLine(TCommonOptions& common, std::vector<std::unique_ptr<ICommand>> commands)
      : FApp(std::string(ProgramDescription), "deploymgr"), FCommon(common) {
    FApp.footer(std::string(MainFooter) + "\n" + ExitStatusLine());
    FApp.require_subcommand(1);
    SetInformation(FApp);
    AddCommonOptions(OptionsOf(FApp), common);
    for (std::unique_ptr<ICommand>& command : commands) {
      CLI::App* sub = FApp.add_subcommand(command->Name(), command->Summary());
      FCommands.emplace_back(sub, std::move(command));
    }
  }

  TParsedArguments Parse(int argc, const char* const* argv) {
    CheckArguments(argc, argv);
    const std::vector<std::string> words = WordsOf(argc, argv);
    DeclareOptions(words);
    try {
      FApp.parse(ParserArguments(words));
    } catch (const CLI::CallForVersion&) {
      return {nullptr, {}, true};
    } catch (const CLI::Success& success) {
      std::ostringstream text;
      FApp.exit(success, text, text);
      return {nullptr, text.str(), false};
    } catch (const CLI::ParseError& error) {
      throw TUsageError(MessageOf(error));
    }
    const auto& [sub, command] = Chosen();
    CheckValues(*sub);
    return {command.get(), {}, false};
  }

private:
  using TSubcommand = std::pair<CLI::App*, std::unique_ptr<ICommand>>;

  IOptions& OptionsOf(CLI::App& app) {
    FOptions.push_back(std::make_unique<TOptions>(app));
    return *FOptions.back();
  }

  // Of the commands that the line names: declaring all of them takes as long as many a run.
  void DeclareOptions(const std::vector<std::string>& words) {
    for (const auto& [sub, command] : FCommands) {
      if (std::find(words.begin(), words.end(), command->Name()) == words.end())
        continue;
      SetInformation(*sub);
      sub->footer(ExitStatusLine());
      IOptions& options = OptionsOf(*sub);
      command->AddOptions(options);
      AddCommonOptions(options, FCommon);
    }
  }

  // What is wrong, in a sentence of our own where the parser's says less.
  std::string MessageOf(const CLI::ParseError& error) const {
    const CLI::App* chosen = &FApp;
    for (const TSubcommand& each : FCommands) {
      if (each.first->parsed())
        chosen = each.first;
    }
    std::string message = WithoutGuards(error.what());
    if (dynamic_cast<const CLI::ExtrasError*>(&error)) {
      for (const std::string& extra : FApp.remaining(/*recurse=*/true))
        return UnknownArgument(*chosen, Unguarded(extra));
    }
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error))
      return message.substr(0, message.find(':')) + " needs a value";
    if (dynamic_cast<const CLI::RequiredError*>(&error) && chosen == &FApp)
      return "no command is given; try \"deploymgr --help\"";
    return message;
  }

  std::string UnknownArgument(const CLI::App& chosen, const std::string& argument) const {
    const std::string command = &chosen == &FApp ? "" : " " + chosen.get_name();
    const std::string help = "; see \"deploymgr" + command + " --help\"";
    if (!argument.starts_with('-'))
      return "\"" + argument + "\" is one argument too many" + help;
    const std::string name = argument.substr(0, argument.find('='));
    std::vector<std::string> known;
    for (const CLI::Option* option : chosen.get_options()) {
      // One of no group is hidden.
      for (const std::string& each : option->get_lnames()) {
        if (!option->get_group().empty())
          known.push_back("--" + each);
      }
    }
    const std::string hint = HintAt(name, known);
    return "there is no option \"" + name + "\"" + (hint.empty() ? help : hint);
  }

  const TSubcommand& Chosen() const {
    for (const TSubcommand& each : FCommands) {
      if (each.first->parsed())
        return each;
    }
    throw TUsageError("no command is given");
  }

  void CheckArguments(int argc, const char* const* argv) const {
    for (int i = 1; i < argc; ++i) {
      if (!IsUtf8(argv[i]))
        throw TUsageError("argument " + std::to_string(i) + " is not UTF-8 text");
    }
    if (argc < 2)
      throw TUsageError("no command is given; try \"deploymgr --help\"");
    const std::string first = argv[1];
    if (!first.empty() && first.front() != '-')
      CheckCommand(first == "help" && argc > 2 ? argv[2] : first);
  }

  void CheckCommand(const std::string& word) const {
    std::vector<std::string> names;
    for (const TSubcommand& each : FCommands)
      names.push_back(each.second->Name());
    names.insert(names.end(), {"help", "version"});
    if (std::find(names.begin(), names.end(), word) == names.end())
      throw TUsageError("there is no command \"" + word + "\"" + HintAt(word, names));
  }

  // Values that are given without being any, and those given on both sides of the command.
  void CheckValues(const CLI::App& chosen) {
    for (const char* name : {"--config", "--platform", "--root", "--property"}) {
      if (FApp.get_option(name)->count() > 0 && chosen.get_option(name)->count() > 0)
        throw TUsageError(std::string(name) + " is given twice");
    }
    if (IsEmpty(chosen, "--platform"))
      throw TUsageError("the name of the platform is empty");
    if (IsEmpty(chosen, "--root"))
      throw TUsageError("the name of the root directory is empty");
    if (IsEmpty(chosen, "PROJECT"))
      throw TUsageError("the name of the project file is empty");
    if (IsEmpty(chosen, "--config"))
      FCommon.Configuration = deployment::BaseConfiguration;
  }

  bool IsEmpty(const CLI::App& chosen, const char* name) const {
    for (const CLI::App* app : {&std::as_const(FApp), &chosen}) {
      const CLI::Option* option = app->get_option_no_throw(name);
      if (option && option->count() > 0 && option->results().front().empty())
        return true;
    }
    return false;
  }

  CLI::App FApp;
  TCommonOptions& FCommon;
  std::vector<std::unique_ptr<IOptions>> FOptions;
  std::vector<TSubcommand> FCommands;
};

TArgumentParser::TArgumentParser(TCommonOptions& common,
                                 std::vector<std::unique_ptr<ICommand>> commands)
    : FCommandLine(std::make_unique<TCommandLine>(common, std::move(commands))) {}

TArgumentParser::~TArgumentParser() = default;

TParsedArguments TArgumentParser::Parse(int argc, const char* const* argv) {
  return FCommandLine->Parse(argc, argv);
}

} // namespace workbench
