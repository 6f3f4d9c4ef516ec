#include "workbench/cli/context/solution_run.h"

#include "package/common/errors.h"
#include "workbench/cli/context/failure_report.h"
#include "workbench/cli/context/project_argument.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/context/terminal_interaction.h"
#include "workbench/project/cpp/cpp_dialect.h"
#include "workbench/project/project_settings.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/session/solution_projects.h"
#include "workbench/text/utf8.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

namespace workbench {
namespace {

constexpr int FirstInterrupt = 129; // exit statuses of signals, from this one on

class TSolutionRun {
public:
  TSolutionRun(TCommandContext& context, const TOpenSolution& solution, TOpenPurpose purpose,
               TWorkTargets targets, const TProjectWork& work)
      : FContext(context), FSolution(solution), FPurpose(purpose), FTargets(targets), FWork(work) {}

  int Run() {
    for (const TSolutionMember& member : FSolution.Members())
      FWidth = std::max(FWidth, CodePointCount(Visible(member.Name)));
    for (const TSolutionMember& member : FSolution.Members())
      Take(member);
    const auto interaction = std::make_shared<TTerminalInteraction>(FContext.Output);
    FContext.Session.RemoteProfiles().SetInteraction(interaction);
    if (FContext.Output.IsJson())
      FContext.Output.Document(
          {{"projects", std::move(FProjects)}, {"nothingToDeploy", std::move(FLeftOut)}});
    else if (FTaken == 0)
      FContext.Output.Line("no project of the solution has something to deploy");
    return FStatus;
  }

private:
  void Take(const TSolutionMember& member) {
    const std::string why = FSolution.WhyNoProject(member);
    if (!why.empty()) {
      FContext.Output.Warn({"\"" + member.Project->StoredPath + "\" " + why + "; it is left out",
                            FSolution.Solution().File().string(), member.Project->Line});
      return;
    }
    TOutput output(FContext.Output, Visible(member.Name), FWidth);
    // What the connections of one project said is none of the next one.
    const auto interaction = std::make_shared<TTerminalInteraction>(output);
    FContext.Session.RemoteProfiles().SetInteraction(interaction);
    TCommonOptions options = FContext.Options;
    TCommandContext part{options, FContext.Session, output, *interaction, Visible(member.Name)};
    bool isTaken = true;
    const int status = FStatus >= FirstInterrupt ? FStatus : Reported(output, [&] {
      TOpenProject& project = FSolution.Open(FContext.Session, member, FPurpose);
      const TClosing closing{FContext.Session, project};
      isTaken = HasWork(project, member, options);
      if (!isTaken)
        return static_cast<int>(exit_status::Done);
      WarnSince(part, project, 0);
      return FWork(part, project);
    });
    if (!isTaken) {
      FLeftOut.Append(member.File.string());
      return;
    }
    ++FTaken;
    FStatus = std::max(FStatus, status);
    FProjects.Append(
        {{"project", member.File.string()}, {"exit", status}, {"document", output.TakeDocument()}});
  }

  struct TClosing {
    TSession& Session;
    TOpenProject& Project;
    ~TClosing() { Session.Close(Project); }
  };

  // The options become those of the project. What it does not know is for the work to say.
  bool HasWork(TOpenProject& project, const TSolutionMember& member,
               TCommonOptions& options) const {
    if (FTargets == TWorkTargets::All)
      return HasSomethingToDeploy(project, {}, {});
    const TProjectSettings& settings = project.Settings();
    const bool isChosen = !options.Configuration.empty() || !options.Platform.empty();
    if (isChosen && options.Platform != AllPlatformsArgument) {
      const auto build = BuildOf(settings, member, options);
      if (build && !build->IsBuilt)
        return false;
      if (build) {
        options.Configuration = build->Target.Configuration;
        options.Platform = PlatformFromCpp(build->Target.Platform);
      }
    }
    const std::string configuration =
        options.Configuration.empty() ? settings.ActiveConfiguration() : options.Configuration;
    if (!settings.FindConfiguration(configuration))
      return true;
    if (options.Platform == AllPlatformsArgument)
      return HasSomethingToDeploy(project, configuration, {});
    return HasSomethingToDeploy(project, configuration,
                                options.Platform.empty() ? settings.ActivePlatform()
                                                         : PlatformFromCpp(options.Platform));
  }

  // A solution calls the platforms of its builds as its projects do, or Win32 "x86".
  std::optional<TProjectBuild> BuildOf(const TProjectSettings& settings,
                                       const TSolutionMember& member,
                                       const TCommonOptions& options) const {
    const std::string configuration =
        options.Configuration.empty() ? settings.ActiveConfiguration() : options.Configuration;
    const std::string platform =
        PlatformToCpp(options.Platform.empty() ? settings.ActivePlatform() : options.Platform);
    const TSolution& solution = FSolution.Solution();
    auto build = solution.BuildOf(*member.Project, {configuration, platform});
    if (!build && platform == "Win32")
      build = solution.BuildOf(*member.Project, {configuration, "x86"});
    return build;
  }

  TCommandContext& FContext;
  const TOpenSolution& FSolution;
  const TOpenPurpose FPurpose;
  const TWorkTargets FTargets;
  const TProjectWork& FWork;
  std::size_t FWidth = 0;
  std::size_t FTaken = 0;
  int FStatus = exit_status::Done;
  TJson FProjects = TJson::Array();
  TJson FLeftOut = TJson::Array();
};

} // namespace

int RunForProjects(TCommandContext& context, const std::string& argument, TOpenPurpose purpose,
                   TWorkTargets targets, const TProjectWork& work) {
  const std::filesystem::path found = FindProject(argument);
  if (!IsSolutionName(found))
    return work(context, OpenProject(context, argument, purpose));
  context.Session.CheckInstallation();
  const TOpenSolution solution(found);
  return TSolutionRun(context, solution, purpose, targets, work).Run();
}

} // namespace workbench
