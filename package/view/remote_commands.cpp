#include "package/view/remote_commands.h"

#include "package/common/case_fold.h"
#include "package/view/frame_target.h"
#include "package/view/view_strings.h"

namespace deployment {
namespace {

// Its programs are packed here and need no remote machine.
constexpr std::string_view PackedPlatform = "Android";

} // namespace

bool RequiresProfile(VelmorIDEServices& services, const TFrameTarget& target,
                     std::string_view platform) {
  if (platform.empty() || platform == sAllPlatforms || !target.Project)
    return false;
  const IPlatform* known = services.GetPlatformManager().FindPlatform(platform);
  if (!known)
    return false;
  const std::string personality = target.Project->GetPersonality();
  return known->RequiresProfile(personality) || known->PersonalityRequiresProfile(personality) ||
         SameText(platform, "Win32") || SameText(platform, "Win64");
}

bool TRemoteCommands::CanConnect() const {
  return RequiresProfile(FFrame.Services, FFrame.Target, FFrame.Target.ActivePlatform);
}

void TRemoteCommands::Connect(IToolButton& button) {
  if (FFrame.Connection.IsConnecting())
    return button.SetDown(true);
  if (!button.GetDown()) {
    FFrame.Connection.Release();
    return FFrame.RefreshFiles();
  }
  IOTARemoteProfileServices* services = FFrame.Services.GetRemoteProfileServices();
  const IOTAProjectPlatforms* platforms = FFrame.Target.Platforms();
  const std::string name =
      platforms ? platforms->GetProfileName(FFrame.Target.ActivePlatform) : std::string();
  std::shared_ptr<IOTARemoteProfile> profile;
  if (services && !name.empty())
    profile = services->FindProfile(name);
  FFrame.Connection.Start(services, std::move(profile), FFrame.Controls.GetMainThread(),
                          FOnTerminate);
}

bool TRemoteCommands::ConnectEnded(IToolButton& button, const TConnectThread& thread) {
  const TAttemptOutcome outcome = FFrame.Connection.End(thread.Failed());
  if (outcome == TAttemptOutcome::Connected)
    return true;
  button.SetDown(false);
  if (outcome == TAttemptOutcome::Failed && !thread.Message().empty())
    FFrame.Controls.GetDialogs().ShowMessage({thread.Message(), {TMessageAnswer::OK}});
  return false;
}

void TRemoteCommands::Deploy() {
  IOTAProjectPlatforms* platforms = FFrame.Target.Platforms();
  IOTARemoteProfileServices* services = FFrame.Services.GetRemoteProfileServices();
  if (!platforms || !services || !FFrame.Target.Deployment() || !ChoosePlatformToDeploy(*platforms))
    return;
  const std::string active = platforms->GetActivePlatform();
  if (active != PackedPlatform) {
    std::string name = platforms->GetProfileName(active);
    if (name.empty() && PromptForProfile(active))
      name = platforms->GetProfileName(active);
    if (name.empty())
      return;
    FFrame.Connection.SetProfile(services->FindProfile(name));
  }
  services->Deploy(*FFrame.Target.Project, FFrame.Target.ActivePlatform,
                   FFrame.Target.Configuration, /*final=*/true);
  FFrame.RefreshFiles();
}

// False when the user wants the active platform to stay, and so nothing deployed.
bool TRemoteCommands::ChoosePlatformToDeploy(IOTAProjectPlatforms& platforms) {
  const std::string active = platforms.GetActivePlatform();
  const std::string& chosen = FFrame.Target.ActivePlatform;
  if (active == chosen || !platforms.CanSetActivePlatform())
    return true;
  const TMessageAnswer answer = FFrame.Controls.GetDialogs().ShowMessage(
      {FormatText(TViewString::ChangePlatform, {active, chosen}),
       {TMessageAnswer::Yes, TMessageAnswer::No}});
  if (answer != TMessageAnswer::Yes)
    return false;
  platforms.SetActivePlatform(chosen);
  return true;
}

// True when the platform has a profile now.
bool TRemoteCommands::PromptForProfile(std::string_view platform) {
  const TMessageAnswer answer = FFrame.Controls.GetDialogs().ShowMessage(
      {FormatText(TViewString::ProfileRequired, {platform}),
       {TMessageAnswer::Yes, TMessageAnswer::No}});
  return answer == TMessageAnswer::Yes &&
         FFrame.Services.GetRemoteProfileServices()->CreateAndAssignProfile(*FFrame.Target.Project,
                                                                            platform);
}

} // namespace deployment
