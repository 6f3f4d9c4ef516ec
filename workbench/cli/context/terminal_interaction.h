// The command line as the services meet it.
#pragma once

#include "workbench/cli/context/output.h"
#include "workbench/services/user_interaction.h"

#include <string>
#include <vector>

namespace workbench {

/// Asks at the terminal; where nobody can be asked, nothing is.
class TTerminalInteraction final : public IUserInteraction {
public:
  /// `output` must outlive the services.
  explicit TTerminalInteraction(const TOutput& output) : FOutput(output) {}

  TPrompts Prompts() const override;
  void ConnectionLost(const std::string& profile, const std::string& reason) override;

  /// Why files could not be asked about so far, each reason once.
  const std::vector<std::string>& LostConnections() const { return FLost; }

private:
  const TOutput& FOutput;
  std::vector<std::string> FLost;
};

} // namespace workbench
