#include "workbench/xml/source_text.h"

#include <algorithm>

namespace workbench {
namespace {

bool IsLineEnd(char c) {
  return c == '\n' || c == '\r';
}

bool IsBlankCharacter(char c) {
  return c == ' ' || c == '\t' || IsLineEnd(c);
}

// What one level adds, read off a parent and its child.
std::string IndentStep(const std::string& outer, const std::string& inner) {
  if (inner.size() > outer.size() && inner.starts_with(outer))
    return inner.substr(outer.size());
  return inner.find('\t') != std::string::npos ? "\t" : "  ";
}

} // namespace

TSourceText::TSourceText(std::string_view bytes, TXmlEncoding encoding)
    : FBytes(bytes), FEncoding(encoding),
      FUnit(encoding == TXmlEncoding::Utf16LittleEndian || encoding == TXmlEncoding::Utf16BigEndian
                ? 2
                : 1) {}

std::string_view TSourceText::Bytes(TByteRange range) const {
  return FBytes.substr(range.Start, range.End - range.Start);
}

// The character at the offset when it is ASCII; a zero for all others.
char TSourceText::At(std::uint32_t offset) const {
  if (FUnit == 1)
    return FBytes[offset];
  const bool little = FEncoding == TXmlEncoding::Utf16LittleEndian;
  const char low = FBytes[little ? offset : offset + 1];
  const char high = FBytes[little ? offset + 1 : offset];
  return high == 0 ? low : '\0';
}

bool TSourceText::IsBlank(TByteRange range) const {
  for (std::uint32_t at = range.Start; at < range.End; at += FUnit) {
    if (!IsBlankCharacter(At(at)))
      return false;
  }
  return true;
}

std::uint32_t TSourceText::BlankRunBefore(std::uint32_t offset) const {
  while (offset >= FUnit && IsBlankCharacter(At(Previous(offset))))
    offset = Previous(offset);
  return offset;
}

std::uint32_t TSourceText::EndTagStart(const TXmlElement& element) const {
  std::uint32_t at = element.Range().End;
  if (!element.HasEndTag())
    return at;
  do {
    at = Previous(at);
  } while (At(at) != '<');
  return at;
}

std::uint32_t TSourceText::EmptyTagEnd(const TXmlElement& element) const {
  return BlankRunBefore(element.Range().End - 2 * FUnit);
}

std::optional<std::string> TSourceText::IndentationAt(std::uint32_t offset) const {
  std::uint32_t start = offset;
  while (start >= FUnit && !IsLineEnd(At(Previous(start)))) {
    start = Previous(start);
    if (!IsBlankCharacter(At(start)))
      return std::nullopt;
  }
  if (start < FUnit)
    return std::nullopt;
  std::string blanks;
  for (; start < offset; start += FUnit)
    blanks.push_back(At(start));
  return blanks;
}

std::string TSourceText::LineEndAt(std::uint32_t offset) const {
  if (At(offset) == '\r')
    return offset + FUnit < FBytes.size() && At(offset + FUnit) == '\n' ? "\r\n" : "\r";
  return offset >= FUnit && At(Previous(offset)) == '\r' ? "\r\n" : "\n";
}

std::string TSourceText::LineEndNear(std::uint32_t offset) const {
  for (std::uint32_t at = offset; at >= FUnit; at = Previous(at)) {
    if (IsLineEnd(At(Previous(at))))
      return LineEndAt(Previous(at));
  }
  for (std::uint32_t at = offset; at + FUnit <= FBytes.size(); at += FUnit) {
    if (IsLineEnd(At(at)))
      return LineEndAt(at);
  }
  return {};
}

TChildLayout LayoutForChild(const TSourceText& source, TXmlElement& parent) {
  TChildLayout result;
  const std::string outer = source.IndentationAt(parent.Range().Start).value_or("");
  result.Layout.LineEnd = source.LineEndNear(parent.ContentStart());
  TXmlElement* child = parent.FirstChild();
  if (!child) {
    TXmlElement* grandparent = parent.Parent();
    const std::string beyond =
        grandparent ? source.IndentationAt(grandparent->Range().Start).value_or("") : "";
    result.Layout.Indent = grandparent ? IndentStep(beyond, outer) : "  ";
    result.Indentation = outer + result.Layout.Indent;
    return result;
  }
  const auto indentation = source.IndentationAt(child->Range().Start);
  if (!indentation) {
    // The neighbours share a line, and so will the new child.
    result.Layout.LineEnd.clear();
    return result;
  }
  result.Indentation = *indentation;
  result.Layout.Indent = IndentStep(outer, *indentation);
  return result;
}

TChildInsertion InsertionOfLastChild(const TSourceText& source, TXmlElement& parent) {
  TChildInsertion insertion;
  std::string closing;
  AppendXmlLine(closing, LayoutForChild(source, parent).Layout,
                source.IndentationAt(parent.Range().Start).value_or(""));
  if (!parent.HasEndTag()) {
    insertion.Place = {source.EmptyTagEnd(parent), parent.Range().End};
    insertion.Before = ">";
    insertion.After = closing + "</" + std::string(parent.NodeName()) + ">";
    return insertion;
  }
  const std::uint32_t endTag = source.EndTagStart(parent);
  const std::uint32_t place = std::max(parent.ContentStart(), source.BlankRunBefore(endTag));
  insertion.Place = {place, place};
  if (place == endTag)
    insertion.After = closing;
  return insertion;
}

} // namespace workbench
