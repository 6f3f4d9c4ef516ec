// The commands that reach for the remote machine.
#include "package/view/deployment_frame.h"
#include "package/view/view_strings.h"

namespace deployment {
namespace {

// Its programs are packed here and need no remote machine.
constexpr std::string_view PackedPlatform = "Android";

} // namespace

void TDeploymentFrame::sbConnectExecute() {
  IToolButton& button = Button(TFrameAction::Connect);
  if (FConnecting)
    return button.SetDown(true);
  if (!button.GetDown()) {
    FConnected = false;
    return RefreshFiles();
  }
  FConnecting = true;
  IOTARemoteProfileServices* services = FServices.GetRemoteProfileServices();
  const IOTAProjectPlatforms* platforms = Platforms();
  const std::string name = platforms ? platforms->GetProfileName(FActivePlatform) : std::string();
  std::shared_ptr<IOTARemoteProfile> profile;
  if (services && !name.empty())
    profile = services->FindProfile(name);
  TConnectThread::Start(*FThreads, services, std::move(profile), FControls.GetMainThread(),
                        [listener = FListener](const TConnectThread& thread) {
                          if (TDeploymentFrame* frame = listener->Frame())
                            frame->ConnectExeOnTerminate(thread);
                        });
}

void TDeploymentFrame::ConnectExeOnTerminate(const TConnectThread& thread) {
  FConnecting = false;
  if (!FCancelConnect && !thread.Failed()) {
    FConnected = true;
    return RefreshFiles();
  }
  Button(TFrameAction::Connect).SetDown(false);
  FConnected = false;
  const bool cancelled = std::exchange(FCancelConnect, false);
  if (!cancelled && !thread.Message().empty())
    FControls.GetDialogs().ShowMessage({thread.Message(), {TMessageAnswer::OK}});
}

void TDeploymentFrame::sbDeployExecute() {
  IOTAProjectPlatforms* platforms = Platforms();
  IOTARemoteProfileServices* services = FServices.GetRemoteProfileServices();
  if (!platforms || !services || !Deployment() || !ChoosePlatformToDeploy(*platforms))
    return;
  const std::string active = platforms->GetActivePlatform();
  if (active != PackedPlatform) {
    std::string name = platforms->GetProfileName(active);
    if (name.empty() && PromptForProfile(active))
      name = platforms->GetProfileName(active);
    if (name.empty())
      return;
    FProfile = services->FindProfile(name);
  }
  services->Deploy(*FProject, FActivePlatform, FConfiguration, /*final=*/true);
  RefreshFiles();
}

// False when the user wants the active platform to stay, and so nothing deployed.
bool TDeploymentFrame::ChoosePlatformToDeploy(IOTAProjectPlatforms& platforms) {
  const std::string active = platforms.GetActivePlatform();
  if (active == FActivePlatform || !platforms.CanSetActivePlatform())
    return true;
  const TMessageAnswer answer = FControls.GetDialogs().ShowMessage(
      {FormatText(TViewString::ChangePlatform, {active, FActivePlatform}),
       {TMessageAnswer::Yes, TMessageAnswer::No}});
  if (answer != TMessageAnswer::Yes)
    return false;
  platforms.SetActivePlatform(FActivePlatform);
  return true;
}

// True when the platform has a profile now.
bool TDeploymentFrame::PromptForProfile(std::string_view platform) {
  const TMessageAnswer answer =
      FControls.GetDialogs().ShowMessage({FormatText(TViewString::ProfileRequired, {platform}),
                                          {TMessageAnswer::Yes, TMessageAnswer::No}});
  return answer == TMessageAnswer::Yes &&
         FServices.GetRemoteProfileServices()->CreateAndAssignProfile(*FProject, platform);
}

} // namespace deployment
