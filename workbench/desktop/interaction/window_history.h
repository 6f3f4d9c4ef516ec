// The history of the target in front: read from it, and taken back there.
#pragma once

#include "workbench/deploy/deploy_subject.h"
#include "workbench/deploy/undo_run.h"
#include "workbench/desktop/deploy/deploy_page.h"
#include "workbench/desktop/interaction/front_list.h"
#include "workbench/remote/profile/profile_store.h"

#include <QObject>
#include <QString>
#include <atomic>
#include <optional>

namespace workbench {

class TBackgroundWork;
class TDeployPanel;
class THistoryPage;
class TSession;

class TWindowHistory final : public QObject {
  Q_OBJECT

public:
  /// Everything must outlive the object.
  TWindowHistory(const TFrontList& front, TDeployPanel& panel, TBackgroundWork& background,
                 TSession& session);

  /// Shows the deploys that the target of the list in front remembers.
  void Show();

private:
  // Where the history that is shown is.
  struct TPlace {
    TDeployKey Key;
    TDeploySubject Subject;
    TProfile Profile;
  };

  std::optional<TDeployKey> KeyInFront() const;
  void Read();
  void Undo(int steps);
  QString FindPlace(const TDeployKey& key);
  QString ReadRuns(const std::atomic<int>& cancelled);
  TUndoReport TakeBack(int steps, const std::atomic<int>& cancelled);
  void RefreshList();

  const TFrontList FFront;
  TDeployPanel& FPanel;
  THistoryPage& FPage;
  TBackgroundWork& FBackground;
  TSession& FSession;
  std::optional<TPlace> FPlace;
};

} // namespace workbench
