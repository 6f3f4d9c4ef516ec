// What item definition groups say about all items of a type: <Link><OutputFile>...</OutputFile>.
#pragma once

#include "package/host/api/xml.h"
#include "workbench/msbuild/msbuild_condition.h"
#include "workbench/msbuild/msbuild_items.h"
#include "workbench/msbuild/msbuild_properties.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// What all items of a type have under a name.
struct TDefinedValue {
  std::string Name;
  std::string Text; ///< with its escapes
  TUnknown Unknown;
  const deployment::IXMLNode* Node = nullptr; ///< the element that said it last
};

/// The definitions of one type, in the order in which they were given.
class TItemDefinition {
public:
  using THolds = std::function<TConditionResult(const deployment::IXMLNode&)>;

  /// Adds what one element of that type says; with a `doubt`, whether it counts is not known.
  /// "%(Name)" stands for what was said before. Throws TInputError when a value grows too long.
  void Add(deployment::IXMLNode& element, const TPropertyTable& properties, const THolds& holds,
           const TUnknown& doubt);
  /// Ignoring case; null when nothing was said.
  const TDefinedValue* Find(std::string_view name) const;

private:
  std::string WithPresentValues(std::string_view text, std::string_view type,
                                const deployment::IXMLNode& node, TUnknown& unknown) const;

  std::vector<TDefinedValue> FValues;
};

} // namespace workbench
