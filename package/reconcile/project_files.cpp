#include "package/reconcile/project_files.h"

#include "package/common/case_fold.h"
#include "package/common/path_text.h"
#include "package/featured/modify_featured_files.h"
#include "package/reconcile/class_names.h"

#include <algorithm>
#include <array>
#include <memory_resource>
#include <unordered_set>

namespace deployment {
namespace {

// Files that are built, not deployed; compared exactly.
constexpr std::array<std::string_view, 10> ExcludedExtensions{
    ".hpp", ".pas", ".cpp", ".cpp", ".hpp", ".qds", ".cpl", ".h", ".rc", ".jar"};

TEntryReason BelongsToProject(TReasonCause cause = TReasonCause::None) {
  return {TReconcileStep::ProjectFiles, TReasonSource::ProjectFileList, {}, {}, cause};
}

struct TFoldedHash {
  std::size_t operator()(std::string_view text) const { return HashText(text); }
};
struct TFoldedEqual {
  bool operator()(std::string_view left, std::string_view right) const {
    return SameText(left, right);
  }
};

// Local names of the files in their order; one block of memory after the other holds them.
using TLocalNames = std::pmr::vector<std::pmr::string>;

// The files of the project, asked by the local name of an entry.
class TListedFiles {
public:
  // Both lists are parallel and must outlive the object.
  TListedFiles(const std::vector<std::string>& files, const TLocalNames& localNames);

  // An entry whose name was written in another way is found by its full path.
  bool Contains(std::string_view localName, const IFileUtils& files, std::string_view projectFile);

private:
  static std::pmr::string KeyOf(std::string_view path) {
    return std::pmr::string(UpperCase(CanonicalizePath(path)));
  }

  const std::vector<std::string>& FFiles;
  std::pmr::monotonic_buffer_resource FMemory;
  std::pmr::unordered_set<std::string_view, TFoldedHash, TFoldedEqual> FLocalNames{&FMemory};
  std::pmr::unordered_set<std::pmr::string> FPaths{&FMemory}; // filled for an unknown local name
};

TListedFiles::TListedFiles(const std::vector<std::string>& files, const TLocalNames& localNames)
    : FFiles(files) {
  FLocalNames.reserve(localNames.size());
  for (const std::pmr::string& name : localNames) {
    if (!name.empty())
      FLocalNames.insert(name);
  }
}

bool TListedFiles::Contains(std::string_view localName, const IFileUtils& files,
                            std::string_view projectFile) {
  if (FLocalNames.contains(localName))
    return true;
  if (FPaths.empty()) {
    for (const std::string& file : FFiles)
      FPaths.insert(KeyOf(file));
  }
  return FPaths.contains(KeyOf(files.QualifyPath(localName, projectFile)));
}

class TProjectFileStep {
public:
  explicit TProjectFileStep(TReconcileContext& context);

  void Run();

private:
  void RemoveStaleEntries();
  void ReconcileFile(std::string_view file, std::string_view localName);
  void OfferFeatures(std::string_view extension);

  TReconcileContext& FContext;
  const TReconcileTarget& FTarget;
  const std::string FProjectFile;
  const std::vector<std::string> FFiles;
  std::pmr::monotonic_buffer_resource FMemory;
  TLocalNames FLocalNames{&FMemory};        // of FFiles; empty for an empty one
  TDefaultEntry FWanted;                    // with the local name of the file at hand
  std::unordered_set<std::string> FOffered; // extensions
  bool FCanOffer = true;
};

TProjectFileStep::TProjectFileStep(TReconcileContext& context)
    : FContext(context), FTarget(context.Target),
      FProjectFile(FTarget.Project().GetProjectFileName()),
      FFiles(FTarget.Project().GetCompleteFileList(FTarget.Configuration(), FTarget.Platform())),
      FWanted{std::string(class_names::ProjectFile), {}, BelongsToProject()} {
  FWanted.RemoteDirOnCreation = FTarget.GetDefaultPlatformRemoteDir(FTarget.Platform());
  const IFileUtils& files = FTarget.Services().GetFileUtils();
  FLocalNames.reserve(FFiles.size());
  for (const std::string& file : FFiles)
    FLocalNames.emplace_back(
        file.empty() ? file : files.MakeRelativePath(file, DirectoryPart(FProjectFile)));
}

void TProjectFileStep::Run() {
  bool isFirst = true;
  for (std::size_t i = 0; i < FFiles.size(); ++i) {
    if (FFiles[i].empty())
      continue;
    // With the first file, so that a project without files keeps its entries.
    if (isFirst)
      RemoveStaleEntries();
    isFirst = false;
    ReconcileFile(FFiles[i], FLocalNames[i]);
  }
}

void TProjectFileStep::RemoveStaleEntries() {
  TListedFiles listed(FFiles, FLocalNames);
  const IFileUtils& files = FTarget.Services().GetFileUtils();
  for (const auto& entry : FContext.Entries.OfClass(class_names::ProjectFile)) {
    if (!listed.Contains(entry->GetLocalName(), files, FProjectFile))
      FContext.Entries.Remove(entry, BelongsToProject(TReasonCause::NoLongerNamed));
  }
}

void TProjectFileStep::ReconcileFile(std::string_view file, std::string_view localName) {
  const std::string_view extension = ExtensionPart(file);
  if (std::find(ExcludedExtensions.begin(), ExcludedExtensions.end(), extension) !=
      ExcludedExtensions.end())
    return FContext.Entries.Skip(class_names::ProjectFile, localName,
                                 BelongsToProject(TReasonCause::ExcludedExtension));
  FWanted.LocalName = localName;
  FContext.Entries.AddOrUpdateFile(FWanted);
  OfferFeatures(extension);
}

// Once for each extension: what was answered is recorded in the project.
void TProjectFileStep::OfferFeatures(std::string_view extension) {
  std::string lowered = LowerCaseAscii(extension);
  // No feature goes with a file without one, and no answer about it could be recorded.
  if (lowered.empty() || !FCanOffer || !FOffered.insert(lowered).second)
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
