#include "workbench/msbuild/msbuild_properties.h"

#include "workbench/msbuild/property_expression.h"
#include "workbench/msbuild/values/condition_tokens.h"
#include "workbench/msbuild/values/msbuild_escapes.h"
#include "workbench/msbuild/values/property_names.h"
#include "workbench/xml/short_text.h"

#include <algorithm>

namespace workbench {
namespace {

// A few properties that double each other would fill any memory; real values stay far below.
constexpr std::size_t LongestValue = std::size_t{1024} * 1024;
constexpr std::size_t MostExpandedBytes = std::size_t{256} * 1024 * 1024;

std::string WithoutRoot(const std::filesystem::path& directory) {
  return directory.relative_path().string();
}

} // namespace

void TPropertyTable::Store(std::string_view name, TProperty property) {
  FProperties.insert_or_assign(std::string(name), std::move(property));
}

void TPropertyTable::SetReserved(std::string_view name, std::string_view text) {
  Store(name, {EscapeMSBuild(text), TSource::Reserved});
}

void TPropertyTable::SetGlobal(std::string_view name, std::string_view text) {
  Store(name, {EscapeMSBuild(text), TSource::Global});
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
  Store(name, {std::move(value), TSource::Initial});
}

void TPropertyTable::SetOfBuildSystem(std::string_view name) {
  Store(name, {{},
               TSource::Initial,
               nullptr,
               std::make_shared<TUnknownValue>(TUnknownValue{
                   std::string(name), "the build system sets it", nullptr, true, false})});
}

void TPropertyTable::SetPlace(const std::filesystem::path& projectDirectory,
                              const TNamedTexts& environment) {
  FContext.ProjectDirectory = projectDirectory;
  FContext.Environment = &environment;
}

void TPropertyTable::SetThisFile(const std::filesystem::path& file) {
  const std::filesystem::path directory = file.parent_path() / "";
  FContext.ThisDirectory = file.parent_path();
  SetReserved("MSBuildThisFile", file.filename().string());
  SetReserved("MSBuildThisFileName", file.stem().string());
  SetReserved("MSBuildThisFileExtension", file.extension().string());
  SetReserved("MSBuildThisFileFullPath", file.string());
  SetReserved("MSBuildThisFileDirectory", directory.string());
  SetReserved("MSBuildThisFileDirectoryNoRoot", WithoutRoot(directory));
}

TPropertyTable::TAssignment TPropertyTable::Assign(std::string_view name, TExpanded value,
                                                   const deployment::IXMLNode& node,
                                                   const TUnknown& doubt) {
  const auto found = FProperties.find(name);
  if (found != FProperties.end() && found->second.Source == TSource::Reserved)
    return TAssignment::IsReserved;
  if (found != FProperties.end() && found->second.Source == TSource::Global)
    return TAssignment::IsGlobal;
  if (doubt) {
    // What is not known already keeps its first reason.
    const TExpanded present = PlainValue(name);
    if (present.Unknown || (!value.Unknown && present.Text == UnescapeMSBuild(value.Text)))
      return TAssignment::Done;
    value = {{}, doubt};
  }
  if (value.Unknown && value.Unknown->Property.empty()) {
    TUnknownValue named = *value.Unknown;
    named.Property = name;
    named.Node = &node;
    value.Unknown = std::make_shared<TUnknownValue>(std::move(named));
  }
  TProperty property{std::move(value.Text), TSource::Project, &node, std::move(value.Unknown)};
  if (found != FProperties.end())
    found->second = std::move(property);
  else
    Store(name, std::move(property));
  return TAssignment::Done;
}

void TPropertyTable::Spend(std::size_t bytes, std::string_view text,
                           const deployment::IXMLNode& node) const {
  if (bytes > LongestValue || FExpandedBytes + bytes > MostExpandedBytes)
    throw deployment::TInputError("element \"" + std::string(node.NodeName()) +
                                      "\": with its references replaced, \"" + ShortText(text) +
                                      "\" grows too long",
                                  node.Place());
}

TExpanded TPropertyTable::Expand(std::string_view text, const deployment::IXMLNode& node,
                                 unsigned depth) const {
  TExpanded expanded;
  std::size_t position = 0;
  for (std::size_t start = text.find("$("); start != std::string_view::npos;
       start = text.find("$(", position)) {
    const std::size_t end = ReferenceEnd(text, start);
    if (end == std::string_view::npos)
      break;
    expanded.Text += text.substr(position, start - position);
    AppendReference(expanded, text.substr(start + 2, end - start - 3), node, depth);
    Spend(expanded.Text.size(), text, node);
    position = end;
  }
  if (position > 0)
    FExpandedBytes += expanded.Text.size();
  expanded.Text += text.substr(position);
  return expanded;
}

void TPropertyTable::AppendReference(TExpanded& expanded, std::string_view body,
                                     const deployment::IXMLNode& node, unsigned depth) const {
  if (IsPropertyName(body)) {
    AppendValue(expanded, body);
    return;
  }
  TExpanded value = TReferenceReader(*this, body, node, depth).Read();
  FExpandedBytes += value.Text.size();
  expanded.Text += value.Text;
  if (!expanded.Unknown)
    expanded.Unknown = std::move(value.Unknown);
}

TExpanded TPropertyTable::ExpandPlain(std::string_view text,
                                      const deployment::IXMLNode& node) const {
  TExpanded expanded = Expand(text, node);
  expanded.Text = UnescapeMSBuild(expanded.Text);
  return expanded;
}

void TPropertyTable::AppendValue(TExpanded& expanded, std::string_view name) const {
  const auto found = FProperties.find(name);
  if (found == FProperties.end())
    return;
  expanded.Text += found->second.Value;
  if (!expanded.Unknown)
    expanded.Unknown = found->second.Unknown;
}

TExpanded TPropertyTable::PlainValue(std::string_view name) const {
  TExpanded value;
  AppendValue(value, name);
  value.Text = UnescapeMSBuild(value.Text);
  return value;
}

const deployment::IXMLNode* TPropertyTable::AssignedBy(std::string_view name) const {
  const auto found = FProperties.find(name);
  return found == FProperties.end() ? nullptr : found->second.Node;
}

} // namespace workbench
