// A generated MSBuild project: a template with item groups added behind what it holds.
#pragma once

#include "package/host/api/msbnodes.h"
#include "workbench/xml/source_text.h"
#include "workbench/xml/text_pieces.h"
#include "workbench/xml/xml_reader.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

/// The groups become markup as they are added, front to back: an item is complete when the next one
/// is added. It is saved once.
class TMSBuildDocument final : public deployment::IMSBuildProjectDocument,
                               private deployment::IMSBuildItemGroup,
                               private deployment::IMSBuildItem {
public:
  enum class TSaveMode {
    Write,
    Compare, ///< only finds out whether the file is different
  };

  /// Reads the template. The document ends with the mark of the list that it is made from, unless
  /// that has no hash. Throws TInputError when it cannot be read or is no MSBuild project.
  explicit TMSBuildDocument(const std::filesystem::path& templateFile,
                            TSaveMode mode = TSaveMode::Write, std::string listHash = {});

  deployment::IMSBuildItemGroup& AddItemGroup(std::string_view condition) override;
  void SaveToFile(std::string_view fileName) override;

  /// True when the last save found the file different, and wrote it unless it only compares.
  bool WasWritten() const { return FWasWritten; }

private:
  struct TItem {
    std::string Name;
    std::string Include;
    std::string Condition;
    std::vector<std::pair<std::string, std::string>> Metadata;
  };

  deployment::IMSBuildItem& AddItem(std::string_view name, std::string_view include) override;
  std::string_view GetCondition() const override { return FItem.Condition; }
  void SetCondition(std::string_view condition) override { FItem.Condition = condition; }
  void AddMetadata(std::string_view name, std::string_view value) override;

  void CloseItem();
  void CloseGroup();
  void KeepMarkup();
  void AppendMark();
  bool IsContentOf(const std::filesystem::path& file);

  const TSaveMode FMode;
  const std::string FListHash;
  TXmlReader FTemplate;
  TSourceText FSource;
  TChildLayout FLayout;
  TChildInsertion FInsertion;
  TTextPieces FPieces;
  std::string FItemIndentation;
  std::string FMetadataIndentation;
  std::string FMarkup;
  bool FInGroup = false;
  bool FGroupHasItems = false;
  bool FInItem = false;
  TItem FItem;
  bool FWasWritten = false;
};

} // namespace workbench
