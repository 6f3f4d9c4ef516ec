#include "workbench/project/output_trace.h"

#include "package/common/case_fold.h"
#include "workbench/msbuild/msbuild_evaluation.h"
#include "workbench/msbuild/values/property_names.h"

#include <algorithm>

namespace workbench {
namespace {

constexpr std::size_t MostSteps = 200;

std::string ElementSource(const deployment::TErrorPlace& place) {
  return place.File + ":" + std::to_string(place.Line);
}

} // namespace

void TOutputTrace::AddSource(std::string_view name, std::string source) {
  FSources.insert_or_assign(deployment::UpperCase(name), std::move(source));
}

void TOutputTrace::AddDefinition(std::string name, const TDefinedValue& value) {
  const deployment::TErrorPlace place = value.Node->Place();
  const std::string written(value.Node->Text());
  FSteps.push_back({std::move(name), value.Text, written, ElementSource(place), place,
                    value.Unknown ? UnknownSentence(*value.Unknown) : std::string()});
  Follow(written);
}

void TOutputTrace::AddProperty(std::string_view name) {
  if (FSteps.size() == MostSteps || !FSeen.insert(deployment::UpperCase(name)).second)
    return;
  const TExpanded value = FEvaluation.Value(name);
  TOutputStep step;
  step.Name = name;
  step.Value = value.Text;
  if (value.Unknown)
    step.Unknown = UnknownSentence(*value.Unknown);
  const deployment::IXMLNode* node = FEvaluation.AssignedBy(name);
  if (node) {
    step.Written = node->Text();
    step.Place = node->Place();
    step.Source = ElementSource(step.Place);
  } else if (const auto source = FSources.find(deployment::UpperCase(name));
             source != FSources.end()) {
    step.Source = source->second;
  } else {
    step.Source = value.Unknown        ? "nothing here says it"
                  : value.Text.empty() ? "it is not set"
                                       : "the build or the environment sets it";
  }
  const std::string written = step.Written;
  FSteps.push_back(std::move(step));
  Follow(written);
}

// Names behind "$(" and names in property functions alike: what is no property is not set.
void TOutputTrace::Follow(std::string_view written) {
  for (std::size_t start = written.find("$("); start != std::string_view::npos;
       start = written.find("$(", start + 2)) {
    std::string_view name = written.substr(start + 2);
    name = name.substr(0, std::min(name.find_first_of(").[ :"), name.size()));
    if (IsPropertyName(name) && !deployment::SameText(name, "Registry"))
      AddProperty(name);
  }
}

} // namespace workbench
