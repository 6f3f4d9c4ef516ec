// Decides about the key by which a machine says who it is, when the SSH client refused it: a person
// may accept one that is not known yet, and nobody one that differs from what is known.
#pragma once

#include "workbench/remote/ssh/known_hosts.h"
#include "workbench/remote/ssh/prompts.h"

#include <atomic>
#include <string_view>

namespace workbench {

/// True when the client ended for the sake of a host key.
bool IsAboutHostKey(std::string_view reason);

/// The key that the machine offers, on the way that the client's configuration says and so also
/// behind other machines; nothing when none is offered. Nobody is asked. Throws TConnectionError.
std::optional<TKeyText> OfferedHostKey(const TProfile& profile, const TIsCancelled& isCancelled);

/// Looks into why the key was refused. An unknown one is asked for and kept on a yes: true. False
/// when the key is not what is wrong. Throws TConnectionError, with the fingerprints, for a key
/// that differs from the known ones, and for an unknown one that nobody accepted; `ask` may be
/// empty, then there is nobody.
bool SettleHostKey(const TProfile& profile, const THostKeyQuestion& ask,
                   const TIsCancelled& isCancelled);

} // namespace workbench
