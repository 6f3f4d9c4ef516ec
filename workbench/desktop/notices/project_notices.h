// What is said above the rows of each open project: what a reconcile changed, that the list was of
// an older version, which optional files fit.
#pragma once

#include "workbench/desktop/notices/notice_box.h"
#include "workbench/desktop/projects/project_edits.h"

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <cstdint>
#include <vector>

namespace workbench {

class TProjectTabs;
class TSettings;

class TProjectNotices final : public QObject {
  Q_OBJECT

public:
  /// Projects and settings must outlive the object. Dialogs stand before the window.
  TProjectNotices(TProjectTabs& projects, TSettings& settings, QWidget& window);

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
  void FeaturesOffered(TOpenProject& project, const QStringList& titles);
  void ChooseFeatures(TOpenProject& project);
  void DeclineFeatures(const TOpenProject& project);
  void ShowDifference(TOpenProject& project, const TReconciled& done);
  TShown* Find(const TOpenProject& project);

  TProjectTabs& FProjects;
  TSettings& FSettings;
  QWidget& FWindow;
  std::vector<TShown> FShown;
};

} // namespace workbench
