// The items of a project: what its item groups list, in document order.
#pragma once

#include "package/host/api/xml.h"
#include "workbench/msbuild/evaluation_note.h"
#include "workbench/msbuild/msbuild_properties.h"
#include "workbench/msbuild/msbuild_wildcards.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace workbench {

/// One item. Texts are plain: references replaced, escapes resolved.
struct TProjectItem {
  std::string Type;
  std::string Include;
  std::vector<std::pair<std::string, std::string>> Metadata; ///< in order, each name once
  const deployment::IXMLNode* Node = nullptr;                ///< the element that made the item
  bool Removed = false;

  /// Ignoring case of the name; empty when the item has no such metadata.
  std::string_view FindMetadata(std::string_view name) const;
};

/// Evaluates the elements of item groups one after the other.
class TItemEvaluator {
public:
  /// Tells whether the condition of an element holds.
  using THolds = std::function<bool(const deployment::IXMLNode&)>;

  /// Properties and notes belong to the caller and outlive the evaluator. Includes are relative to
  /// the directory.
  TItemEvaluator(const TPropertyTable& properties, std::filesystem::path directory, THolds holds,
                 TEvaluationNotes& notes);

  /// Evaluates one child of an item group; its own condition holds. Throws TInputError.
  void Evaluate(deployment::IXMLNode& element);
  /// All items that are left, in order.
  std::vector<TProjectItem> TakeItems();

private:
  using TPositions = std::vector<std::size_t>;
  using TMetadata = std::vector<std::pair<std::string, std::string>>;

  struct TType {
    TPositions Positions;
    std::unordered_map<std::string, TPositions> ByKey; // covers the first Indexed positions
    std::size_t Indexed = 0;
  };

  // What an Exclude, Remove or Update names.
  struct TSelection {
    std::vector<std::string> Keys;
    std::vector<TWildcardPattern> Patterns;
  };

  TType& TypeOf(std::string_view name);
  void Include(deployment::IXMLNode& element, std::string_view include);
  void Add(const deployment::IXMLNode& element, std::string include, const TMetadata& metadata);
  TSelection Select(const deployment::IXMLNode& element, std::string_view list);
  TPositions Selected(std::string_view type, const TSelection& selection);
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
  TEvaluationNotes& FNotes;
  std::vector<TProjectItem> FItems;
  std::unordered_map<std::string, TType> FTypes;
  std::size_t FWork = 0;
};

} // namespace workbench
