#include "workbench/cli/context/connection_questions.h"

#include "workbench/cli/context/secret_input.h"

namespace workbench {

// An answer that confirms everything, given before the key was seen, is no answer to this.
void LetConnectionsAsk(TRemoteProfileServices& services, const TOutput& output) {
  if (!output.CanAsk())
    return;
  services.SetHostKeyQuestion([&output](const THostKey& key) {
    return output.Ask("The host key of " + key.Host + " is not known yet. It is " + key.Type + " " +
                          key.Fingerprint + ". Is that the right machine?",
                      /*several=*/false) == TAnswer::Yes;
  });
  services.SetSecretQuestion([](const std::string& prompt, const TIsCancelled& isOver) {
    return ReadSecret(prompt, isOver);
  });
}

} // namespace workbench
