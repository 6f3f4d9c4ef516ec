// Asks whether commands that a project brings along may run on the user's machine and the target,
// and whether files from beyond its directory may be sent.
#pragma once

#include <string>
#include <vector>

class QWidget;

namespace workbench {

/// `place` says where the project goes. True when the user says yes; Enter, Escape and closing say
/// no. Characters that could hide what a command does are shown as escapes.
bool AskConsent(const std::vector<std::string>& commands, const std::string& place,
                QWidget* parent);
/// The same for files, full paths.
bool AskSourceConsent(const std::vector<std::string>& files, QWidget* parent);

} // namespace workbench
