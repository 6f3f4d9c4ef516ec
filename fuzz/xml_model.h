// What an XML element says, apart from how it is kept.
#pragma once

#include "package/host/api/xml.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace workbench::fuzz {

struct TXmlModel {
  std::string Name;
  std::vector<std::pair<std::string, std::string>> Attributes;
  std::string Text;
  std::vector<TXmlModel> Children;

  bool operator==(const TXmlModel&) const = default;

  static TXmlModel Of(deployment::IXMLNode& node) {
    TXmlModel model{std::string(node.NodeName()), {}, std::string(node.Text()), {}};
    model.Attributes.reserve(node.AttributeCount());
    for (std::size_t i = 0; i < node.AttributeCount(); ++i) {
      const std::string name(node.AttributeName(i));
      model.Attributes.emplace_back(name, node.GetAttribute(name).value_or(""));
    }
    for (deployment::IXMLNode* child = node.FirstChild(); child; child = child->NextSibling())
      model.Children.push_back(Of(*child));
    return model;
  }

  /// Puts everything but the name into an empty element.
  void WriteInto(deployment::IXMLNode& node) const {
    for (const auto& [name, value] : Attributes)
      node.SetAttribute(name, value);
    if (!Text.empty())
      node.SetText(Text);
    for (const TXmlModel& child : Children)
      child.WriteInto(node.AddChild(child.Name));
  }

  /// True when text and elements stand side by side somewhere. A tree does not keep where.
  bool IsMixed() const {
    return (!Text.empty() && !Children.empty()) ||
           std::any_of(Children.begin(), Children.end(),
                       [](const TXmlModel& child) { return child.IsMixed(); });
  }

  std::string Shown() const {
    std::string shown = Name;
    for (const auto& [name, value] : Attributes)
      shown.append("[").append(name).append("=").append(value).append("]");
    if (!Text.empty())
      shown.append("\"").append(Text).append("\"");
    for (const TXmlModel& child : Children)
      shown.append("(").append(child.Shown()).append(")");
    return shown;
  }
};

} // namespace workbench::fuzz
