#include "workbench/xml/xml_reader.h"

#include <cstring>
#include <new>
#include <utility>

namespace workbench {
namespace {

void RefuseEmpty(std::string_view bytes, const std::string& fileName) {
  if (bytes.starts_with("\xEF\xBB\xBF"))
    bytes.remove_prefix(3);
  if (bytes.find_first_not_of(" \t\r\n") == std::string_view::npos)
    throw deployment::TInputError("the file is empty", {fileName, 1});
  if (bytes.find_first_not_of('\0') == std::string_view::npos)
    throw deployment::TInputError("the file holds nothing but zero bytes", {fileName, 1});
}

void RefuseLarge(std::size_t size, const TXmlLimits& limits, const std::string& fileName) {
  if (size > limits.Bytes)
    throw deployment::TInputError(
        "the file is larger than " + std::to_string(limits.Bytes) + " bytes", {fileName, 0});
}

} // namespace

TXmlReader::TXmlReader(const TInput& input, std::string fileName, const TXmlSectionPath& section,
                       const TXmlLimits& limits)
    : FTree(std::move(fileName)) {
  char* memory = nullptr;
  // An input that looks for the end of its file asks for one byte more than there are.
  const std::size_t size = input([&](std::size_t wanted) {
    RefuseLarge(wanted > 0 ? wanted - 1 : 0, limits, FTree.FileName());
    memory = FParser.Reserve(wanted);
    return memory;
  });
  RefuseLarge(size, limits, FTree.FileName());
  FTree.SetSource({memory, size}, *this);
  RefuseEmpty(Bytes(), FTree.FileName());
  if (const auto offset = FindHalfCharacter(Bytes()))
    throw deployment::TInputError(
        "not well-formed XML: half of a character (a surrogate without its other one)",
        {FTree.FileName(), FTree.LineOf(static_cast<std::uint32_t>(*offset))});
  TXmlTreeBuilder builder(FTree, limits, section, FSection);
  FParser.Parse(FTree, builder, size);
  FEncoding = DetectEncoding(Bytes(), FParser.DeclaredEncoding());
}

TXmlReader::TXmlReader(std::string_view bytes, std::string fileName, const TXmlSectionPath& section,
                       const TXmlLimits& limits)
    : TXmlReader(
          [bytes](const std::function<char*(std::size_t)>& reserve) {
            std::memcpy(reserve(bytes.size()), bytes.data(), bytes.size());
            return bytes.size();
          },
          std::move(fileName), section, limits) {}

void TXmlReader::ForgetSection() {
  if (!FSection.Arena || !FSection.Element->FLastChild)
    return;
  FSection.Element->FLastChild = nullptr;
  FSection.Element->FContent = TXmlElement::TContent::Forgotten;
  FSection.Arena.reset();
  FLookedInto = nullptr;
  FContentArena.Clear();
}

void TXmlReader::MakeContent(TXmlElement& element) {
  if (element.FContent == TXmlElement::TContent::Recorded)
    MakeFromRecord(element);
  else
    ReadAgain(element);
}

void TXmlReader::MakeFromRecord(TXmlElement& element) {
  if (FLookedInto) {
    FLookedInto->FLastChild = nullptr;
    FLookedInto->FContent = TXmlElement::TContent::Recorded;
    FContentArena.WindBack();
  }
  FLookedInto = &element;
  element.FContent = TXmlElement::TContent::Complete;
  TXmlRecordReader record(element.FRecord);
  TXmlElement* parent = &element;
  while (!record.AtEnd()) {
    const TXmlName* name = nullptr;
    std::uint32_t offset = 0;
    std::size_t attributes = 0;
    if (!record.TakeStart(name, offset, attributes)) {
      parent->FText = record.TakeEnd();
      parent = parent->FParent;
      continue;
    }
    auto* child = FContentArena.Make<TXmlElement>(FTree, parent, *name);
    child->FStart = offset;
    child->TakeAttributes(record, attributes, FContentArena);
    parent->Append(*child);
    parent = child;
  }
}

void TXmlReader::ReadAgain(TXmlElement& element) {
  element.FContent = TXmlElement::TContent::Complete;
  const TByteRange range = element.Range();
  const std::size_t size = range.End - range.Start;
  TXmlParser parser(EncodingName(FEncoding));
  std::memcpy(parser.Reserve(size), Bytes().data() + range.Start, size);
  TXmlTreeBuilder builder(element);
  parser.Parse(FTree, builder, size, range.Start);
}

} // namespace workbench
