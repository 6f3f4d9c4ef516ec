// Light and dark.
#pragma once

namespace workbench {

enum class TAppearance { Light, Dark };

/// Draws the program this way, whatever the desktop says.
void SetAppearance(TAppearance appearance);

} // namespace workbench
