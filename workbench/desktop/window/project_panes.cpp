#include "workbench/desktop/window/project_panes.h"

#include "workbench/desktop/controls/form_controls.h"
#include "workbench/desktop/details/details_pane.h"
#include "workbench/desktop/list/filter_bar.h"
#include "workbench/desktop/list/row_list.h"
#include "workbench/desktop/projects/added_rows.h"
#include "workbench/desktop/projects/project_tabs.h"
#include "workbench/desktop/target/target_bar.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/session/session.h"

#include <algorithm>

namespace workbench {
namespace {

TDetailsHost DetailsHost(TProjectTabs& projects) {
  return {
      .Edit = [&projects](const auto& project, const QString& name,
                          const auto& edit) { return projects.Edit(project, name, edit); },
      .Work = [&projects](const auto& project, const auto& work) { projects.Work(project, work); },
      .Reasons =
          [&projects](TOpenProject& project, const auto& entry) {
            QStringList sentences;
            for (const std::string& reason : projects.Explain(project, entry))
              sentences += EngineText(reason);
            return sentences;
          }};
}

} // namespace

TProjectPanes::TProjectPanes(TSession& session, TProjectTabs& projects, bool wantsDetails,
                             QWidget& window)
    : QObject(&window), FSession(session),
      FDetails(new TDetailsPane(session, DetailsHost(projects), &window)),
      FWantsDetails(wantsDetails) {
  FDetails->hide();
}

void TProjectPanes::SwitchDetails() {
  FWantsDetails = !FWantsDetails;
  FDetails->setVisible(FWantsDetails);
  FDetails->Update();
}

void TProjectPanes::Attach(TOpenProject& project, TFormControls& controls) {
  auto* rows = new TRowList(*controls.Tree());
  auto* bar = new TTargetBar(FSession, project, controls, *rows);
  connect(bar, &TTargetBar::ProfilesWanted, this, &TProjectPanes::ProfilesWanted);
  std::erase_if(FPanes, [](const TPanes& panes) { return !panes.Bar; });
  FPanes.push_back({&controls, rows, bar});
  new TNewRows(controls); // which owns it
  controls.AddOnTop(bar);
  controls.AddAboveRows(new TFilterBar(*rows));
}

void TProjectPanes::Show(TOpenProject* project, TFormControls* controls) {
  const auto shown = std::ranges::find_if(
      FPanes, [&](const TPanes& panes) { return controls && panes.Controls == controls; });
  FDetails->setVisible(FWantsDetails && shown != FPanes.end());
  if (shown == FPanes.end())
    FDetails->Follow(nullptr, nullptr, nullptr);
  else
    FDetails->Follow(project, controls, shown->Rows);
}

void TProjectPanes::FocusFilter(TFormControls& controls) {
  if (auto* filter = controls.Page()->findChild<TFilterBar*>())
    filter->Focus();
}

void TProjectPanes::ConnectionLost(const std::string& profile, const std::string& reason) {
  for (const TPanes& panes : FPanes) {
    if (panes.Bar)
      panes.Bar->ConnectionLost(profile, reason);
  }
}

} // namespace workbench
