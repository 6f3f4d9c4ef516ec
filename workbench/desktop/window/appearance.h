// Light and dark.
#pragma once

namespace workbench {

enum class TAppearance { Light, Dark };

/// Makes the frames of boxes stand out where the desktop brings no style of its own.
void UseLegibleStyle();

/// Draws the program this way, whatever the desktop says.
void SetAppearance(TAppearance appearance);

} // namespace workbench
