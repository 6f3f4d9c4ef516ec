// Words of the package in the user's language: captions of forms, columns and buttons, and
// questions with names in them.
#pragma once

#include <QString>
#include <string_view>

namespace workbench {

/// The text translated; as it is where no translation knows it.
QString PackageText(std::string_view text);

} // namespace workbench
