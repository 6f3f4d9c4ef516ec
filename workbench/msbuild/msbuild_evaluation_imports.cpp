// The imports of a project: files by name and by pattern, and what stands in for a build system's
// own.
#include "package/common/case_fold.h"
#include "package/common/path_text.h"
#include "package/host/api/xmlutils.h"
#include "workbench/msbuild/msbuild_evaluation.h"
#include "workbench/msbuild/msbuild_evaluation_scopes.h"
#include "workbench/msbuild/msbuild_includes.h"
#include "workbench/msbuild/values/msbuild_escapes.h"
#include "workbench/msbuild/values/project_paths.h"
#include "workbench/xml/short_text.h"

#include <system_error>

namespace workbench {
namespace {

namespace fs = std::filesystem;
using deployment::IXMLNode;

constexpr std::uintmax_t LargestImport = std::uintmax_t{16} * 1024 * 1024;
constexpr unsigned DeepestImport = 64;
constexpr std::size_t MostImports = 10'000;

void RequireProjectRoot(deployment::IXMLDocument& document, const fs::path& file) {
  IXMLNode& root = document.DocumentElement();
  if (root.NodeName() != "Project")
    throw deployment::TInputError("the root element is \"" + std::string(root.NodeName()) +
                                      "\", which is no MSBuild project",
                                  {file.string(), root.Place().Line});
}

} // namespace

fs::path RealPath(const fs::path& file) {
  std::error_code error;
  fs::path real = fs::weakly_canonical(file, error);
  return error ? file : real;
}

bool AsksExists(const IXMLNode& node) {
  const auto condition = node.GetAttribute("Condition");
  return condition && deployment::UpperCase(*condition).find("EXISTS") != std::string::npos;
}

void TMSBuildEvaluation::EvaluateImport(const IXMLNode& import, bool asksExists) {
  const TConditionResult condition = Holds(import, Directory());
  if (!condition.Holds && !condition.Unknown)
    return;
  asksExists = asksExists || AsksExists(import);
  if (import.GetAttribute("Sdk")) {
    Note(TNoteKind::SkippedImport, "an import from an SDK was skipped", import);
    return;
  }
  const TDoubt doubt(*this, condition.Unknown);
  const TExpanded names =
      FProperties.Expand(deployment::ExpectAttribute(import, "Project"), import);
  if (names.Unknown) {
    // A file that is imported where it exists is there or not: without its place, it is not.
    if (!asksExists || !condition.Unknown)
      ImportUnknown(names, import);
    return;
  }
  for (const std::string_view piece : SplitIncludes(names.Text)) {
    if (TWildcardPattern::IsPattern(piece))
      ImportPattern(piece, import);
    else
      ImportNamed(UnescapeMSBuild(piece), import, asksExists);
  }
}

void TMSBuildEvaluation::ImportPattern(std::string_view piece, const IXMLNode& import) {
  const TWildcardPattern pattern(piece);
  if (const std::string_view refusal = pattern.Refusal(Directory()); !refusal.empty()) {
    Note(TNoteKind::SkippedImport,
         "the import \"" + ShortText(piece) + "\" was skipped: it " + std::string(refusal), import);
    return;
  }
  for (const std::string& name : pattern.Expand(Directory(), FDirectories, import.Place()))
    ImportNamed(name, import, /*asksExists=*/false);
}

// A file whose directory is not known is one of the build system's own, or it is missed.
void TMSBuildEvaluation::ImportUnknown(const TExpanded& name, const IXMLNode& import) {
  const std::string text = UnescapeMSBuild(name.Text);
  if (ImportStandIn(text) || name.Unknown->OfBuildSystem)
    return;
  Note(TNoteKind::SkippedImport,
       "the import \"" + ShortText(deployment::ExpectAttribute(import, "Project")) +
           "\" was skipped: " + UnknownSentence(*name.Unknown),
       import);
}

void TMSBuildEvaluation::ImportNamed(const std::string& name, const IXMLNode& import,
                                     bool asksExists) {
  if (IsForeignPath(name)) {
    if (!ImportStandIn(name))
      Note(TNoteKind::SkippedImport,
           "the import \"" + ShortText(name) + "\" was skipped: it is not a file of this machine",
           import);
    return;
  }
  const fs::path wanted = ResolvePath(name, Directory());
  const auto found = FDirectories.Find(wanted);
  if (found && FBuildSystem && FBuildSystem->StandIn(wanted.filename().string()))
    FBuildSystemImports.insert(deployment::UpperCase(wanted.filename().string()));
  else if (!found && ImportStandIn(name))
    return;
  const fs::path& file = found ? *found : wanted;
  if (FRealFiles.contains(RealPath(file))) {
    Note(TNoteKind::SkippedImport,
         "the import \"" + ShortText(file.string()) +
             "\" was skipped: it is part of the project already",
         import);
    return;
  }
  std::error_code error;
  if (found && !fs::is_regular_file(file, error)) {
    const std::string shown = "the import \"" + ShortText(file.string()) + "\"";
    if (file != FGeneratedFile)
      throw deployment::TInputError(shown + " is no file", import.Place());
    return Note(TNoteKind::SkippedImport, shown + " was skipped: it is no file", import);
  }
  if (asksExists && !found)
    return;
  // What this program generates is as long as the list.
  if (const auto size = found ? fs::file_size(file, error) : 0;
      !error && size > LargestImport && file != FGeneratedFile)
    throw deployment::TInputError("the import \"" + ShortText(file.string()) + "\" has " +
                                      std::to_string(size) + " bytes; at most " +
                                      std::to_string(LargestImport) + " are read",
                                  import.Place());
  ImportFile(file, import);
}

bool TMSBuildEvaluation::ImportStandIn(std::string_view name) {
  const std::string_view fileName = deployment::FileNamePart(name);
  const auto document = FBuildSystem ? FBuildSystem->StandIn(fileName) : nullptr;
  if (!document)
    return false;
  if (FBuildSystemImports.insert(deployment::UpperCase(fileName)).second) {
    FDocuments.push_back(document);
    EvaluateFile(document->DocumentElement(), FProjectFile.parent_path() / fileName);
  }
  return true;
}

void TMSBuildEvaluation::ImportMissingStandIns() {
  for (const std::string_view name :
       FBuildSystem ? FBuildSystem->Names() : std::vector<std::string_view>())
    ImportStandIn(name);
}

void TMSBuildEvaluation::ImportFile(const fs::path& file, const IXMLNode& import) {
  std::shared_ptr<deployment::IXMLDocument> document;
  try {
    document = FImports.Load(file);
    if (document)
      RequireProjectRoot(*document, file);
  } catch (const deployment::TInputError& error) {
    if (file != FGeneratedFile)
      throw;
    Note(TNoteKind::SkippedImport,
         "the import \"" + ShortText(file.string()) + "\" was skipped: in line " +
             std::to_string(error.Place().Line) + ", " + error.what(),
         import);
    return;
  }
  if (!document) {
    Note(TNoteKind::MissingImport,
         "the import \"" + ShortText(file.string()) + "\" was skipped: there is no such file",
         import);
    return;
  }
  EvaluateImported(*document, file, import);
  FDocuments.push_back(std::move(document));
}

void TMSBuildEvaluation::EvaluateImported(deployment::IXMLDocument& document, const fs::path& file,
                                          const IXMLNode& import) {
  if (FImportDepth == DeepestImport)
    throw deployment::TInputError("the import \"" + ShortText(file.string()) +
                                      "\" is nested deeper than " + std::to_string(DeepestImport) +
                                      " levels",
                                  import.Place());
  if (++FImportCount > MostImports)
    throw deployment::TInputError(
        "the project imports more than " + std::to_string(MostImports) + " files", import.Place());
  FRealFiles.insert(RealPath(file));
  ++FImportDepth;
  EvaluateFile(document.DocumentElement(), file);
  --FImportDepth;
}

} // namespace workbench
