// Takes the place of the program that carries the file transfer protocol: what is written to it
// goes to a server in this program, and what that answers comes through a pipe.
#pragma once

#include "fuzz/sftp/model_server.h"

namespace workbench::fuzz {

/// Every process that is started from now on speaks with this server, which must outlive it.
void SpeakWith(TModelServer& server);

} // namespace workbench::fuzz
