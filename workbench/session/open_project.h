// A project that a session has open: module, deployment, lock and what happened to them.
#pragma once

#include "workbench/files/file_lock.h"
#include "workbench/msbuild/msbuild_document.h"
#include "workbench/services/ide_services.h"
#include "workbench/services/project_module.h"
#include "workbench/session/session.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <sys/types.h>
#include <vector>

namespace workbench {

class TOpenProjectFile final : public TOpenProject {
public:
  /// Reads the project and its deployment. Throws as TSession::Open does.
  TOpenProjectFile(TIDEServices& services, const TPlatformTable& platforms,
                   const std::filesystem::path& file, TOpenPurpose purpose, TNamedTexts properties,
                   std::shared_ptr<const TSolution> solution);
  ~TOpenProjectFile() override;

  const std::filesystem::path& GivenFileName() const override { return FGivenName; }
  const std::shared_ptr<const TSolution>& Solution() const override { return FSolution; }
  deployment::IOTAProject& Project() override { return *FModule; }
  std::shared_ptr<deployment::IOTAProject> SharedProject() override { return FModule; }
  deployment::IProjectDeployment& Deployment() override;
  const TProjectSettings& Settings() const override { return FModule->Settings(); }
  int SectionVersionRead() const override { return FLayoutRead.Version; }
  bool WasUpgraded() const override { return FLayoutRead.IsOutdated; }
  const std::vector<TWarning>& Warnings() const override;
  bool HasChanges() const override;
  bool HasPropertyChanges() const override;
  bool IsChangedOnDisk() const override;
  void MarkChanged() override { FMarkedChanged = true; }
  std::vector<TLabelledItem> LabelledItems(std::string_view label) override;
  void SetLabelledItems(std::string_view label, std::vector<TLabelledItem> items) override;
  void RequireShippedFiles() override;
  TSaveReport Save(bool force) override;
  bool AssignProfile(std::string_view platform, std::string_view profile, bool force) override;
  bool SaveProjectFile(bool force) override;
  TSaveReport Export() override;
  TSaveReport PlanExport() override;
  std::optional<std::filesystem::path> FindRenamed() const override;

  /// See TSession::SaveAs and TSession::Rename, which tell packages.
  TSaveReport SaveAs(const std::filesystem::path& file, bool overwrite);
  void Rename(const std::filesystem::path& file);
  /// Export whose error says that the project itself is saved.
  TSaveReport ExportAfterSave();

  /// Whether a view of the package shows this very project.
  bool IsShown() const { return FIsShown; }
  void SetShown() { FIsShown = true; }
  /// Packages do not hear that it closes.
  void CloseInSilence() { FIsClosingAnnounced = false; }

private:
  class TChangeListener;
  /// What stays when a file gets another name.
  struct TFileNumber {
    dev_t Device = 0;
    ino_t Inode = 0;
    bool operator==(const TFileNumber&) const = default;
  };

  static std::optional<TFileNumber> FileNumberOf(const std::filesystem::path& file);

  TSaveReport WriteSideFile(TMSBuildDocument::TSaveMode mode);
  bool Write(std::unique_ptr<TTextPieces> pieces, bool force);
  void MarkSaved();
  void TakeFileNumber();
  void CollectNotes() const;

  TIDEServices& FServices;
  std::filesystem::path FGivenName;
  const std::shared_ptr<const TSolution> FSolution;
  std::optional<TFileLock> FLock;
  std::shared_ptr<TProjectModule> FModule; ///< views share it until they are closed
  std::shared_ptr<TChangeListener> FListener;
  int FListenerIndex = -1;
  deployment::TSectionLayout FLayoutRead;
  bool FWasEmpty = true; // no entries when it was read, so whatever is there now is new
  bool FMarkedChanged = false;
  TFileNumber FFileNumber; // of the file that was read or written last
  bool FIsShown = false;
  bool FIsClosingAnnounced = true;
  mutable std::size_t FNotesTaken = 0;
  mutable std::vector<TWarning> FWarnings; // those that still wait are taken when asked for
};

} // namespace workbench
