#include "workbench/msbuild/msbuild_properties.h"

#include "workbench/msbuild/condition_tokens.h"
#include "workbench/msbuild/msbuild_escapes.h"
#include "workbench/xml/short_text.h"

#include <algorithm>

namespace workbench {
namespace {

// A few properties that double each other would fill any memory; real values stay far below.
constexpr std::size_t LongestValue = std::size_t{1024} * 1024;
constexpr std::size_t MostExpandedBytes = std::size_t{256} * 1024 * 1024;

bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

bool IsNameCharacter(char c) {
  return IsLetter(c) || (c >= '0' && c <= '9') || c == '-';
}

std::string WithoutRoot(const std::filesystem::path& directory) {
  return directory.relative_path().string();
}

} // namespace

bool IsPropertyName(std::string_view name) {
  return !name.empty() && IsLetter(name[0]) && std::ranges::all_of(name, IsNameCharacter);
}

void TPropertyTable::Store(std::string_view name, TProperty property) {
  FProperties.insert_or_assign(std::string(name), std::move(property));
}

void TPropertyTable::SetReserved(std::string_view name, std::string_view text) {
  Store(name, {EscapeMSBuild(text), TSource::Reserved, nullptr});
}

void TPropertyTable::SetGlobal(std::string_view name, std::string_view text) {
  Store(name, {EscapeMSBuild(text), TSource::Global, nullptr});
}

void TPropertyTable::SetInitial(std::string_view name, std::string_view text) {
  // A list in a variable is a list in the project as well, so its ";" keeps its meaning.
  std::string value;
  for (const char c : text) {
    if (c == ';')
      value.push_back(c);
    else
      value += EscapeMSBuild(std::string_view(&c, 1));
  }
  Store(name, {std::move(value), TSource::Initial, nullptr});
}

void TPropertyTable::SetDefault(std::string_view name, std::string_view text) {
  FDefaults.insert_or_assign(std::string(name), std::string(text));
}

void TPropertyTable::SetThisFile(const std::filesystem::path& file) {
  const std::filesystem::path directory = file.parent_path() / "";
  SetReserved("MSBuildThisFile", file.filename().string());
  SetReserved("MSBuildThisFileName", file.stem().string());
  SetReserved("MSBuildThisFileExtension", file.extension().string());
  SetReserved("MSBuildThisFileFullPath", file.string());
  SetReserved("MSBuildThisFileDirectory", directory.string());
  SetReserved("MSBuildThisFileDirectoryNoRoot", WithoutRoot(directory));
}

TPropertyTable::TAssignment TPropertyTable::Assign(std::string_view name, std::string value,
                                                   const deployment::IXMLNode& node) {
  if (const auto found = FProperties.find(name); found != FProperties.end()) {
    TProperty& property = found->second;
    if (property.Source == TSource::Reserved)
      return TAssignment::IsReserved;
    if (property.Source == TSource::Global)
      return TAssignment::IsGlobal;
    property = {std::move(value), TSource::Project, &node};
    return TAssignment::Done;
  }
  Store(name, {std::move(value), TSource::Project, &node});
  return TAssignment::Done;
}

std::string TPropertyTable::Expand(std::string_view text, const deployment::IXMLNode& node) const {
  std::string expanded;
  std::size_t position = 0;
  for (std::size_t start = text.find("$("); start != std::string_view::npos;
       start = text.find("$(", position)) {
    const std::size_t end = ReferenceEnd(text, start);
    if (end == std::string_view::npos)
      break;
    expanded += text.substr(position, start - position);
    const std::string_view name = text.substr(start + 2, end - start - 3);
    if (IsPropertyName(name))
      AppendValue(expanded, name, node);
    else
      expanded += text.substr(start, end - start);
    if (expanded.size() > LongestValue || FExpandedBytes + expanded.size() > MostExpandedBytes)
      throw deployment::TInputError("element \"" + std::string(node.NodeName()) +
                                        "\": with its references replaced, \"" + ShortText(text) +
                                        "\" grows too long",
                                    node.Place());
    position = end;
  }
  if (position > 0)
    FExpandedBytes += expanded.size();
  expanded += text.substr(position);
  return expanded;
}

std::string TPropertyTable::ExpandPlain(std::string_view text,
                                        const deployment::IXMLNode& node) const {
  return UnescapeMSBuild(Expand(text, node));
}

void TPropertyTable::AppendValue(std::string& text, std::string_view name,
                                 const deployment::IXMLNode& node) const {
  if (const auto found = FProperties.find(name); found != FProperties.end())
    text += found->second.Value;
  else if (const auto fallback = FDefaults.find(name); fallback != FDefaults.end())
    text += Expand(fallback->second, node);
}

std::string TPropertyTable::PlainValue(std::string_view name,
                                       const deployment::IXMLNode& node) const {
  std::string value;
  AppendValue(value, name, node);
  return UnescapeMSBuild(value);
}

const deployment::IXMLNode* TPropertyTable::AssignedBy(std::string_view name) const {
  const auto found = FProperties.find(name);
  return found == FProperties.end() ? nullptr : found->second.Node;
}

} // namespace workbench
