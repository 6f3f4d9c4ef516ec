// Host unit Xmlutils: the questions that readers and writers of XML ask most.
#pragma once

#include "package/host/api/xml.h"

#include <optional>
#include <span>
#include <string_view>

namespace deployment {

/// The next sibling of `node`, itself included, with that name (compared exactly); null when there
/// is none. `FirstNamed(parent.FirstChild(), name)` starts a walk over children of one name.
IXMLNode* FirstNamed(IXMLNode* node, std::string_view name);

/// The first child element of that name; null when there is none.
IXMLNode* FindChild(IXMLNode& parent, std::string_view name);

/// The first child element of each name, found in one walk; null where there is none. Both spans
/// have one length.
void FindChildren(IXMLNode& parent, std::span<const std::string_view> names,
                  std::span<IXMLNode*> found);

/// Finds the first child of that name, or makes it, and sets its text.
void SetChildValue(IXMLNode& parent, std::string_view name, std::string_view value);

/// The attribute's value. Throws TInputError, naming element and attribute, when it is absent.
std::string_view ExpectAttribute(const IXMLNode& node, std::string_view name);

/// `text`, which stands in `node` under `what` (an attribute or the element itself), as a Boolean.
/// Throws TInputError, naming element and value, when it is none.
bool ExpectBoolean(const IXMLNode& node, std::string_view what, std::string_view text);

/// The same for a decimal integer.
int ExpectInteger(const IXMLNode& node, std::string_view what, std::string_view text);

} // namespace deployment
