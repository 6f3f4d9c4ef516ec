#include "workbench/xml/xml_tree_builder.h"

#include "package/common/case_fold.h"
#include "workbench/xml/short_text.h"

#include <algorithm>
#include <bit>
#include <new>

namespace workbench {
namespace {

// Root, container, section.
constexpr std::size_t SectionLevel = 3;

bool IsBlank(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t'; });
}

} // namespace

TXmlTreeBuilder::TXmlTreeBuilder(TXmlTree& tree, const TXmlLimits& limits,
                                 const TXmlSectionPath& path, TXmlSection& section)
    : FTree(tree), FLimits(limits), FPath(path), FSection(&section), FContentOf(nullptr) {}

TXmlTreeBuilder::TXmlTreeBuilder(TXmlElement& contentOf)
    : FTree(contentOf.Tree()), FSection(nullptr), FContentOf(&contentOf) {}

void TXmlTreeBuilder::Start(TByteRange tag, std::string_view name, const char* const* attributes) {
  FTagStart = tag.Start;
  const std::size_t count = CheckLimits(tag, name, attributes);
  const TXmlName& kept = Intern(name);
  if (FFrames.empty() && FContentOf) {
    FFrames.push_back({FContentOf, &FTree.FArena, TXmlFingerprint(kept), 0, 0, false});
    return;
  }
  if (!FFrames.empty()) {
    DropBlankRun();
    FFrames.back().HasChildren = true;
  }
  if (IsInsideSectionChild())
    StartRecorded(tag, kept, attributes, count);
  else
    StartElement(tag, kept, attributes, count);
  if (FSeesPrefixes && !FContentOf)
    CheckPrefixes(tag, name, attributes);
}

// Returns the number of attributes.
std::size_t TXmlTreeBuilder::CheckLimits(TByteRange tag, std::string_view name,
                                         const char* const* attributes) {
  const auto bytes = [](std::size_t limit) { return std::to_string(limit) + " bytes"; };
  if (FFrames.size() >= FLimits.Depth)
    Fail(tag.Start, "elements are nested deeper than " + std::to_string(FLimits.Depth) + " levels");
  if (name.size() > FLimits.NameBytes)
    Fail(tag.Start, "an element's name is longer than " + bytes(FLimits.NameBytes));
  std::size_t count = 0;
  while (attributes[2 * count])
    ++count;
  if (count > FLimits.Attributes)
    Fail(tag.Start, "element \"" + ShortText(name) + "\" has more than " +
                        std::to_string(FLimits.Attributes) + " attributes");
  // A tag within the limits cannot hold a name or value beyond them.
  if (tag.End - tag.Start <= FLimits.NameBytes)
    return count;
  for (std::size_t i = 0; i < count; ++i) {
    const std::string_view attribute = attributes[2 * i];
    if (attribute.size() > FLimits.NameBytes)
      Fail(tag.Start, "an attribute's name is longer than " + bytes(FLimits.NameBytes));
    if (std::string_view(attributes[2 * i + 1]).size() > FLimits.AttributeValueBytes)
      Fail(tag.Start, "attribute \"" + ShortText(attribute) + "\" is longer than " +
                          bytes(FLimits.AttributeValueBytes));
  }
  return count;
}

bool TXmlTreeBuilder::IsInsideSectionChild() const {
  return FSection && FSection->Element && FFrames.size() > SectionLevel &&
         FFrames[SectionLevel - 1].Element == FSection->Element;
}

void TXmlTreeBuilder::StartElement(TByteRange tag, const TXmlName& name,
                                   const char* const* attributes, std::size_t count) {
  TArena& arena = FFrames.empty() ? FTree.FArena : *FFrames.back().Arena;
  TXmlElement* parent = FFrames.empty() ? nullptr : FFrames.back().Element;
  auto* element = arena.Make<TXmlElement>(FTree, parent, name);
  element->FStart = tag.Start;
  element->FStartTagLength = tag.End - tag.Start;
  if (parent)
    parent->Append(*element);
  else
    FTree.FRoot = element;
  TFrame frame{element, &arena, TXmlFingerprint(name), FText.size(), FText.size(), false};
  StoreAttributes(*element, frame, arena, attributes, count);
  const bool isSection = FSection && !FSection->Element && FFrames.size() + 1 == SectionLevel &&
                         parent->NodeName() == FPath.Container &&
                         deployment::SameText(name.Text, FPath.Name);
  if (isSection) {
    FSection->Element = element;
    FSection->Arena = std::make_unique<TArena>();
    frame.Arena = FSection->Arena.get();
  }
  FFrames.push_back(frame);
}

void TXmlTreeBuilder::StoreAttributes(TXmlElement& element, TFrame& frame, TArena& arena,
                                      const char* const* attributes, std::size_t count) {
  if (count == 0)
    return;
  using TAttribute = TXmlElement::TAttribute;
  auto* stored = static_cast<TAttribute*>(
      arena.Allocate(std::bit_ceil(count) * sizeof(TAttribute), alignof(TAttribute)));
  for (std::size_t i = 0; i < count; ++i) {
    const TXmlName& name = Intern(attributes[2 * i]);
    ::new (stored + i) TAttribute{&name, arena.Keep(attributes[2 * i + 1])};
    frame.Fingerprint.AddAttribute(name, stored[i].Value);
  }
  element.FAttributes = stored;
  element.FAttributeCount = static_cast<std::uint32_t>(count);
}

void TXmlTreeBuilder::StartRecorded(TByteRange tag, const TXmlName& name,
                                    const char* const* attributes, std::size_t count) {
  TFrame frame{nullptr, nullptr, TXmlFingerprint(name), FText.size(), FText.size(), false};
  FRecorder.Start(name, tag.Start, count);
  for (std::size_t i = 0; i < count; ++i) {
    const TXmlName& attribute = Intern(attributes[2 * i]);
    const std::string_view value = attributes[2 * i + 1];
    FRecorder.Attribute(attribute, value);
    frame.Fingerprint.AddAttribute(attribute, value);
  }
  FFrames.push_back(frame);
}

void TXmlTreeBuilder::End(std::uint32_t end) {
  const TFrame frame = FFrames.back();
  // What stands between comments of a section without entries is layout, too.
  if (frame.HasChildren || IsSection(frame))
    DropBlankRun();
  const std::string_view text = std::string_view(FText).substr(frame.TextStart);
  while (!FPrefixes.empty() && FPrefixes.back().Level == FFrames.size()) {
    --FPrefixCounts[FPrefixes.back().Name];
    FPrefixes.pop_back();
  }
  FFrames.pop_back();
  if (!frame.Element) {
    FRecorder.End(text);
    FFrames.back().Fingerprint.AddChild(frame.Fingerprint.Finish(text));
  } else {
    EndElement(frame, text, end);
  }
  FText.resize(frame.TextStart);
  if (!FFrames.empty())
    FFrames.back().RunStart = FText.size();
}

bool TXmlTreeBuilder::IsSection(const TFrame& frame) const {
  const TXmlElement* section = FSection ? FSection->Element : FContentOf;
  return frame.Element && frame.Element == section;
}

void TXmlTreeBuilder::EndElement(const TFrame& frame, std::string_view text, std::uint32_t end) {
  TXmlElement& element = *frame.Element;
  // The text is kept with the element: what stands inside the section can be forgotten, it cannot.
  element.FText = (FFrames.empty() ? FTree.FArena : *FFrames.back().Arena).Keep(text);
  element.FEnd = end;
  if (!FSection || element.FParent != FSection->Element || !element.FParent)
    return;
  FSection->Children.push_back({element.Range(), frame.Fingerprint.Finish(text)});
  if (FRecorder.Record().empty())
    return;
  element.FRecord = frame.Arena->Keep(FRecorder.Record());
  element.FContent = TXmlElement::TContent::Recorded;
  FRecorder.Clear();
}

// Blank text around child elements is layout, not content.
void TXmlTreeBuilder::DropBlankRun() {
  const std::size_t start = FFrames.back().RunStart;
  if (IsBlank(std::string_view(FText).substr(start)))
    FText.resize(start);
}

void TXmlTreeBuilder::CheckPrefixes(TByteRange tag, std::string_view name,
                                    const char* const* attributes) {
  constexpr std::string_view Declaration = "xmlns:";
  for (std::size_t i = 0; attributes[i]; i += 2) {
    const std::string_view attribute = attributes[i];
    if (!attribute.starts_with(Declaration))
      continue;
    const std::string_view declared = Intern(attribute).Text;
    FPrefixes.push_back({FFrames.size(), declared.substr(Declaration.size())});
    ++FPrefixCounts[FPrefixes.back().Name];
  }
  const auto check = [this, tag](std::string_view qualified) {
    const std::size_t colon = qualified.find(':');
    if (colon != std::string_view::npos && !IsDeclared(qualified.substr(0, colon)))
      Fail(tag.Start,
           "not well-formed XML: the prefix of \"" + ShortText(qualified) + "\" is not declared");
  };
  check(name);
  for (std::size_t i = 0; attributes[i]; i += 2)
    check(attributes[i]);
}

bool TXmlTreeBuilder::IsDeclared(std::string_view prefix) const {
  if (prefix == "xml" || prefix == "xmlns")
    return true;
  const auto found = FPrefixCounts.find(prefix);
  return found != FPrefixCounts.end() && found->second > 0;
}

// The same dozen names make up nearly every file; the cache answers for them without hashing.
const TXmlName& TXmlTreeBuilder::Intern(std::string_view name) {
  const std::size_t first = static_cast<unsigned char>(name.front());
  const std::size_t last = static_cast<unsigned char>(name.back());
  const std::size_t slot = (name.size() * 7 + first * 3 + last) % FNameCache.size();
  if (FNameCache[slot] && FNameCache[slot]->Text == name)
    return *FNameCache[slot];
  CheckName(name);
  FNameCache[slot] = &FTree.InternName(name);
  if (name.find(':') != std::string_view::npos)
    FSeesPrefixes = true;
  return *FNameCache[slot];
}

// The parser refuses these letters in names of UTF-8 and lets them pass in other encodings, so that
// what is written of them could not be read again.
void TXmlTreeBuilder::CheckName(std::string_view name) const {
  for (const std::string_view letter : {"\u00AA", "\u00B5", "\u00BA"}) {
    if (name.find(letter) != std::string_view::npos)
      Fail(FTagStart, "not well-formed XML: not well-formed (invalid token)");
  }
}

void TXmlTreeBuilder::Fail(std::uint32_t offset, const std::string& text) const {
  throw deployment::TInputError(text, {FTree.FileName(), FTree.LineOf(offset)});
}

} // namespace workbench
