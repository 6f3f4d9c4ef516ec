// Words of the package's forms in the user's language.
#pragma once

#include <QString>
#include <string_view>

namespace workbench {

/// The text translated; as it is where no translation knows it.
QString FormText(std::string_view text);

} // namespace workbench
