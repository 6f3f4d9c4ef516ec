// A reference that is more than a name: "$(Name.Member(...))", "$([Type]::Function(...))".
#pragma once

#include "workbench/msbuild/msbuild_properties.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// Reads and evaluates the text between "$(" and ")". Whatever is not in the table of functions
/// has no known value.
class TReferenceReader {
public:
  /// `depth` counts the references around this one. All must outlive the reader.
  TReferenceReader(const TPropertyTable& properties, std::string_view body,
                   const deployment::IXMLNode& node, unsigned depth)
      : FProperties(properties), FBody(body), FNode(node), FDepth(depth) {}

  /// The value as text with its escapes.
  TExpanded Read();

private:
  void ReadStart();
  void ReadRegistry();
  void ReadMembers();
  void Call(std::string_view owner, std::string_view name, std::string_view shown);
  std::vector<TPropertyValue> ReadArguments(char closing);
  TPropertyValue ReadArgument(char closing);
  std::string_view ReadName();
  void SkipBlanks();
  char Present() const { return FNext < FBody.size() ? FBody[FNext] : '\0'; }
  void Expect(std::string_view text);
  void NotKnown(const std::string& reason, bool isMistake = false);
  TPropertyValue Expanded(std::string_view text);

  const TPropertyTable& FProperties;
  const std::string_view FBody;
  const deployment::IXMLNode& FNode;
  const unsigned FDepth;
  std::size_t FNext = 0;
  TPropertyValue FValue;
  TUnknown FUnknown;
  bool FIsEscaped = false; // the last function took care of escapes itself
};

} // namespace workbench
