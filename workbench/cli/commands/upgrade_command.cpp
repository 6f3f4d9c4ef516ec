// deploymgr upgrade: brings the section of a project to the current layout.
#include "package/host/api/default_deployment.h"
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/entries/change_report.h"

namespace workbench {
namespace {

class TUpgradeCommand final : public ICommand {
public:
  std::string Name() const override { return "upgrade"; }
  std::string Summary() const override { return "Bring an older list up to date and save it"; }
  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject);
    AddChangeOptions(options, FChange);
    AddCheckOption(options, FChange);
  }

  int Run(TCommandContext& context) override {
    TOpenProject& project = OpenProject(context, FProject, FChange.Purpose());
    WarnOfTarget(context, &project, "an upgrade is of the whole list");
    const bool hadList = !project.Deployment().IsEmpty();
    if (!hadList)
      context.Session.RequireDefaults();
    deployment::EnsureDefaultDeployment(project.Deployment());
    const int before = project.SectionVersionRead();
    const bool upgraded = project.WasUpgraded();
    if (upgraded)
      project.MarkChanged();
    const bool changed = project.HasChanges();
    SaveAndReport(context, project, FChange, {});
    if (changed)
      context.Output.Line(Sentence(before, hadList));
    return StatusOf(FChange, changed);
  }

private:
  std::string Sentence(int before, bool hadList) const {
    const std::string would = FChange.IsDry() ? "would be " : "";
    if (!hadList)
      return "the list " + would + "filled with the default classes";
    return "the list " + would + "upgraded from version " + std::to_string(before) + " to 2";
  }

  std::string FProject;
  TChangeOptions FChange;
};

} // namespace

std::unique_ptr<ICommand> MakeUpgradeCommand() {
  return std::make_unique<TUpgradeCommand>();
}

} // namespace workbench
