#include "workbench/msbuild/msbuild_evaluation.h"

#include "package/common/case_fold.h"
#include "package/host/api/xmlutils.h"
#include "workbench/msbuild/msbuild_condition.h"
#include "workbench/msbuild/msbuild_evaluation_scopes.h"
#include "workbench/msbuild/values/msbuild_escapes.h"
#include "workbench/msbuild/values/project_paths.h"

#include <system_error>

namespace workbench {
namespace {

namespace fs = std::filesystem;
using deployment::IXMLNode;

constexpr unsigned DeepestChoose = 256;

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

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

} // namespace

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
