#include "workbench/cli/targets/target_options.h"

#include "workbench/cli/view/deployment_view.h"
#include "workbench/remote/profile/profile_choice.h"
#include "workbench/services/remote_profile_services.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace workbench {
namespace {

constexpr std::string_view GroupOption = "--group";

// The names between commas.
std::vector<TNamedTarget> NamedTargets(const std::vector<TGivenText>& given) {
  std::vector<TNamedTarget> named;
  for (const TGivenText& text : given) {
    std::size_t start = 0;
    for (std::size_t end = 0; end != std::string::npos; start = end + 1) {
      end = text.Text.find(',', start);
      std::string name = text.Text.substr(start, end - start);
      if (name.empty())
        throw TUsageError(text.Option + " \"" + text.Text + "\" has an empty name");
      named.push_back({std::move(name), text.Option == GroupOption});
    }
  }
  return named;
}

} // namespace

bool TTargetOptions::HasGroup() const {
  return std::ranges::any_of(Given,
                             [](const TGivenText& text) { return text.Option == GroupOption; });
}

void AddTargetOptions(IOptions& options, TTargetOptions& targets) {
  options
      .Sequence("--to-profile", targets.Given,
                "Take these profiles in place of the assigned one; may be repeated")
      .ValueName("NAME[,NAME...]");
  options.Sequence(std::string(GroupOption), targets.Given, "The same for the profiles of a group")
      .ValueName("NAME");
  options.Number("--hosts", targets.Hosts, 1, MostHosts, "How many targets at a time")
      .ShowDefault();
}

std::vector<TProfile> ChooseTargets(TCommandContext& context, TOpenProject& project,
                                    const TTargetOptions& targets, const std::string& platform) {
  const TRemoteProfileServices& services = context.Session.RemoteProfiles();
  if (services.Destinations().IsStaged(project.Project(), platform))
    throw TUsageError("the platform \"" + platform +
                      "\" is deployed to a folder beside the program, and to no profile");
  try {
    return ChooseProfiles(services.Profiles(), NamedTargets(targets.Given), platform);
  } catch (const std::invalid_argument& error) {
    throw TUsageError(error.what());
  }
}

TDeploySubject ReadSubject(TCommandContext& context, TOpenProject& project, const TTarget& target) {
  const std::size_t told = project.Warnings().size();
  TDeploymentView view(context);
  view.Open(project, target);
  WarnSince(context, project, told);
  return context.Session.RemoteProfiles().Deploys().SubjectOf(
      project.Project(), {target.Configuration, target.Platform});
}

} // namespace workbench
