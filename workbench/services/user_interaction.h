// The face of the workbench that a user sits before, as the services meet it: a terminal, a window,
// or nobody.
#pragma once

#include "package/host/api/codemgr.h"
#include "workbench/deploy/deploy_service.h"
#include "workbench/remote/ssh/prompts.h"

#include <functional>
#include <string>
#include <string_view>

namespace workbench {

/// Handed to the services once. The answers here are those where nobody is.
class IUserInteraction {
public:
  virtual ~IUserInteraction() = default;

  /// What is asked while connections are made. The questions may outlive the object.
  virtual TPrompts Prompts() const { return {}; }
  /// Lets the user make a profile and assign it to the platform; false when the user did not.
  virtual bool CreateProfile(deployment::ICustomProject& /*project*/,
                             std::string_view /*platform*/) {
    return false;
  }
  /// Does work that takes long while the caller waits, as TBackground does.
  virtual void RunInBackground(const std::function<void()>& work) { work(); }
  /// Lets the user's events have a turn amid work that only the calling thread can do.
  virtual void Pause() {}
  /// A deploy was asked for in the view: completes the request, lets the service carry it out and
  /// shows what comes of it.
  virtual TDeployReport Deploy(const TDeployService& service, const TDeployRequest& request);
  /// The files of a profile could not be asked about, or not all of them.
  virtual void ConnectionLost(const std::string& /*profile*/, const std::string& /*reason*/) {}
};

} // namespace workbench
