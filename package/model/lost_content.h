// Finds what a section holds that a save will not write again, and tells the user before it is
// lost.
#pragma once

#include "package/host/api/ideservices.h"
#include "package/host/api/xml.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace deployment {

/// Looks at the elements of one section while they are read.
class TLostContent {
public:
  /// `messages` gets one warning per find, up to a number that a person reads.
  explicit TLostContent(IOTAMessageServices& messages) : FMessages(messages) {}

  void CheckSection(IXMLNode& node);
  void CheckFile(IXMLNode& node);
  void CheckClass(IXMLNode& node);
  void CheckProjectRoot(IXMLNode& node);
  /// `replaced` entries were replaced by a later one under the same key.
  void AddReplaced(std::size_t replaced, const IXMLNode& section);
  /// Tells how many finds were not told one by one.
  void Finish(const IXMLNode& section);

private:
  using TNames = std::span<const std::string_view>;

  void CheckAttributes(const IXMLNode& node, TNames known);
  void CheckEntry(IXMLNode& node, TNames attributes, TNames values);
  void CheckPlatform(IXMLNode& node, TNames values);
  void CheckValue(IXMLNode& value);
  void Report(const std::string& text, const IXMLNode& node);

  IOTAMessageServices& FMessages;
  std::size_t FFinds = 0;
};

} // namespace deployment
