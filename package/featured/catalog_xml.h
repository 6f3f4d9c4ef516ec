// Elements of the catalog: names are matched ignoring case, texts are plain.
#pragma once

#include "package/host/api/xml.h"

#include <string>
#include <string_view>

namespace deployment {

bool IsElement(const IXMLNode& node, std::string_view name);

/// Empty when the element does not carry it. Good until the element is changed.
std::string_view CatalogAttribute(const IXMLNode& node, std::string_view name);

/// The text of an element that holds nothing but text. Throws TInputError for one with children.
std::string PlainText(const IXMLNode& node);

/// Throws TInputError with the place of the element.
[[noreturn]] void RaiseCatalogError(const IXMLNode& node, const std::string& text);

} // namespace deployment
