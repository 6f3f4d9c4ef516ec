#include "workbench/msbuild/msbuild_items.h"

#include "package/common/case_fold.h"
#include "package/common/path_text.h"
#include "workbench/msbuild/msbuild_escapes.h"
#include "workbench/msbuild/msbuild_includes.h"
#include "workbench/msbuild/project_paths.h"
#include "workbench/xml/short_text.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace workbench {
namespace {

// Lists that refer to themselves grow without end; real projects stay far below.
constexpr std::size_t MostWork = 10'000'000;

// Two includes with the same key are the same file.
std::string KeyOf(std::string_view include) {
  return deployment::UpperCase(deployment::CanonicalizePath(include));
}

// Attributes that steer an item; every other one is metadata written short.
bool IsSteeringAttribute(std::string_view name) {
  static constexpr std::array<std::string_view, 11> Names = {"Include",
                                                             "Exclude",
                                                             "Remove",
                                                             "Update",
                                                             "Condition",
                                                             "Label",
                                                             "KeepDuplicates",
                                                             "KeepMetadata",
                                                             "RemoveMetadata",
                                                             "MatchOnMetadata",
                                                             "MatchOnMetadataOptions"};
  return std::ranges::find(Names, name) != Names.end() || name.starts_with("xmlns") ||
         name.find(':') != std::string_view::npos;
}

void SetMetadata(std::vector<TItemMetadata>& metadata, TItemMetadata wanted) {
  for (TItemMetadata& present : metadata) {
    if (deployment::SameText(present.Name, wanted.Name)) {
      present.Text = std::move(wanted.Text);
      present.Unknown = std::move(wanted.Unknown);
      return;
    }
  }
  metadata.push_back(std::move(wanted));
}

} // namespace

const TItemMetadata* TProjectItem::Find(std::string_view name) const {
  const auto found = std::ranges::find_if(Metadata, [&](const TItemMetadata& metadata) {
    return deployment::SameText(metadata.Name, name);
  });
  return found == Metadata.end() ? nullptr : &*found;
}

std::string_view TProjectItem::FindMetadata(std::string_view name) const {
  const TItemMetadata* found = Find(name);
  return found ? std::string_view(found->Text) : std::string_view();
}

TItemEvaluator::TItemEvaluator(const TPropertyTable& properties, std::filesystem::path directory,
                               THolds holds, TDirectoryCache& files, TEvaluationNotes& notes)
    : FProperties(properties), FDirectory(std::move(directory)), FHolds(std::move(holds)),
      FFiles(files), FNotes(notes) {}

void TItemEvaluator::Evaluate(deployment::IXMLNode& element, const TUnknown& doubt) {
  FDoubt = doubt;
  if (const auto include = element.GetAttribute("Include"))
    Include(element, *include);
  else if (const auto remove = element.GetAttribute("Remove"))
    Remove(element, *remove);
  else if (const auto update = element.GetAttribute("Update"))
    Update(element, *update);
  else
    throw deployment::TInputError("the item \"" + std::string(element.NodeName()) +
                                      "\" lacks the attribute \"Include\"",
                                  element.Place());
}

std::vector<TProjectItem> TItemEvaluator::TakeItems() {
  std::erase_if(FItems, [](const TProjectItem& item) { return item.Removed; });
  FTypes.clear();
  return std::move(FItems);
}

TItemEvaluator::TType& TItemEvaluator::TypeOf(std::string_view name) {
  return FTypes[deployment::UpperCase(name)];
}

void TItemEvaluator::Include(deployment::IXMLNode& element, std::string_view include) {
  const TMetadata metadata = ReadMetadata(element);
  TSelection excluded;
  if (const auto exclude = element.GetAttribute("Exclude"))
    excluded = Select(element, *exclude);
  const std::unordered_set<std::string> keys(excluded.Keys.begin(), excluded.Keys.end());
  const auto isExcluded = [&](const std::string& name) {
    Spend(excluded.Patterns.size(), element);
    return (!keys.empty() && keys.contains(KeyOf(name))) ||
           std::ranges::any_of(excluded.Patterns, [&](const TWildcardPattern& pattern) {
             return pattern.Matches(name);
           });
  };
  const TExpanded escaped = FProperties.Expand(include, element);
  TUnknown unknown = FDoubt ? FDoubt : escaped.Unknown ? escaped.Unknown : excluded.Unknown;
  if (escaped.Unknown)
    return Add(element, std::string(include), metadata, unknown);
  for (const std::string_view piece : SplitIncludes(escaped.Text)) {
    if (IsItemReference(piece)) {
      const TPositions* positions = Referenced(element, piece);
      if (!positions)
        continue;
      for (const std::size_t position : TPositions(*positions)) {
        if (FItems[position].Removed || isExcluded(FItems[position].Include))
          continue;
        TMetadata merged = FItems[position].Metadata;
        for (const TItemMetadata& own : metadata)
          SetMetadata(merged, own);
        Add(element, FItems[position].Include, merged,
            FItems[position].Unknown ? FItems[position].Unknown : unknown);
      }
      continue;
    }
    for (std::string& name : Names(element, piece)) {
      if (!isExcluded(name))
        Add(element, std::move(name), metadata, unknown);
    }
  }
}

void TItemEvaluator::Add(const deployment::IXMLNode& element, std::string include,
                         const TMetadata& metadata, const TUnknown& unknown) {
  Spend(1 + metadata.size(), element);
  TypeOf(element.NodeName()).Positions.push_back(FItems.size());
  FItems.push_back(
      {std::string(element.NodeName()), std::move(include), metadata, &element, false, unknown});
}

std::vector<std::string> TItemEvaluator::Names(const deployment::IXMLNode& element,
                                               std::string_view piece) {
  if (piece.find("@(") != std::string_view::npos) {
    Note(element, piece, "holds a list inside a name");
    return {};
  }
  if (!TWildcardPattern::IsPattern(piece))
    return {UnescapeMSBuild(piece)};
  const TWildcardPattern pattern(piece);
  const std::string& fixed = pattern.FixedPart();
  if (const std::string_view refusal = pattern.Refusal(FDirectory); !refusal.empty()) {
    Note(element, piece, refusal);
    return {};
  }
  if (deployment::IsAbsolutePath(fixed) &&
      !FullPathText(fixed, FDirectory).starts_with((FDirectory / "").string())) {
    Note(element, piece, "looks for files outside the project's directory");
    return {};
  }
  std::vector<std::string> names = pattern.Expand(FDirectory, FFiles, element.Place());
  Spend(names.size(), element);
  return names;
}

const TItemEvaluator::TPositions* TItemEvaluator::Referenced(const deployment::IXMLNode& element,
                                                             std::string_view reference) {
  const std::string_view type = ReferencedType(reference);
  if (type.empty()) {
    Note(element, reference, "transforms a list");
    return nullptr;
  }
  const TPositions& positions = TypeOf(type).Positions;
  Spend(positions.size(), element);
  return &positions;
}

TItemEvaluator::TSelection TItemEvaluator::Select(const deployment::IXMLNode& element,
                                                  std::string_view list) {
  TSelection selection;
  TExpanded escaped = FProperties.Expand(list, element);
  selection.Unknown = std::move(escaped.Unknown);
  for (const std::string_view piece : SplitIncludes(escaped.Text)) {
    if (IsItemReference(piece)) {
      if (const TPositions* positions = Referenced(element, piece)) {
        for (const std::size_t position : *positions) {
          if (!FItems[position].Removed)
            selection.Keys.push_back(KeyOf(FItems[position].Include));
        }
      }
    } else if (TWildcardPattern::IsPattern(piece) &&
               TWildcardPattern(piece).Refusal(FDirectory).empty()) {
      selection.Patterns.emplace_back(piece);
    } else {
      selection.Keys.push_back(KeyOf(UnescapeMSBuild(piece)));
    }
  }
  return selection;
}

// Positions of the items that are left and that the selection names. The index grows as far as
// the items do, so that a project with many single removals stays linear.
TItemEvaluator::TPositions TItemEvaluator::Selected(std::string_view typeName,
                                                    const TSelection& selection) {
  TType& type = TypeOf(typeName);
  for (; type.Indexed < type.Positions.size(); ++type.Indexed) {
    const std::size_t position = type.Positions[type.Indexed];
    type.ByKey[KeyOf(FItems[position].Include)].push_back(position);
  }
  TPositions selected;
  for (const std::string& key : selection.Keys) {
    if (const auto found = type.ByKey.find(key); found != type.ByKey.end())
      selected.insert(selected.end(), found->second.begin(), found->second.end());
  }
  for (const TWildcardPattern& pattern : selection.Patterns) {
    for (const std::size_t position : type.Positions) {
      if (pattern.Matches(FItems[position].Include))
        selected.push_back(position);
    }
  }
  std::erase_if(selected, [&](std::size_t position) { return FItems[position].Removed; });
  return selected;
}

void TItemEvaluator::Remove(const deployment::IXMLNode& element, std::string_view list) {
  const TSelection selection = Select(element, list);
  Spend(selection.Patterns.size() * TypeOf(element.NodeName()).Positions.size(), element);
  for (const std::size_t position : Selected(element.NodeName(), selection)) {
    FItems[position].Removed = !FDoubt;
    if (FDoubt)
      FItems[position].Unknown = FDoubt;
  }
}

void TItemEvaluator::Update(deployment::IXMLNode& element, std::string_view list) {
  const TMetadata metadata = ReadMetadata(element);
  const TSelection selection = Select(element, list);
  Spend(selection.Patterns.size() * TypeOf(element.NodeName()).Positions.size(), element);
  for (const std::size_t position : Selected(element.NodeName(), selection)) {
    for (const TItemMetadata& own : metadata)
      SetMetadata(FItems[position].Metadata, {own.Name, own.Text, FDoubt ? FDoubt : own.Unknown});
  }
}

TItemEvaluator::TMetadata TItemEvaluator::ReadMetadata(deployment::IXMLNode& element) const {
  TMetadata metadata;
  const auto set = [&](std::string_view name, TExpanded value) {
    SetMetadata(metadata, {std::string(name), std::move(value.Text), std::move(value.Unknown)});
  };
  for (std::size_t i = 0; i < element.AttributeCount(); ++i) {
    const std::string_view name = element.AttributeName(i);
    if (!IsSteeringAttribute(name))
      set(name, FProperties.ExpandPlain(element.GetAttribute(name).value_or(""), element));
  }
  for (deployment::IXMLNode* child = element.FirstChild(); child; child = child->NextSibling()) {
    const TConditionResult condition = FHolds(*child);
    if (condition.Unknown)
      set(child->NodeName(), {{}, condition.Unknown});
    else if (condition.Holds)
      set(child->NodeName(), FProperties.ExpandPlain(child->Text(), *child));
  }
  return metadata;
}

void TItemEvaluator::Spend(std::size_t work, const deployment::IXMLNode& element) {
  FWork += work;
  if (FWork > MostWork)
    throw deployment::TInputError("the item \"" + std::string(element.NodeName()) +
                                      "\" makes the lists of the project grow too long",
                                  element.Place());
}

void TItemEvaluator::Note(const deployment::IXMLNode& element, std::string_view piece,
                          std::string_view reason) {
  FNotes.push_back({TNoteKind::IgnoredItem,
                    "\"" + ShortText(piece) + "\" of the item \"" +
                        std::string(element.NodeName()) + "\" was left out: it " +
                        std::string(reason),
                    element.Place()});
}

} // namespace workbench
