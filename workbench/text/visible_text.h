// Texts of others, fit for a person's eyes.
#pragma once

#include <string>
#include <string_view>

namespace workbench {

/// The text with everything that could change how a terminal shows it made visible: control
/// characters, and those that turn the direction of writing.
std::string Visible(std::string_view text);

/// What a program on another machine said, as a sentence: its last lines in one, bytes that are not
/// UTF-8 made visible too, cut where it gets long.
std::string SaidText(std::string_view text);

} // namespace workbench
