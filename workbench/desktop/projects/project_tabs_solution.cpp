// Opening all projects of a solution.
#include "workbench/desktop/dialogs/forms/modal_dialogs.h"
#include "workbench/desktop/projects/project_tabs.h"
#include "workbench/desktop/text/error_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/session/solution_projects.h"

#include <exception>
#include <optional>

namespace workbench {

namespace fs = std::filesystem;

// False when it has nothing to deploy.
bool TProjectTabs::OpenMember(const TOpenSolution& solution, const TSolutionMember& member) {
  if (!solution.WhyNoProject(member).empty())
    return false;
  if (const TOpenProject* open = FSession.FindOpen(member.File)) {
    FTabs.setCurrentIndex(FTabs.IndexOf(*ControlsOf(*open)));
    return true;
  }
  TOpenProject& project = solution.Open(FSession, member, TOpenPurpose::Look);
  bool isWanted = false;
  try {
    isWanted = HasSomethingToDeploy(project, {}, {});
  } catch (const std::exception&) {
    FSession.Close(project);
    throw;
  }
  if (isWanted)
    ShowActive(project);
  else
    FSession.Close(project);
  return isWanted;
}

bool TProjectTabs::OpenSolution(const fs::path& file) {
  const auto say = [&](const QString& text) {
    ShowError(tr("Open Solution"), text, &FWindow);
    return false;
  };
  QStringList problems;
  std::optional<int> first;
  try {
    const TOpenSolution solution(file);
    for (const TSolutionMember& member : solution.Members()) {
      try {
        if (OpenMember(solution, member) && !first)
          first = FTabs.currentIndex();
      } catch (const std::exception& error) {
        problems += ErrorText(error);
      }
    }
  } catch (const std::exception& error) {
    return say(tr("%1 cannot be opened.\n\n%2").arg(PathToQString(file), ErrorText(error)));
  }
  if (first)
    FTabs.setCurrentIndex(*first);
  if (!problems.isEmpty())
    say(tr("Not every project of %1 can be opened.\n\n%2")
            .arg(PathToQString(file), problems.join(QLatin1Char('\n'))));
  else if (!first)
    say(tr("No project of %1 has something to deploy.").arg(PathToQString(file)));
  return first.has_value();
}

} // namespace workbench
