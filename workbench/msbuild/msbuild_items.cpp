#include "workbench/msbuild/msbuild_items.h"

#include "package/common/case_fold.h"
#include "package/common/path_text.h"
#include "workbench/msbuild/msbuild_includes.h"
#include "workbench/msbuild/values/msbuild_escapes.h"
#include "workbench/msbuild/values/project_paths.h"
#include "workbench/xml/short_text.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace workbench {
namespace {

// Lists that refer to themselves grow without end; real projects stay far below.
constexpr std::size_t MostWork = 10'000'000;
constexpr std::size_t WorkOfItem = 10;       // which stays in memory as well
constexpr std::size_t CharactersOfWork = 32; // that are looked at in the time a step takes

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

// Sets what is wanted in a list that has each name once.
class TMetadataSetter {
public:
  explicit TMetadataSetter(std::vector<TItemMetadata>& metadata) : FMetadata(metadata) {}

  void Set(TItemMetadata wanted) {
    TItemMetadata* present = Find(wanted.Name);
    if (!present) {
      FMetadata.push_back(std::move(wanted));
      return;
    }
    present->Text = std::move(wanted.Text);
    present->Unknown = std::move(wanted.Unknown);
  }

private:
  static constexpr std::size_t MostToWalk = 16;

  TItemMetadata* Find(const std::string& name) {
    if (FMetadata.size() <= MostToWalk) {
      const auto found = std::ranges::find_if(FMetadata, [&](const TItemMetadata& present) {
        return deployment::SameText(present.Name, name);
      });
      return found == FMetadata.end() ? nullptr : &*found;
    }
    for (std::size_t i = FPositions.size(); i < FMetadata.size(); ++i)
      FPositions.emplace(deployment::UpperCase(FMetadata[i].Name), i);
    const auto found = FPositions.find(deployment::UpperCase(name));
    return found == FPositions.end() ? nullptr : &FMetadata[found->second];
  }

  std::vector<TItemMetadata>& FMetadata;
  std::unordered_map<std::string, std::size_t> FPositions; // of the first ones, once there are many
};

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
        if (FItems[position].Removed || IsIn(excluded, FItems[position].Include, element))
          continue;
        TMetadata merged = FItems[position].Metadata;
        TMetadataSetter setter(merged);
        for (const TItemMetadata& own : metadata)
          setter.Set(own);
        Add(element, FItems[position].Include, merged,
            FItems[position].Unknown ? FItems[position].Unknown : unknown);
      }
      continue;
    }
    for (std::string& name : Names(element, piece)) {
      if (!IsIn(excluded, name, element))
        Add(element, std::move(name), metadata, unknown);
    }
  }
}

void TItemEvaluator::Add(const deployment::IXMLNode& element, std::string include,
                         const TMetadata& metadata, const TUnknown& unknown) {
  Spend(WorkOfItem + metadata.size(), element);
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
            selection.Keys.insert(KeyOf(FItems[position].Include));
        }
      }
    } else if (TWildcardPattern::IsPattern(piece) &&
               TWildcardPattern(piece).Refusal(FDirectory).empty()) {
      selection.Patterns.emplace_back(piece);
    } else {
      selection.Keys.insert(KeyOf(UnescapeMSBuild(piece)));
    }
  }
  return selection;
}

bool TItemEvaluator::IsIn(const TSelection& selection, const std::string& name,
                          const deployment::IXMLNode& element) {
  if (!selection.Keys.empty() && selection.Keys.contains(KeyOf(name)))
    return true;
  return !selection.Patterns.empty() &&
         AnyTakesIn(selection.Patterns, TWildcardPattern::PartsOf(name), element);
}

bool TItemEvaluator::AnyTakesIn(const std::vector<TWildcardPattern>& patterns,
                                const TWildcardPattern::TParts& path,
                                const deployment::IXMLNode& element) {
  std::size_t characters = 0;
  const bool isTaken = std::ranges::any_of(patterns, [&](const TWildcardPattern& pattern) {
    const bool takes = pattern.Matches(path, characters);
    Spend(characters / CharactersOfWork, element);
    characters %= CharactersOfWork;
    return takes;
  });
  Spend(1, element);
  return isTaken;
}

// The parts of an item's name; they are kept, since projects have many patterns for one list.
const TWildcardPattern::TParts& TItemEvaluator::PartsAt(std::size_t position) {
  if (FParts.size() < FItems.size())
    FParts.resize(FItems.size());
  if (!FParts[position])
    FParts[position] = TWildcardPattern::PartsOf(FItems[position].Include);
  return *FParts[position];
}

// Positions of the items that are left and that the selection names. The index grows as far as
// the items do, so that a project with many single removals stays linear.
TItemEvaluator::TPositions TItemEvaluator::Selected(const deployment::IXMLNode& element,
                                                    const TSelection& selection) {
  TType& type = TypeOf(element.NodeName());
  for (; type.Indexed < type.Positions.size(); ++type.Indexed) {
    const std::size_t position = type.Positions[type.Indexed];
    type.ByKey[KeyOf(FItems[position].Include)].push_back(position);
  }
  TPositions selected;
  for (const std::string& key : selection.Keys) {
    if (const auto found = type.ByKey.find(key); found != type.ByKey.end())
      selected.insert(selected.end(), found->second.begin(), found->second.end());
  }
  if (!selection.Patterns.empty()) {
    std::ranges::copy_if(type.Positions, std::back_inserter(selected), [&](std::size_t position) {
      return !FItems[position].Removed &&
             AnyTakesIn(selection.Patterns, PartsAt(position), element);
    });
  }
  Spend(selected.size(), element);
  std::erase_if(selected, [&](std::size_t position) { return FItems[position].Removed; });
  return selected;
}

void TItemEvaluator::Remove(const deployment::IXMLNode& element, std::string_view list) {
  const TSelection selection = Select(element, list);
  for (const std::size_t position : Selected(element, selection)) {
    FItems[position].Removed = !FDoubt;
    if (FDoubt)
      FItems[position].Unknown = FDoubt;
  }
}

void TItemEvaluator::Update(deployment::IXMLNode& element, std::string_view list) {
  const TMetadata metadata = ReadMetadata(element);
  const TSelection selection = Select(element, list);
  for (const std::size_t position : Selected(element, selection)) {
    Spend(metadata.size(), element);
    TMetadataSetter setter(FItems[position].Metadata);
    for (const TItemMetadata& own : metadata)
      setter.Set({own.Name, own.Text, FDoubt ? FDoubt : own.Unknown});
  }
}

TItemEvaluator::TMetadata TItemEvaluator::ReadMetadata(deployment::IXMLNode& element) const {
  TMetadata metadata;
  TMetadataSetter setter(metadata);
  const auto set = [&](std::string_view name, TExpanded value) {
    setter.Set({std::string(name), std::move(value.Text), std::move(value.Unknown)});
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
