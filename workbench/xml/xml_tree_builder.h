// Turns the events of an XML parser into elements of a tree, within limits.
#pragma once

#include "workbench/xml/xml_fingerprint.h"
#include "workbench/xml/xml_limits.h"
#include "workbench/xml/xml_record.h"
#include "workbench/xml/xml_tree.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace workbench {

/// Where the large section of a document stands: the first child of that name in a container that
/// is a child of the root. The section's name is compared ignoring case.
struct TXmlSectionPath {
  std::string_view Container;
  std::string_view Name;
};

/// A child of the section: where its bytes stand, and its fingerprint.
struct TSectionChild {
  TByteRange Range;
  std::uint64_t Fingerprint = 0;
};

/// The large section of a document. What stands inside its children is kept as records.
struct TXmlSection {
  TXmlElement* Element = nullptr; ///< null when the document has no such section
  std::vector<TSectionChild> Children;
  std::unique_ptr<TArena> Arena; ///< of the children and their records
};

/// Builds either a whole document, or the content of one element. Names are checked for declared
/// prefixes; a broken limit throws TInputError.
class TXmlTreeBuilder {
public:
  /// For a whole document.
  TXmlTreeBuilder(TXmlTree& tree, const TXmlLimits& limits, const TXmlSectionPath& path,
                  TXmlSection& section);
  /// For the content of an element that stands in the tree; its bytes were read before.
  explicit TXmlTreeBuilder(TXmlElement& contentOf);

  /// A start tag: where its bytes stand, its name, and attribute names and values by turns up to a
  /// null.
  void Start(TByteRange tag, std::string_view name, const char* const* attributes);
  /// True when End needs to know where the innermost element ends.
  bool NeedsEnd() const { return FFrames.back().Element != nullptr; }
  /// The end of the innermost element, whose last byte stands before `end`.
  void End(std::uint32_t end);
  void Text(std::string_view text) { FText += text; }

private:
  struct TFrame {
    TXmlElement* Element; // null while the element is only recorded
    TArena* Arena;        // for what stands inside the element
    TXmlFingerprint Fingerprint;
    std::size_t TextStart; // of the element's text in FText
    std::size_t RunStart;  // of its text behind the last child
    bool HasChildren;
  };
  struct TPrefix {
    std::size_t Level;
    std::string_view Name; // kept by the tree
  };

  std::size_t CheckLimits(TByteRange tag, std::string_view name, const char* const* attributes);
  bool IsInsideSectionChild() const;
  bool IsSection(const TFrame& frame) const;
  void CheckName(std::string_view name) const;
  void StartElement(TByteRange tag, const TXmlName& name, const char* const* attributes,
                    std::size_t count);
  void StartRecorded(TByteRange tag, const TXmlName& name, const char* const* attributes,
                     std::size_t count);
  void StoreAttributes(TXmlElement& element, TFrame& frame, TArena& arena,
                       const char* const* attributes, std::size_t count);
  void EndElement(const TFrame& frame, std::string_view text, std::uint32_t end);
  void DropBlankRun();
  void CheckPrefixes(TByteRange tag, std::string_view name, const char* const* attributes);
  bool IsDeclared(std::string_view prefix) const;
  const TXmlName& Intern(std::string_view name);
  [[noreturn]] void Fail(std::uint32_t offset, const std::string& text) const;

  TXmlTree& FTree;
  const TXmlLimits FLimits;
  const TXmlSectionPath FPath;
  TXmlSection* FSection; // null while content is read
  TXmlElement* FContentOf;
  TXmlRecorder FRecorder;
  std::vector<TFrame> FFrames;
  std::string FText;
  std::vector<TPrefix> FPrefixes;                               // the innermost last
  std::unordered_map<std::string_view, unsigned> FPrefixCounts; // how often each is declared
  bool FSeesPrefixes = false;
  std::uint32_t FTagStart = 0; // of the element that is read
  std::array<const TXmlName*, 64> FNameCache{};
};

} // namespace workbench
