// Reads an XML document into a tree that keeps its bytes. One section of it, the large one, keeps
// what stands inside its children as compact records.
#pragma once

#include "workbench/xml/xml_encoding.h"
#include "workbench/xml/xml_limits.h"
#include "workbench/xml/xml_parser.h"
#include "workbench/xml/xml_tree.h"
#include "workbench/xml/xml_tree_builder.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// A document that was read. What stands inside a child of the section is good until somebody
/// looks into another child of it.
class TXmlReader final : private IXmlContentSource {
public:
  /// Fills memory with the input: asks `reserve` for as many bytes as it needs, and returns how
  /// many it has filled.
  using TInput = std::function<std::size_t(const std::function<char*(std::size_t)>& reserve)>;

  /// Reads a whole document. `fileName` is what errors call the file. `section` tells where the
  /// large section stands; empty for none.
  /// Throws what the input throws, and TInputError with the line when the bytes are not
  /// well-formed XML, carry a document type declaration or pass a limit.
  TXmlReader(const TInput& input, std::string fileName, const TXmlSectionPath& section = {},
             const TXmlLimits& limits = {});
  /// The same for a text in memory, of which a copy is kept.
  TXmlReader(std::string_view bytes, std::string fileName, const TXmlSectionPath& section = {},
             const TXmlLimits& limits = {});

  TXmlTree& Tree() { return FTree; }
  TXmlElement& Root() { return *FTree.Root(); }
  std::string_view Bytes() const { return FTree.Source(); }
  TXmlEncoding Encoding() const { return FEncoding; }

  /// The section; null when the document has none.
  TXmlElement* Section() const { return FSection.Element; }
  /// The section's children as they stand in the bytes, in order.
  const std::vector<TSectionChild>& SectionChildren() const { return FSection.Children; }
  /// Gives the memory of the section's children back; a later walk reads them from the bytes.
  void ForgetSection();

private:
  void MakeContent(TXmlElement& element) override;
  void MakeFromRecord(TXmlElement& element);
  void ReadAgain(TXmlElement& element);

  TXmlParser FParser; // keeps the bytes
  TXmlTree FTree;
  TXmlEncoding FEncoding = TXmlEncoding::Utf8;
  TXmlSection FSection;
  TArena FContentArena; // of the one child of the section that is looked into
  TXmlElement* FLookedInto = nullptr;
};

} // namespace workbench
