#include "package/host/api/xmlutils.h"

#include "package/common/convert.h"

#include <string>

namespace deployment {
namespace {

[[noreturn]] void RaiseConversionError(const IXMLNode& node, std::string_view what,
                                       std::string_view text, std::string_view wanted) {
  std::string sentence = "element \"" + std::string(node.NodeName()) + "\": ";
  if (what != node.NodeName())
    sentence += "attribute \"" + std::string(what) + "\" is ";
  else
    sentence += "its text is ";
  sentence += "\"" + std::string(text) + "\", which is not " + std::string(wanted);
  throw TInputError(sentence, node.Place());
}

} // namespace

IXMLNode* FirstNamed(IXMLNode* node, std::string_view name) {
  while (node && node->NodeName() != name)
    node = node->NextSibling();
  return node;
}

IXMLNode* FindChild(IXMLNode& parent, std::string_view name) {
  return FirstNamed(parent.FirstChild(), name);
}

void FindChildren(IXMLNode& parent, std::span<const std::string_view> names,
                  std::span<IXMLNode*> found) {
  for (IXMLNode*& node : found)
    node = nullptr;
  for (IXMLNode* child = parent.FirstChild(); child; child = child->NextSibling()) {
    const std::string_view name = child->NodeName();
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (!found[i] && name == names[i]) {
        found[i] = child;
        break;
      }
    }
  }
}

void SetChildValue(IXMLNode& parent, std::string_view name, std::string_view value) {
  IXMLNode* child = FindChild(parent, name);
  (child ? *child : parent.AddChild(name)).SetText(value);
}

std::string_view ExpectAttribute(const IXMLNode& node, std::string_view name) {
  const auto value = node.GetAttribute(name);
  if (!value)
    throw TInputError("element \"" + std::string(node.NodeName()) +
                          "\" lacks the required attribute \"" + std::string(name) + "\"",
                      node.Place());
  return *value;
}

bool ExpectBoolean(const IXMLNode& node, std::string_view what, std::string_view text) {
  const auto value = TextToBoolean(text);
  if (!value)
    RaiseConversionError(node, what, text, "a Boolean (true or false)");
  return *value;
}

int ExpectInteger(const IXMLNode& node, std::string_view what, std::string_view text) {
  const auto value = TextToInteger(text);
  if (!value)
    RaiseConversionError(node, what, text, "an integer");
  return *value;
}

} // namespace deployment
