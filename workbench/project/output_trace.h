// Where a path comes from: what is written, where it stands, and what it refers to.
#pragma once

#include "workbench/msbuild/item_definitions.h"
#include "workbench/msbuild/values/unknown_value.h"

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

class TMSBuildEvaluation;

/// One value on the way to a path.
struct TOutputStep {
  std::string Name;              ///< of the property, or "Type.Name" of an item definition
  std::string Value;             ///< plain text; empty when unset or not known
  std::string Written;           ///< as the element writes it; empty where no element does
  std::string Source;            ///< where it comes from, for people
  deployment::TErrorPlace Place; ///< of the element; no file where there is none
  std::string Unknown;           ///< why the value is not known; empty when it is
};

/// Follows the references of values, each property once.
class TOutputTrace {
public:
  /// The evaluation must outlive the trace.
  explicit TOutputTrace(const TMSBuildEvaluation& evaluation) : FEvaluation(evaluation) {}

  /// Says where a property that no element assigns comes from.
  void AddSource(std::string_view name, std::string source);
  /// Adds a property and what it refers to.
  void AddProperty(std::string_view name);
  /// The same for a value of an item definition.
  void AddDefinition(std::string name, const TDefinedValue& value);
  std::vector<TOutputStep> TakeSteps() { return std::move(FSteps); }

private:
  void Follow(std::string_view written);

  const TMSBuildEvaluation& FEvaluation;
  std::map<std::string, std::string> FSources; // by name in upper case
  std::set<std::string> FSeen;                 // names in upper case
  std::vector<TOutputStep> FSteps;
};

} // namespace workbench
