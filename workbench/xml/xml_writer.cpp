#include "workbench/xml/xml_writer.h"

#include "workbench/xml/xml_text.h"

namespace workbench {

void AppendXmlLine(std::string& markup, const TXmlLayout& layout, std::string_view indentation) {
  if (layout.LineEnd.empty())
    return;
  markup += layout.LineEnd;
  markup += indentation;
}

void AppendXmlTagStart(std::string& markup, TXmlElement& element) {
  markup += '<';
  markup += element.NodeName();
  for (std::size_t i = 0; i < element.AttributeCount(); ++i) {
    markup += ' ';
    markup += element.AttributeName(i);
    markup += "=\"";
    AppendXmlAttributeValue(markup, element.AttributeValue(i));
    markup += '"';
  }
}

void AppendXmlElement(std::string& markup, TXmlElement& element, const TXmlLayout& layout,
                      std::string_view indentation) {
  AppendXmlTagStart(markup, element);
  TXmlElement* child = element.FirstChild();
  if (!child && element.Text().empty()) {
    markup += "/>";
    return;
  }
  markup += '>';
  AppendXmlText(markup, element.Text());
  if (child) {
    const std::string inner = std::string(indentation) + layout.Indent;
    for (; child; child = child->NextSibling()) {
      AppendXmlLine(markup, layout, inner);
      AppendXmlElement(markup, *child, layout, inner);
    }
    AppendXmlLine(markup, layout, indentation);
  }
  markup += "</";
  markup += element.NodeName();
  markup += '>';
}

} // namespace workbench
