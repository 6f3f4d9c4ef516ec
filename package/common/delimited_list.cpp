#include "package/common/delimited_list.h"

namespace deployment {

std::vector<std::string_view> SplitDelimited(std::string_view text, char delimiter) {
  std::vector<std::string_view> items;
  if (text.empty())
    return items;
  std::size_t start = 0;
  for (std::size_t end = text.find(delimiter); end != std::string_view::npos;
       end = text.find(delimiter, start)) {
    items.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  items.push_back(text.substr(start));
  return items;
}

std::string JoinDelimited(const std::vector<std::string>& items, std::string_view delimiter) {
  std::string text;
  for (const std::string& item : items) {
    if (&item != &items.front())
      text += delimiter;
    text += item;
  }
  return text;
}

} // namespace deployment
