// Names of deployment classes, as people read them.
#pragma once

#include <QString>
#include <string_view>

namespace workbench {

/// The words of which a class is named: "Android Classes Dex File" for "AndroidClassesDexFile",
/// "Project Output iOS 32" for "ProjectOutput_iOS32".
QString ClassWords(std::string_view className);

} // namespace workbench
