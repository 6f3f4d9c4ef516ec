#include "workbench/msbuild/msbuild_document.h"

#include "workbench/files/file_reader.h"
#include "workbench/files/file_saver.h"
#include "workbench/files/machine_path.h"
#include "workbench/msbuild/generated_mark.h"
#include "workbench/xml/short_text.h"
#include "workbench/xml/xml_text.h"

#include <system_error>
#include <utility>

namespace workbench {
namespace {

constexpr std::string_view What = "MSBuild template";
constexpr std::size_t PieceSize = std::size_t{256} * 1024;

TXmlReader::TInput InputFrom(const std::filesystem::path& file) {
  return [file](const TReserveMemory& reserve) {
    return ReadWholeFileInto(file, reserve, MaximumFileSize, What);
  };
}

void AppendAttribute(std::string& markup, std::string_view name, std::string_view value) {
  markup += ' ';
  markup += name;
  markup += "=\"";
  AppendXmlAttributeValue(markup, value);
  markup += '"';
}

} // namespace

TMSBuildDocument::TMSBuildDocument(const std::filesystem::path& templateFile, TSaveMode mode,
                                   std::string listHash)
    : FMode(mode), FListHash(std::move(listHash)),
      FTemplate(InputFrom(templateFile), templateFile.string()),
      FSource(FTemplate.Bytes(), FTemplate.Encoding()) {
  TXmlElement& root = FTemplate.Root();
  if (root.NodeName() != "Project")
    throw deployment::TInputError("the root element is \"" + ShortText(root.NodeName()) +
                                      "\", so this is not an MSBuild project",
                                  root.Place());
  FLayout = LayoutForChild(FSource, root);
  FInsertion = InsertionOfLastChild(FSource, root);
  FPieces.Borrow(FSource.Bytes({0, FInsertion.Place.Start}));
  FMarkup = FInsertion.Before;
  FItemIndentation = FLayout.Indentation + FLayout.Layout.Indent;
  FMetadataIndentation = FItemIndentation + FLayout.Layout.Indent;
}

deployment::IMSBuildItemGroup& TMSBuildDocument::AddItemGroup(std::string_view condition) {
  CloseGroup();
  AppendXmlLine(FMarkup, FLayout.Layout, FLayout.Indentation);
  FMarkup += "<ItemGroup";
  if (!condition.empty())
    AppendAttribute(FMarkup, "Condition", condition);
  FInGroup = true;
  FGroupHasItems = false;
  return *this;
}

deployment::IMSBuildItem& TMSBuildDocument::AddItem(std::string_view name,
                                                    std::string_view include) {
  CloseItem();
  if (!FGroupHasItems)
    FMarkup += '>';
  FGroupHasItems = true;
  FInItem = true;
  FItem.Name = name;
  FItem.Include = include;
  FItem.Condition.clear();
  FItem.Metadata.clear();
  return *this;
}

void TMSBuildDocument::AddMetadata(std::string_view name, std::string_view value) {
  FItem.Metadata.emplace_back(name, value);
}

void TMSBuildDocument::CloseItem() {
  if (!FInItem)
    return;
  FInItem = false;
  if (FMarkup.size() > PieceSize)
    KeepMarkup();
  AppendXmlLine(FMarkup, FLayout.Layout, FItemIndentation);
  FMarkup += '<';
  FMarkup += FItem.Name;
  AppendAttribute(FMarkup, "Include", FItem.Include);
  if (!FItem.Condition.empty())
    AppendAttribute(FMarkup, "Condition", FItem.Condition);
  if (FItem.Metadata.empty()) {
    FMarkup += "/>";
    return;
  }
  FMarkup += '>';
  for (const auto& [name, value] : FItem.Metadata) {
    AppendXmlLine(FMarkup, FLayout.Layout, FMetadataIndentation);
    FMarkup += '<';
    FMarkup += name;
    FMarkup += '>';
    AppendXmlText(FMarkup, value);
    FMarkup += "</";
    FMarkup += name;
    FMarkup += '>';
  }
  AppendXmlLine(FMarkup, FLayout.Layout, FItemIndentation);
  FMarkup += "</";
  FMarkup += FItem.Name;
  FMarkup += '>';
}

void TMSBuildDocument::CloseGroup() {
  CloseItem();
  if (!FInGroup)
    return;
  FInGroup = false;
  if (!FGroupHasItems) {
    FMarkup += "/>";
    return;
  }
  AppendXmlLine(FMarkup, FLayout.Layout, FLayout.Indentation);
  FMarkup += "</ItemGroup>";
}

// Large documents are kept in pieces, so that none of them is ever copied as a whole.
void TMSBuildDocument::KeepMarkup() {
  FPieces.Own(EncodeMarkup(std::exchange(FMarkup, {}), FSource.Encoding()));
  FMarkup.reserve(PieceSize + PieceSize / 8);
}

void TMSBuildDocument::AppendMark() {
  std::string_view text = FTemplate.Bytes();
  text = text.substr(0, text.find_last_not_of('\0') + 1); // half a line end of UTF-16
  if (!text.ends_with('\n'))
    FMarkup += FLayout.Layout.LineEnd;
  FMarkup += GeneratedMark(FListHash);
  FMarkup += FLayout.Layout.LineEnd;
  KeepMarkup();
}

bool TMSBuildDocument::IsContentOf(const std::filesystem::path& file) {
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored))
    return false;
  const TFileContent content = ReadWholeFile(file);
  std::string_view text = content.Text();
  for (const std::string_view piece : FPieces.Pieces()) {
    if (!text.starts_with(piece))
      return false;
    text.remove_prefix(piece.size());
  }
  return text.empty();
}

void TMSBuildDocument::SaveToFile(std::string_view fileName) {
  CloseGroup();
  FMarkup += FInsertion.After;
  KeepMarkup();
  const auto size = static_cast<std::uint32_t>(FTemplate.Bytes().size());
  FPieces.Borrow(FSource.Bytes({FInsertion.Place.End, size}));
  if (!FListHash.empty())
    AppendMark();
  if (FMode == TSaveMode::Compare) {
    FWasWritten = !IsContentOf(ToMachinePath(fileName));
    return;
  }
  TSaveRequest request;
  request.Target = ToMachinePath(fileName);
  request.Content = FPieces.Pieces();
  // The file is generated, so whatever stands there may go, and nobody wants it back.
  request.Force = true;
  request.WithBackup = false;
  FWasWritten = SaveFile(request).Written;
}

} // namespace workbench
