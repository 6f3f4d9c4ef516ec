#include "workbench/desktop/window/targets_tab.h"

#include "package/host/api/platforms.h"
#include "workbench/deploy/deploy_service.h"
#include "workbench/desktop/controls/background_work.h"
#include "workbench/desktop/controls/form_controls.h"
#include "workbench/desktop/deploy/deploy_panel.h"
#include "workbench/desktop/interaction/entry_row.h"
#include "workbench/desktop/projects/project_names.h"
#include "workbench/desktop/projects/project_tabs.h"
#include "workbench/desktop/projects/shown_target.h"
#include "workbench/desktop/target/targets_page.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/project/project_settings.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/session/session.h"

namespace workbench {
namespace {

// All platforms have no target; the active one of the project stands for them.
deployment::TDeploymentTarget TargetInFront(const TOpenProject& project,
                                            const TFormControls& controls) {
  deployment::TDeploymentTarget target = ShownTarget(controls);
  if (target.Platform == deployment::sAllPlatforms)
    target.Platform = project.Settings().ActivePlatform();
  return target;
}

} // namespace

TTargetsTab::TTargetsTab(TSession& session, const TFrontList& front, TDeployPanel& panel,
                         TBackgroundWork& background)
    : QObject(&panel), FSession(session), FFront(front), FPanel(panel), FBackground(background),
      FPage(new TTargetsPage(session,
                             {.Subject = [this] { return Subject(); },
                              .Work =
                                  [this](const std::function<void()>& work) {
                                    FFront.Projects.Work(*FFront.Project(), work);
                                  }},
                             &panel)) {
  panel.Add(FPage, tr("Targets"));
  connect(&panel, &TDeployPanel::PageTurned, this, &TTargetsTab::Show);
  connect(&background, &TBackgroundWork::BusyChanged, FPage, &TTargetsPage::SetBusy);
  connect(FPage, &TTargetsPage::CloseWanted, &panel, &QWidget::close);
  connect(FPage, &TTargetsPage::EntryWanted, this, &TTargetsTab::GoTo);
}

std::unique_ptr<TDeploySubject> TTargetsTab::Subject() const {
  TOpenProject* project = FFront.Project();
  const TFormControls* controls = FFront.Controls();
  if (!project || !controls)
    return nullptr;
  return std::make_unique<TDeploySubject>(FSession.RemoteProfiles().Deploys().SubjectOf(
      project->Project(), TargetInFront(*project, *controls)));
}

void TTargetsTab::Show() {
  FPanel.Show(*FPage);
  Update();
  FPage->Focus();
}

void TTargetsTab::Update() {
  if (!FPage->isVisible() || FBackground.IsBusy())
    return;
  const TOpenProject* project = FFront.Project();
  const TFormControls* controls = FFront.Controls();
  FPage->Show(project && controls ? TTargetsKey{PathToQString(project->GivenFileName()),
                                                TargetInFront(*project, *controls)}
                                  : TTargetsKey());
}

void TTargetsTab::GoTo(const QString& localName) {
  if (const TFormControls* controls = FFront.Controls())
    GoToEntry(*controls, localName);
}

} // namespace workbench
