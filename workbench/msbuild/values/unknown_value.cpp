#include "workbench/msbuild/values/unknown_value.h"

namespace workbench {

std::string UnknownSentence(const TUnknownValue& unknown) {
  if (unknown.Property.empty())
    return unknown.Reason;
  return "the property \"" + unknown.Property + "\" is not known here: " + unknown.Reason;
}

deployment::TErrorPlace UnknownPlace(const TUnknownValue& unknown) {
  return unknown.Node ? unknown.Node->Place() : deployment::TErrorPlace();
}

} // namespace workbench
