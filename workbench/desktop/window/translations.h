// The user's language.
#pragma once

class QApplication;

namespace workbench {

/// Loads the texts of the user's language, where there are some; else texts stay English.
void InstallTranslations(QApplication& application);

} // namespace workbench
