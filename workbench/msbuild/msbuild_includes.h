// Lists of names as includes write them, with references to other lists between the names.
#pragma once

#include <string_view>
#include <vector>

namespace workbench {

/// The pieces of an include between ";", blanks around them and empty ones dropped. A ";" inside
/// "@(...)" does not split. The views point into `escaped`.
std::vector<std::string_view> SplitIncludes(std::string_view escaped);

/// True for a piece that starts as a reference to a list of items.
bool IsItemReference(std::string_view piece);

/// The type that "@(Type)" or "@(Type, ';')" names; empty for a transformation. Only for pieces
/// that are references.
std::string_view ReferencedType(std::string_view reference);

} // namespace workbench
