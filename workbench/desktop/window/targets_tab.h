// The page of several targets, for the project in front, on a tab of the panel below the lists.
#pragma once

#include "workbench/desktop/interaction/front_list.h"

#include <QObject>
#include <memory>

namespace workbench {

class TBackgroundWork;
class TDeployPanel;
class TSession;
class TTargetsPage;
struct TDeploySubject;

class TTargetsTab final : public QObject {
  Q_OBJECT

public:
  /// Everything but the front list itself, which is copied, must outlive the object.
  TTargetsTab(TSession& session, const TFrontList& front, TDeployPanel& panel,
              TBackgroundWork& background);

  /// Brings the page forward, and the keyboard with it.
  void Show();
  /// Follows the project in front, its target and the profiles. Costs little when nothing changed.
  void Update();

private:
  // Null while no project is open.
  std::unique_ptr<TDeploySubject> Subject() const;
  void GoTo(const QString& localName);

  TSession& FSession;
  const TFrontList FFront;
  TDeployPanel& FPanel;
  TBackgroundWork& FBackground;
  TTargetsPage* FPage;
};

} // namespace workbench
