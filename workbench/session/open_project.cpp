#include "workbench/session/open_project.h"

#include "package/common/convert.h"
#include "package/common/path_text.h"
#include "package/host/api/default_deployment.h"
#include "workbench/files/file_backup.h"
#include "workbench/files/file_reader.h"
#include "workbench/files/file_saver.h"
#include "workbench/files/machine_path.h"
#include "workbench/project/project_identity.h"
#include "workbench/services/app_strings.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <sys/stat.h>
#include <utility>

namespace workbench {
namespace {

std::filesystem::path FullPath(const std::filesystem::path& file) {
  if (file.empty())
    throw deployment::TInputError("the name of the project file is empty");
  // Stored paths take "\" for a delimiter, so such a project could not be told from another one.
  if (file.string().find('\\') != std::string::npos)
    throw deployment::TInputError(
        "the path holds a \"\\\", which this program takes for a path delimiter",
        {file.string(), 0});
  return FullProjectPath(file);
}

// A file that was damaged since it was last saved here can be had back.
[[noreturn]] void RethrowWithBackup(const deployment::TInputError& error,
                                    const std::filesystem::path& file) {
  const auto backup = NewestBackup(file);
  if (!backup || !std::filesystem::exists(file) || std::filesystem::is_directory(file))
    throw error;
  throw deployment::TInputError(std::string(error.what()) +
                                    " (the last content that was replaced here is kept as " +
                                    backup->string() + ")",
                                error.Place());
}

std::unique_ptr<TProjectDocument> ReadDocument(const std::filesystem::path& full,
                                               const std::filesystem::path& given,
                                               const std::string& section) {
  try {
    return std::make_unique<TProjectDocument>(given, section);
  } catch (const deployment::TInputError& error) {
    RethrowWithBackup(error, full);
  }
}

} // namespace

class TOpenProjectFile::TChangeListener final : public deployment::IProjectDeploymentNotifier {
public:
  void ItemChanged(deployment::IProjectDeploymentItem& /*item*/,
                   deployment::TDeploymentItemAction /*action*/) override {
    Changed = true;
  }
  void Loaded(std::string_view /*projectName*/) override {}
  void Destroyed() override {}

  bool Changed = false;
};

TOpenProjectFile::TOpenProjectFile(TIDEServices& services, const TPlatformTable& platforms,
                                   const std::filesystem::path& file, TOpenPurpose purpose,
                                   TNamedTexts properties,
                                   std::shared_ptr<const TSolution> solution)
    : FServices(services), FGivenName(file), FSolution(std::move(solution)),
      FListener(std::make_shared<TChangeListener>()) {
  const std::filesystem::path full = FullPath(file);
  // The kind of file is looked at before it is locked, since a lock opens it.
  if (purpose == TOpenPurpose::Edit)
    FLock.emplace(file);
  TProjectFileStorage& storage = FServices.GetProjectFileStorage();
  FModule = std::make_shared<TProjectModule>(full, ReadDocument(full, file, storage.SectionName()),
                                             platforms, FServices.GetSettings(),
                                             std::move(properties), FSolution);
  TakeFileNumber();
  FModule->SetDefaultProfile([&services](std::string_view platform) {
    return services.GetRemoteProfileServices()->GetDefaultProfileName(platform);
  });
  FServices.GetModuleHandlerGauntlet().AttachHandlers(*FModule);
  FLayoutRead = storage.SectionLayout(*FModule);
  storage.ProjectLoaded(*FModule);
  FModule->Settings(); // a project that cannot be evaluated is not opened
  CollectNotes();
  if (auto* deployment = FModule->GetProjectDeployment()) {
    FWasEmpty = deployment->IsEmpty();
    FListenerIndex = deployment->AddNotifier(FListener);
  }
}

TOpenProjectFile::~TOpenProjectFile() {
  if (FIsClosingAnnounced)
    FServices.GetProjectEvents()->EvProjectClosing().Raise(*FModule);
  if (FListenerIndex >= 0)
    FModule->GetProjectDeployment()->RemoveNotifier(FListenerIndex);
  FServices.GetProjectFileStorage().ProjectClosing(*FModule);
}

// Questions about a target may bring up what those about others did not. A document that was read
// anew after a save brings up the same once more.
void TOpenProjectFile::CollectNotes() const {
  const TEvaluationNotes* present = FModule->NotesSoFar();
  if (!present)
    return;
  const TEvaluationNotes& notes = *present;
  const auto isTold = [this](const TEvaluationNote& note) {
    return std::ranges::any_of(FWarnings, [&](const TWarning& warning) {
      return warning.Text == note.Text && warning.File == note.Place.File &&
             warning.Line == note.Place.Line;
    });
  };
  if (FNotesTaken > notes.size())
    FNotesTaken = 0;
  for (; FNotesTaken < notes.size(); ++FNotesTaken) {
    const TEvaluationNote& note = notes[FNotesTaken];
    if (!isTold(note))
      FWarnings.push_back({note.Text, note.Place.File, note.Place.Line,
                           /*IsRemark=*/note.Kind == TNoteKind::FromOutside});
  }
}

const std::vector<TWarning>& TOpenProjectFile::Warnings() const {
  CollectNotes();
  for (TWarning& warning : FServices.GetMessageServices().TakeWarnings())
    FWarnings.push_back(std::move(warning));
  return FWarnings;
}

deployment::IProjectDeployment& TOpenProjectFile::Deployment() {
  auto* deployment = FModule->GetProjectDeployment();
  if (!deployment)
    throw deployment::TInputError("the project carries no deployment", {FGivenName.string(), 0});
  return *deployment;
}

bool TOpenProjectFile::HasPropertyChanges() const {
  return FModule->Document().HasPropertyChanges();
}

bool TOpenProjectFile::HasChanges() const {
  const auto* deployment = FModule->GetProjectDeployment();
  return FMarkedChanged || FListener->Changed || HasPropertyChanges() ||
         (FWasEmpty && deployment && !deployment->IsEmpty());
}

bool TOpenProjectFile::IsChangedOnDisk() const {
  try {
    return !FModule->IsText(ReadWholeFile(FGivenName).Text());
  } catch (const deployment::TInputError&) {
    return true; // gone, or no file any more
  }
}

std::vector<TLabelledItem> TOpenProjectFile::LabelledItems(std::string_view label) {
  return FModule->Document().LabelledItems(label);
}

void TOpenProjectFile::SetLabelledItems(std::string_view label, std::vector<TLabelledItem> items) {
  FModule->Document().SetLabelledItems(label, std::move(items));
}

void TOpenProjectFile::RequireShippedFiles() {
  if (FWasEmpty)
    RequireShippedFile(FServices.GetAppStrings(), DefaultsFile);
  RequireShippedFile(FServices.GetAppStrings(), SideFileTemplate);
}

std::optional<TOpenProjectFile::TFileNumber>
TOpenProjectFile::FileNumberOf(const std::filesystem::path& file) {
  struct stat status = {};
  if (::stat(file.c_str(), &status) != 0)
    return std::nullopt;
  return TFileNumber{status.st_dev, status.st_ino};
}

void TOpenProjectFile::TakeFileNumber() {
  FFileNumber = FileNumberOf(FGivenName).value_or(TFileNumber());
}

std::optional<std::filesystem::path> TOpenProjectFile::FindRenamed() const {
  if (FileNumberOf(FGivenName) || FFileNumber == TFileNumber())
    return std::nullopt;
  std::error_code error;
  const auto directory = std::filesystem::absolute(FGivenName, error).parent_path();
  std::filesystem::directory_iterator entry(directory, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    if (FileNumberOf(entry->path()) == FFileNumber)
      return entry->path();
  }
  return std::nullopt;
}

void TOpenProjectFile::Rename(const std::filesystem::path& file) {
  const std::filesystem::path full = FullPath(file);
  FGivenName = file;
  FModule->Rename(full);
}

TSaveReport TOpenProjectFile::SaveAs(const std::filesystem::path& file, bool overwrite) {
  FullPath(file); // throws where there can be no such project
  std::unique_ptr<TTextPieces> pieces;
  TSaveRequest request;
  request.Target = file;
  request.Force = overwrite;
  TSaveReport report;
  try {
    deployment::EnsureDefaultDeployment(Deployment()); // as in SaveProjectFile
    pieces = FServices.GetProjectFileStorage().ComposeProject(*FModule);
    const std::vector<std::string_view> unchanged{FModule->Document().Bytes()};
    request.Content = pieces ? std::span<const std::string_view>(pieces->Pieces()) : unchanged;
    report.ProjectWritten = SaveFile(request).Written;
  } catch (const deployment::TInputError& error) {
    throw TSaveError(std::string("the project was not saved: ") + error.what(), file);
  }
  if (FLock)
    FLock.emplace(file);
  Rename(file);
  if (pieces)
    FModule->DocumentWasSaved(std::move(pieces));
  MarkSaved();
  return report;
}

TSaveReport TOpenProjectFile::Save(bool force) {
  TSaveReport report;
  if (!HasChanges())
    return report;
  RequireShippedFiles();
  const bool written = SaveProjectFile(force);
  report = ExportAfterSave();
  report.ProjectWritten = written;
  return report;
}

TSaveReport TOpenProjectFile::ExportAfterSave() {
  try {
    return Export();
  } catch (const deployment::TInputError& error) {
    throw TSaveError("the project is saved, but not its side file: " + error.Place().File + ": " +
                         error.what(),
                     FGivenName);
  }
}

bool TOpenProjectFile::Write(std::unique_ptr<TTextPieces> pieces, bool force) {
  TSaveRequest request;
  request.Target = FGivenName;
  request.Content = pieces->Pieces();
  request.Expected = FModule->Document().Bytes();
  request.Force = force;
  request.Lock = FLock ? &*FLock : nullptr;
  TSaveOutcome outcome = SaveFile(request);
  for (std::string& warning : outcome.Warnings)
    FWarnings.push_back({std::move(warning), FGivenName.string(), 0});
  FModule->DocumentWasSaved(std::move(pieces));
  return outcome.Written;
}

bool TOpenProjectFile::AssignProfile(std::string_view platform, std::string_view profile,
                                     bool force) {
  std::vector<std::string> platforms;
  for (const TProjectPlatform& known : FModule->Settings().Platforms())
    platforms.push_back(known.Name);
  FModule->Document().SetTargetProfile(platform, profile, platforms);
  auto pieces = FModule->Document().ComposeEdits();
  return pieces && Write(std::move(pieces), force);
}

bool TOpenProjectFile::SaveProjectFile(bool force) {
  bool written = false;
  try {
    // Brings the default classes and the import line, which belong into this save already.
    deployment::EnsureDefaultDeployment(Deployment());
    auto pieces = FServices.GetProjectFileStorage().ComposeProject(*FModule);
    written = pieces && Write(std::move(pieces), force);
  } catch (const deployment::TInputError& error) {
    throw TSaveError(std::string("the project was not saved: ") + error.what(), FGivenName);
  }
  MarkSaved();
  return written;
}

void TOpenProjectFile::MarkSaved() {
  FListener->Changed = false;
  FMarkedChanged = false;
  FWasEmpty = false;
  TakeFileNumber();
}

TSaveReport TOpenProjectFile::Export() {
  RequireShippedFiles();
  return WriteSideFile(TMSBuildDocument::TSaveMode::Write);
}

TSaveReport TOpenProjectFile::PlanExport() {
  RequireShippedFiles();
  return WriteSideFile(TMSBuildDocument::TSaveMode::Compare);
}

TSaveReport TOpenProjectFile::WriteSideFile(TMSBuildDocument::TSaveMode mode) {
  TSaveReport report;
  std::vector<std::string> platforms;
  platforms.reserve(FModule->Settings().Platforms().size());
  for (const TProjectPlatform& platform : FModule->Settings().Platforms())
    platforms.push_back(platform.Name);
  const TPlatformManager::TProjectWork work(FServices.GetPlatformManager(), platforms);
  const TProjectFileUtils::TSaving saving(FServices.GetProjectFileUtils(), mode);
  Deployment().SaveToDeployProj();
  report.SideFile = FGivenName;
  report.SideFile.replace_extension(".deployproj");
  report.SideFileWritten = saving.WasWritten();
  return report;
}

} // namespace workbench
