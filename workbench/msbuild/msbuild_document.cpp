#include "workbench/msbuild/msbuild_document.h"

#include "workbench/files/file_reader.h"
#include "workbench/files/file_saver.h"
#include "workbench/files/machine_path.h"
#include "workbench/xml/short_text.h"
#include "workbench/xml/xml_text.h"

#include <algorithm>
#include <array>

namespace workbench {
namespace {

constexpr std::string_view What = "MSBuild template";

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

TMSBuildDocument::TMSBuildDocument(const std::filesystem::path& templateFile)
    : FTemplate(InputFrom(templateFile), templateFile.string()),
      FSource(FTemplate.Bytes(), FTemplate.Encoding()) {
  TXmlElement& root = FTemplate.Root();
  if (root.NodeName() != "Project")
    throw deployment::TInputError("the root element is \"" + ShortText(root.NodeName()) +
                                      "\", so this is not an MSBuild project",
                                  root.Place());
  FLayout = LayoutForChild(FSource, root);
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

void TMSBuildDocument::SaveToFile(std::string_view fileName) {
  CloseGroup();
  const TChildInsertion insertion = InsertionOfLastChild(FSource, FTemplate.Root());
  const std::string added =
      EncodeMarkup(insertion.Before + FMarkup + insertion.After, FSource.Encoding());
  const auto size = static_cast<std::uint32_t>(FTemplate.Bytes().size());
  const std::array<std::string_view, 3> content{FSource.Bytes({0, insertion.Place.Start}), added,
                                                FSource.Bytes({insertion.Place.End, size})};
  TSaveRequest request;
  request.Target = ToMachinePath(fileName);
  request.Content = content;
  // The file is generated, so whatever stands there may go, and nobody wants it back.
  request.Force = true;
  request.WithBackup = false;
  FWasWritten = SaveFile(request).Written;
}

} // namespace workbench
