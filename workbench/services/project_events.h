// Events of the projects that are open.
#pragma once

#include "package/host/api/projectmodule.h"
#include "workbench/services/host_event.h"

#include <string_view>

namespace workbench {

class TProjectEvents final : public deployment::IProjectEvents {
public:
  THostEvent<deployment::ICustomProject&>& EvProjectClosing() override { return FClosing; }
  THostEvent<std::string_view, std::string_view>& EvProjectRenamed() override { return FRenamed; }

private:
  THostEvent<deployment::ICustomProject&> FClosing;
  THostEvent<std::string_view, std::string_view> FRenamed;
};

} // namespace workbench
