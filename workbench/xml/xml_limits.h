// What an XML document may hold at most.
#pragma once

#include <cstddef>

namespace workbench {

/// Far beyond what a project needs, far below what hurts. Held while the bytes are read, before
/// memory is spent on a tree.
struct TXmlLimits {
  std::size_t Bytes = std::size_t{256} * 1024 * 1024;
  unsigned Depth = 256;
  unsigned Attributes = 1024; ///< of one element
  std::size_t AttributeValueBytes = std::size_t{10} * 1024 * 1024;
  std::size_t NameBytes = 50'000;
};

} // namespace workbench
