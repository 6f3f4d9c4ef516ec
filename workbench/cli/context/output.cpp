#include "workbench/cli/context/output.h"

#include "package/common/case_fold.h"
#include "workbench/text/utf8.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <iostream>
#include <unistd.h>

namespace workbench {
namespace {

constexpr std::string_view ProgramName = "deploymgr";

std::atomic<bool> IsPersonAsked = false;

// Stands while the answer is waited for.
class TAsking {
public:
  TAsking() { IsPersonAsked = true; }
  ~TAsking() { IsPersonAsked = false; }
  TAsking(const TAsking&) = delete;
  TAsking& operator=(const TAsking&) = delete;
};

bool WantsNoColor() {
  const char* variable = std::getenv("NO_COLOR");
  return variable && *variable;
}

// Nobody reads a name that fills the screen.
std::string ShownFile(const std::string& file) {
  constexpr std::size_t Longest = 4096; // of a path that the system takes
  constexpr std::size_t Kept = 200;
  if (file.size() <= Longest)
    return Visible(file);
  return Visible(file.substr(0, Kept)) + "... (" + std::to_string(file.size()) + " bytes)";
}

std::string Place(const std::string& file, unsigned line) {
  if (file.empty())
    return {};
  return ShownFile(file) + ":" + (line > 0 ? std::to_string(line) + ":" : "") + " ";
}

} // namespace

TOutput::TOutput(bool json, bool quiet, bool noColor)
    : FJson(json), FQuiet(quiet), FTerminal(::isatty(STDOUT_FILENO) == 1),
      FColor(!noColor && !WantsNoColor() && FTerminal) {}

TOutput::TOutput(TOutput& whole, std::string name, std::size_t width)
    : FJson(whole.FJson), FQuiet(whole.FQuiet), FTerminal(whole.FTerminal), FColor(whole.FColor),
      FShowsRemarks(whole.FShowsRemarks), FWhole(&whole), FName(std::move(name)), FWidth(width) {}

bool TOutput::CanAsk() const {
  return !FQuiet && ::isatty(STDIN_FILENO) == 1;
}

bool TOutput::IsAsking() {
  return IsPersonAsked;
}

TAnswer TOutput::Ask(const std::string& question, bool several) const {
  if (!CanAsk())
    return TAnswer::None;
  const TAsking asking;
  std::cerr << Visible(question) << (several ? " [y/N/a] " : " [y/N] ") << std::flush;
  std::string answer;
  if (!std::getline(std::cin, answer))
    return TAnswer::None;
  if (deployment::SameText(answer, "y") || deployment::SameText(answer, "yes"))
    return TAnswer::Yes;
  if (several && (deployment::SameText(answer, "a") || deployment::SameText(answer, "all")))
    return TAnswer::YesToAll;
  return TAnswer::No;
}

void TOutput::Line(std::string_view text) {
  if (FJson || FQuiet)
    return;
  if (FWhole) {
    FLastSaid = text;
    const std::size_t length = CodePointCount(FName);
    Write(FName + std::string(FWidth > length ? FWidth - length + 2 : 2, ' '));
  }
  Write(text);
  Write("\n");
}

void TOutput::Write(std::string_view text) {
  if (FWhole)
    return FWhole->Write(text);
  errno = 0;
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() && FWriteError == 0)
    FWriteError = errno != 0 ? errno : EIO;
}

void TOutput::Document(const TJson& document) {
  TJson whole{{"schema", JsonSchema}};
  whole.AddAll(document);
  whole.Add("warnings", WarningsAsJson());
  if (FWhole) {
    FDocument = std::move(whole);
    return;
  }
  Write(JsonText(whole));
  Write("\n");
}

TJson TOutput::WarningsAsJson() const {
  TJson warnings = TJson::Array();
  for (const TWarning& warning : FWarnings)
    warnings.Append({{"text", warning.Text}, {"file", warning.File}, {"line", warning.Line}});
  return warnings;
}

void TOutput::Warn(const TWarning& warning) {
  if (FJson)
    FWarnings.push_back(warning);
  if (!FQuiet && (!warning.IsRemark || FShowsRemarks))
    std::cerr << ProgramName << ": " << Place(warning.File, warning.Line)
              << "warning: " << Visible(warning.Text) << '\n';
}

void TOutput::Error(const TFailure& failure) {
  FLastSaid = Visible(failure.Text);
  const std::string place = failure.TextNamesFile ? "" : Place(failure.File, failure.Line);
  std::cerr << ProgramName << ": " << PartName(place.empty()) << place << Visible(failure.Text)
            << '\n';
  if (FJson)
    Document({{"error", TJson{{"code", failure.Status},
                              {"message", failure.Text},
                              {"file", failure.File},
                              {"line", failure.Line}}}});
}

void TOutput::Complain(std::string_view text) {
  std::cerr << ProgramName << ": " << PartName() << Visible(text) << '\n';
}

// What names a file of its own needs no other.
std::string TOutput::PartName(bool isWanted) const {
  return FWhole && isWanted ? FName + ": " : std::string();
}

bool TOutput::Flush() {
  if (FWhole)
    return true; // which looks after it
  errno = 0;
  if (std::fflush(stdout) != 0 && FWriteError == 0)
    FWriteError = errno != 0 ? errno : EIO;
  return FWriteError == 0;
}

std::string TOutput::Bold(std::string_view text) const {
  return FColor ? "\x1b[1m" + std::string(text) + "\x1b[0m" : std::string(text);
}

std::string TOutput::Dim(std::string_view text) const {
  return FColor ? "\x1b[2m" + std::string(text) + "\x1b[0m" : std::string(text);
}

} // namespace workbench
