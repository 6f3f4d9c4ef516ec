// Says above the rows what a project misses on this machine, with a button that mends it.
#pragma once

#include "workbench/desktop/notices/missing_parts.h"

#include <QObject>
#include <QString>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

class QWidget;

namespace workbench {

class TNoticeBox;
class TProjectNotices;
class TProjectTabs;

class TMissingNotices final : public QObject {
  Q_OBJECT

public:
  /// Everything must outlive the object. Dialogs stand before the window; `showProfiles` opens the
  /// user's profiles.
  TMissingNotices(TSession& session, TProjectTabs& projects, TProjectNotices& notices,
                  std::function<void()> showProfiles, QWidget& window);

  /// Looks anew at the project in front, where its target or its list is another one.
  void Update(TOpenProject* project);
  /// Looks in any case, as when files or profiles changed.
  void Look(TOpenProject* project);

private:
  /// What was looked at last.
  struct TLookedAt {
    const TOpenProject* Project = nullptr;
    deployment::TDeploymentTarget Target;
    std::uint64_t Step = 0;
    std::string Profile; ///< what was missing then
    std::string Output;
  };

  void ShowProfile(TOpenProject& project, TNoticeBox& box, const std::string& name);
  void ShowOutput(TOpenProject& project, TNoticeBox& box, const std::string& localName);
  void UseFolder(TOpenProject& project, const std::string& name,
                 const std::filesystem::path& folder);
  void SelectRow(const TOpenProject& project, const std::string& localName) const;

  TSession& FSession;
  TProjectTabs& FProjects;
  TProjectNotices& FNotices;
  const std::function<void()> FShowProfiles;
  QWidget& FWindow;
  TLookedAt FLooked;
};

} // namespace workbench
