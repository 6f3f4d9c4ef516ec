#include "workbench/cli/context/secret_input.h"

#include "workbench/remote/ssh/prompts.h"

#include <cerrno>
#include <csignal>
#include <iostream>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace workbench {
namespace {

constexpr int PollPatience = 50; // milliseconds
constexpr std::size_t LongestSecret = 4096;
constexpr char EndOfFile = '\x04';
constexpr char Interrupt = '\x03';
constexpr char Delete = '\x7f';
constexpr char DeleteAll = '\x15';

// The terminal hands over each letter, shows none, and turns none into a signal: this program must
// not end before it has put the terminal back.
class TSilentTerminal {
public:
  TSilentTerminal() {
    if (::tcgetattr(STDIN_FILENO, &FBefore) != 0)
      return;
    FIsKnown = true;
    termios silent = FBefore;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO | ECHONL | ICANON | ISIG);
    ::tcsetattr(STDIN_FILENO, TCSADRAIN, &silent);
  }
  ~TSilentTerminal() {
    if (FIsKnown)
      ::tcsetattr(STDIN_FILENO, TCSADRAIN, &FBefore);
  }
  TSilentTerminal(const TSilentTerminal&) = delete;
  TSilentTerminal& operator=(const TSilentTerminal&) = delete;

private:
  termios FBefore = {};
  bool FIsKnown = false;
};

enum class TEnd { Entered, GaveUp, Interrupted };

void DropLast(std::string& secret) {
  if (!secret.empty()) {
    secret.back() = '\0';
    secret.pop_back();
  }
}

TEnd ReadLetters(std::string& secret, const TIsCancelled& isOver) {
  while (!isOver()) {
    pollfd entry{STDIN_FILENO, POLLIN, 0};
    if (::poll(&entry, 1, PollPatience) <= 0)
      continue;
    char letter = 0;
    const ssize_t count = ::read(STDIN_FILENO, &letter, 1);
    if (count < 0 && errno == EINTR)
      continue;
    if (count <= 0 || letter == EndOfFile)
      return TEnd::GaveUp;
    if (letter == Interrupt)
      return TEnd::Interrupted;
    if (letter == '\n' || letter == '\r')
      return TEnd::Entered;
    if (letter == DeleteAll)
      Wipe(secret);
    else if (letter == Delete || letter == '\b')
      DropLast(secret);
    else if (secret.size() < LongestSecret)
      secret += letter;
  }
  return TEnd::GaveUp;
}

// The terminal is silent before the question stands there, since a person may type at once.
TEnd AskSilently(const std::string& prompt, std::string& secret, const TIsCancelled& isOver) {
  const TSilentTerminal terminal;
  std::cerr << prompt << std::flush;
  return ReadLetters(secret, isOver);
}

} // namespace

std::optional<std::string> ReadSecret(const std::string& prompt, const TIsCancelled& isOver) {
  std::string secret;
  secret.reserve(LongestSecret); // so that it does not move and leave copies behind
  const TEnd end = AskSilently(prompt, secret, isOver);
  std::cerr << '\n' << std::flush;
  if (end == TEnd::Entered)
    return secret;
  Wipe(secret);
  if (end == TEnd::Interrupted)
    ::kill(::getpid(), SIGINT);
  return std::nullopt;
}

} // namespace workbench
