// Text of a project file made fit for a message.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace workbench {

/// The text, or its first `limit` bytes (cut between characters) with "..." behind them.
std::string ShortText(std::string_view text, std::size_t limit = 80);

} // namespace workbench
