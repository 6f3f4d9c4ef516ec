#include "workbench/msbuild/item_definitions.h"

#include "package/common/case_fold.h"
#include "package/common/text_trim.h"

#include <algorithm>
#include <utility>

namespace workbench {
namespace {

constexpr std::size_t LongestDefinition = std::size_t{1024} * 1024;

} // namespace

const TDefinedValue* TItemDefinition::Find(std::string_view name) const {
  const auto found = std::ranges::find_if(
      FValues, [&](const TDefinedValue& value) { return deployment::SameText(value.Name, name); });
  return found == FValues.end() ? nullptr : &*found;
}

// "%(Name)" and "%(Type.Name)" of this type; those of other types name nothing here.
std::string TItemDefinition::WithPresentValues(std::string_view text, std::string_view type,
                                               const deployment::IXMLNode& node,
                                               TUnknown& unknown) const {
  std::string result;
  for (;;) {
    const std::size_t start = text.find("%(");
    const std::size_t end = start == std::string_view::npos ? start : text.find(')', start);
    if (end == std::string_view::npos)
      return result.append(text);
    result.append(text.substr(0, start));
    std::string_view name = deployment::Trimmed(text.substr(start + 2, end - start - 2));
    const std::size_t dot = name.find('.');
    const bool isOwn =
        dot == std::string_view::npos || deployment::SameText(name.substr(0, dot), type);
    if (dot != std::string_view::npos)
      name.remove_prefix(dot + 1);
    if (const TDefinedValue* present = isOwn ? Find(name) : nullptr) {
      result += present->Text;
      if (!unknown)
        unknown = present->Unknown;
    }
    if (result.size() > LongestDefinition)
      throw deployment::TInputError(
          "the value of \"" + std::string(node.NodeName()) + "\" grows too long", node.Place());
    text.remove_prefix(end + 1);
  }
}

void TItemDefinition::Add(deployment::IXMLNode& element, const TPropertyTable& properties,
                          const THolds& holds, const TUnknown& doubt) {
  for (deployment::IXMLNode* child = element.FirstChild(); child; child = child->NextSibling()) {
    const TConditionResult condition = holds(*child);
    if (!condition.Holds && !condition.Unknown)
      continue;
    TUnknown unknown = doubt ? doubt : condition.Unknown;
    const std::string text = WithPresentValues(child->Text(), element.NodeName(), *child, unknown);
    TExpanded value = properties.Expand(text, *child);
    if (!unknown)
      unknown = std::move(value.Unknown);
    if (deployment::Trimmed(value.Text).empty())
      value.Text.clear();
    TDefinedValue said{std::string(child->NodeName()), std::move(value.Text), std::move(unknown),
                       child};
    if (const TDefinedValue* present = Find(said.Name))
      FValues[static_cast<std::size_t>(present - FValues.data())] = std::move(said);
    else
      FValues.push_back(std::move(said));
  }
}

} // namespace workbench
