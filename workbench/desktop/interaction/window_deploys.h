// The deploy panel as a part of the window: what is pressed there reaches the list above, and the
// other way round.
#pragma once

#include "workbench/desktop/deploy/deploy_flow.h"
#include "workbench/desktop/interaction/front_list.h"

#include <QObject>
#include <QString>
#include <functional>
#include <string_view>

namespace workbench {

class TBackgroundWork;
class TDeployPanel;
class TSession;

class TWindowDeploys final : public QObject {
  Q_OBJECT

public:
  /// What the user is asked and shown.
  struct TAnswers {
    TMayRun MayRun;
    TMaySend MaySend;
    std::function<bool(const deployment::ICustomProject&, std::string_view platform)> CreateProfile;
    std::function<void()> ShowProfiles;
  };

  /// Everything must outlive the object.
  /// Everything must outlive the object. Dialogs stand before the window.
  TWindowDeploys(const TFrontList& front, QWidget& window, TDeployPanel& panel,
                 TBackgroundWork& background, TSession& session, TAnswers answers);

  TDeployFlow& Flow() { return FFlow; }
  /// Makes the plan of the list in front and shows it.
  void Plan();
  /// Gives the focus to a plan that waits to be confirmed; false when there is none.
  bool FocusPlan();

private:
  bool IsOpen() const;
  bool BringForward();
  void Deploy();
  void ProjectsChanged();
  void PressDeploy();
  void GoToEntry(const QString& localName);
  void ShowDifferenceOf(const TDeployRow& row);
  void MakeProfile();

  const TFrontList FFront;
  QWidget& FWindow;
  TDeployPanel& FPanel;
  TBackgroundWork& FBackground;
  TSession& FSession;
  const TAnswers FAnswers;
  TDeployFlow FFlow;
};

} // namespace workbench
