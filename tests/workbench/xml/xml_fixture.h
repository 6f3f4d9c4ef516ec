// Documents made of text for the tests of the XML floor.
#pragma once

#include "package/common/errors.h"
#include "workbench/xml/xml_encoding.h"
#include "workbench/xml/xml_reader.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

namespace workbench::testing {

inline std::unique_ptr<TXmlReader> Read(std::string_view text, const TXmlSectionPath& section = {},
                                        const TXmlLimits& limits = {}) {
  return std::make_unique<TXmlReader>(text, "demo.vproj", section, limits);
}

/// Name, attributes, text and children, such as `a[x=1]"text"(b c)`.
inline std::string Describe(TXmlElement& element) {
  std::string text(element.NodeName());
  for (std::size_t i = 0; i < element.AttributeCount(); ++i)
    text += "[" + std::string(element.AttributeName(i)) + "=" +
            std::string(element.AttributeValue(i)) + "]";
  if (!element.Text().empty())
    text += "\"" + std::string(element.Text()) + "\"";
  if (element.FirstChild()) {
    text += "(";
    for (TXmlElement* child = element.FirstChild(); child; child = child->NextSibling())
      text += (child == element.FirstChild() ? "" : " ") + Describe(*child);
    text += ")";
  }
  return text;
}

inline std::string DescribeText(std::string_view text) {
  return Describe(Read(text)->Root());
}

/// "file:line: sentence" of the error that reading the text gives; "no error" without one.
inline std::string ReadError(std::string_view text, const TXmlLimits& limits = {}) {
  try {
    Read(text, {}, limits);
  } catch (const deployment::TInputError& error) {
    return error.Place().File + ":" + std::to_string(error.Place().Line) + ": " + error.what();
  }
  return "no error";
}

/// The text with a byte order mark, in UTF-16.
inline std::string Utf16(std::string_view utf8, TXmlEncoding encoding) {
  const bool little = encoding == TXmlEncoding::Utf16LittleEndian;
  return (little ? "\xFF\xFE" : "\xFE\xFF") + EncodeMarkup(std::string(utf8), encoding);
}

} // namespace workbench::testing
