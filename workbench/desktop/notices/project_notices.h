// What is said above the rows of each open project: what a reconcile changed, that the list was of
// an older version.
#pragma once

#include "workbench/desktop/notices/notice_box.h"
#include "workbench/desktop/projects/project_edits.h"

#include <QObject>
#include <QPointer>
#include <cstdint>
#include <vector>

namespace workbench {

class TProjectTabs;

class TProjectNotices final : public QObject {
  Q_OBJECT

public:
  /// The projects must outlive the object. Dialogs stand before the window.
  TProjectNotices(TProjectTabs& projects, QWidget& window);

  /// Brings the strips in line with the steps that can be undone.
  void Update();
  /// The strips of a project; null when it is not open.
  TNoticeBox* BoxOf(const TOpenProject& project) const;

private:
  struct TShown {
    const TOpenProject* Project; // gone when the box is
    QPointer<TNoticeBox> Box;
    std::uint64_t Step = 0; // that the strip of a reconcile is about; 0: there is none
  };

  void Opened(TOpenProject& project);
  void Reconciled(TOpenProject& project, const TReconciled& done);
  void ShowDifference(TOpenProject& project, const TReconciled& done);
  TShown* Find(const TOpenProject& project);

  TProjectTabs& FProjects;
  QWidget& FWindow;
  std::vector<TShown> FShown;
};

} // namespace workbench
