// The items of a project: what its item groups list, in document order.
#pragma once

#include "package/host/api/xml.h"
#include "workbench/msbuild/directory_cache.h"
#include "workbench/msbuild/evaluation_note.h"
#include "workbench/msbuild/msbuild_condition.h"
#include "workbench/msbuild/msbuild_properties.h"
#include "workbench/msbuild/msbuild_wildcards.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace workbench {

/// What an item says about itself under a name; plain text.
struct TItemMetadata {
  std::string Name;
  std::string Text;
  TUnknown Unknown;
};

/// One item. Texts are plain: references replaced, escapes resolved.
struct TProjectItem {
  std::string Type;
  std::string Include;
  std::vector<TItemMetadata> Metadata;        ///< in order, each name once
  const deployment::IXMLNode* Node = nullptr; ///< the element that made the item
  bool Removed = false;
  TUnknown Unknown; ///< set when its name, or whether there is such an item, is not known

  /// Ignoring case of the name; null when the item has no such metadata.
  const TItemMetadata* Find(std::string_view name) const;
  /// The text of that metadata; empty when the item has none.
  std::string_view FindMetadata(std::string_view name) const;
};

/// Evaluates the elements of item groups one after the other.
class TItemEvaluator {
public:
  /// Tells whether the condition of an element holds.
  using THolds = std::function<TConditionResult(const deployment::IXMLNode&)>;

  /// All but the directory belong to the caller and outlive the evaluator. Includes are relative
  /// to the directory.
  TItemEvaluator(const TPropertyTable& properties, std::filesystem::path directory, THolds holds,
                 TDirectoryCache& files, TEvaluationNotes& notes);

  /// Evaluates one child of an item group; its own condition holds, or is in doubt. Throws
  /// TInputError.
  void Evaluate(deployment::IXMLNode& element, const TUnknown& doubt = nullptr);
  /// All items that are left, in order.
  std::vector<TProjectItem> TakeItems();

private:
  using TPositions = std::vector<std::size_t>;
  using TMetadata = std::vector<TItemMetadata>;

  struct TType {
    TPositions Positions;
    std::unordered_map<std::string, TPositions> ByKey; // covers the first Indexed positions
    std::size_t Indexed = 0;
  };

  // What an Exclude, Remove or Update names.
  struct TSelection {
    std::unordered_set<std::string> Keys;
    std::vector<TWildcardPattern> Patterns;
    TUnknown Unknown;
  };

  TType& TypeOf(std::string_view name);
  void Include(deployment::IXMLNode& element, std::string_view include);
  void Add(const deployment::IXMLNode& element, std::string include, const TMetadata& metadata,
           const TUnknown& unknown);
  TSelection Select(const deployment::IXMLNode& element, std::string_view list);
  bool IsIn(const TSelection& selection, const std::string& name,
            const deployment::IXMLNode& element);
  bool AnyTakesIn(const std::vector<TWildcardPattern>& patterns,
                  const TWildcardPattern::TParts& path, const deployment::IXMLNode& element);
  const TWildcardPattern::TParts& PartsAt(std::size_t position);
  TPositions Selected(const deployment::IXMLNode& element, const TSelection& selection);
  void Remove(const deployment::IXMLNode& element, std::string_view list);
  void Update(deployment::IXMLNode& element, std::string_view list);
  TMetadata ReadMetadata(deployment::IXMLNode& element) const;
  const TPositions* Referenced(const deployment::IXMLNode& element, std::string_view reference);
  std::vector<std::string> Names(const deployment::IXMLNode& element, std::string_view piece);
  void Spend(std::size_t work, const deployment::IXMLNode& element);
  void Note(const deployment::IXMLNode& element, std::string_view piece, std::string_view reason);

  const TPropertyTable& FProperties;
  std::filesystem::path FDirectory;
  THolds FHolds;
  TDirectoryCache& FFiles;
  TEvaluationNotes& FNotes;
  TUnknown FDoubt; // about the element at hand
  std::vector<TProjectItem> FItems;
  std::vector<std::optional<TWildcardPattern::TParts>>
      FParts; // of the items that patterns were held against
  std::unordered_map<std::string, TType> FTypes;
  std::size_t FWork = 0;
};

} // namespace workbench
