#include "workbench/project/base_properties.h"

#include "package/common/case_fold.h"
#include "package/host/api/xmlutils.h"
#include "workbench/xml/xml_text.h"

#include <algorithm>

namespace workbench {
namespace {

TXmlElement* NextGroup(TXmlElement* element) {
  do {
    element = static_cast<TXmlElement*>(deployment::FirstNamed(element, "PropertyGroup"));
  } while (element && element->GetAttribute("Condition") && (element = element->NextSibling()));
  return element;
}

} // namespace

TXmlElement* TBasePropertyChanges::FindProperty(std::string_view name) {
  TXmlElement* found = nullptr;
  for (TXmlElement* group = NextGroup(FRoot.FirstChild()); group;
       group = NextGroup(group->NextSibling())) {
    for (TXmlElement* child = group->FirstChild(); child; child = child->NextSibling()) {
      if (!child->GetAttribute("Condition") && deployment::SameText(child->NodeName(), name))
        found = child;
    }
  }
  return found;
}

void TBasePropertyChanges::Set(std::string_view name, std::string_view value) {
  TXmlElement* property = FindProperty(name);
  if (!property) {
    TXmlElement* group = NextGroup(FRoot.FirstChild());
    property = &AddProperty(group ? *group : AddGroup("PropertyGroup"), name);
  }
  SetText(*property, value);
}

void TBasePropertyChanges::SetChild(TXmlElement& parent, std::string_view name,
                                    std::string_view value) {
  TXmlElement* found = nullptr;
  for (TXmlElement* child = parent.FirstChild(); child; child = child->NextSibling()) {
    if (deployment::SameText(child->NodeName(), name))
      found = child;
  }
  if (!found && value.empty())
    return;
  SetText(found ? *found : AddProperty(parent, name), value);
}

void TBasePropertyChanges::SetText(TXmlElement& element, std::string_view value) {
  if (element.Text() != value && element.StandsInSource() &&
      std::find(FChanged.begin(), FChanged.end(), &element) == FChanged.end())
    FChanged.push_back(&element);
  element.SetText(value);
}

TXmlElement& TBasePropertyChanges::AddGroup(std::string_view name) {
  // Looked at before the root gets an element that stands in no bytes.
  const TChildLayout layout =
      FNewGroups.empty() ? LayoutForChild(FSource, FRoot) : FNewGroups.front().Layout;
  FNewGroups.push_back({&FRoot.AddChild(name), layout});
  return *FNewGroups.back().Element;
}

TXmlElement& TBasePropertyChanges::AddProperty(TXmlElement& group, std::string_view name) {
  if (!group.StandsInSource())
    return group.AddChild(name);
  auto extended = std::find_if(FExtended.begin(), FExtended.end(),
                               [&group](const TGroup& entry) { return entry.Element == &group; });
  // Looked at before the group gets an element that stands in no bytes.
  const TChildLayout layout = extended == FExtended.end() ? LayoutForChild(FSource, group)
                                                          : extended->Properties.front().Layout;
  if (extended == FExtended.end())
    extended =
        FExtended.insert(FExtended.end(), TGroup{&group, InsertionOfLastChild(FSource, group), {}});
  TXmlElement& property = group.AddChild(name);
  extended->Properties.push_back({&property, layout});
  return property;
}

std::vector<TReplacement> TBasePropertyChanges::Replacements() const {
  std::vector<TReplacement> result;
  for (TXmlElement* element : FChanged) {
    std::string text;
    AppendXmlText(text, element->Text());
    if (element->HasEndTag())
      result.push_back({{element->ContentStart(), FSource.EndTagStart(*element)}, text});
    else
      result.push_back({{FSource.EmptyTagEnd(*element), element->Range().End},
                        ">" + text + "</" + std::string(element->NodeName()) + ">"});
  }
  for (const TGroup& group : FExtended) {
    std::string markup = group.Insertion.Before;
    for (const TNewProperty& property : group.Properties) {
      AppendXmlLine(markup, property.Layout.Layout, property.Layout.Indentation);
      AppendXmlElement(markup, *property.Element, property.Layout.Layout,
                       property.Layout.Indentation);
    }
    result.push_back({group.Insertion.Place, markup + group.Insertion.After});
  }
  return result;
}

std::string TBasePropertyChanges::NewRootChildren() const {
  std::string markup;
  for (const TNewGroup& group : FNewGroups) {
    AppendXmlLine(markup, group.Layout.Layout, group.Layout.Indentation);
    AppendXmlElement(markup, *group.Element, group.Layout.Layout, group.Layout.Indentation);
  }
  return markup;
}

} // namespace workbench
