// A value that elements of equal content share, whatever their layout.
#pragma once

#include "workbench/xml/xml_tree.h"

#include <cstdint>
#include <string_view>

namespace workbench {

/// Computes the fingerprint of one element while its parts pass by: name and attributes first, then
/// each child, then the text. Attributes count in any order.
class TXmlFingerprint {
public:
  explicit TXmlFingerprint(const TXmlName& name);
  void AddAttribute(const TXmlName& name, std::string_view value);
  void AddChild(std::uint64_t fingerprint);
  /// The finished value.
  std::uint64_t Finish(std::string_view text) const;

private:
  std::uint64_t FAttributes = 0;
  std::uint64_t FChildren;
};

/// The fingerprint of an element with all that stands inside it.
std::uint64_t FingerprintOf(TXmlElement& element);

} // namespace workbench
