// Values that this machine cannot know, and why.
#pragma once

#include "package/host/api/xml.h"

#include <memory>
#include <string>

namespace workbench {

/// Where a value that cannot be known begins.
struct TUnknownValue {
  std::string Property; ///< the property that has no known value; empty for none
  std::string Reason;   ///< half a sentence: "it calls the function ..."
  const deployment::IXMLNode* Node = nullptr; ///< the element that wants it; null for none
  bool OfBuildSystem = false; ///< the build system's own files say it, which are not here
  bool IsMistake = false;     ///< a build would fail here
};

/// Null for a value that is known. A value that is made of an unknown one shares its reason.
using TUnknown = std::shared_ptr<const TUnknownValue>;

/// A text with its references replaced.
struct TExpanded {
  std::string Text;
  TUnknown Unknown; ///< the first of its parts that cannot be known
};

/// Names the property and the reason, for a message.
std::string UnknownSentence(const TUnknownValue& unknown);
/// Where a message about it points; no place when the value belongs to no element.
deployment::TErrorPlace UnknownPlace(const TUnknownValue& unknown);

} // namespace workbench
