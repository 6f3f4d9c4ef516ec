// Evaluates a project tree: what its properties and items are under given global properties.
#pragma once

#include "package/host/api/xml.h"
#include "workbench/msbuild/build_system_files.h"
#include "workbench/msbuild/directory_cache.h"
#include "workbench/msbuild/environment.h"
#include "workbench/msbuild/evaluation_note.h"
#include "workbench/msbuild/item_definitions.h"
#include "workbench/msbuild/msbuild_imports.h"
#include "workbench/msbuild/msbuild_items.h"
#include "workbench/msbuild/msbuild_properties.h"

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

/// What an evaluation starts from.
struct TEvaluationSource {
  deployment::IXMLNode* Root = nullptr; ///< the project's root element
  std::filesystem::path ProjectFile;    ///< absolute
  ILoadImports* Imports = nullptr;
  TNamedTexts Environment = {}; ///< initial properties
  TNamedTexts Told = {}; ///< initial properties that the build system tells, over the environment
  IBuildSystemFiles* BuildSystem = nullptr; ///< null: every file is looked for on this machine
  TDirectoryCache* Directories = nullptr;   ///< null: the evaluation looks for itself
  std::filesystem::path GeneratedFile = {}; ///< an import that is skipped when it cannot be read
  bool ImportsBuildSystem = false; ///< a project that imports none of its files counts as if it did
};

/// One evaluation. Properties and imports come first, in document order; items see the final
/// values. The tree and the loader must outlive it, and the tree must keep its elements.
class TMSBuildEvaluation {
public:
  /// Evaluates the properties. Throws TInputError.
  TMSBuildEvaluation(const TEvaluationSource& source, const TNamedTexts& globals);
  TMSBuildEvaluation(const TMSBuildEvaluation&) = delete;
  TMSBuildEvaluation& operator=(const TMSBuildEvaluation&) = delete;

  /// Plain text; empty when unset or not known.
  std::string Property(std::string_view name) const { return Value(name).Text; }
  /// The same, and why it is not known.
  TExpanded Value(std::string_view name) const;
  /// Where the property got its value; the project's root when no element assigned it.
  deployment::TErrorPlace PropertyPlace(std::string_view name) const;
  /// The element that assigned the property; null when none did.
  const deployment::IXMLNode* AssignedBy(std::string_view name) const {
    return FProperties.AssignedBy(name);
  }
  /// A text of the project as plain text, references replaced.
  std::string Expand(std::string_view text, const deployment::IXMLNode& node) const;

  /// What the item definitions say about a type under a name, plain text; null for nothing.
  /// Evaluated at the first call for the type. Throws TInputError.
  std::optional<TDefinedValue> Definition(std::string_view type, std::string_view name);
  /// What an item says under a name, or else the definitions of its type; plain text.
  TExpanded Metadata(const TProjectItem& item, std::string_view name);

  /// All items in document order; evaluated at the first call. Throws TInputError.
  const std::vector<TProjectItem>& Items();
  /// What was passed over so far.
  const TEvaluationNotes& Notes() const { return FNotes; }

private:
  class TFileScope;

  struct TGroup {
    deployment::IXMLNode* Node;
    const std::filesystem::path* File;
    TUnknown Doubt; ///< set when it is not known whether the group counts
  };

  void SetUpProperties(const TEvaluationSource& source, const TNamedTexts& globals);
  void EvaluateFile(deployment::IXMLNode& root, const std::filesystem::path& file);
  void EvaluateChildren(deployment::IXMLNode& parent);
  void EvaluatePropertyGroup(deployment::IXMLNode& group);
  void EvaluateProperty(deployment::IXMLNode& property);
  void EvaluateImportGroup(deployment::IXMLNode& group);
  void EvaluateChoose(deployment::IXMLNode& choose);
  void EvaluateImport(const deployment::IXMLNode& import, bool asksExists);
  void ImportPattern(std::string_view pattern, const deployment::IXMLNode& import);
  void ImportUnknown(const TExpanded& name, const deployment::IXMLNode& import);
  void ImportNamed(const std::string& name, const deployment::IXMLNode& import, bool asksExists);
  bool ImportStandIn(std::string_view name);
  void ImportMissingStandIns();
  void ImportFile(const std::filesystem::path& file, const deployment::IXMLNode& import);
  void EvaluateImported(deployment::IXMLDocument& document, const std::filesystem::path& file,
                        const deployment::IXMLNode& import);
  void EvaluateItemGroup(const TGroup& group, TItemEvaluator& items) const;
  TConditionResult Holds(const deployment::IXMLNode& node,
                         const std::filesystem::path& directory) const;
  std::filesystem::path Directory() const { return FFile->parent_path(); }
  void Note(TNoteKind kind, std::string text, const deployment::IXMLNode& node);

  class TDoubt;

  deployment::IXMLNode& FRoot;
  std::filesystem::path FProjectFile;
  ILoadImports& FImports;
  TPropertyTable FProperties;
  TEvaluationNotes FNotes;
  IBuildSystemFiles* FBuildSystem;
  const std::filesystem::path FGeneratedFile;
  TDirectoryCache FOwnDirectories;
  TDirectoryCache& FDirectories;
  std::vector<TGroup> FItemGroups;
  std::vector<TGroup> FDefinitionGroups;
  std::map<std::string, TItemDefinition> FDefinitions; // by type in upper case
  std::optional<std::vector<TProjectItem>> FItems;
  std::set<std::filesystem::path> FFiles;     // every file read, as the project names it
  std::set<std::filesystem::path> FRealFiles; // the same with links resolved
  std::vector<std::shared_ptr<deployment::IXMLDocument>> FDocuments;
  const std::filesystem::path* FFile = nullptr; // the file at hand
  TUnknown FDoubt;                              // about whether what is at hand counts
  std::set<std::string> FBuildSystemImports;    // names of the build system's files, upper case
  std::size_t FImportCount = 0;
  unsigned FImportDepth = 0;
  unsigned FChooseDepth = 0;
};

} // namespace workbench
