// SHA-256 by the system's library of cryptography, which has the processor's own instructions.
#pragma once

#include "workbench/files/sha256.h"

#include <memory>

namespace workbench {

/// Throws std::system_error where there is no memory for it.
std::unique_ptr<IDigest> NewOpenSSLDigest();

} // namespace workbench
