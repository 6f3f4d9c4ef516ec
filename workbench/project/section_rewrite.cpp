#include "workbench/project/section_rewrite.h"

#include "workbench/xml/xml_fingerprint.h"

#include <algorithm>
#include <utility>

namespace workbench {
namespace {

// The layout that the section's children have, or, without any, the one that follows from where
// the section stands.
TChildLayout LayoutOfChildren(const TSourceText& source, TXmlElement& section,
                              const std::vector<TSectionChild>& children) {
  const std::uint32_t start = section.Range().Start;
  const std::string outer = source.IndentationAt(start).value_or("");
  TChildLayout result;
  result.Layout.LineEnd = source.LineEndNear(start);
  if (TXmlElement* parent = section.Parent()) {
    const std::string beyond = source.IndentationAt(parent->Range().Start).value_or("");
    if (outer.size() > beyond.size() && outer.starts_with(beyond))
      result.Layout.Indent = outer.substr(beyond.size());
  }
  result.Indentation = outer + result.Layout.Indent;
  if (children.empty())
    return result;
  const auto indentation = source.IndentationAt(children.front().Range.Start);
  if (!indentation) {
    result.Layout.LineEnd.clear();
    return result;
  }
  result.Indentation = *indentation;
  if (indentation->size() > outer.size() && indentation->starts_with(outer))
    result.Layout.Indent = indentation->substr(outer.size());
  return result;
}

} // namespace

TSectionRewrite::TSectionRewrite(const TSourceText& source, TXmlElement& section,
                                 const std::vector<TSectionChild>& oldChildren)
    : FSource(source), FSection(section), FOld(oldChildren),
      FLayout(LayoutOfChildren(source, section, oldChildren)), FTaken(oldChildren.size(), false) {}

void TSectionRewrite::ChildDone(TXmlElement& child) {
  TNewChild entry;
  entry.Old = FindOld(FingerprintOf(child));
  if (!entry.Old)
    AppendXmlElement(entry.Markup, child, FLayout.Layout, FLayout.Indentation);
  FNew.push_back(std::move(entry));
}

std::optional<std::uint32_t> TSectionRewrite::FindOld(std::uint64_t fingerprint) {
  // Nearly always the next one; the index is made when that fails for the first time.
  if (FNextOld < FOld.size() && !FTaken[FNextOld] && FOld[FNextOld].Fingerprint == fingerprint) {
    FTaken[FNextOld] = true;
    return static_cast<std::uint32_t>(FNextOld++);
  }
  if (!FHasIndex)
    BuildOldIndex();
  const auto [first, last] = FIndex.equal_range(fingerprint);
  if (first == last)
    return std::nullopt;
  // Entries of one fingerprint are interchangeable; taking one out of the index keeps a list of
  // many equal entries linear.
  auto found = first;
  while (found != last && FTaken[found->second])
    found = FIndex.erase(found);
  if (found == last)
    return std::nullopt;
  const std::uint32_t old = found->second;
  FIndex.erase(found);
  FTaken[old] = true;
  FNextOld = old + 1;
  return old;
}

void TSectionRewrite::BuildOldIndex() {
  FHasIndex = true;
  FIndex.reserve(FOld.size());
  for (std::size_t old = 0; old < FOld.size(); ++old) {
    if (!FTaken[old])
      FIndex.emplace(FOld[old].Fingerprint, static_cast<std::uint32_t>(old));
  }
}

bool TSectionRewrite::HasSameAttributes(TXmlElement& newSection) const {
  if (newSection.AttributeCount() != FSection.AttributeCount())
    return false;
  for (std::size_t i = 0; i < newSection.AttributeCount(); ++i) {
    if (FSection.GetAttribute(newSection.AttributeName(i)) != newSection.AttributeValue(i))
      return false;
  }
  return true;
}

bool TSectionRewrite::SaysTheSame(TXmlElement& newSection) const {
  if (FNew.size() != FOld.size() || !HasSameAttributes(newSection))
    return false;
  for (std::size_t i = 0; i < FNew.size(); ++i) {
    if (FNew[i].Old != i)
      return false;
  }
  return true;
}

// Of the children that say the same as before, those that can stay where they stand: the longest
// run whose old order is the new one. The others are moved.
std::vector<bool> TSectionRewrite::KeptInPlace() const {
  constexpr std::size_t None = static_cast<std::size_t>(-1);
  std::vector<std::size_t> ends; // position of the smallest end of a run of each length
  std::vector<std::size_t> before(FNew.size(), None);
  for (std::size_t i = 0; i < FNew.size(); ++i) {
    if (!FNew[i].Old)
      continue;
    const auto place = std::lower_bound(
        ends.begin(), ends.end(), *FNew[i].Old,
        [this](std::size_t end, std::uint32_t old) { return *FNew[end].Old < old; });
    if (place != ends.begin())
      before[i] = *(place - 1);
    if (place == ends.end())
      ends.push_back(i);
    else
      *place = i;
  }
  std::vector<bool> kept(FNew.size(), false);
  for (std::size_t i = ends.empty() ? None : ends.back(); i != None; i = before[i])
    kept[i] = true;
  return kept;
}

bool TSectionRewrite::HoldsMoreThanChildren() const {
  for (std::size_t old = 0; old < FOld.size(); ++old) {
    if (!FSource.IsBlank(GapBefore(old)))
      return true;
  }
  return !FSource.IsBlank(Rest());
}

void TSectionRewrite::AppendTo(TTextPieces& pieces, TXmlElement& newSection) {
  const TByteRange range = FSection.Range();
  if (FNew.empty() && !HoldsMoreThanChildren()) {
    std::string markup;
    AppendXmlTagStart(markup, newSection);
    AppendOwned(pieces, markup + "/>");
    return;
  }
  if (HasSameAttributes(newSection) && FSection.HasEndTag()) {
    pieces.Borrow(FSource.Bytes({range.Start, FSection.ContentStart()}));
  } else {
    std::string markup;
    AppendXmlTagStart(markup, newSection);
    AppendOwned(pieces, markup + ">");
  }
  AppendChildren(pieces);
  const TByteRange rest = Rest();
  const bool hasRest = FSection.HasEndTag() && (!FOld.empty() || !FSource.IsBlank(rest));
  if (hasRest) {
    pieces.Borrow(FSource.Bytes(rest));
  } else {
    std::string line;
    AppendXmlLine(line, FLayout.Layout, FSource.IndentationAt(range.Start).value_or(""));
    AppendOwned(pieces, std::move(line));
  }
  if (FSection.HasEndTag())
    pieces.Borrow(FSource.Bytes({rest.End, range.End}));
  else
    AppendOwned(pieces, "</" + std::string(FSection.NodeName()) + ">");
}

void TSectionRewrite::AppendChildren(TTextPieces& pieces) {
  const std::vector<bool> kept = KeptInPlace();
  std::size_t firstOld = 0;
  std::size_t firstNew = 0;
  for (std::size_t i = 0; i < FNew.size(); ++i) {
    if (!kept[i])
      continue;
    const std::size_t old = *FNew[i].Old;
    AppendGap(pieces, firstOld, old, firstNew, i);
    pieces.Borrow(FSource.Bytes(GapBefore(old)));
    pieces.Borrow(FSource.Bytes(FOld[old].Range));
    firstOld = old + 1;
    firstNew = i + 1;
  }
  AppendGap(pieces, firstOld, FOld.size(), firstNew, FNew.size());
}

TByteRange TSectionRewrite::GapBefore(std::size_t old) const {
  const std::uint32_t start = old == 0 ? FSection.ContentStart() : FOld[old - 1].Range.End;
  return {start, FOld[old].Range.Start};
}

// What stands behind the last child.
TByteRange TSectionRewrite::Rest() const {
  const std::uint32_t start = FOld.empty() ? FSection.ContentStart() : FOld.back().Range.End;
  return {start, FSource.EndTagStart(FSection)};
}

// Between two children that stay: the new children take the places of the old ones by turns, so
// that a changed entry keeps the comment in front of it. A comment in front of a removed entry
// stays too; blank lines around it go.
void TSectionRewrite::AppendGap(TTextPieces& pieces, std::size_t firstOld, std::size_t lastOld,
                                std::size_t firstNew, std::size_t lastNew) {
  while (firstOld < lastOld) {
    const TByteRange gap = GapBefore(firstOld++);
    if (firstNew < lastNew) {
      pieces.Borrow(FSource.Bytes(gap));
      AppendNew(pieces, firstNew++, /*withLine=*/false);
    } else if (!FSource.IsBlank(gap)) {
      pieces.Borrow(FSource.Bytes({gap.Start, FSource.BlankRunBefore(gap.End)}));
    }
  }
  while (firstNew < lastNew)
    AppendNew(pieces, firstNew++, /*withLine=*/true);
}

void TSectionRewrite::AppendNew(TTextPieces& pieces, std::size_t position, bool withLine) {
  TNewChild& entry = FNew[position];
  std::string markup;
  if (withLine)
    AppendXmlLine(markup, FLayout.Layout, FLayout.Indentation);
  markup += entry.Markup;
  AppendOwned(pieces, std::move(markup));
  if (entry.Old)
    pieces.Borrow(FSource.Bytes(FOld[*entry.Old].Range));
}

void TSectionRewrite::AppendOwned(TTextPieces& pieces, std::string markup) const {
  pieces.Own(EncodeMarkup(std::move(markup), FSource.Encoding()));
}

} // namespace workbench
