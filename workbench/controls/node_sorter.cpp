#include "workbench/controls/node_sorter.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace workbench {
namespace {

using deployment::TNodeId;
using deployment::TSortDirection;
using deployment::TVirtualTreeEvents;

// A node in the sort: the first bytes of its text as a number, which decides most comparisons
// without a look at the text itself.
struct TSortItem {
  std::uint64_t Prefix;
  std::string_view Text;
  TNodeId Node;
};

std::uint64_t PrefixOf(std::string_view text) {
  std::uint64_t prefix = 0;
  for (std::size_t i = 0; i < sizeof prefix; ++i)
    prefix = (prefix << 8) | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
  return prefix;
}

bool IsLess(const TSortItem& left, const TSortItem& right) {
  return left.Prefix != right.Prefix ? left.Prefix < right.Prefix : left.Text < right.Text;
}

void SortByKeys(std::vector<TNodeId>& nodes, const TVirtualTreeEvents& events, int column,
                bool ascending) {
  std::vector<std::string> texts;
  texts.reserve(nodes.size());
  std::vector<TSortItem> items;
  items.reserve(nodes.size());
  for (const TNodeId node : nodes) {
    const std::string& text = texts.emplace_back(events.OnSortKey(node, column));
    items.push_back({PrefixOf(text), text, node});
  }
  const auto isBefore = [ascending](const TSortItem& left, const TSortItem& right) {
    return ascending ? IsLess(left, right) : IsLess(right, left);
  };
  // Columns in which all rows read the same are common.
  if (std::is_sorted(items.begin(), items.end(), isBefore))
    return;
  std::stable_sort(items.begin(), items.end(), isBefore);
  std::transform(items.begin(), items.end(), nodes.begin(),
                 [](const TSortItem& item) { return item.Node; });
}

} // namespace

void SortNodes(std::vector<TNodeId>& nodes, const TVirtualTreeEvents& events, int column,
               TSortDirection direction) {
  const bool ascending = direction == TSortDirection::Ascending;
  if (events.OnSortKey)
    return SortByKeys(nodes, events, column, ascending);
  if (!events.OnCompareNodes)
    return;
  std::stable_sort(nodes.begin(), nodes.end(), [&](TNodeId left, TNodeId right) {
    const int order = events.OnCompareNodes(left, right, column);
    return ascending ? order < 0 : order > 0;
  });
}

} // namespace workbench
