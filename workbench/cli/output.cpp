#include "workbench/cli/output.h"

#include "package/common/case_fold.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <unistd.h>

namespace workbench {
namespace {

constexpr std::string_view ProgramName = "deploymgr";

bool WantsNoColor() {
  const char* variable = std::getenv("NO_COLOR");
  return variable && *variable;
}

std::string Place(const std::string& file, unsigned line) {
  if (file.empty())
    return {};
  return Visible(file) + ":" + (line > 0 ? std::to_string(line) + ":" : "") + " ";
}

// Length of a mark that changes the direction of writing or breaks the line, in UTF-8; 0 for
// others.
std::size_t MarkLength(std::string_view text) {
  constexpr std::array<std::string_view, 14> Marks{
      "\xD8\x9C",     "\xE2\x80\x8E", "\xE2\x80\x8F", "\xE2\x80\xA8", "\xE2\x80\xA9",
      "\xE2\x80\xAA", "\xE2\x80\xAB", "\xE2\x80\xAC", "\xE2\x80\xAD", "\xE2\x80\xAE",
      "\xE2\x81\xA6", "\xE2\x81\xA7", "\xE2\x81\xA8", "\xE2\x81\xA9"};
  for (const std::string_view mark : Marks) {
    if (text.starts_with(mark))
      return mark.size();
  }
  return 0;
}

// Length of a character that a terminal acts upon instead of showing it; 0 for others.
std::size_t HiddenLength(std::string_view text) {
  const auto byte = static_cast<unsigned char>(text.front());
  if (byte < 0x20 || byte == 0x7F)
    return 1;
  if (byte == 0xC2 && text.size() > 1 && static_cast<unsigned char>(text[1]) < 0xA0)
    return 2;
  return byte == 0xD8 || byte == 0xE2 ? MarkLength(text) : 0;
}

} // namespace

std::string JsonText(const TJson& value, int indent) {
  return value.dump(indent, ' ', false, TJson::error_handler_t::replace);
}

std::string Visible(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  while (!text.empty()) {
    const std::size_t hidden = HiddenLength(text);
    if (hidden == 0)
      shown.push_back(text.front());
    for (std::size_t i = 0; i < hidden; ++i) {
      std::array<char, 5> escape{};
      std::snprintf(escape.data(), escape.size(), "\\x%02X", static_cast<unsigned char>(text[i]));
      shown += escape.data();
    }
    text.remove_prefix(hidden == 0 ? 1 : hidden);
  }
  return shown;
}

TOutput::TOutput(bool json, bool quiet, bool noColor)
    : FJson(json), FQuiet(quiet), FTerminal(::isatty(STDOUT_FILENO) == 1),
      FColor(!noColor && !WantsNoColor() && FTerminal) {}

bool TOutput::CanAsk() const {
  return !FQuiet && ::isatty(STDIN_FILENO) == 1;
}

TAnswer TOutput::Ask(const std::string& question, bool several) const {
  if (!CanAsk())
    return TAnswer::None;
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
  Write(text);
  Write("\n");
}

void TOutput::Write(std::string_view text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size())
    FFailed = true;
}

void TOutput::Document(const TJson& document) {
  Write(JsonText(document));
  Write("\n");
}

void TOutput::Warn(const TWarning& warning) {
  if (!FQuiet)
    std::cerr << ProgramName << ": " << Place(warning.File, warning.Line)
              << "warning: " << Visible(warning.Text) << '\n';
}

void TOutput::Error(const TFailure& failure) {
  const std::string place = failure.TextNamesFile ? "" : Place(failure.File, failure.Line);
  std::cerr << ProgramName << ": " << place << Visible(failure.Text) << '\n';
  if (FJson)
    Document({{"error",
               {{"code", failure.Status},
                {"message", failure.Text},
                {"file", failure.File},
                {"line", failure.Line}}}});
}

bool TOutput::Flush() {
  return std::fflush(stdout) == 0 && !FFailed;
}

std::string TOutput::Bold(std::string_view text) const {
  return FColor ? "\x1b[1m" + std::string(text) + "\x1b[0m" : std::string(text);
}

std::string TOutput::Dim(std::string_view text) const {
  return FColor ? "\x1b[2m" + std::string(text) + "\x1b[0m" : std::string(text);
}

} // namespace workbench
