// Rewrites a section of a document so that only what changed differs: a child that says the same as
// before keeps its very bytes, and what stands between children stays with them.
#pragma once

#include "workbench/xml/source_text.h"
#include "workbench/xml/text_pieces.h"
#include "workbench/xml/xml_tree.h"
#include "workbench/xml/xml_tree_builder.h"
#include "workbench/xml/xml_writer.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace workbench {

/// Takes the new children of a section one by one, as a sink of the tree that is being written,
/// and compares them with the old ones.
class TSectionRewrite final : public IXmlChildSink {
public:
  /// `section` is the section as it stands in `source`, with its children in order; both must
  /// outlive the rewrite.
  TSectionRewrite(const TSourceText& source, TXmlElement& section,
                  const std::vector<TSectionChild>& oldChildren);

  void ChildDone(TXmlElement& child) override;

  /// True when the children handed over, and the attributes of `newSection`, say what the old ones
  /// said, in the same order.
  bool SaysTheSame(TXmlElement& newSection) const;

  /// Adds the rewritten section, start tag to end tag.
  void AppendTo(TTextPieces& pieces, TXmlElement& newSection);

private:
  struct TNewChild {
    std::optional<std::uint32_t> Old; // position of the old child that says the same
    std::string Markup;               // without line beginning; empty when Old is set
  };

  std::optional<std::uint32_t> FindOld(std::uint64_t fingerprint);
  void BuildOldIndex();
  bool HasSameAttributes(TXmlElement& newSection) const;
  std::vector<bool> KeptInPlace() const;
  bool HoldsMoreThanChildren() const;
  TByteRange GapBefore(std::size_t old) const;
  TByteRange Rest() const;
  void AppendChildren(TTextPieces& pieces);
  void AppendGap(TTextPieces& pieces, std::size_t firstOld, std::size_t lastOld,
                 std::size_t firstNew, std::size_t lastNew);
  void AppendNew(TTextPieces& pieces, std::size_t position, bool withLine);
  void AppendOwned(TTextPieces& pieces, std::string markup) const;

  const TSourceText& FSource;
  TXmlElement& FSection;
  const std::vector<TSectionChild>& FOld;
  TChildLayout FLayout;
  std::vector<TNewChild> FNew;
  std::size_t FNextOld = 0; // the old child that the next new one is likely to equal
  bool FHasIndex = false;
  std::unordered_multimap<std::uint64_t, std::uint32_t> FIndex;
  std::vector<bool> FTaken;
};

} // namespace workbench
