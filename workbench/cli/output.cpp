#include "workbench/cli/output.h"

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

// The three bytes of UTF-8 of a mark that changes the direction of writing.
bool IsDirectionMark(std::string_view text) {
  constexpr std::array<std::string_view, 11> Marks{"\xE2\x80\x8E", "\xE2\x80\x8F", "\xE2\x80\xAA",
                                                   "\xE2\x80\xAB", "\xE2\x80\xAC", "\xE2\x80\xAD",
                                                   "\xE2\x80\xAE", "\xE2\x81\xA6", "\xE2\x81\xA7",
                                                   "\xE2\x81\xA8", "\xE2\x81\xA9"};
  for (const std::string_view mark : Marks) {
    if (text.starts_with(mark))
      return true;
  }
  return false;
}

} // namespace

std::string JsonText(const TJson& value, int indent) {
  return value.dump(indent, ' ', false, TJson::error_handler_t::replace);
}

std::string Visible(std::string_view text) {
  std::string shown;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool direction = IsDirectionMark(text.substr(i));
    const bool c1 =
        byte == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
    const std::size_t length = direction ? 3 : c1 ? 2 : 1;
    if (!direction && !c1 && byte >= 0x20 && byte != 0x7F) {
      shown.push_back(text[i]);
      continue;
    }
    for (std::size_t k = 0; k < length; ++k) {
      std::array<char, 5> escape{};
      std::snprintf(escape.data(), escape.size(), "\\x%02X",
                    static_cast<unsigned char>(text[i + k]));
      shown += escape.data();
    }
    i += length - 1;
  }
  return shown;
}

TOutput::TOutput(bool json, bool quiet, bool noColor)
    : FJson(json), FQuiet(quiet),
      FColor(!noColor && !WantsNoColor() && ::isatty(STDOUT_FILENO) == 1) {}

bool TOutput::CanAsk() const {
  return !FQuiet && ::isatty(STDIN_FILENO) == 1;
}

bool TOutput::Ask(const std::string& question) const {
  if (!CanAsk())
    return false;
  std::cerr << Visible(question) << " [y/N] " << std::flush;
  std::string answer;
  std::getline(std::cin, answer);
  return answer == "y" || answer == "Y" || answer == "yes" || answer == "Yes";
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

void TOutput::Error(int status, const std::string& text, const std::string& file, unsigned line) {
  std::cerr << ProgramName << ": " << Place(file, line) << Visible(text) << '\n';
  if (FJson)
    Document({{"error", {{"code", status}, {"message", text}, {"file", file}, {"line", line}}}});
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
