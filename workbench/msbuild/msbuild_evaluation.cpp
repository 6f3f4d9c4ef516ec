#include "workbench/msbuild/msbuild_evaluation.h"

#include "package/common/case_fold.h"
#include "package/common/path_text.h"
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
constexpr std::size_t MostImports = 10'000;

// The answers that the condition of one element needs.
class TElementContext final : public IConditionContext {
public:
  TElementContext(const TPropertyTable& properties, const IXMLNode& node, const fs::path& directory)
      : FProperties(properties), FNode(node), FDirectory(directory) {}

  TExpanded Expand(std::string_view text) const override {
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

bool AsksExists(const IXMLNode& node) {
  const auto condition = node.GetAttribute("Condition");
  return condition && deployment::UpperCase(*condition).find("EXISTS") != std::string::npos;
}

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

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

// What is evaluated while it lives counts only if something that is not known turns out so.
class TMSBuildEvaluation::TDoubt {
public:
  TDoubt(TMSBuildEvaluation& evaluation, const TUnknown& doubt)
      : FEvaluation(evaluation), FOuter(evaluation.FDoubt) {
    if (!FOuter)
      evaluation.FDoubt = doubt;
  }
  ~TDoubt() { FEvaluation.FDoubt = FOuter; }
  TDoubt(const TDoubt&) = delete;
  TDoubt& operator=(const TDoubt&) = delete;

private:
  TMSBuildEvaluation& FEvaluation;
  const TUnknown FOuter;
};

TMSBuildEvaluation::TMSBuildEvaluation(const TEvaluationSource& source, const TNamedTexts& globals)
    : FRoot(*source.Root), FProjectFile(source.ProjectFile), FImports(*source.Imports),
      FBuildSystem(source.BuildSystem), FGeneratedFile(source.GeneratedFile),
      FDirectories(source.Directories ? *source.Directories : FOwnDirectories) {
  SetUpProperties(source, globals);
  FRealFiles.insert(RealPath(FProjectFile));
  EvaluateFile(FRoot, FProjectFile);
  if (source.ImportsBuildSystem && FBuildSystemImports.empty())
    ImportMissingStandIns();
}

void TMSBuildEvaluation::SetUpProperties(const TEvaluationSource& source,
                                         const TNamedTexts& globals) {
  const fs::path directory = FProjectFile.parent_path();
  FProperties.SetPlace(directory, source.Environment);
  if (FBuildSystem) {
    for (const std::string_view name : FBuildSystem->UnknownProperties())
      FProperties.SetOfBuildSystem(name);
  }
  for (const auto& [name, text] : source.Environment)
    FProperties.SetInitial(name, text);
  for (const auto& [name, text] : source.Told)
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

TExpanded TMSBuildEvaluation::Value(std::string_view name) const {
  return FProperties.PlainValue(name);
}

deployment::TErrorPlace TMSBuildEvaluation::PropertyPlace(std::string_view name) const {
  const IXMLNode* node = FProperties.AssignedBy(name);
  return (node ? *node : FRoot).Place();
}

std::string TMSBuildEvaluation::Expand(std::string_view text, const IXMLNode& node) const {
  return FProperties.ExpandPlain(text, node).Text;
}

std::optional<TDefinedValue> TMSBuildEvaluation::Definition(std::string_view type,
                                                            std::string_view name) {
  const auto [found, isNew] = FDefinitions.try_emplace(deployment::UpperCase(type));
  const fs::path directory = FProjectFile.parent_path();
  const auto holds = [this, &directory](const IXMLNode& node) { return Holds(node, directory); };
  for (const TGroup& group : isNew ? FDefinitionGroups : std::vector<TGroup>()) {
    const TFileScope scope(*this, *group.File);
    std::optional<TConditionResult> groupHolds;
    for (IXMLNode* child = group.Node->FirstChild(); child; child = child->NextSibling()) {
      if (!deployment::SameText(child->NodeName(), type))
        continue;
      if (!groupHolds)
        groupHolds = Holds(*group.Node, directory);
      const TConditionResult condition = Holds(*child, directory);
      const TUnknown doubt = group.Doubt           ? group.Doubt
                             : groupHolds->Unknown ? groupHolds->Unknown
                                                   : condition.Unknown;
      if ((groupHolds->Holds || groupHolds->Unknown) && (condition.Holds || condition.Unknown))
        found->second.Add(*child, FProperties, holds, doubt);
    }
  }
  const TDefinedValue* value = found->second.Find(name);
  if (!value)
    return std::nullopt;
  TDefinedValue plain = *value;
  plain.Text = UnescapeMSBuild(plain.Text);
  return plain;
}

TExpanded TMSBuildEvaluation::Metadata(const TProjectItem& item, std::string_view name) {
  if (const TItemMetadata* own = item.Find(name))
    return {own->Text, own->Unknown};
  const auto defined = Definition(item.Type, name);
  return defined ? TExpanded{defined->Text, defined->Unknown} : TExpanded();
}

void TMSBuildEvaluation::EvaluateFile(IXMLNode& root, const fs::path& file) {
  const TFileScope scope(*this, *FFiles.insert(file).first);
  EvaluateChildren(root);
}

void TMSBuildEvaluation::EvaluateChildren(IXMLNode& parent) {
  for (IXMLNode* child = parent.FirstChild(); child; child = child->NextSibling()) {
    const std::string_view name = child->NodeName();
    if (name == "PropertyGroup")
      EvaluatePropertyGroup(*child);
    else if (name == "ItemGroup")
      FItemGroups.push_back({child, FFile, FDoubt});
    else if (name == "ItemDefinitionGroup")
      FDefinitionGroups.push_back({child, FFile, FDoubt});
    else if (name == "Import")
      EvaluateImport(*child, /*asksExists=*/false);
    else if (name == "ImportGroup")
      EvaluateImportGroup(*child);
    else if (name == "Choose")
      EvaluateChoose(*child);
  }
}

void TMSBuildEvaluation::EvaluatePropertyGroup(IXMLNode& group) {
  const TConditionResult condition = Holds(group, Directory());
  if (!condition.Holds && !condition.Unknown)
    return;
  const TDoubt doubt(*this, condition.Unknown);
  for (IXMLNode* property = group.FirstChild(); property; property = property->NextSibling())
    EvaluateProperty(*property);
}

void TMSBuildEvaluation::EvaluateProperty(IXMLNode& property) {
  const TConditionResult condition = Holds(property, Directory());
  if (!condition.Holds && !condition.Unknown)
    return;
  // Blanks between two tags are layout.
  const std::string_view text = property.Text();
  TExpanded value = FProperties.Expand(IsBlank(text) ? std::string_view() : text, property);
  if (value.Unknown && value.Unknown->IsMistake && value.Unknown->Node == &property)
    Note(TNoteKind::WrongFunction,
         "the property \"" + std::string(property.NodeName()) +
             "\" has no known value: " + value.Unknown->Reason,
         property);
  const TUnknown& doubt = FDoubt ? FDoubt : condition.Unknown;
  if (FProperties.Assign(property.NodeName(), std::move(value), property, doubt) ==
      TPropertyTable::TAssignment::IsReserved)
    Note(TNoteKind::IgnoredAssignment,
         "the property \"" + std::string(property.NodeName()) +
             "\" cannot be assigned; the build itself sets it",
         property);
}

void TMSBuildEvaluation::EvaluateImportGroup(IXMLNode& group) {
  const TConditionResult condition = Holds(group, Directory());
  if (!condition.Holds && !condition.Unknown)
    return;
  const TDoubt doubt(*this, condition.Unknown);
  for (IXMLNode* import = deployment::FindChild(group, "Import"); import;
       import = deployment::FirstNamed(import->NextSibling(), "Import"))
    EvaluateImport(*import, AsksExists(group));
}

void TMSBuildEvaluation::EvaluateChoose(IXMLNode& choose) {
  if (++FChooseDepth > DeepestChoose)
    throw deployment::TInputError("\"Choose\" is nested deeper than " +
                                      std::to_string(DeepestChoose) + " levels",
                                  choose.Place());
  TUnknown doubt; // about an earlier branch, and so about every later one
  for (IXMLNode* branch = choose.FirstChild(); branch; branch = branch->NextSibling()) {
    const bool isLast = branch->NodeName() == "Otherwise";
    if (!isLast && branch->NodeName() != "When")
      continue;
    const TConditionResult condition =
        isLast ? TConditionResult{true} : Holds(*branch, Directory());
    if (!condition.Holds && !condition.Unknown)
      continue;
    doubt = doubt ? doubt : condition.Unknown;
    const TDoubt scope(*this, doubt);
    EvaluateChildren(*branch);
    if (condition.Holds)
      break;
  }
  --FChooseDepth;
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
  if (found && !fs::is_regular_file(file, error))
    throw deployment::TInputError("the import \"" + ShortText(file.string()) + "\" is no file",
                                  import.Place());
  if (asksExists && !found)
    return;
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
  IXMLNode& root = document.DocumentElement();
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
      [this, &directory](const IXMLNode& node) { return Holds(node, directory); }, FDirectories,
      FNotes);
  for (const TGroup& group : FItemGroups) {
    const TFileScope scope(*this, *group.File);
    EvaluateItemGroup(group, items);
  }
  return FItems.emplace(items.TakeItems());
}

void TMSBuildEvaluation::EvaluateItemGroup(const TGroup& group, TItemEvaluator& items) const {
  const fs::path directory = FProjectFile.parent_path();
  const TConditionResult groupHolds = Holds(*group.Node, directory);
  if (!groupHolds.Holds && !groupHolds.Unknown)
    return;
  const TUnknown& doubt = group.Doubt ? group.Doubt : groupHolds.Unknown;
  for (IXMLNode* item = group.Node->FirstChild(); item; item = item->NextSibling()) {
    const TConditionResult condition = Holds(*item, directory);
    if (condition.Holds || condition.Unknown)
      items.Evaluate(*item, doubt ? doubt : condition.Unknown);
  }
}

TConditionResult TMSBuildEvaluation::Holds(const IXMLNode& node, const fs::path& directory) const {
  const auto condition = node.GetAttribute("Condition");
  if (!condition)
    return {true};
  try {
    TConditionResult result =
        EvaluateCondition(*condition, TElementContext(FProperties, node, directory), {});
    if (result.Unknown) {
      TUnknownValue doubt = *result.Unknown;
      doubt.Reason = "the condition of \"" + std::string(node.NodeName()) +
                     "\" is not known: " + UnknownSentence(*result.Unknown);
      doubt.Property.clear();
      doubt.IsMistake = false;
      doubt.Node = &node;
      result.Unknown = std::make_shared<TUnknownValue>(std::move(doubt));
    }
    return result;
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
