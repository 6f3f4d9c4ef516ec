#include "workbench/project/labelled_items.h"

#include "workbench/msbuild/values/msbuild_escapes.h"
#include "workbench/xml/xml_text.h"
#include "workbench/xml/xml_writer.h"

#include <algorithm>

namespace workbench {

std::string_view TLabelledItem::FindMetadata(std::string_view name) const {
  const auto found = std::ranges::find(Metadata, name, &std::pair<std::string, std::string>::first);
  return found == Metadata.end() ? std::string_view() : std::string_view(found->second);
}

TXmlElement* FindLabelledGroup(TXmlElement& root, std::string_view label) {
  for (TXmlElement* child = root.FirstChild(); child; child = child->NextSibling()) {
    if (child->NodeName() == "ItemGroup" && child->GetAttribute("Label") == label)
      return child;
  }
  return nullptr;
}

std::vector<TLabelledItem> ReadLabelledItems(TXmlElement& group) {
  std::vector<TLabelledItem> items;
  for (TXmlElement* node = group.FirstChild(); node; node = node->NextSibling()) {
    TLabelledItem item;
    item.Type = node->NodeName();
    item.Include = UnescapeMSBuild(node->GetAttribute("Include").value_or(std::string_view()));
    for (TXmlElement* child = node->FirstChild(); child; child = child->NextSibling())
      item.Metadata.emplace_back(child->NodeName(), UnescapeMSBuild(child->Text()));
    items.push_back(std::move(item));
  }
  return items;
}

std::string LabelledGroupMarkup(std::string_view label, const std::vector<TLabelledItem>& items,
                                const TChildLayout& layout) {
  std::string markup = "<ItemGroup Label=\"";
  AppendXmlAttributeValue(markup, label);
  markup += "\">";
  for (const TLabelledItem& item : items) {
    AppendXmlLine(markup, layout.Layout, layout.Indentation + layout.Layout.Indent);
    markup.append("<").append(item.Type).append(" Include=\"");
    AppendXmlAttributeValue(markup, EscapeMSBuild(item.Include));
    markup += "\">";
    for (const auto& [name, value] : item.Metadata) {
      markup.append("<").append(name).append(">");
      AppendXmlText(markup, EscapeMSBuild(value));
      markup.append("</").append(name).append(">");
    }
    markup.append("</").append(item.Type).append(">");
  }
  AppendXmlLine(markup, layout.Layout, layout.Indentation);
  return markup + "</ItemGroup>";
}

} // namespace workbench
