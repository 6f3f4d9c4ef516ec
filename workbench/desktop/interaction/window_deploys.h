// The deploy panel as a part of the window: what is pressed there reaches the list above, and the
// other way round.
#pragma once

#include "workbench/desktop/deploy/deploy_flow.h"

#include <QObject>
#include <QString>

namespace workbench {

class TDeployPanel;
class TEditorTabs;
class TFormControls;
class TProjectTabs;
class TSession;

class TWindowDeploys final : public QObject {
  Q_OBJECT

public:
  /// The consents that are asked for.
  struct TConsents {
    TMayRun MayRun;
    TMaySend MaySend;
  };

  /// Everything must outlive the object.
  TWindowDeploys(TProjectTabs& projects, TEditorTabs& tabs, TDeployPanel& panel, TSession& session,
                 TConsents consents);

  TDeployFlow& Flow() { return FFlow; }
  /// Makes the plan of the list in front and shows it.
  void Plan();
  /// Gives the focus to a plan that waits to be confirmed; false when there is none.
  bool FocusPlan();

private:
  TFormControls* CurrentControls() const;
  bool IsOpen() const;
  bool BringForward();
  void Deploy();
  void ProjectsChanged();
  void PressDeploy();
  void GoToEntry(const QString& localName);

  TProjectTabs& FProjects;
  TEditorTabs& FTabs;
  TDeployPanel& FPanel;
  TDeployFlow FFlow;
};

} // namespace workbench
