// The user's language in a plug-in.
#pragma once

namespace workbench {

/// Loads the plug-in's texts in the language of the IDE, where there are some; else they stay
/// English.
void InstallTexts();

} // namespace workbench
