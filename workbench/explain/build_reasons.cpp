#include "workbench/explain/build_reasons.h"

#include "package/common/errors.h"
#include "workbench/session/build_refresh.h"

namespace workbench {

std::vector<std::string> BuildReasons(TOpenProject& project,
                                      const deployment::IProjectDeploymentFile& entry) {
  std::vector<std::string> reasons;
  try {
    for (const std::string& place : InstallRulesOf(project, entry))
      reasons.push_back("the build installs it: " + place);
  } catch (const deployment::TInputError& error) {
    reasons.push_back("the build installed it when the list was made; which rule that was it does "
                      "not tell now: " +
                      error.Place().File + ": " + error.what());
  }
  return reasons;
}

} // namespace workbench
