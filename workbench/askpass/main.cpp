// The program that the SSH client runs to ask for a password: it passes the question on to the
// program that started the client, and the answer back.
#include "workbench/remote/ssh/askpass.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string_view>

namespace {

// What the client takes for an answer; nothing when there is none.
std::optional<std::string> Ask(const std::string& prompt) {
  const char* variable = std::getenv("SSH_ASKPASS_PROMPT");
  const std::string_view kind = variable ? variable : "";
  if (kind == "none")
    return std::string(); // a word of advice, such as to touch a key
  if (kind != "confirm")
    return workbench::AskThroughSocket(prompt);
  // An empty answer would mean yes to the client.
  auto answer = workbench::AskThroughSocket(prompt + " (yes/no) ");
  return answer == "yes" ? answer : std::nullopt;
}

} // namespace

int main(int argc, char** argv) {
  try {
    auto answer = Ask(argc > 1 ? argv[1] : "");
    if (!answer)
      return 1;
    answer->push_back('\n');
    // Not buffered, so that no copy is left behind.
    const ssize_t count = ::write(STDOUT_FILENO, answer->data(), answer->size());
    const bool isWhole = count == static_cast<ssize_t>(answer->size());
    workbench::Wipe(*answer);
    return isWhole ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "deployment-askpass: %s\n", error.what());
    return 1;
  }
}
