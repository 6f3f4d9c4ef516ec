#include "workbench/xml/xml_parser.h"

#include "workbench/xml/short_text.h"

#include <algorithm>
#include <new>

namespace workbench {

TXmlParser::TXmlParser(const char* encodingName) : FParser(XML_ParserCreate(encodingName)) {
  if (!FParser)
    throw std::bad_alloc();
  XML_SetUserData(FParser.get(), this);
  XML_SetElementHandler(FParser.get(), OnStart, OnEnd);
  XML_SetCharacterDataHandler(FParser.get(), OnText);
  XML_SetStartDoctypeDeclHandler(FParser.get(), OnDoctype);
  XML_SetXmlDeclHandler(FParser.get(), OnDeclaration);
}

char* TXmlParser::Reserve(std::size_t size) {
  // For no bytes at all the parser would give no memory, and nothing to tell that from a failure.
  const int wanted = static_cast<int>(std::max<std::size_t>(size, 1));
  auto* memory = static_cast<char*>(XML_GetBuffer(FParser.get(), wanted));
  if (!memory)
    throw std::bad_alloc();
  return memory;
}

void TXmlParser::Parse(const TXmlTree& tree, TXmlTreeBuilder& builder, std::size_t size,
                       std::uint32_t baseOffset) {
  FTree = &tree;
  FBuilder = &builder;
  FBaseOffset = baseOffset;
  const XML_Status status =
      XML_ParseBuffer(FParser.get(), static_cast<int>(size), /*isFinal=*/XML_TRUE);
  if (FFailure)
    std::rethrow_exception(FFailure);
  if (status != XML_STATUS_OK)
    RaiseParserError();
}

void XMLCALL TXmlParser::OnStart(void* self, const XML_Char* name, const XML_Char** attributes) {
  auto* parser = static_cast<TXmlParser*>(self);
  parser->Guarded([=] { parser->FBuilder->Start(parser->EventRange(), name, attributes); });
}

void XMLCALL TXmlParser::OnEnd(void* self, const XML_Char* /*name*/) {
  auto* parser = static_cast<TXmlParser*>(self);
  parser->Guarded([=] {
    TXmlTreeBuilder& builder = *parser->FBuilder;
    builder.End(builder.NeedsEnd() ? parser->EventRange().End : 0);
  });
}

void XMLCALL TXmlParser::OnText(void* self, const XML_Char* text, int length) {
  auto* parser = static_cast<TXmlParser*>(self);
  parser->Guarded([=] { parser->FBuilder->Text({text, static_cast<std::size_t>(length)}); });
}

void XMLCALL TXmlParser::OnDoctype(void* self, const XML_Char* /*name*/,
                                   const XML_Char* /*systemId*/, const XML_Char* /*publicId*/,
                                   int /*hasInternalSubset*/) {
  auto* parser = static_cast<TXmlParser*>(self);
  parser->Guarded([=] {
    throw deployment::TInputError(
        "a document type declaration (DOCTYPE) is not allowed in such a file",
        {parser->FTree->FileName(), parser->FTree->LineOf(parser->Offset())});
  });
}

void XMLCALL TXmlParser::OnDeclaration(void* self, const XML_Char* /*version*/,
                                       const XML_Char* encoding, int /*standalone*/) {
  auto* parser = static_cast<TXmlParser*>(self);
  parser->Guarded([=] {
    if (encoding)
      parser->FDeclaredEncoding = encoding;
  });
}

std::uint32_t TXmlParser::Offset() const {
  return FBaseOffset + static_cast<std::uint32_t>(XML_GetCurrentByteIndex(FParser.get()));
}

TByteRange TXmlParser::EventRange() const {
  const std::uint32_t start = Offset();
  return {start, start + static_cast<std::uint32_t>(XML_GetCurrentByteCount(FParser.get()))};
}

void TXmlParser::RaiseParserError() const {
  const XML_Error code = XML_GetErrorCode(FParser.get());
  const auto offset =
      static_cast<std::uint32_t>(std::max<XML_Index>(XML_GetCurrentByteIndex(FParser.get()), 0));
  std::string text = std::string("not well-formed XML: ") + XML_ErrorString(code);
  if (code == XML_ERROR_UNKNOWN_ENCODING || code == XML_ERROR_INCORRECT_ENCODING)
    text += " (the file declares \"" + ShortText(FDeclaredEncoding) + "\")";
  throw deployment::TInputError(text, {FTree->FileName(), FTree->LineOf(FBaseOffset + offset)});
}

} // namespace workbench
