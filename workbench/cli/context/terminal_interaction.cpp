#include "workbench/cli/context/terminal_interaction.h"

#include "workbench/cli/context/secret_input.h"

#include <algorithm>
#include <memory>
#include <mutex>

namespace workbench {

// An answer that confirms everything, given before the key was seen, is no answer to this.
TPrompts TTerminalInteraction::Prompts() const {
  if (!FOutput.CanAsk())
    return {};
  // Several machines may ask at the same time; a person is asked one question after the other.
  const auto turn = std::make_shared<std::mutex>();
  return {.AcceptsHostKey =
              [&output = FOutput, turn](const THostKey& key) {
                const std::lock_guard lock(*turn);
                return output.Ask("The host key of " + key.Host + " is not known yet. It is " +
                                      key.Type + " " + key.Fingerprint +
                                      ". Is that the right machine?",
                                  /*several=*/false) == TAnswer::Yes;
              },
          .TellsSecret =
              [turn](const std::string& prompt, const TIsCancelled& isOver) {
                const std::lock_guard lock(*turn);
                return ReadSecret(prompt, isOver);
              }};
}

void TTerminalInteraction::ConnectionLost(const std::string& profile, const std::string& reason) {
  const std::string text = "the profile \"" + profile + "\" has no connection: " + reason;
  if (std::ranges::find(FLost, text) == FLost.end())
    FLost.push_back(text);
}

} // namespace workbench
