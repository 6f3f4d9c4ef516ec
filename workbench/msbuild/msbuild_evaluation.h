// Evaluates a project tree: what its properties and items are under given global properties.
#pragma once

#include "package/host/api/xml.h"
#include "workbench/msbuild/environment.h"
#include "workbench/msbuild/evaluation_note.h"
#include "workbench/msbuild/msbuild_imports.h"
#include "workbench/msbuild/msbuild_items.h"
#include "workbench/msbuild/msbuild_properties.h"

#include <filesystem>
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
  TNamedTexts Environment; ///< initial properties
  TNamedTexts Defaults;    ///< what unset properties count as; may refer to other properties
};

/// One evaluation. Properties and imports come first, in document order; items see the final
/// values. The tree and the loader must outlive it, and the tree must keep its elements.
class TMSBuildEvaluation {
public:
  /// Evaluates the properties. Throws TInputError.
  TMSBuildEvaluation(const TEvaluationSource& source, const TNamedTexts& globals);
  TMSBuildEvaluation(const TMSBuildEvaluation&) = delete;
  TMSBuildEvaluation& operator=(const TMSBuildEvaluation&) = delete;

  /// Plain text; empty when unset.
  std::string Property(std::string_view name) const;
  /// Where the property got its value; the project's root when no element assigned it.
  deployment::TErrorPlace PropertyPlace(std::string_view name) const;
  /// A text of the project as plain text, references replaced.
  std::string Expand(std::string_view text, const deployment::IXMLNode& node) const;

  /// All items in document order; evaluated at the first call. Throws TInputError.
  const std::vector<TProjectItem>& Items();
  /// What was passed over so far.
  const TEvaluationNotes& Notes() const { return FNotes; }

private:
  class TFileScope;

  struct TItemGroup {
    deployment::IXMLNode* Node;
    const std::filesystem::path* File;
  };

  void SetUpProperties(const TEvaluationSource& source, const TNamedTexts& globals);
  void EvaluateFile(deployment::IXMLNode& root, const std::filesystem::path& file);
  void EvaluateChildren(deployment::IXMLNode& parent);
  void EvaluatePropertyGroup(deployment::IXMLNode& group);
  void EvaluateChoose(deployment::IXMLNode& choose);
  void EvaluateImport(const deployment::IXMLNode& import);
  void ImportFile(const std::filesystem::path& file, const deployment::IXMLNode& import);
  std::vector<std::string> ImportNames(const deployment::IXMLNode& import);
  void EvaluateItemGroup(deployment::IXMLNode& group, TItemEvaluator& items) const;
  bool Holds(const deployment::IXMLNode& node, const std::filesystem::path& directory) const;
  std::filesystem::path Directory() const { return FFile->parent_path(); }
  void Note(TNoteKind kind, std::string text, const deployment::IXMLNode& node);

  deployment::IXMLNode& FRoot;
  std::filesystem::path FProjectFile;
  ILoadImports& FImports;
  TPropertyTable FProperties;
  TEvaluationNotes FNotes;
  std::vector<TItemGroup> FItemGroups;
  std::optional<std::vector<TProjectItem>> FItems;
  std::set<std::filesystem::path> FFiles;     // every file read, as the project names it
  std::set<std::filesystem::path> FRealFiles; // the same with links resolved
  std::vector<std::shared_ptr<deployment::IXMLDocument>> FDocuments;
  const std::filesystem::path* FFile = nullptr; // the file at hand
  unsigned FImportDepth = 0;
  unsigned FChooseDepth = 0;
};

} // namespace workbench
