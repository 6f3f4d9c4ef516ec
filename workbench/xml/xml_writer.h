// Elements as XML markup in a given layout.
#pragma once

#include "workbench/xml/xml_tree.h"

#include <string>
#include <string_view>

namespace workbench {

/// How markup is laid out. Without line ends everything stands on one line.
struct TXmlLayout {
  std::string LineEnd = "\n"; ///< empty: no line breaks and no indentation
  std::string Indent = "  ";  ///< added for each level
};

/// Appends a line end and the indentation.
void AppendXmlLine(std::string& markup, const TXmlLayout& layout, std::string_view indentation);

/// Appends `<Name a="b"` without the closing bracket.
void AppendXmlTagStart(std::string& markup, TXmlElement& element);

/// Appends the element with all that stands inside it. `indentation` is that of the element's own
/// line; the line's beginning is the caller's. Throws TInputError for text that XML cannot hold.
void AppendXmlElement(std::string& markup, TXmlElement& element, const TXmlLayout& layout,
                      std::string_view indentation);

} // namespace workbench
