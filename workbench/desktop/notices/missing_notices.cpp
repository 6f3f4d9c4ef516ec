#include "workbench/desktop/notices/missing_notices.h"

#include "package/common/path_text.h"
#include "package/host/api/file_columns.h"
#include "workbench/desktop/dialogs/profiles/profile_manager_dialog.h"
#include "workbench/desktop/notices/project_notices.h"
#include "workbench/desktop/projects/project_tabs.h"
#include "workbench/desktop/projects/shown_target.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/session/session.h"

#include <QDir>
#include <utility>

namespace workbench {
namespace {

constexpr const char* ProfileSubject = "profile";
constexpr const char* OutputSubject = "output";

// Where deploys of a profile go that its person did not make: easily found and easily removed.
std::filesystem::path FolderFor(const std::string& profile) {
  return std::filesystem::path(ToPathText(QDir::homePath())) / "Deployed" / profile;
}

// What a menu or a button would take for something else stays out, too.
bool IsNameOfFile(const std::string& profile) {
  return profile != "." && profile != ".." && profile.find_first_of("/&") == std::string::npos;
}

} // namespace

TMissingNotices::TMissingNotices(TSession& session, TProjectTabs& projects,
                                 TProjectNotices& notices, std::function<void()> showProfiles,
                                 QWidget& window)
    : QObject(&window), FSession(session), FProjects(projects), FNotices(notices),
      FShowProfiles(std::move(showProfiles)), FWindow(window) {}

void TMissingNotices::Update(TOpenProject* project) {
  const TFormControls* controls = project ? FProjects.ControlsOf(*project) : nullptr;
  const TProjectEdits* edits = project ? FProjects.EditsOf(*project) : nullptr;
  if (!controls || !edits)
    return;
  const deployment::TDeploymentTarget target = ShownTarget(*controls);
  if (project != FLooked.Project || target.Platform != FLooked.Target.Platform ||
      target.Configuration != FLooked.Target.Configuration ||
      edits->History().LastStep() != FLooked.Step)
    Look(project);
}

void TMissingNotices::Look(TOpenProject* project) {
  const TFormControls* controls = project ? FProjects.ControlsOf(*project) : nullptr;
  TNoticeBox* box = project ? FNotices.BoxOf(*project) : nullptr;
  if (!controls || !box)
    return;
  if (FLooked.Project != project)
    FLooked = {};
  FLooked.Project = project;
  FLooked.Target = ShownTarget(*controls);
  FLooked.Step = FProjects.EditsOf(*project)->History().LastStep();
  TMissingParts missing = FindMissingParts(FSession, *project, FLooked.Target);
  // A strip that was closed comes again when something else is missing.
  if (missing.Profile.empty())
    box->Remove(ProfileSubject);
  else if (missing.Profile != FLooked.Profile)
    ShowProfile(*project, *box, missing.Profile);
  if (missing.Output.empty())
    box->Remove(OutputSubject);
  else if (missing.Output != FLooked.Output)
    ShowOutput(*project, *box, missing.Output);
  FLooked.Profile = std::move(missing.Profile);
  FLooked.Output = std::move(missing.Output);
}

void TMissingNotices::ShowProfile(TOpenProject& project, TNoticeBox& box, const std::string& name) {
  const std::string platform = FLooked.Target.Platform;
  TNotice notice{
      tr("The project goes to %1 by the remote profile %2, which is not on this machine.")
          .arg(ToQString(platform), ToQString(name)),
      {}};
  if (IsNameOfFile(name)) {
    const std::filesystem::path folder = FolderFor(name);
    notice.Actions.push_back(
        {tr("Use the &Folder %1").arg(QStringLiteral("~/Deployed/") + ToQString(name)),
         [this, &project, name, folder] { UseFolder(project, name, folder); }});
  }
  notice.Actions.push_back({tr("&Make It…"), [this, &project, platform, name] {
                              CreateAndAssignProfile(FSession, project, platform, &FWindow, name);
                              Look(&project);
                            }});
  notice.Actions.push_back({tr("C&hoose Another…"), [this, &project] {
                              FShowProfiles();
                              Look(&project);
                            }});
  box.Show(ProfileSubject, notice);
}

void TMissingNotices::UseFolder(TOpenProject& project, const std::string& name,
                                const std::filesystem::path& folder) {
  std::filesystem::create_directories(folder);
  TProfile profile;
  profile.Name = name;
  profile.Platform = FLooked.Target.Platform;
  profile.Path = folder.string();
  FSession.RemoteProfiles().AddProfile(profile);
  Look(&project);
}

void TMissingNotices::ShowOutput(TOpenProject& project, TNoticeBox& box,
                                 const std::string& localName) {
  box.Show(OutputSubject,
           {tr("%1, which a build of the project makes, is not there: build it first, or the "
               "deploy goes without it.")
                .arg(ToQString(localName)),
            {{tr("&Go to Row"), [this, &project, localName] { SelectRow(project, localName); }}}});
}

void TMissingNotices::SelectRow(const TOpenProject& project, const std::string& localName) const {
  const TFormControls* controls = FProjects.ControlsOf(project);
  if (!controls || !controls->Tree())
    return;
  TTreeView& view = controls->Tree()->View();
  const QString name = ToQString(deployment::FileNamePart(localName));
  const QModelIndexList found =
      view.model()->match(view.model()->index(0, deployment::file_column::LocalName),
                          Qt::DisplayRole, name, 1, Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (found.isEmpty())
    return;
  view.setCurrentIndex(found.front());
  view.setFocus();
}

} // namespace workbench
