#include "workbench/cli/entries/entry_json.h"

#include "workbench/list/record_json.h"

namespace workbench {

TJson FileAsJson(deployment::IProjectDeploymentFile& file) {
  return DocumentOf(RecordOf(file));
}

TJson ClassesAsJson(const deployment::TDeploymentClasses& classes) {
  TJson list = TJson::Array();
  for (const auto& deploymentClass : classes)
    list.Append(DocumentOf(RecordOf(*deploymentClass)));
  return list;
}

} // namespace workbench
