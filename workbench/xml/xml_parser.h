// The strict XML parser, feeding a tree builder.
#pragma once

#include "workbench/xml/xml_tree_builder.h"

#include <expat.h>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace workbench {

/// One run of the parser. It owns the bytes that it reads, so that they stand in memory once.
class TXmlParser {
public:
  /// An encoding of null lets the parser find it out.
  explicit TXmlParser(const char* encodingName = nullptr);

  /// Memory for the whole input; good as long as the parser, or until it is asked for again.
  char* Reserve(std::size_t size);
  /// Reads the first `size` bytes of the reserved memory. `baseOffset` is added to every position.
  /// Throws TInputError for bytes that are not well-formed XML and for a document type
  /// declaration, and whatever the builder throws.
  void Parse(const TXmlTree& tree, TXmlTreeBuilder& builder, std::size_t size,
             std::uint32_t baseOffset = 0);
  /// What the XML declaration says; empty when it says nothing.
  const std::string& DeclaredEncoding() const { return FDeclaredEncoding; }

private:
  struct TCloser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
  };

  static void XMLCALL OnStart(void* self, const XML_Char* name, const XML_Char** attributes);
  static void XMLCALL OnEnd(void* self, const XML_Char* name);
  static void XMLCALL OnText(void* self, const XML_Char* text, int length);
  static void XMLCALL OnDoctype(void* self, const XML_Char* name, const XML_Char* systemId,
                                const XML_Char* publicId, int hasInternalSubset);
  static void XMLCALL OnDeclaration(void* self, const XML_Char* version, const XML_Char* encoding,
                                    int standalone);

  std::uint32_t Offset() const;
  TByteRange EventRange() const;
  [[noreturn]] void RaiseParserError() const;

  // Runs one event. No exception may pass through the parser's frames, so what it throws is kept
  // until the parser has returned.
  template <class TEvent>
  void Guarded(TEvent event) {
    if (FFailure)
      return;
    try {
      event();
    } catch (...) {
      FFailure = std::current_exception();
      XML_StopParser(FParser.get(), XML_FALSE);
    }
  }

  std::unique_ptr<std::remove_pointer_t<XML_Parser>, TCloser> FParser;
  const TXmlTree* FTree = nullptr;
  TXmlTreeBuilder* FBuilder = nullptr;
  std::uint32_t FBaseOffset = 0;
  std::string FDeclaredEncoding;
  std::exception_ptr FFailure;
};

} // namespace workbench
