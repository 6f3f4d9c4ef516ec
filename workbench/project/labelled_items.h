// A group of items that a project keeps for the workbench alone. Builds read past it.
#pragma once

#include "workbench/xml/source_text.h"
#include "workbench/xml/xml_tree.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

/// One item with its metadata, in order. All texts are as they are meant, without escapes.
struct TLabelledItem {
  std::string Type;
  std::string Include;
  std::vector<std::pair<std::string, std::string>> Metadata;

  /// Empty when there is none of that name.
  std::string_view FindMetadata(std::string_view name) const;
  bool operator==(const TLabelledItem&) const = default;
};

/// The first "ItemGroup" below the root whose attribute "Label" is the label; null when there is
/// none.
TXmlElement* FindLabelledGroup(TXmlElement& root, std::string_view label);

std::vector<TLabelledItem> ReadLabelledItems(TXmlElement& group);

/// The whole group as markup, one item a line, for a place with that layout; it begins without
/// indentation. Throws TInputError for text that XML cannot hold.
std::string LabelledGroupMarkup(std::string_view label, const std::vector<TLabelledItem>& items,
                                const TChildLayout& layout);

} // namespace workbench
