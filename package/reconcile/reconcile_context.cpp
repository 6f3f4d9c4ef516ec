#include "package/reconcile/reconcile_context.h"

#include "package/common/path_text.h"

namespace deployment {

std::string TReconcileContext::BesideOutput(std::string_view name) const {
  return std::string(DirectoryPart(Output)).append(name);
}

} // namespace deployment
