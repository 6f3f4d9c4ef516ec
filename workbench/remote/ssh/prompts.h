// Questions that only a person can answer while a connection is made.
#pragma once

#include "workbench/process/process_run.h"

#include <functional>
#include <optional>
#include <string>

namespace workbench {

/// The key by which a machine says who it is.
struct THostKey {
  std::string Host;        ///< as the client keeps it: "name", or "[name]:port" for an unusual port
  std::string Type;        ///< such as "ED25519"
  std::string Fingerprint; ///< "SHA256:..."
};

/// Asks whether a key that is not known yet is the right one. Called on the thread that connects,
/// which may be any.
using THostKeyQuestion = std::function<bool(const THostKey&)>;

/// Asks for a password, a passphrase or another answer that the SSH client needs; nothing when
/// there is no answer. Called on a thread of its own. The prompt is the client's, made visible.
/// `isOver` turns true when the answer is not needed any more.
using TSecretQuestion = std::function<std::optional<std::string>(const std::string& prompt,
                                                                 const TIsCancelled& isOver)>;

/// The questions that are answered while connections are made. An empty one is answered by nobody:
/// unknown keys are refused, and only keys and the agent log in.
struct TPrompts {
  THostKeyQuestion AcceptsHostKey = nullptr;
  TSecretQuestion TellsSecret = nullptr;
};

/// Overwrites a secret that is not needed any more.
void Wipe(std::string& secret);

} // namespace workbench
