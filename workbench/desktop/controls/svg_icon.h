// Icons from the SVG texts that the package brings along.
#pragma once

#include <QIcon>
#include <string_view>

namespace workbench {

/// Drawn anew for every size, so it is sharp at any scale. The text is copied.
QIcon SvgIcon(std::string_view svg);

} // namespace workbench
