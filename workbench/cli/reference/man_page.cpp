#include "workbench/cli/reference/man_page.h"

#include "package/common/case_fold.h"
#include "workbench/cli/context/common_options.h"

#include <algorithm>
#include <array>
#include <utility>

namespace workbench {
namespace {

using TPair = std::pair<std::string_view, std::string_view>;

constexpr std::array<TPair, 7> Variables{{
    {"ZELK", "Directory that holds ObjRepos, where --root names none"},
    {"PLATFORM, CONFIG", "Like every variable of the environment, properties that a project sees: "
                         "a project may take its active target from them"},
    {"LC_ALL, LC_MESSAGES, LANG, LANGUAGE", "Language of the descriptions of classes"},
    {"NO_COLOR", "Set to anything but nothing: print without colours"},
    {"XDG_CONFIG_HOME", "Where settings and profiles are kept instead of ~/.config"},
    {"XDG_STATE_HOME", "Where backups and known states are kept instead of ~/.local/state"},
    {"HOME", "Home directory; without one, that of the user's account"},
}};

constexpr std::array<TPair, 5> Files{{
    {"~/.config/deployment-manager/settings.json", "The settings; see deploymgr-settings(1)"},
    {"~/.config/deployment-manager/profiles.json", "The profiles; see deploymgr-profile(1)"},
    {"~/.config/deployment-manager/platforms.xml", "Further platforms"},
    {"~/.local/state/deployment-manager/backups", "The last five contents of each project"},
    {"PROJECT.deployproj", "What a command-line build sees of the list; written with each change"},
}};

std::string PageName(const std::string& command) {
  return "deploymgr-" + command;
}

std::string Title(const std::string& page, const std::string& version) {
  return ".TH \"" + ManText(deployment::UpperCase(page)) + "\" \"1\" \"\" \"deploymgr " +
         ManText(version) + "\" \"Deployment Manager\"\n";
}

std::string Bold(std::string_view text) {
  return "\\fB" + ManText(text) + "\\fR";
}

std::string Italic(std::string_view text) {
  return "\\fI" + ManText(text) + "\\fR";
}

std::string Sentence(const std::string& text) {
  return ManText(text + (text.ends_with('.') ? "" : ".")) + "\n";
}

// "\fB-p\fR, \fB--platform\fR \fINAME\fR"
std::string Heading(const TOptionReference& option) {
  std::string heading;
  for (const std::string& name : option.Names)
    heading.append(heading.empty() ? "" : ", ")
        .append(option.IsArgument() ? Italic(name) : Bold(name));
  if (!option.IsArgument() && !option.ValueName.empty())
    heading.append(" ").append(Italic(option.ValueName));
  return heading;
}

std::string Item(const TOptionReference& option) {
  std::string text = option.Help;
  if (!option.Choices.empty()) {
    text += "; one of";
    for (const std::string& choice : option.Choices)
      text.append(&choice == &option.Choices.front() ? " " : ", ").append(choice);
  }
  if (!option.Default.empty())
    text.append(" (").append(option.Default).append(" when it is not given)");
  return ".TP\n" + Heading(option) + "\n" + Sentence(text);
}

std::string Items(const std::string& title, const std::vector<TOptionReference>& options,
                  bool arguments) {
  std::string text;
  for (const TOptionReference& option : options) {
    if (option.IsArgument() == arguments && !option.IsHidden)
      text += Item(option);
  }
  return text.empty() ? text : ".SH " + title + "\n" + text;
}

template <class TPairs>
std::string Definitions(const std::string& title, const TPairs& pairs) {
  std::string text = ".SH " + title + "\n";
  for (const TPair& pair : pairs)
    text.append(".TP\n")
        .append(Bold(pair.first))
        .append("\n")
        .append(Sentence(std::string(pair.second)));
  return text;
}

std::string ExitStatusSection() {
  std::vector<TPair> pairs;
  for (const TExitStatusText& each : ExitStatusTexts())
    pairs.emplace_back(each.Status, each.Meaning);
  return Definitions("EXIT STATUS", pairs);
}

std::string Synopsis(const TCommandReference& command) {
  std::string text = ".SH SYNOPSIS\n" + Bold("deploymgr " + command.Name);
  for (const TOptionReference& option : command.Options) {
    if (!option.IsArgument() || option.IsHidden)
      continue;
    const std::string name = Italic(option.Names.front()) + (option.IsRepeatable ? "..." : "");
    text += option.IsRequired ? " " + name : " [" + name + "]";
  }
  return text + " [" + Italic("OPTION") + "...]\n";
}

std::string CommandList(const std::vector<TCommandReference>& commands) {
  std::string text = ".SH COMMANDS\n";
  for (const TCommandReference& command : commands)
    text.append(".TP\n")
        .append(Bold(PageName(command.Name)))
        .append("(1)\n")
        .append(Sentence(command.Summary));
  return text;
}

} // namespace

std::string ManText(std::string_view text) {
  std::string escaped;
  bool isLineStart = true;
  for (const char c : text) {
    if (isLineStart && (c == '.' || c == '\''))
      escaped += "\\&";
    isLineStart = c == '\n';
    if (c == '\\')
      escaped += "\\e";
    else if (c == '-')
      escaped += "\\-";
    else if (c == '"')
      escaped += "\\(dq"; // a quote would end the argument of a request
    else if (c == '\'')
      escaped += "\\(aq";
    else if (c == '~')
      escaped += "\\(ti";
    else if (c == '^')
      escaped += "\\(ha";
    else
      escaped += c;
  }
  return escaped;
}

std::string ProgramManPage(const TManual& manual) {
  return Title("deploymgr", manual.Version) +
         ".SH NAME\ndeploymgr \\- the Deployment Manager on the command line\n.SH SYNOPSIS\n" +
         Bold("deploymgr") + " " + Italic("COMMAND") + " " + Italic("PROJECT") + " [" +
         Italic("OPTION") + "...]\n.SH DESCRIPTION\n" + ManText(ProgramDescription) +
         "\nThe list stands in the project file; every other byte of the file stays as it is.\n"
         ".PP\nEach command has a page of its own, which " +
         Bold("man deploymgr-COMMAND") + " shows. " + Bold("deploymgr COMMAND --help") +
         " prints the same in short.\n" + CommandList(manual.Commands) +
         Items("OPTIONS", manual.CommonOptions, /*arguments=*/false) + ExitStatusSection() +
         Definitions("ENVIRONMENT", Variables) + Definitions("FILES", Files) + ".SH SEE ALSO\n" +
         Bold("deployment-manager") + "(1)\n";
}

std::string CommandManPage(const TManual& manual, const TCommandReference& command) {
  std::string page = Title(PageName(command.Name), manual.Version);
  std::string summary = command.Summary;
  summary.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(summary.front())));
  page += ".SH NAME\n" + ManText(PageName(command.Name)) + " \\- " + ManText(summary) + "\n" +
          Synopsis(command) + ".SH DESCRIPTION\n" + Sentence(command.Summary);
  if (!command.Remarks.empty())
    page += ".PP\n" + Sentence(command.Remarks);
  page += Items("ARGUMENTS", command.Options, /*arguments=*/true) +
          Items("OPTIONS", command.Options, /*arguments=*/false) +
          Items("OPTIONS OF EVERY COMMAND", manual.CommonOptions, /*arguments=*/false);
  return page + ExitStatusSection() + ".SH SEE ALSO\n" + Bold("deploymgr") + "(1)\n";
}

} // namespace workbench
