#include "package/reconcile/project_files.h"

#include "package/common/case_fold.h"
#include "package/common/path_text.h"
#include "package/featured/modify_featured_files.h"
#include "package/reconcile/class_names.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace deployment {
namespace {

// Files that are built, not deployed; compared exactly.
constexpr std::array<std::string_view, 10> ExcludedExtensions{
    ".hpp", ".pas", ".cpp", ".cpp", ".hpp", ".qds", ".cpl", ".h", ".rc", ".jar"};

TEntryReason BelongsToProject(TReasonCause cause = TReasonCause::None) {
  return {TReconcileStep::ProjectFiles, TReasonSource::ProjectFileList, {}, {}, cause};
}

class TProjectFileStep {
public:
  explicit TProjectFileStep(TReconcileContext& context)
      : FContext(context), FTarget(context.Target),
        FProjectFile(FTarget.Project().GetProjectFileName()),
        FFiles(FTarget.Project().GetCompleteFileList()) {}

  void Run();

private:
  std::string KeyOf(std::string_view path) const;
  void RemoveStaleEntries();
  void ReconcileFile(const std::string& file);
  void OfferFeatures(std::string_view extension);

  TReconcileContext& FContext;
  const TReconcileTarget& FTarget;
  const std::string FProjectFile;
  const std::vector<std::string> FFiles;
  std::unordered_set<std::string> FOffered; // extensions
  bool FCanOffer = true;
};

void TProjectFileStep::Run() {
  bool isFirst = true;
  for (const std::string& file : FFiles) {
    if (file.empty())
      continue;
    // With the first file, so that a project without files keeps its entries.
    if (isFirst)
      RemoveStaleEntries();
    isFirst = false;
    ReconcileFile(file);
  }
}

// One file of the project has one key, however it is written.
std::string TProjectFileStep::KeyOf(std::string_view path) const {
  return UpperCase(CanonicalizePath(path));
}

void TProjectFileStep::RemoveStaleEntries() {
  std::unordered_set<std::string> listed;
  for (const std::string& file : FFiles)
    listed.insert(KeyOf(file));
  const IFileUtils& files = FTarget.Services().GetFileUtils();
  for (const auto& entry : FContext.Entries.OfClass(class_names::ProjectFile)) {
    if (!listed.contains(KeyOf(files.QualifyPath(entry->GetLocalName(), FProjectFile))))
      FContext.Entries.Remove(entry, BelongsToProject(TReasonCause::NoLongerNamed));
  }
}

void TProjectFileStep::ReconcileFile(const std::string& file) {
  const std::string localName =
      FTarget.Services().GetFileUtils().MakeRelativePath(file, DirectoryPart(FProjectFile));
  const std::string_view extension = ExtensionPart(file);
  if (std::find(ExcludedExtensions.begin(), ExcludedExtensions.end(), extension) !=
      ExcludedExtensions.end())
    return FContext.Entries.Skip(class_names::ProjectFile, localName,
                                 BelongsToProject(TReasonCause::ExcludedExtension));
  TDefaultEntry wanted{std::string(class_names::ProjectFile), localName, BelongsToProject()};
  wanted.RemoteDirOnCreation = FTarget.GetDefaultPlatformRemoteDir(FTarget.Platform());
  FContext.Entries.AddOrUpdateFile(wanted);
  OfferFeatures(extension);
}

// Once for each extension: what was answered is recorded in the project.
void TProjectFileStep::OfferFeatures(std::string_view extension) {
  std::string lowered = LowerCaseAscii(extension);
  if (!FCanOffer || !FOffered.insert(lowered).second)
    return;
  VelmorIDEServices& host = FTarget.Services();
  ISettingsStore& settings = host.GetSettings();
  bool show = settings.ReadBool(FeaturedSettingsSection, ShowFeaturedFormAuto, true);
  if (!show)
    return;
  try {
    ModifyFeaturedFiles(FTarget.Project(), show, lowered, host);
  } catch (const TInputError& error) {
    FCanOffer = false;
    host.GetMessageServices().AddWarning(
        std::string("no optional files are offered: ") + error.what(), error.Place());
    return;
  }
  if (settings.ReadBool(FeaturedSettingsSection, ShowFeaturedFormAuto, true) != show)
    settings.WriteBool(FeaturedSettingsSection, ShowFeaturedFormAuto, show);
}

} // namespace

TReconcileResult ReconcileProjectFiles(TReconcileContext& context) {
  TProjectFileStep(context).Run();
  return TReconcileResult::Reconciled;
}

} // namespace deployment
