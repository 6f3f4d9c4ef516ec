// The window as the services meet it.
#pragma once

#include "workbench/services/user_interaction.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace workbench {

class TBackgroundWork;
class TConnectionQuestions;
class TDeployFlow;

/// What a window does for the services.
struct TWindowParts {
  TDeployFlow& Deploys;
  TBackgroundWork& Background; ///< does what takes long
  std::shared_ptr<TConnectionQuestions> Questions;
  std::function<bool(deployment::ICustomProject&, std::string_view platform)> CreateProfile;
  std::function<void(const std::string& profile, const std::string& reason)> ConnectionLost;
  std::function<void(const TDeployReport&)> Deployed = {}; ///< hears of each end; may be empty
};

class TWindowInteraction final : public IUserInteraction {
public:
  /// The window takes the object away from the services before its parts go.
  explicit TWindowInteraction(TWindowParts parts) : FParts(std::move(parts)) {}

  TPrompts Prompts() const override;
  bool CreateProfile(deployment::ICustomProject& project, std::string_view platform) override;
  void RunInBackground(const std::function<void()>& work) override;
  void Pause() override;
  TDeployReport Deploy(const TDeployService& service, const TDeployRequest& request) override;
  void ConnectionLost(const std::string& profile, const std::string& reason) override;

private:
  TWindowParts FParts;
};

} // namespace workbench
