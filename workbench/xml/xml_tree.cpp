#include "workbench/xml/xml_tree.h"

#include "workbench/xml/xml_record.h"

#include <algorithm>
#include <bit>
#include <memory>
#include <new>

namespace workbench {
namespace {

constexpr std::size_t LineBlock = std::size_t{16} * 1024;

// LF, CR LF and CR each end one line. In UTF-16 a zero stands between CR and LF.
unsigned CountLineEnds(std::string_view bytes, std::size_t start, std::size_t end) {
  using namespace std::string_view_literals;
  end = std::min(end, bytes.size());
  unsigned count = 0;
  for (std::size_t i = start; i < end; ++i) {
    const bool carriageReturnAlone =
        bytes[i] == '\r' && bytes.substr(i + 1, 1) != "\n"sv && bytes.substr(i + 1, 2) != "\0\n"sv;
    if (bytes[i] == '\n' || carriageReturnAlone)
      ++count;
  }
  return count;
}

} // namespace

std::optional<std::string_view> TXmlElement::GetAttribute(std::string_view name) const {
  for (std::uint32_t i = 0; i < FAttributeCount; ++i) {
    if (FAttributes[i].Name->Text == name)
      return FAttributes[i].Value;
  }
  return std::nullopt;
}

void TXmlElement::SetAttribute(std::string_view name, std::string_view value) {
  TArena& arena = FTree->ArenaOf(*this);
  for (std::uint32_t i = 0; i < FAttributeCount; ++i) {
    if (FAttributes[i].Name->Text == name) {
      FAttributes[i].Value = arena.Keep(value);
      return;
    }
  }
  // The room for attributes is always the next power of two, so that growing needs no capacity.
  if ((FAttributeCount & (FAttributeCount - 1)) == 0) {
    const std::size_t capacity = FAttributeCount == 0 ? 1 : std::size_t{FAttributeCount} * 2;
    auto* grown = static_cast<TAttribute*>(
        arena.Allocate(capacity * sizeof(TAttribute), alignof(TAttribute)));
    std::uninitialized_copy_n(FAttributes, FAttributeCount, grown);
    FAttributes = grown;
  }
  ::new (FAttributes + FAttributeCount) TAttribute{&FTree->InternName(name), arena.Keep(value)};
  ++FAttributeCount;
}

void TXmlElement::SetText(std::string_view text) {
  FText = FTree->ArenaOf(*this).Keep(text);
}

TXmlElement* TXmlElement::FirstChild() {
  if (FContent != TContent::Complete)
    FTree->FContentSource->MakeContent(*this);
  return FirstOfRing();
}

TXmlElement* TXmlElement::NextSibling() {
  return FParent && FParent->FLastChild != this ? FNext : nullptr;
}

void TXmlElement::TakeAttributes(TXmlRecordReader& record, std::size_t count, TArena& arena) {
  if (count == 0)
    return;
  FAttributes = static_cast<TAttribute*>(
      arena.Allocate(std::bit_ceil(count) * sizeof(TAttribute), alignof(TAttribute)));
  FAttributeCount = static_cast<std::uint32_t>(count);
  for (std::size_t i = 0; i < count; ++i) {
    auto* attribute = ::new (FAttributes + i) TAttribute{};
    record.TakeAttribute(attribute->Name, attribute->Value);
  }
}

void TXmlElement::Append(TXmlElement& child) {
  child.FNext = FLastChild ? FLastChild->FNext : &child;
  if (FLastChild)
    FLastChild->FNext = &child;
  FLastChild = &child;
}

TXmlElement& TXmlElement::AddChild(std::string_view name) {
  if (FTree->FChildSink && this == FTree->FRoot)
    FTree->HandLastChild();
  FirstChild(); // what is kept elsewhere comes back before anything is put behind it
  auto* child = FTree->FArena.Make<TXmlElement>(*FTree, this, FTree->InternName(name));
  Append(*child);
  return *child;
}

void TXmlElement::RemoveChildren() {
  FContent = TContent::Complete;
  FLastChild = nullptr;
  FText = {};
}

void TXmlElement::RemoveAttributes() {
  FAttributes = nullptr;
  FAttributeCount = 0;
}

deployment::TErrorPlace TXmlElement::Place() const {
  return {FTree->FFileName, FTree->FSource.empty() ? 0 : FTree->LineOf(FStart)};
}

TXmlTree::TXmlTree(std::string fileName) : FFileName(std::move(fileName)) {}

TXmlElement& TXmlTree::MakeRoot(std::string_view name) {
  FRoot = FLastingArena.Make<TXmlElement>(*this, nullptr, InternName(name));
  return *FRoot;
}

void TXmlTree::HandLastChild() {
  if (!FChildSink || !FRoot->FLastChild)
    return;
  FChildSink->ChildDone(*FRoot->FLastChild);
  FRoot->FLastChild = nullptr;
  FArena.WindBack();
}

const TXmlName& TXmlTree::InternName(std::string_view name) {
  const auto found = FNames.find(name);
  if (found != FNames.end())
    return found->second;
  const std::string_view kept = FLastingArena.Keep(name);
  return FNames.emplace(kept, TXmlName{kept, std::hash<std::string_view>()(kept)}).first->second;
}

unsigned TXmlTree::LineOf(std::uint32_t offset) const {
  if (FLinesBefore.empty())
    FLinesBefore.push_back(0);
  const std::size_t block = offset / LineBlock;
  while (FLinesBefore.size() <= block) {
    const std::size_t start = (FLinesBefore.size() - 1) * LineBlock;
    FLinesBefore.push_back(FLinesBefore.back() + CountLineEnds(FSource, start, start + LineBlock));
  }
  return 1 + FLinesBefore[block] + CountLineEnds(FSource, block * LineBlock, offset);
}

} // namespace workbench
