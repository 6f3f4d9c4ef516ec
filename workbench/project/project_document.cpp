#include "workbench/project/project_document.h"

#include "package/common/case_fold.h"
#include "package/host/api/xmlutils.h"
#include "workbench/files/file_reader.h"
#include "workbench/project/project_layout.h"
#include "workbench/xml/short_text.h"

#include <algorithm>
#include <cstring>

namespace workbench {
namespace {

TXmlElement* NextNamed(TXmlElement* element, std::string_view name) {
  return static_cast<TXmlElement*>(deployment::FirstNamed(element, name));
}

constexpr std::string_view TargetPlatformItem = "TargetPlatform";

bool IsImportOf(TXmlElement& element, std::string_view import) {
  const auto project = element.GetAttribute("Project");
  return element.NodeName() == "Import" && project && deployment::SameText(*project, import);
}

TXmlReader::TInput InputFrom(const std::filesystem::path& file) {
  return [file](const TReserveMemory& reserve) { return ReadWholeFileInto(file, reserve); };
}

TXmlReader::TInput InputFrom(std::string_view text) {
  return [text](const TReserveMemory& reserve) {
    std::memcpy(reserve(text.size()), text.data(), text.size());
    return text.size();
  };
}

} // namespace

TProjectDocument::TProjectDocument(const std::filesystem::path& file, std::string_view largeSection)
    : FLargeSection(largeSection),
      FReader(InputFrom(file), file.string(), {SectionContainer, FLargeSection}),
      FSource(FReader.Bytes(), FReader.Encoding()), FProperties(FReader.Root(), FSource) {
  CheckProject();
}

TProjectDocument::TProjectDocument(std::string_view text, std::string name,
                                   std::string_view largeSection)
    : FLargeSection(largeSection),
      FReader(InputFrom(text), std::move(name), {SectionContainer, FLargeSection}),
      FSource(FReader.Bytes(), FReader.Encoding()), FProperties(FReader.Root(), FSource) {
  CheckProject();
}

void TProjectDocument::CheckProject() {
  TXmlElement& root = Root();
  if (root.NodeName() != "Project")
    throw deployment::TInputError("the root element is \"" + ShortText(root.NodeName()) +
                                      "\", so this is not an MSBuild project",
                                  root.Place());
  const TXmlElement* first = nullptr;
  for (TXmlElement* container = NextNamed(root.FirstChild(), SectionContainer); container;
       container = NextNamed(container->NextSibling(), SectionContainer)) {
    for (TXmlElement* child = container->FirstChild(); child; child = child->NextSibling()) {
      if (!deployment::SameText(child->NodeName(), FLargeSection))
        continue;
      if (first)
        throw deployment::TInputError(
            "the project holds a second section \"" + std::string(child->NodeName()) +
                "\"; the first one stands in line " + std::to_string(first->Place().Line),
            child->Place());
      first = child;
    }
  }
}

std::string_view TProjectDocument::SectionBytes() const {
  const TXmlElement* section = FReader.Section();
  return section ? FSource.Bytes(section->Range()) : std::string_view();
}

TXmlElement* TProjectDocument::FindContainer() {
  return NextNamed(Root().FirstChild(), SectionContainer);
}

TXmlElement* TProjectDocument::FindSection(std::string_view name) {
  for (TXmlElement* container = FindContainer(); container;
       container = NextNamed(container->NextSibling(), SectionContainer)) {
    for (TXmlElement* child = container->FirstChild(); child; child = child->NextSibling()) {
      if (deployment::SameText(child->NodeName(), name))
        return child;
    }
  }
  for (const auto& added : FAddedSections) {
    if (deployment::SameText(added->Root()->NodeName(), name))
      return added->Root();
  }
  return nullptr;
}

TXmlElement& TProjectDocument::AddSection(std::string_view name) {
  if (TXmlElement* present = FindSection(name))
    return *present;
  FAddedSections.push_back(std::make_unique<TXmlTree>(Name()));
  return FAddedSections.back()->MakeRoot(name);
}

bool TProjectDocument::HasImport(std::string_view import) {
  return (FNewImport && deployment::SameText(FNewImport->Project, import)) ||
         HasStoredImport(import);
}

bool TProjectDocument::HasStoredImport(std::string_view import) {
  for (TXmlElement* child = Root().FirstChild(); child; child = child->NextSibling()) {
    if (IsImportOf(*child, import))
      return true;
    if (child->NodeName() != "ImportGroup")
      continue;
    for (TXmlElement* inner = child->FirstChild(); inner; inner = inner->NextSibling()) {
      if (IsImportOf(*inner, import))
        return true;
    }
  }
  return false;
}

void TProjectDocument::AddImport(std::string_view import, std::string_view condition) {
  if (!HasImport(import))
    FNewImport = TImport{std::string(import), std::string(condition)};
}

std::vector<TProjectDocument::TEdit> TProjectDocument::PropertyEdits() {
  std::vector<TEdit> edits;
  for (TReplacement& replacement : FProperties.Replacements())
    edits.push_back(Replace(std::move(replacement)));
  if (FNewItems)
    edits.push_back(
        Replace({FNewItems->Group->Range(), LabelledGroupMarkup(FNewItems->Label, FNewItems->Items,
                                                                LayoutForChild(FSource, Root()))}));
  return edits;
}

std::vector<TLabelledItem> TProjectDocument::LabelledItems(std::string_view label) {
  if (FNewItems && FNewItems->Label == label)
    return FNewItems->Items;
  TXmlElement* group = FindLabelledGroup(Root(), label);
  return group ? ReadLabelledItems(*group) : std::vector<TLabelledItem>();
}

void TProjectDocument::SetLabelledItems(std::string_view label, std::vector<TLabelledItem> items) {
  TXmlElement* group = FindLabelledGroup(Root(), label);
  if (!group)
    throw deployment::TInputError("the project has no group of items with the label \"" +
                                      std::string(label) + "\"",
                                  {Name(), 0});
  if (LabelledItems(label) != items)
    FNewItems = TNewItems{group, std::string(label), std::move(items)};
}

std::unique_ptr<TTextPieces> TProjectDocument::ComposeEdits() {
  std::vector<TEdit> edits = PropertyEdits();
  if (std::string markup = FProperties.NewRootChildren(); !markup.empty())
    edits.push_back(InsertAsLastChild(Root(), std::move(markup)));
  return edits.empty() ? nullptr : Apply(std::move(edits));
}

TXmlElement* TProjectDocument::FindTargetItem(std::string_view platform, bool& anyItems) {
  TXmlElement* found = nullptr;
  for (TXmlElement* group = NextNamed(Root().FirstChild(), "ItemGroup"); group;
       group = NextNamed(group->NextSibling(), "ItemGroup")) {
    for (TXmlElement* item = group->FirstChild(); item; item = item->NextSibling()) {
      const auto include = item->GetAttribute("Include");
      if (!include || !deployment::SameText(item->NodeName(), TargetPlatformItem))
        continue;
      anyItems = true;
      const std::vector<std::string> names = SplitNames(*include);
      if (found || std::ranges::find(names, platform) == names.end())
        continue;
      if (names.size() > 1)
        throw deployment::TInputError("the item \"" + std::string(*include) +
                                          "\" stands for several platforms; give \"" +
                                          std::string(platform) + "\" an item of its own first",
                                      item->Place());
      found = item;
    }
  }
  return found;
}

void TProjectDocument::SetTargetProfile(std::string_view platform, std::string_view profile,
                                        const std::vector<std::string>& platforms) {
  bool anyItems = false;
  TXmlElement* item = FindTargetItem(platform, anyItems);
  if (!item && anyItems)
    throw deployment::TInputError("the project file has no item \"" +
                                      std::string(TargetPlatformItem) + "\" of its own for \"" +
                                      std::string(platform) + "\"",
                                  {Name(), 0});
  if (!item) {
    if (profile.empty())
      return;
    TXmlElement& group = FProperties.AddGroup("ItemGroup");
    for (const std::string& name : platforms) {
      TXmlElement& added = group.AddChild(TargetPlatformItem);
      added.SetAttribute("Include", name);
      if (name == platform)
        item = &added;
    }
  }
  if (item)
    FProperties.SetChild(*item, "Profile", profile);
}

std::unique_ptr<TTextPieces> TProjectDocument::Compose(const TWriteSection& write) {
  std::vector<TEdit> edits = PropertyEdits();
  std::string newRootChildren = FProperties.NewRootChildren();
  if (TXmlElement* section = FReader.Section()) {
    if (auto edit = RewriteSection(*section, write))
      edits.push_back(std::move(*edit));
  } else if (TXmlElement* container = FindContainer()) {
    edits.push_back(InsertAsLastChild(
        *container, NewSectionMarkup(LayoutForChild(FSource, *container), write)));
  } else {
    newRootChildren += NewContainerMarkup(write);
  }
  if (FNewImport)
    newRootChildren += NewImportMarkup();
  if (!newRootChildren.empty())
    edits.push_back(InsertAsLastChild(Root(), std::move(newRootChildren)));
  return edits.empty() ? nullptr : Apply(std::move(edits));
}

std::optional<TProjectDocument::TEdit>
TProjectDocument::RewriteSection(TXmlElement& section, const TWriteSection& write) {
  const auto tree = std::make_shared<TXmlTree>(Name());
  const auto rewrite =
      std::make_shared<TSectionRewrite>(FSource, section, FReader.SectionChildren());
  TXmlElement& root = tree->MakeRoot(section.NodeName());
  tree->HandChildrenTo(*rewrite);
  write(root);
  tree->HandLastChild();
  if (rewrite->SaysTheSame(root))
    return std::nullopt;
  return TEdit{section.Range(),
               [tree, rewrite](TTextPieces& pieces) { rewrite->AppendTo(pieces, *tree->Root()); },
               /*IsSection=*/true};
}

std::string TProjectDocument::NewSectionMarkup(const TChildLayout& layout,
                                               const TWriteSection& write) {
  TXmlTree tree(Name());
  TXmlElement& root = tree.MakeRoot(FLargeSection);
  write(root);
  std::string markup;
  AppendXmlLine(markup, layout.Layout, layout.Indentation);
  AppendXmlElement(markup, root, layout.Layout, layout.Indentation);
  return markup;
}

std::string TProjectDocument::NewContainerMarkup(const TWriteSection& write) {
  const TChildLayout outer = LayoutForChild(FSource, Root());
  const TChildLayout inner{outer.Layout, outer.Indentation + outer.Layout.Indent};
  std::string markup;
  AppendXmlLine(markup, outer.Layout, outer.Indentation);
  markup += "<" + std::string(SectionContainer) + ">";
  markup += NewSectionMarkup(inner, write);
  AppendXmlLine(markup, outer.Layout, outer.Indentation);
  return markup + "</" + std::string(SectionContainer) + ">";
}

std::string TProjectDocument::NewImportMarkup() {
  const TChildLayout layout = LayoutForChild(FSource, Root());
  TXmlTree tree(Name());
  TXmlElement& import = tree.MakeRoot("Import");
  import.SetAttribute("Project", FNewImport->Project);
  import.SetAttribute("Condition", FNewImport->Condition);
  std::string markup;
  AppendXmlLine(markup, layout.Layout, layout.Indentation);
  AppendXmlElement(markup, import, layout.Layout, layout.Indentation);
  return markup;
}

TProjectDocument::TEdit TProjectDocument::InsertAsLastChild(TXmlElement& parent,
                                                            std::string markup) {
  const TChildInsertion insertion = InsertionOfLastChild(FSource, parent);
  return Replace({insertion.Place, insertion.Before + std::move(markup) + insertion.After});
}

TProjectDocument::TEdit TProjectDocument::Replace(TReplacement replacement) {
  return {replacement.Place, [this, markup = std::move(replacement.Markup)](TTextPieces& pieces) {
            pieces.Own(EncodeMarkup(markup, FSource.Encoding()));
          }};
}

std::unique_ptr<TTextPieces> TProjectDocument::Apply(std::vector<TEdit> edits) {
  std::stable_sort(edits.begin(), edits.end(), [](const TEdit& left, const TEdit& right) {
    return left.Range.Start < right.Range.Start;
  });
  auto pieces = std::make_unique<TTextPieces>();
  std::uint32_t done = 0;
  for (const TEdit& edit : edits) {
    pieces->Borrow(FSource.Bytes({done, edit.Range.Start}));
    if (edit.IsSection)
      pieces->StartMark();
    edit.Append(*pieces);
    if (edit.IsSection)
      pieces->EndMark();
    done = edit.Range.End;
  }
  pieces->Borrow(FSource.Bytes({done, static_cast<std::uint32_t>(Bytes().size())}));
  return pieces;
}

} // namespace workbench
