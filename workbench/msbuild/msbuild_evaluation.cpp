#include "workbench/msbuild/msbuild_evaluation.h"

#include "package/host/api/xmlutils.h"
#include "workbench/msbuild/msbuild_condition.h"
#include "workbench/msbuild/msbuild_escapes.h"
#include "workbench/msbuild/msbuild_includes.h"
#include "workbench/msbuild/project_paths.h"
#include "workbench/xml/short_text.h"

#include <system_error>

namespace workbench {
namespace {

namespace fs = std::filesystem;
using deployment::IXMLNode;

constexpr unsigned DeepestImport = 64;
constexpr unsigned DeepestChoose = 256;

// The answers that the condition of one element needs.
class TElementContext final : public IConditionContext {
public:
  TElementContext(const TPropertyTable& properties, const IXMLNode& node, const fs::path& directory)
      : FProperties(properties), FNode(node), FDirectory(directory) {}

  std::string Expand(std::string_view text) const override {
    return FProperties.ExpandPlain(text, FNode);
  }

  bool Exists(std::string_view path) const override {
    std::error_code error;
    return !IsForeignPath(path) && fs::exists(ResolvePath(path, FDirectory), error);
  }

private:
  const TPropertyTable& FProperties;
  const IXMLNode& FNode;
  const fs::path& FDirectory;
};

fs::path RealPath(const fs::path& file) {
  std::error_code error;
  fs::path real = fs::weakly_canonical(file, error);
  return error ? file : real;
}

} // namespace

// Makes a file the one at hand, and the one before again at its end.
class TMSBuildEvaluation::TFileScope {
public:
  TFileScope(TMSBuildEvaluation& evaluation, const fs::path& file)
      : FEvaluation(evaluation), FOuter(evaluation.FFile) {
    Enter(&file);
  }
  ~TFileScope() {
    if (FOuter)
      Enter(FOuter);
  }
  TFileScope(const TFileScope&) = delete;
  TFileScope& operator=(const TFileScope&) = delete;

private:
  void Enter(const fs::path* file) {
    FEvaluation.FFile = file;
    FEvaluation.FProperties.SetThisFile(*file);
  }

  TMSBuildEvaluation& FEvaluation;
  const fs::path* FOuter;
};

TMSBuildEvaluation::TMSBuildEvaluation(const TEvaluationSource& source, const TNamedTexts& globals)
    : FRoot(*source.Root), FProjectFile(source.ProjectFile), FImports(*source.Imports) {
  SetUpProperties(source, globals);
  FRealFiles.insert(RealPath(FProjectFile));
  EvaluateFile(FRoot, FProjectFile);
}

void TMSBuildEvaluation::SetUpProperties(const TEvaluationSource& source,
                                         const TNamedTexts& globals) {
  const fs::path directory = FProjectFile.parent_path();
  for (const auto& [name, text] : source.Defaults)
    FProperties.SetDefault(name, text);
  for (const auto& [name, text] : source.Environment)
    FProperties.SetInitial(name, text);
  for (const auto& [name, text] : globals)
    FProperties.SetGlobal(name, text);
  FProperties.SetReserved("MSBuildProjectName", FProjectFile.stem().string());
  FProperties.SetReserved("MSBuildProjectFile", FProjectFile.filename().string());
  FProperties.SetReserved("MSBuildProjectExtension", FProjectFile.extension().string());
  FProperties.SetReserved("MSBuildProjectFullPath", FProjectFile.string());
  FProperties.SetReserved("MSBuildProjectDirectory", directory.string());
  FProperties.SetReserved("MSBuildProjectDirectoryNoRoot", directory.relative_path().string());
}

std::string TMSBuildEvaluation::Property(std::string_view name) const {
  return FProperties.PlainValue(name, FRoot);
}

deployment::TErrorPlace TMSBuildEvaluation::PropertyPlace(std::string_view name) const {
  const IXMLNode* node = FProperties.AssignedBy(name);
  return (node ? *node : FRoot).Place();
}

std::string TMSBuildEvaluation::Expand(std::string_view text, const IXMLNode& node) const {
  return FProperties.ExpandPlain(text, node);
}

void TMSBuildEvaluation::EvaluateFile(IXMLNode& root, const fs::path& file) {
  const TFileScope scope(*this, *FFiles.insert(file).first);
  EvaluateChildren(root);
}

void TMSBuildEvaluation::EvaluateChildren(IXMLNode& parent) {
  for (IXMLNode* child = parent.FirstChild(); child; child = child->NextSibling()) {
    const std::string_view name = child->NodeName();
    if (name == "PropertyGroup") {
      EvaluatePropertyGroup(*child);
    } else if (name == "ItemGroup") {
      FItemGroups.push_back({child, FFile});
    } else if (name == "Import") {
      EvaluateImport(*child);
    } else if (name == "ImportGroup" && Holds(*child, Directory())) {
      for (IXMLNode* import = deployment::FindChild(*child, "Import"); import;
           import = deployment::FirstNamed(import->NextSibling(), "Import"))
        EvaluateImport(*import);
    } else if (name == "Choose") {
      EvaluateChoose(*child);
    }
  }
}

void TMSBuildEvaluation::EvaluatePropertyGroup(IXMLNode& group) {
  if (!Holds(group, Directory()))
    return;
  for (IXMLNode* property = group.FirstChild(); property; property = property->NextSibling()) {
    if (!Holds(*property, Directory()))
      continue;
    std::string value = FProperties.Expand(property->Text(), *property);
    if (FProperties.Assign(property->NodeName(), std::move(value), *property) ==
        TPropertyTable::TAssignment::IsReserved)
      Note(TNoteKind::IgnoredAssignment,
           "the property \"" + std::string(property->NodeName()) +
               "\" cannot be assigned; the build itself sets it",
           *property);
  }
}

void TMSBuildEvaluation::EvaluateChoose(IXMLNode& choose) {
  if (++FChooseDepth > DeepestChoose)
    throw deployment::TInputError("\"Choose\" is nested deeper than " +
                                      std::to_string(DeepestChoose) + " levels",
                                  choose.Place());
  for (IXMLNode* branch = choose.FirstChild(); branch; branch = branch->NextSibling()) {
    const bool taken = branch->NodeName() == "Otherwise" ||
                       (branch->NodeName() == "When" && Holds(*branch, Directory()));
    if (!taken)
      continue;
    EvaluateChildren(*branch);
    break;
  }
  --FChooseDepth;
}

void TMSBuildEvaluation::EvaluateImport(const IXMLNode& import) {
  if (!Holds(import, Directory()))
    return;
  if (import.GetAttribute("Sdk")) {
    Note(TNoteKind::SkippedImport, "an import from an SDK was skipped", import);
    return;
  }
  for (const std::string& name : ImportNames(import)) {
    if (IsForeignPath(name)) {
      Note(TNoteKind::SkippedImport,
           "the import \"" + ShortText(name) + "\" was skipped: it is not a file of this machine",
           import);
      continue;
    }
    ImportFile(ResolvePath(name, Directory()), import);
  }
}

std::vector<std::string> TMSBuildEvaluation::ImportNames(const IXMLNode& import) {
  std::vector<std::string> names;
  const std::string escaped =
      FProperties.Expand(deployment::ExpectAttribute(import, "Project"), import);
  for (const std::string_view piece : SplitIncludes(escaped)) {
    const TWildcardPattern pattern(piece);
    if (!TWildcardPattern::IsPattern(piece) || IsForeignPath(pattern.FixedPart())) {
      names.push_back(UnescapeMSBuild(piece));
      continue;
    }
    for (std::string& name : pattern.Expand(Directory(), import.Place()))
      names.push_back(std::move(name));
  }
  return names;
}

void TMSBuildEvaluation::ImportFile(const fs::path& file, const IXMLNode& import) {
  if (FRealFiles.contains(RealPath(file))) {
    Note(TNoteKind::SkippedImport,
         "the import \"" + ShortText(file.string()) +
             "\" was skipped: it is part of the project already",
         import);
    return;
  }
  const auto document = FImports.Load(file);
  if (!document) {
    Note(TNoteKind::MissingImport,
         "the import \"" + ShortText(file.string()) + "\" was skipped: there is no such file",
         import);
    return;
  }
  if (FImportDepth == DeepestImport)
    throw deployment::TInputError("the import \"" + ShortText(file.string()) +
                                      "\" is nested deeper than " + std::to_string(DeepestImport) +
                                      " levels",
                                  import.Place());
  FDocuments.push_back(document);
  FRealFiles.insert(RealPath(file));
  IXMLNode& root = document->DocumentElement();
  if (root.NodeName() != "Project")
    throw deployment::TInputError("the root element is \"" + std::string(root.NodeName()) +
                                      "\", which is no MSBuild project",
                                  {file.string(), root.Place().Line});
  ++FImportDepth;
  EvaluateFile(root, file);
  --FImportDepth;
}

const std::vector<TProjectItem>& TMSBuildEvaluation::Items() {
  if (FItems)
    return *FItems;
  const fs::path directory = FProjectFile.parent_path();
  TItemEvaluator items(
      FProperties, directory,
      [this, &directory](const IXMLNode& node) { return Holds(node, directory); }, FNotes);
  for (const TItemGroup& group : FItemGroups) {
    const TFileScope scope(*this, *group.File);
    EvaluateItemGroup(*group.Node, items);
  }
  return FItems.emplace(items.TakeItems());
}

void TMSBuildEvaluation::EvaluateItemGroup(IXMLNode& group, TItemEvaluator& items) const {
  const fs::path directory = FProjectFile.parent_path();
  if (!Holds(group, directory))
    return;
  for (IXMLNode* item = group.FirstChild(); item; item = item->NextSibling()) {
    if (Holds(*item, directory))
      items.Evaluate(*item);
  }
}

bool TMSBuildEvaluation::Holds(const IXMLNode& node, const fs::path& directory) const {
  const auto condition = node.GetAttribute("Condition");
  try {
    return !condition ||
           EvaluateCondition(*condition, TElementContext(FProperties, node, directory), {});
  } catch (const deployment::TInputError& error) {
    // The place is worked out for errors alone: finding a line takes a look at the whole file.
    if (!error.Place().File.empty())
      throw;
    throw deployment::TInputError(error.what(), node.Place());
  }
}

void TMSBuildEvaluation::Note(TNoteKind kind, std::string text, const IXMLNode& node) {
  FNotes.push_back({kind, std::move(text), node.Place()});
}

} // namespace workbench
