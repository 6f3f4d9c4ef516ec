// Lists of names stored as one text: items between ";", blanks kept as part of an item.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// The items of a delimited text in order, empty ones included. An empty text has no items.
/// The views point into `text`.
std::vector<std::string_view> SplitDelimited(std::string_view text, char delimiter = ';');

/// The items joined by the delimiter; the reverse of SplitDelimited for items without it.
std::string JoinDelimited(const std::vector<std::string>& items, std::string_view delimiter = ";");

} // namespace deployment
