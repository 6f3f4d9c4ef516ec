// Looks at the bytes of a document as characters: what stands around an element, and how the
// document is laid out there.
#pragma once

#include "workbench/xml/xml_encoding.h"
#include "workbench/xml/xml_tree.h"
#include "workbench/xml/xml_writer.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace workbench {

/// A view of a document's bytes. Positions are byte offsets; those of UTF-16 are even.
class TSourceText {
public:
  TSourceText(std::string_view bytes, TXmlEncoding encoding);

  std::string_view Bytes(TByteRange range) const;
  TXmlEncoding Encoding() const { return FEncoding; }
  /// True when nothing but blanks and line ends stands in the range.
  bool IsBlank(TByteRange range) const;
  /// Where the run of blanks and line ends that ends at `offset` begins.
  std::uint32_t BlankRunBefore(std::uint32_t offset) const;
  /// Where the end tag of the element begins; its end when it has none.
  std::uint32_t EndTagStart(const TXmlElement& element) const;
  /// Where "/>" of an element without end tag begins, blanks before it included.
  std::uint32_t EmptyTagEnd(const TXmlElement& element) const;
  /// The blanks between the line's beginning and `offset`; nothing when more than blanks stand
  /// there.
  std::optional<std::string> IndentationAt(std::uint32_t offset) const;
  /// The line end before `offset`, else the document's first one; empty when there is none.
  std::string LineEndNear(std::uint32_t offset) const;

private:
  char At(std::uint32_t offset) const;
  std::uint32_t Previous(std::uint32_t offset) const { return offset - FUnit; }
  std::string LineEndAt(std::uint32_t offset) const;

  std::string_view FBytes;
  TXmlEncoding FEncoding;
  std::uint32_t FUnit;
};

/// Layout and indentation for a new last child of `parent`, after its neighbours.
struct TChildLayout {
  TXmlLayout Layout;
  std::string Indentation;
};
TChildLayout LayoutForChild(const TSourceText& source, TXmlElement& parent);

/// What an element needs so that markup can be put behind its last child: `Before`, the markup and
/// `After` take the place of the range.
struct TChildInsertion {
  TByteRange Place;
  std::string Before;
  std::string After;
};
/// An element without end tag gets one.
TChildInsertion InsertionOfLastChild(const TSourceText& source, TXmlElement& parent);

} // namespace workbench
