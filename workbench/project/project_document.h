// An MSBuild project file in memory: its bytes as they were read, a tree that points into them, and
// the few places where a save puts something else.
#pragma once

#include "workbench/project/base_properties.h"
#include "workbench/project/labelled_items.h"
#include "workbench/project/section_rewrite.h"
#include "workbench/xml/source_text.h"
#include "workbench/xml/text_pieces.h"
#include "workbench/xml/xml_reader.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

/// Element that holds the sections which MSBuild itself does not read.
inline constexpr std::string_view SectionContainer = "ProjectExtensions";

/// One project file. It is never written from its tree: a save splices the changed section and a
/// missing import line into the bytes that were read.
class TProjectDocument {
public:
  /// Writes the new content of a section into an empty element of the section's name.
  using TWriteSection = std::function<void(deployment::IXMLNode&)>;

  /// Reads a file. `largeSection` names the section that is kept in compact form. Throws
  /// TInputError when it cannot be read, is not well-formed XML, is no MSBuild project, or holds
  /// the large section twice.
  TProjectDocument(const std::filesystem::path& file, std::string_view largeSection);
  /// The same for a text; `name` is what errors call the file.
  TProjectDocument(std::string_view text, std::string name, std::string_view largeSection);

  TXmlElement& Root() { return FReader.Root(); }
  std::string_view Bytes() const { return FReader.Bytes(); }
  /// The bytes of the large section as they were read; empty when there is none.
  std::string_view SectionBytes() const;
  /// What errors call the file.
  const std::string& Name() { return FReader.Tree().FileName(); }

  const std::string& LargeSectionName() const { return FLargeSection; }

  /// The section of that name, ignoring case; null when there is none.
  TXmlElement* FindSection(std::string_view name);
  /// Adds an empty section in memory, or returns the one that is there.
  TXmlElement& AddSection(std::string_view name);
  /// Gives back the memory of the large section's entries.
  void ForgetLargeSection() { FReader.ForgetSection(); }

  /// True when the project imports the file, whatever the condition, or will after a save.
  bool HasImport(std::string_view import);
  /// True when the file that was read has the import.
  bool HasStoredImport(std::string_view import);
  /// A save adds the import line. Does nothing when the project has it.
  void AddImport(std::string_view import, std::string_view condition);

  /// Sets an unconditional property of the project: in the tree at once, in the file by a save.
  void SetBaseProperty(std::string_view name, std::string_view value) {
    FProperties.Set(name, value);
  }

  /// Writes the name of a remote profile into the item of a target platform; an empty one takes it
  /// away. A project without such items gets one for each of `platforms`. Throws TInputError when
  /// one item stands for several platforms.
  void SetTargetProfile(std::string_view platform, std::string_view profile,
                        const std::vector<std::string>& platforms);

  /// The items of the labelled group; none when the project has no such group.
  std::vector<TLabelledItem> LabelledItems(std::string_view label);
  /// Writes the labelled group anew, at the next save. Throws TInputError when the project has no
  /// such group.
  void SetLabelledItems(std::string_view label, std::vector<TLabelledItem> items);

  /// True when a property or a labelled group waits for a save.
  bool HasPropertyChanges() const { return !FProperties.IsEmpty() || FNewItems; }

  /// The content of the file with the large section written anew; null when it is the content that
  /// was read. The pieces borrow from the document; those of a section that was there and changed
  /// are marked. Throws what `write` throws, and TInputError for text that XML cannot hold.
  std::unique_ptr<TTextPieces> Compose(const TWriteSection& write);
  /// The same with the properties and items alone; the section stays as it was read.
  std::unique_ptr<TTextPieces> ComposeEdits();

private:
  // Bytes to be replaced; an empty range is a place to insert at.
  struct TEdit {
    TByteRange Range;
    std::function<void(TTextPieces&)> Append;
    bool IsSection = false;
  };
  struct TNewItems {
    TXmlElement* Group;
    std::string Label;
    std::vector<TLabelledItem> Items;
  };
  struct TImport {
    std::string Project;
    std::string Condition;
  };

  void CheckProject();
  std::vector<TEdit> PropertyEdits();
  TXmlElement* FindTargetItem(std::string_view platform, bool& anyItems);
  TXmlElement* FindContainer();
  std::optional<TEdit> RewriteSection(TXmlElement& section, const TWriteSection& write);
  std::string NewSectionMarkup(const TChildLayout& layout, const TWriteSection& write);
  std::string NewContainerMarkup(const TWriteSection& write);
  std::string NewImportMarkup();
  TEdit InsertAsLastChild(TXmlElement& parent, std::string markup);
  TEdit Replace(TReplacement replacement);
  std::unique_ptr<TTextPieces> Apply(std::vector<TEdit> edits);

  const std::string FLargeSection;
  TXmlReader FReader;
  TSourceText FSource;
  std::vector<std::unique_ptr<TXmlTree>> FAddedSections;
  std::optional<TImport> FNewImport;
  TBasePropertyChanges FProperties;
  std::optional<TNewItems> FNewItems; // of the one group that changed
};

} // namespace workbench
