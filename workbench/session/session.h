// A session: the host with the package loaded, and the projects that are open in it. Both faces of
// the workbench work on this object.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "package/host/api/entry_paths.h"
#include "package/host/api/forms.h"
#include "package/host/api/toolsapi.h"
#include "workbench/msbuild/environment.h"
#include "workbench/text/warning.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

class IEditorArea;
class TPlatformTable;
struct TLabelledItem;
class TProjectSettings;
class TRemoteProfileServices;
class TSettings;
class TSolution;

/// What a session is made with.
struct TSessionOptions {
  std::filesystem::path Root;  ///< from "--root"; empty: by environment, then the built-in place
  TNamedTexts Properties = {}; ///< that every project is evaluated with, as a build would be given
};

/// What a project is opened for.
enum class TOpenPurpose {
  Look, ///< nothing will be saved, or a save takes the lock for itself
  Edit, ///< the file is locked against other runs from before it is read until it is closed
};

/// Outcome of a save.
struct TSaveReport {
  bool ProjectWritten = false;  ///< false: the file has been what it should be already
  bool SideFileWritten = false; ///< false: it has been what it should be already
  std::filesystem::path SideFile;
};

/// One project that is open. Owned by the session; closed with it.
class TOpenProject {
public:
  virtual ~TOpenProject() = default;

  /// The file under the name that the user gave.
  virtual const std::filesystem::path& GivenFileName() const = 0;
  /// The solution that it was opened with; null when it was opened by itself.
  virtual const std::shared_ptr<const TSolution>& Solution() const = 0;
  virtual deployment::IOTAProject& Project() = 0;
  /// The same for who holds it while the project is open, such as a view.
  virtual std::shared_ptr<deployment::IOTAProject> SharedProject() = 0;
  /// Throws TInputError when the project carries no deployment.
  virtual deployment::IProjectDeployment& Deployment() = 0;
  /// Configurations, platforms and evaluated properties of the project.
  virtual const TProjectSettings& Settings() const = 0;
  /// "Version" of the section as the file said when it was read; 0 when it said nothing.
  virtual int SectionVersionRead() const = 0;
  /// True when the file was read in an older layout, so that a save brings it up to date.
  virtual bool WasUpgraded() const = 0;
  /// What reading the project and working on it brought up so far, in order.
  virtual const std::vector<TWarning>& Warnings() const = 0;

  /// True when the deployment changed since it was read or saved.
  virtual bool HasChanges() const = 0;
  /// True when properties of the project wait for a save.
  virtual bool HasPropertyChanges() const = 0;
  /// True when the file on disk is not what was read or saved last, or is gone.
  virtual bool IsChangedOnDisk() const = 0;
  /// Says that the deployment changed in a way that listeners do not hear of.
  virtual void MarkChanged() = 0;

  /// Items that the project keeps for the workbench in a group of that label; none when it has no
  /// such group.
  virtual std::vector<TLabelledItem> LabelledItems(std::string_view label) = 0;
  /// Sets them; a save writes them. Throws TInputError when the project has no such group.
  virtual void SetLabelledItems(std::string_view label, std::vector<TLabelledItem> items) = 0;

  /// Throws TInputError, which says where it was looked for, when something that a save stores or
  /// writes from is not installed: the template of the side file, and for a project without a list
  /// the default classes.
  virtual void RequireShippedFiles() = 0;
  /// Writes the project when it has changes, and then the side file. With `force` a file that
  /// changed on disk since it was read is overwritten. Throws TSaveError, and TInputError as above;
  /// then the file on disk is what it was before.
  virtual TSaveReport Save(bool force) = 0;
  /// Assigns a remote profile to one of the project's platforms and writes that alone, whatever
  /// else changed; an empty name takes the profile away. True when the file on disk was another
  /// one. Throws TInputError where the project leaves no place for it, and TSaveError.
  virtual bool AssignProfile(std::string_view platform, std::string_view profile, bool force) = 0;
  /// Writes the project alone; true when the file on disk was another one.
  virtual bool SaveProjectFile(bool force) = 0;
  /// Writes the side file alone. Throws TSaveError, and TInputError as above.
  virtual TSaveReport Export() = 0;
  /// What Export would do; nothing is written. Throws TInputError.
  virtual TSaveReport PlanExport() = 0;
  /// The name that the project's file has now when it was renamed in its directory; nothing when it
  /// is still there or gone altogether.
  virtual std::optional<std::filesystem::path> FindRenamed() const = 0;
};

/// The host and everything in it. Errors that the package raises are made of its code, which is
/// unloaded with the session: they must be handled while the session lives.
class TSession {
public:
  /// Makes the services, loads the package and tells it that the host is ready. Throws TInputError
  /// when the platform table cannot be read or the package cannot be loaded.
  explicit TSession(const TSessionOptions& options);
  ~TSession();
  TSession(const TSession&) = delete;
  TSession& operator=(const TSession&) = delete;

  /// Opens a project file and reads its deployment. Throws TInputError when it cannot be read, and
  /// TSaveError when another run holds it for longer than ten seconds; nothing is open then. With a
  /// solution the project answers as its builds in that solution do; null: in the nearest that
  /// names it.
  TOpenProject& Open(const std::filesystem::path& file, TOpenPurpose purpose,
                     std::shared_ptr<const TSolution> solution = nullptr);
  /// Writes a new project file from its text and runs the first-content step of every section
  /// owner on it. Throws TSaveError when the file exists already or cannot be written.
  void Create(const std::filesystem::path& file, std::string_view projectText);
  /// Writes the project and its side file under another name, under which it goes on; the files of
  /// the old name stay. Packages hear that it was renamed. Throws TSaveError when the file exists
  /// and may not be overwritten or cannot be written, and TInputError when an open project has the
  /// name; then nothing changed, unless the error says that the side file alone was not written.
  TSaveReport SaveAs(TOpenProject& project, const std::filesystem::path& file, bool overwrite);
  /// The project goes on under another name, which its file has got already. Packages hear of it.
  /// Throws TInputError when an open project has the name.
  void Rename(TOpenProject& project, const std::filesystem::path& file);
  /// Closes it without saving.
  void Close(TOpenProject& project);
  /// The open project of that file, under whatever spelling of its name; null for none.
  TOpenProject* FindOpen(const std::filesystem::path& file);

  /// Shows the views of the package from now on; null, as at the start: none are shown. Not owned;
  /// must outlive the projects whose views it shows.
  void SetEditorArea(IEditorArea* area);
  /// Closes the views that are shown.
  void CloseViews();
  /// Opens the Deployment Manager of the project in the editor area, or brings it forward, and
  /// shows what is asked for. Returns why the target could not be computed; the view shows what the
  /// list holds then. Throws TInputError when the view of another open project has its name, see
  /// IsSameProject.
  std::optional<deployment::TInputError> ShowDeployment(TOpenProject& project,
                                                        const deployment::TShowRequest& request);
  /// The dialogs and views that the package offers. Throws TInputError when it offers none.
  deployment::IOTADeploymentService& DeploymentService();
  /// Shows dialogs of the package from now on; null, as at the start: none are shown. Not owned.
  void SetModalForms(deployment::IModalForms* forms);

  const TPlatformTable& Platforms() const;
  /// The user's remote profiles, and what is done through them.
  TRemoteProfileServices& RemoteProfiles();
  /// The user's settings.
  TSettings& Settings();
  /// Where the entries of a target are on this machine and land on the target: from the path of its
  /// profile on, or in the folder that is packed here. The project must be open as long as the
  /// object is used.
  deployment::TEntryPaths PathsOf(TOpenProject& project,
                                  const deployment::TDeploymentTarget& target);
  /// Root directory whose ObjRepos/Deploy is in use.
  const std::filesystem::path& Root() const;
  /// Throws TInputError when the files that ship with the workbench are not where they are looked
  /// for.
  void CheckInstallation() const;
  /// Throws the same when the default classes are not there.
  void RequireDefaults() const;
  /// The classes that ship with the workbench, for projects without a list of their own. Variables
  /// of the template are filled with empty texts. Throws TInputError.
  std::vector<std::shared_ptr<deployment::IProjectDeploymentClass>> ShippedClasses();

private:
  struct TImpl;
  std::unique_ptr<TImpl> FImpl;
};

} // namespace workbench
