// The sentences that the engine can make, in English: "%1" and so on stand for what is put in. The
// engine knows nothing of languages; a test holds these tables against its sources.
#pragma once

#include <span>

namespace workbench {

std::span<const char* const> ExplainSentences();
std::span<const char* const> DeploySentences();
std::span<const char* const> RemoteSentences();
std::span<const char* const> MachineSentences();
std::span<const char* const> DocumentSentences();
std::span<const char* const> ProjectSentences();
std::span<const char* const> BuildSentences();

} // namespace workbench
