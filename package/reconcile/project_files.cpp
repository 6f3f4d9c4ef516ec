// The files that belong to an application itself.
#include "package/common/case_fold.h"
#include "package/common/class_names.h"
#include "package/common/path_text.h"
#include "package/reconcile/reconcile_steps.h"

#include <algorithm>
#include <array>
#include <memory_resource>
#include <unordered_map>
#include <unordered_set>

namespace deployment {
namespace {

// Files that are built, not deployed; compared exactly.
constexpr std::array<std::string_view, 10> ExcludedExtensions{
    ".hpp", ".pas", ".cpp", ".cpp", ".hpp", ".qds", ".cpl", ".h", ".rc", ".jar"};

bool IsExcluded(std::string_view file) {
  const std::string_view extension = ExtensionPart(file);
  return std::find(ExcludedExtensions.begin(), ExcludedExtensions.end(), extension) !=
         ExcludedExtensions.end();
}

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
  // Of names that differ in case only the last one; mostly the name itself. Excluded files do not
  // count.
  std::string_view LastSpelling(std::string_view localName) const;

private:
  static std::pmr::string KeyOf(std::string_view path) {
    return std::pmr::string(UpperCase(CanonicalizePath(path)));
  }

  const std::vector<std::string>& FFiles;
  std::pmr::monotonic_buffer_resource FMemory;
  std::pmr::unordered_set<std::string_view, TFoldedHash, TFoldedEqual> FLocalNames{&FMemory};
  std::pmr::unordered_set<std::pmr::string> FPaths{&FMemory}; // filled for an unknown local name
  std::unordered_map<std::string_view, std::string_view, TFoldedHash, TFoldedEqual> FLast;
};

TListedFiles::TListedFiles(const std::vector<std::string>& files, const TLocalNames& localNames)
    : FFiles(files) {
  FLocalNames.reserve(localNames.size());
  for (const std::pmr::string& name : localNames) {
    if (!name.empty() && !FLocalNames.insert(name).second && !IsExcluded(name))
      FLast.insert_or_assign(name, name);
  }
}

std::string_view TListedFiles::LastSpelling(std::string_view localName) const {
  if (FLast.empty())
    return localName;
  const auto found = FLast.find(localName);
  return found == FLast.end() ? localName : found->second;
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
  void LeaveStaleEntries(TListedFiles& listed);
  void WantFile(std::string_view file, std::string_view localName, const TListedFiles& listed);
  void WarnOfSameName(std::string_view localName, std::string_view last);
  void NoteExtension(std::string_view file);

  TReconcileContext& FContext;
  const TReconcileTarget& FTarget;
  const std::string FProjectFile;
  const std::vector<std::string> FFiles;
  std::pmr::monotonic_buffer_resource FMemory;
  TLocalNames FLocalNames{&FMemory}; // of FFiles; empty for an empty one
  TDefaultEntry FWanted;             // with the local name of the file at hand
  std::unordered_set<std::string> FExtensions;
  std::string_view FLastExtension; // files of one type stand together
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
  TListedFiles listed(FFiles, FLocalNames);
  bool isFirst = true;
  for (std::size_t i = 0; i < FFiles.size(); ++i) {
    if (FFiles[i].empty())
      continue;
    // With the first file, so that a project without files keeps its entries.
    if (isFirst)
      LeaveStaleEntries(listed);
    isFirst = false;
    WantFile(FFiles[i], FLocalNames[i], listed);
  }
}

void TProjectFileStep::LeaveStaleEntries(TListedFiles& listed) {
  const IFileUtils& files = FTarget.Services().GetFileUtils();
  for (const auto& entry : FContext.Plan.OfClass(class_names::ProjectFile)) {
    if (!listed.Contains(entry->GetLocalName(), files, FProjectFile))
      FContext.Plan.Leave(entry, BelongsToProject(TReasonCause::NoLongerNamed));
  }
}

void TProjectFileStep::WantFile(std::string_view file, std::string_view localName,
                                const TListedFiles& listed) {
  if (IsExcluded(file))
    return FContext.Plan.Skip(class_names::ProjectFile, localName,
                              BelongsToProject(TReasonCause::ExcludedExtension));
  NoteExtension(file);
  // One entry answers for names that differ in case only, and for one that is listed twice.
  const std::string_view last = listed.LastSpelling(localName);
  if (last.data() != localName.data())
    return WarnOfSameName(localName, last);
  FWanted.LocalName = localName;
  FContext.Plan.WantFile(FWanted);
}

void TProjectFileStep::WarnOfSameName(std::string_view localName, std::string_view last) {
  if (last == localName)
    return;
  FContext.Plan.Warn(std::string("\"")
                         .append(localName)
                         .append("\" and \"")
                         .append(last)
                         .append("\" differ in case only; they have one entry, which is that of \"")
                         .append(last)
                         .append("\""));
  FContext.Plan.Skip(class_names::ProjectFile, localName,
                     {TReconcileStep::ProjectFiles,
                      TReasonSource::OtherEntry,
                      std::string(class_names::ProjectFile),
                      {},
                      TReasonCause::FileHasOtherRole});
}

// What goes with a type of file is offered once. Nothing goes with a file without an extension, and
// no answer about it could be recorded.
void TProjectFileStep::NoteExtension(std::string_view file) {
  const std::string_view extension = ExtensionPart(file);
  if (extension.empty() || extension == FLastExtension)
    return;
  FLastExtension = extension;
  std::string lowered = LowerCaseAscii(extension);
  if (FExtensions.insert(lowered).second)
    FContext.Extensions.push_back(std::move(lowered));
}

} // namespace

void PlanProjectFiles(TReconcileContext& context) {
  TProjectFileStep(context).Run();
}

} // namespace deployment
