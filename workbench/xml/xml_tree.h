// A light XML tree: elements with their attributes and text, each knowing where it stands in the
// bytes that it was read from. Comments and blank text are not in the tree; they stay in the bytes.
#pragma once

#include "package/host/api/xml.h"
#include "workbench/xml/arena.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace workbench {

class TXmlTree;
class TXmlElement;

/// A piece of the bytes that a tree was read from.
struct TByteRange {
  std::uint32_t Start = 0;
  std::uint32_t End = 0; ///< behind the last byte
};

/// A name that occurs in a tree, kept once.
struct TXmlName {
  std::string_view Text;
  std::size_t Hash;
};

/// Makes the children of an element when somebody asks for them. Implemented by the reader of a
/// document.
class IXmlContentSource {
public:
  virtual ~IXmlContentSource() = default;
  /// Gives the element its children.
  virtual void MakeContent(TXmlElement& element) = 0;
};

/// Takes the children of a root one after the other, while the root is being written.
class IXmlChildSink {
public:
  virtual ~IXmlChildSink() = default;
  /// The child is complete; it is forgotten afterwards.
  virtual void ChildDone(TXmlElement& child) = 0;
};

/// One element. Lives in an arena of its tree.
class TXmlElement final : public deployment::IXMLNode {
public:
  TXmlElement(TXmlTree& tree, TXmlElement* parent, const TXmlName& name)
      : FTree(&tree), FParent(parent), FName(&name) {}

  std::string_view NodeName() const override { return FName->Text; }
  std::optional<std::string_view> GetAttribute(std::string_view name) const override;
  std::size_t AttributeCount() const override { return FAttributeCount; }
  std::string_view AttributeName(std::size_t index) const override {
    return FAttributes[index].Name->Text;
  }
  void SetAttribute(std::string_view name, std::string_view value) override;
  std::string_view Text() const override { return FText; }
  void SetText(std::string_view text) override;
  bool HasChildren() const override { return FLastChild || FContent != TContent::Complete; }
  TXmlElement* FirstChild() override;
  TXmlElement* NextSibling() override;
  TXmlElement& AddChild(std::string_view name) override;
  void RemoveChildren() override;
  void RemoveAttributes() override;
  deployment::TErrorPlace Place() const override;

  const TXmlName& Name() const { return *FName; }
  const TXmlName& AttributeNameAt(std::size_t index) const { return *FAttributes[index].Name; }
  std::string_view AttributeValue(std::size_t index) const { return FAttributes[index].Value; }
  TXmlElement* Parent() const { return FParent; }
  TXmlTree& Tree() const { return *FTree; }
  /// From "<" of the start tag to behind ">" of the end tag.
  TByteRange Range() const { return {FStart, FEnd}; }
  /// Behind the start tag; equal to the end of the range for an element without end tag.
  std::uint32_t ContentStart() const { return FStart + FStartTagLength; }
  /// False for an element that was added after reading.
  bool StandsInSource() const { return FEnd != 0; }
  bool HasEndTag() const { return ContentStart() != FEnd; }

private:
  friend class TXmlTree;
  friend class TXmlTreeBuilder;
  friend class TXmlReader;

  struct TAttribute {
    const TXmlName* Name;
    std::string_view Value;
  };
  // Whether the children are there (the rule), kept as a record, or to be read from the bytes.
  enum class TContent : std::uint8_t { Complete, Recorded, Forgotten };

  void TakeAttributes(class TXmlRecordReader& record, std::size_t count, TArena& arena);
  TXmlElement* FirstOfRing() const { return FLastChild ? FLastChild->FNext : nullptr; }
  void Append(TXmlElement& child);

  TXmlTree* FTree;
  TXmlElement* FParent;
  // The children form a ring: the last one's successor is the first one.
  TXmlElement* FLastChild = nullptr;
  TXmlElement* FNext = nullptr;
  const TXmlName* FName;
  std::string_view FText;
  std::string_view FRecord; // of the children, while they are recorded
  TAttribute* FAttributes = nullptr;
  std::uint32_t FAttributeCount = 0;
  std::uint32_t FStart = 0;
  std::uint32_t FStartTagLength = 0;
  std::uint32_t FEnd = 0;
  TContent FContent = TContent::Complete;
};

/// Owns the elements of one document, or of a piece that is being written.
class TXmlTree {
public:
  /// `fileName` is what errors call the file.
  explicit TXmlTree(std::string fileName);
  TXmlTree(const TXmlTree&) = delete;
  TXmlTree& operator=(const TXmlTree&) = delete;

  TXmlElement& MakeRoot(std::string_view name);
  /// From now on the children of the root are handed to the sink and forgotten, each when the next
  /// one is added, so that a long list never stands in memory as elements. The sink must outlive
  /// the writing.
  void HandChildrenTo(IXmlChildSink& sink) { FChildSink = &sink; }
  /// Hands over the last child.
  void HandLastChild();
  /// Null before the root was made.
  TXmlElement* Root() const { return FRoot; }
  const std::string& FileName() const { return FFileName; }
  /// The bytes that offsets count in, and whoever makes children that are kept elsewhere. Both
  /// must outlive the tree.
  void SetSource(std::string_view bytes, IXmlContentSource& contentSource) {
    FSource = bytes;
    FContentSource = &contentSource;
  }
  std::string_view Source() const { return FSource; }
  /// Line of a byte, counted from 1. Looks at the file up to there at the first call, and at a
  /// few kilobytes afterwards.
  unsigned LineOf(std::uint32_t offset) const;

private:
  friend class TXmlElement;
  friend class TXmlTreeBuilder;
  friend class TXmlReader;

  const TXmlName& InternName(std::string_view name);

  std::string FFileName;
  std::string_view FSource;
  TArena& ArenaOf(const TXmlElement& element) { return &element == FRoot ? FLastingArena : FArena; }

  std::unordered_map<std::string_view, TXmlName> FNames;
  TArena FLastingArena; // of the names and the root
  TArena FArena;
  TXmlElement* FRoot = nullptr;
  IXmlContentSource* FContentSource = nullptr; // null for a tree that was not read
  IXmlChildSink* FChildSink = nullptr;
  mutable std::vector<unsigned> FLinesBefore; // number of line ends before each block of bytes
};

} // namespace workbench
