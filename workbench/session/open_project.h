// A project that a session has open: module, deployment, lock and what happened to them.
#pragma once

#include "workbench/files/file_lock.h"
#include "workbench/services/ide_services.h"
#include "workbench/services/project_module.h"
#include "workbench/session/session.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace workbench {

class TOpenProjectFile final : public TOpenProject {
public:
  /// Reads the project and its deployment. Throws as TSession::Open does.
  TOpenProjectFile(TIDEServices& services, const TPlatformTable& platforms,
                   const std::filesystem::path& file, TOpenPurpose purpose, TNamedTexts properties);
  ~TOpenProjectFile() override;

  const std::filesystem::path& GivenFileName() const override { return FGivenName; }
  deployment::IOTAProject& Project() override { return *FModule; }
  std::shared_ptr<deployment::IOTAProject> SharedProject() override { return FModule; }
  deployment::IProjectDeployment& Deployment() override;
  const TProjectSettings& Settings() const override { return FModule->Settings(); }
  int SectionVersionRead() const override { return FVersionRead; }
  bool WasUpgraded() const override { return FWasUpgraded; }
  const std::vector<TWarning>& Warnings() const override;
  bool HasChanges() const override;
  bool HasPropertyChanges() const override;
  bool IsChangedOnDisk() const override;
  void MarkChanged() override { FMarkedChanged = true; }
  void RequireShippedFiles() override;
  TSaveReport Save(bool force) override;
  bool AssignProfile(std::string_view platform, std::string_view profile, bool force) override;
  bool SaveProjectFile(bool force) override;
  TSaveReport Export() override;
  TSaveReport PlanExport() override;

  /// Whether a view of the package shows this very project.
  bool IsShown() const { return FIsShown; }
  void SetShown() { FIsShown = true; }
  /// Packages do not hear that it closes.
  void CloseInSilence() { FIsClosingAnnounced = false; }

private:
  class TChangeListener;

  void ReadVersion();
  TSaveReport WriteSideFile();
  bool Write(std::unique_ptr<TTextPieces> pieces, bool force);
  void CollectNotes() const;

  TIDEServices& FServices;
  const std::filesystem::path FGivenName;
  std::optional<TFileLock> FLock;
  std::shared_ptr<TProjectModule> FModule; ///< views share it until they are closed
  std::shared_ptr<TChangeListener> FListener;
  int FListenerIndex = -1;
  int FVersionRead = 0;
  bool FWasUpgraded = false;
  bool FWasEmpty = true; // no entries when it was read, so whatever is there now is new
  bool FMarkedChanged = false;
  bool FIsShown = false;
  bool FIsClosingAnnounced = true;
  mutable std::size_t FNotesTaken = 0;
  mutable std::vector<TWarning> FWarnings; // those that still wait are taken when asked for
};

} // namespace workbench
