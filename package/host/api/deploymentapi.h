// Host unit Deploymentapi: the deployment contract, which the package implements and hosts use.
#pragma once

#include "package/common/errors.h"
#include "package/common/ordered_dictionary.h"
#include "package/host/api/deployment_target.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace deployment {

class ICustomProject;
class IFeatureFileForm;
class IOTAProject;
class IProjectDeployment;
class IReconcileJournal;

/// The root configuration; an entry without a configuration counts as one of it.
inline constexpr std::string_view BaseConfiguration = "Base";

/// Under this name an entry keeps the record that answers for every platform without its own.
inline constexpr std::string_view FallbackPlatform = "All";

/// What is done with a file on the target. The ordinals are written into project files and never
/// change; Default is the neutral one, which is not written and leaves the choice to the class.
enum class TDeployOperation : std::uint8_t {
  Copy = 0,           ///< copy the file
  CopyExecutable = 1, ///< copy it and give it the right to be executed
  Unpack = 2,         ///< copy an archive and unpack it into the remote directory
  Run = 3,            ///< copy the file and run it on the target
  RunAndRemove = 4,   ///< copy it, run it and remove it again
  Remove = 5,         ///< remove the file from the target
  Default = 6,
};

/// Number of operations: ordinals from 0 up to, not including, this one are valid.
inline constexpr int DeployOperationCount = 7;

/// What happened to an entry, as told to listeners.
enum class TDeploymentItemAction { Added = 0, Modified = 1, Removed = 2 };

/// Outcome of a reconcile. The values are those that hosts exchange.
enum class TReconcileResult { Reconciled = 0, CannotReconcile = 4 };

/// Commands run around the copy of one file, in order.
using TCommandList = std::vector<std::string>;

/// Per-platform record of any entry.
struct TDeployData {
  TDeployData() = default;
  TDeployData(const TDeployData&) = delete;
  TDeployData& operator=(const TDeployData&) = delete;
  virtual ~TDeployData() = default;

  TCommandList LocalCommands;
  TDeployOperation Operation = TDeployOperation::Default;
  TCommandList RemoteCommands;
  std::string RemoteDir; ///< on the target, relative to the deployment root; empty: the class's
};

/// Per-platform record of a file.
struct TFileData : TDeployData {
  std::string RemoteName; ///< empty: the same as the local file name
  bool Enabled = true;
  bool Overwrite = true;
};

/// Per-platform record of a class.
struct TClassData : TDeployData {
  std::string Extensions; ///< ";"-delimited, each with its dot
};

/// What files and classes of a deployment have in common. Implemented by the package; entries are
/// owned by their deployment. Platforms are platform names, compared exactly. A platform without
/// a record of its own is answered from the "All" record, and from the stated default when there
/// is none. Setters work on the platform's own record, which they make; a setter that changes a
/// value tells the deployment, one that changes nothing stays silent.
class IProjectDeploymentItem {
public:
  virtual ~IProjectDeploymentItem() = default;

  /// Names of the platforms with a record of their own, in order.
  virtual std::vector<std::string> GetPlatforms() const = 0;
  virtual void RemovePlatform(std::string_view platform) = 0;

  /// MSBuild condition of the entry; empty when it has none.
  virtual const std::string& GetCondition() const = 0;
  virtual void SetCondition(std::string_view value) = 0;
  virtual bool GetRequired() const = 0;
  virtual void SetRequired(bool value) = 0;

  /// Default: empty.
  virtual const std::string& GetRemoteDir(std::string_view platform) const = 0;
  virtual void SetRemoteDir(std::string_view platform, std::string_view value) = 0;
  /// Default: TDeployOperation::Default.
  virtual TDeployOperation GetOperation(std::string_view platform) const = 0;
  virtual void SetOperation(std::string_view platform, TDeployOperation value) = 0;
  /// The record's own list, for callers to change; null when there is no record.
  virtual TCommandList* GetLocalCommands(std::string_view platform) = 0;
  virtual TCommandList* GetRemoteCommands(std::string_view platform) = 0;
};

/// One local file of a deployment.
class IProjectDeploymentFile : public virtual IProjectDeploymentItem {
public:
  /// Path as stored: may hold macros, may be relative to the project.
  virtual const std::string& GetLocalName() const = 0;
  virtual void SetLocalName(std::string_view value) = 0;
  /// Id of the class that the file belongs to; may name no class at all.
  virtual const std::string& GetDeploymentClass() const = 0;
  virtual void SetDeploymentClass(std::string_view value) = 0;
  /// Empty counts as "Base".
  virtual const std::string& GetConfiguration() const = 0;
  virtual void SetConfiguration(std::string_view value) = 0;
  /// The platform for which the entry was made.
  virtual const std::string& GetFilePlatform() const = 0;
  virtual void SetFilePlatform(std::string_view value) = 0;

  /// Default: false.
  virtual bool GetEnabled(std::string_view platform) const = 0;
  virtual void SetEnabled(std::string_view platform, bool value) = 0;
  /// Default: true.
  virtual bool GetOverwrite(std::string_view platform) const = 0;
  virtual void SetOverwrite(std::string_view platform, bool value) = 0;
  /// The stored remote name; when that is empty, the file name part of the local name.
  virtual std::string GetRemoteName(std::string_view platform) const = 0;
  /// An empty value restores the default.
  virtual void SetRemoteName(std::string_view platform, std::string_view value) = 0;

  /// The record that answers for the platform; null when there is none. With `create` the platform
  /// gets a record of its own first. The entry owns the record; writing to it signals nothing.
  virtual TFileData* GetFileData(std::string_view platform, bool create) = 0;
};

/// A named category of files with defaults for its members.
class IProjectDeploymentClass : public virtual IProjectDeploymentItem {
public:
  virtual const std::string& GetClassId() const = 0;
  virtual void SetClassId(std::string_view value) = 0;
  /// Text for the user; may be empty.
  virtual const std::string& GetDescription() const = 0;
  virtual void SetDescription(std::string_view value) = 0;
  /// ";"-delimited extensions with their dots. Default: empty.
  virtual const std::string& GetExtensions(std::string_view platform) const = 0;
  virtual void SetExtensions(std::string_view platform, std::string_view value) = 0;
  /// True when the class claims the extension of the file name on the platform, ignoring case.
  virtual bool MatchesExtension(std::string_view fileName, std::string_view platform) const = 0;
};

using TDeploymentFiles = std::vector<std::shared_ptr<IProjectDeploymentFile>>;
using TDeploymentClasses = std::vector<std::shared_ptr<IProjectDeploymentClass>>;

/// A listener of one deployment. Implemented by views and hosts; the deployment shares ownership
/// while the listener is registered. It must not throw, since a change is told in its middle.
class IProjectDeploymentNotifier {
public:
  virtual ~IProjectDeploymentNotifier() = default;
  /// An entry was added, changed or removed. A removed one is still alive during the call.
  virtual void ItemChanged(IProjectDeploymentItem& item, TDeploymentItemAction action) = 0;
  /// The default deployment of the named project was read; each of its files was told before.
  virtual void Loaded(std::string_view projectName) = 0;
  /// The deployment goes away; it must not be asked anything any more.
  virtual void Destroyed() = 0;
};

/// The file entries of a deployment. An entry is stored under its key: configuration, platform and
/// local name joined, as given when it was added. A later change of the entry does not move it.
/// Strings compare exactly unless stated.
class IDeploymentFileList {
public:
  virtual ~IDeploymentFileList() = default;

  /// Makes an entry that no deployment holds yet.
  virtual std::shared_ptr<IProjectDeploymentFile> CreateFile(std::string_view configuration,
                                                             std::string_view platform,
                                                             std::string_view localName) = 0;
  /// Makes an entry and adds it; an entry under the same key is replaced silently.
  virtual std::shared_ptr<IProjectDeploymentFile> AddFile(std::string_view configuration,
                                                          std::string_view platform,
                                                          std::string_view localName) = 0;
  /// Adds an entry that CreateFile made. Throws std::invalid_argument for any other.
  virtual void AddFileEntry(std::string_view configuration, std::string_view platform,
                            const std::shared_ptr<IProjectDeploymentFile>& file) = 0;
  /// All entries in order, after the default deployment was made sure of.
  virtual TDeploymentFiles GetFiles() = 0;
  /// The entry under the key; null when absent.
  virtual std::shared_ptr<IProjectDeploymentFile> GetFile(std::string_view key) = 0;
  /// The entry under the key made of both parts; null when absent.
  virtual std::shared_ptr<IProjectDeploymentFile> GetFile(std::string_view configuration,
                                                          std::string_view platform) = 0;
  /// The entry under the three-part key; null when absent.
  virtual std::shared_ptr<IProjectDeploymentFile> FindFile(std::string_view configuration,
                                                           std::string_view platform,
                                                           std::string_view localName) = 0;
  /// Every entry that matches all non-empty arguments, ignoring case, in order.
  virtual TDeploymentFiles FindFiles(std::string_view localName, std::string_view configuration,
                                     std::string_view platform, std::string_view className) = 0;
  /// Removes the entry under the three-part key; does nothing when absent.
  virtual void RemoveFile(std::string_view configuration, std::string_view platform,
                          std::string_view localName) = 0;
  /// Removes this very entry, whatever its names are by now; does nothing when it is not held.
  virtual void RemoveFileEntry(const IProjectDeploymentFile& file) = 0;
  /// Removes every entry of the class, ignoring case.
  virtual void RemoveFilesOfClass(std::string_view className) = 0;
};

/// The classes of a deployment.
class IDeploymentClassList {
public:
  virtual ~IDeploymentClassList() = default;
  /// Makes a class that no deployment holds yet.
  virtual std::shared_ptr<IProjectDeploymentClass> CreateClass() = 0;
  /// Stores a class that CreateClass made under its id, in place of one with the same id.
  virtual void AddClass(const std::shared_ptr<IProjectDeploymentClass>& deploymentClass) = 0;
  virtual TDeploymentClasses GetClasses() const = 0;
  /// The class of that id, compared exactly; null when absent.
  virtual std::shared_ptr<IProjectDeploymentClass> FindClass(std::string_view classId) const = 0;
};

/// Names of the project's directory on the targets.
class IDeploymentRoots {
public:
  virtual ~IDeploymentRoots() = default;
  /// Stores the root name of a platform, an empty one too.
  virtual void SetProjectRoot(std::string_view platform, std::string_view name) = 0;
  /// Empty when the platform has none.
  virtual std::string GetProjectRoot(std::string_view platform) const = 0;
  /// Platform and root name, in order.
  virtual const TOrderedDictionary<std::string>& GetProjectRoots() const = 0;
  /// The project's directory on the platform's target, relative to the place that a profile names:
  /// the platform's root name, or the project's name when it has none. Never empty for a named
  /// project.
  virtual std::string GetRemoteBaseDir(std::string_view platform) const = 0;
};

/// Modules of the project that changed their place since the last save.
class IDeploymentModuleChanges {
public:
  virtual ~IDeploymentModuleChanges() = default;
  virtual void ModuleRenamed(std::string_view oldName, std::string_view newName) = 0;
  virtual void ModuleRemoved(std::string_view name) = 0;
  /// Old name and new name, in order.
  virtual const TOrderedDictionary<std::string>& GetRenamedModules() const = 0;
  virtual const std::vector<std::string>& GetRemovedModules() const = 0;
};

/// The deployment of one project. Implemented by the package, attached to the project module and
/// destroyed with it. Used on the host's main thread only.
class IProjectDeployment : public IDeploymentFileList,
                           public IDeploymentClassList,
                           public IDeploymentRoots,
                           public IDeploymentModuleChanges {
public:
  /// Appends a listener; returns the index under which it is removed again. Indexes stay good.
  virtual int AddNotifier(std::shared_ptr<IProjectDeploymentNotifier> notifier) = 0;
  /// An index that is not registered is ignored.
  virtual void RemoveNotifier(int index) = 0;
  /// While blocked, changes are made but told to no listener.
  virtual void SetBlockNotification(bool block) = 0;

  /// Drops all files and classes.
  virtual void Clear() = 0;
  /// Takes the platforms away from every file but those of class "File", then drops all classes.
  virtual void Clear(std::span<const std::string> platforms) = 0;
  /// True when there are neither files nor classes.
  virtual bool IsEmpty() const = 0;

  /// Brings the default entries of the target in line with the project's settings. Empty names
  /// mean the project's current ones. With `reconcileInternally` the package list counts as empty.
  /// Throws what the host throws; then nothing has changed, but what a person chose in a dialog.
  virtual TReconcileResult Reconcile(std::string_view configuration, std::string_view platform,
                                     bool reconcileInternally) = 0;
  virtual TReconcileResult Reconcile(std::string_view configuration, std::string_view platform) = 0;
  /// The first form, telling why each file is or is not in the list.
  virtual TReconcileResult Reconcile(std::string_view configuration, std::string_view platform,
                                     bool reconcileInternally, IReconcileJournal& journal) = 0;

  /// Takes the platforms away from every default entry (and, without `keepAddedFiles`, from those
  /// of class "File" too), drops entries that belong to no platform any more, reads the default
  /// classes again and reconciles all configurations of the platforms. Listeners are told when all
  /// is done. Throws what reading the defaults and reconciling throw; then nothing has changed.
  virtual void Revert(std::span<const std::string> platforms, bool keepAddedFiles) = 0;

  /// Writes "<project>.deployproj" beside the project file. Throws what the host's save throws.
  virtual void SaveToDeployProj() = 0;
};

/// What a Deployment Manager shows when it opens.
struct TShowRequest {
  TDeploymentTarget Target;
  bool Connect = false; ///< connects at once; the rows come when the attempt has ended
};

/// Opens the Deployment Manager of a project, and its dialog of optional files. Implemented by the
/// package, registered with the host.
class IOTADeploymentService {
public:
  virtual ~IOTADeploymentService() = default;
  /// Shows the project's active target; a view that is open already comes forward as it is.
  virtual void DeployManagerProject(const std::shared_ptr<IOTAProject>& project) = 0;
  /// Shows the target that is asked for, also in a view that is open already. Returns why the
  /// target could not be computed; the view shows what the list holds then, with the sentence. The
  /// error is of the package's making and must not outlive it.
  virtual std::optional<TInputError> ShowDeployment(const std::shared_ptr<IOTAProject>& project,
                                                    const TShowRequest& request) = 0;
  /// The dialog of optional files for an extension with its dot: what it holds, for whoever wants
  /// to look without showing it. Empty means every feature. The form is good as long as the
  /// project. Throws TInputError when the catalog cannot be understood.
  virtual std::shared_ptr<const IFeatureFileForm> GetFeaturedFiles(ICustomProject& project,
                                                                   std::string_view extension) = 0;
  /// Shows the dialog of all optional files and applies what is chosen. Its box "Show automatically
  /// when required" is that of the user's settings. Throws as above; nothing has changed then.
  virtual void ModifyFeaturedFiles(ICustomProject& project) = 0;
};

// The effective values of a file: its own; where that is empty, neutral or unset, its class's.

/// Empty when neither the file nor its class names a directory.
std::string GetDeploymentRemoteDir(const IProjectDeploymentFile& file, std::string_view platform,
                                   const IDeploymentClassList& classes);
TDeployOperation GetDeploymentOperation(const IProjectDeploymentFile& file,
                                        std::string_view platform,
                                        const IDeploymentClassList& classes);
bool GetDeploymentRequired(const IProjectDeploymentFile& file, const IDeploymentClassList& classes);
TCommandList GetDeploymentLocalCommands(IProjectDeploymentFile& file, std::string_view platform,
                                        const IDeploymentClassList& classes);
TCommandList GetDeploymentRemoteCommands(IProjectDeploymentFile& file, std::string_view platform,
                                         const IDeploymentClassList& classes);

} // namespace deployment
