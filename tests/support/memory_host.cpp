#include "tests/support/memory_host.h"

#include "package/common/delimited_list.h"
#include "package/common/path_text.h"
#include "tests/support/value_of.h"

#include <algorithm>

namespace deployment {
namespace {

std::string ReplaceAll(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
    text.replace(at, from.size(), to);
    at += to.size();
  }
  return text;
}

std::string Reference(std::string_view name) {
  return std::string("$(").append(name).append(")");
}

class TMemoryTextFilter : public ICoExpertFilter {
public:
  explicit TMemoryTextFilter(TMemoryHost& host) : FHost(host) {}

  void SetVariable(std::string_view name, std::string_view value) override {
    FVariables.emplace_back(name, value);
    FHost.FilterVariables.emplace_back(name, value);
  }

  std::string Filter(std::string_view fileName) const override {
    const auto file = FHost.Files.find(fileName);
    if (file == FHost.Files.end())
      throw TInputError("the file cannot be read", {std::string(fileName), 0});
    std::string text = file->second;
    for (const auto& [name, value] : FVariables)
      text = ReplaceAll(std::move(text), Reference(name), EscapeMemoryXML(value));
    return text;
  }

private:
  TMemoryHost& FHost;
  std::vector<std::pair<std::string, std::string>> FVariables;
};

} // namespace

void TMemoryGauntlet::AddHandler(std::shared_ptr<IModuleGauntletHandler> handler, int priority) {
  const auto place = std::find_if(Members.begin(), Members.end(), [priority](const auto& member) {
    return member.first < priority;
  });
  Members.emplace(place, priority, std::move(handler));
}

void TMemoryGauntlet::RemoveHandler(const IModuleGauntletHandler& handler) {
  std::erase_if(Members, [&](const auto& member) { return member.second.get() == &handler; });
}

void TMemoryGauntlet::Open(IOTAModule& module) {
  for (const auto& member : Members)
    member.second->AttachHandler(module);
}

int TMemoryFileStorage::AddNotifier(std::shared_ptr<IOTAProjectFileStorageNotifier> notifier) {
  Notifiers.push_back(std::move(notifier));
  return static_cast<int>(Notifiers.size()) - 1;
}

void TMemoryFileStorage::RemoveNotifier(int index) {
  if (index >= 0 && static_cast<std::size_t>(index) < Notifiers.size())
    Notifiers[static_cast<std::size_t>(index)].reset();
}

IXMLNode* TMemoryFileStorage::GetProjectStorageNode(IOTAModule& projectOrGroup,
                                                    std::string_view name) {
  return dynamic_cast<TMemoryProject&>(projectOrGroup).FindSection(name);
}

IXMLNode& TMemoryFileStorage::AddNewSection(IOTAModule& projectOrGroup, std::string_view name) {
  auto& project = dynamic_cast<TMemoryProject&>(projectOrGroup);
  TMemoryXMLNode* section = project.FindSection(name);
  return section ? *section : project.AddSection(name);
}

class TMemoryMSBuildDocument::TItem final : public IMSBuildItem {
public:
  explicit TItem(TMemoryXMLNode& node) : FNode(node) {}
  std::string_view GetCondition() const override {
    return FNode.GetAttribute("Condition").value_or("");
  }
  void SetCondition(std::string_view condition) override {
    FNode.SetAttribute("Condition", condition);
  }
  void AddMetadata(std::string_view name, std::string_view value) override {
    FNode.AddChild(name).SetText(value);
  }

private:
  TMemoryXMLNode& FNode;
};

class TMemoryMSBuildDocument::TGroup final : public IMSBuildItemGroup {
public:
  explicit TGroup(TMemoryXMLNode& node) : FNode(node) {}
  IMSBuildItem& AddItem(std::string_view name, std::string_view include) override {
    TMemoryXMLNode& node = FNode.AddChild(name);
    node.SetAttribute("Include", include);
    return *FItems.emplace_back(std::make_unique<TItem>(node));
  }

private:
  TMemoryXMLNode& FNode;
  std::vector<std::unique_ptr<TItem>> FItems;
};

IMSBuildItemGroup& TMemoryMSBuildDocument::AddItemGroup(std::string_view condition) {
  TMemoryXMLNode& node = FRoot.AddChild("ItemGroup");
  node.SetAttribute("Condition", condition);
  return *FGroups.emplace_back(std::make_shared<TGroup>(node));
}

void TMemoryMSBuildDocument::SaveToFile(std::string_view fileName) {
  FFiles[std::string(fileName)] = FRoot.ToText();
}

std::shared_ptr<IMSBuildProjectDocument>
TMemoryProjectFileUtils::MSBuildLoadProjectDocument(std::string_view fileName) {
  if (FFiles.find(fileName) == FFiles.end())
    throw TInputError("the template cannot be read", {std::string(fileName), 0});
  LoadedTemplates.emplace_back(fileName);
  return std::make_shared<TMemoryMSBuildDocument>(FFiles);
}

void TMemoryProjectFileUtils::EnsureImport(ICustomProject&, std::string_view import,
                                           std::string_view condition) {
  Imports.emplace_back(import, condition);
}

bool TMemoryFileUtils::FileExists(std::string_view path) const {
  return FFiles.find(path) != FFiles.end();
}

TImageWidth TMemoryFileUtils::IsImage64Bit(std::string_view path) const {
  const auto found = ImageWidths.find(path);
  return found == ImageWidths.end() ? TImageWidth::Neither : found->second;
}

std::string TMemoryFileUtils::DescribeImage(std::string_view path) const {
  switch (IsImage64Bit(path)) {
  case TImageWidth::Bits32:
    return "32-bit program";
  case TImageWidth::Bits64:
    return "64-bit program";
  default:
    return "no program";
  }
}

std::string TMemoryFileUtils::QualifyPath(std::string_view path, std::string_view baseFile) const {
  return CanonicalizePath(Combine(DirectoryPart(baseFile), path));
}

std::string TMemoryFileUtils::MakeAbsolutePath(std::string_view path,
                                               std::string_view directory) const {
  return CanonicalizePath(Combine(directory, path));
}

std::string TMemoryFileUtils::MakeRelativePath(std::string_view path,
                                               std::string_view directory) const {
  const std::string prefix = WithTrailingDelimiter(directory);
  return std::string(path.starts_with(prefix) ? path.substr(prefix.size()) : path);
}

std::string TMemoryFileUtils::GetEnvironmentVariable(std::string_view name) const {
  return ValueOf(Environment, name);
}

const IPlatform* TMemoryPlatforms::FindPlatform(std::string_view name) const {
  const auto found = std::find_if(Platforms.begin(), Platforms.end(),
                                  [&](const auto& platform) { return platform.Name == name; });
  return found == Platforms.end() ? nullptr : &*found;
}

std::vector<std::string> TMemoryPlatforms::AvailablePlatforms(std::string_view) const {
  std::vector<std::string> names;
  for (const TMemoryPlatform& platform : Platforms)
    names.push_back(platform.Name);
  return names;
}

void TMemoryPlatforms::Add(std::initializer_list<std::string_view> names) {
  for (const std::string_view name : names)
    Platforms.emplace_back().Name = name;
}

std::string TMemoryMacroUtils::ExpandMacros(std::string_view text,
                                            std::string_view parameters) const {
  std::string expanded(text);
  for (const std::string_view item : SplitDelimited(parameters)) {
    const std::size_t equals = std::min(item.find('='), item.size());
    const std::string_view value = item.substr(std::min(equals + 1, item.size()));
    expanded = ReplaceAll(std::move(expanded), Reference(item.substr(0, equals)), value);
  }
  return expanded;
}

std::string TMemoryMacroUtils::ExpandRootMacro(std::string_view text,
                                               std::string_view parameters) const {
  return ReplaceAll(ExpandMacros(text, parameters), Reference("ZELK"), Root);
}

std::string TMemoryMacroUtils::ExpandRootMacro(std::string_view text, ICustomProject&,
                                               std::string_view configuration,
                                               std::string_view platform) const {
  return ExpandRootMacro(text, std::string("Platform=")
                                   .append(platform)
                                   .append(";Configuration=")
                                   .append(configuration)
                                   .append(";Config=")
                                   .append(configuration));
}

std::string TMemoryAppStrings::GetLocaleFile(std::string_view fileName) const {
  const auto found = LocaleFiles.find(fileName);
  return found == LocaleFiles.end() ? std::string(fileName) : found->second;
}

bool TMemorySettings::ReadBool(std::string_view section, std::string_view key,
                               bool byDefault) const {
  const auto found = Booleans.find(std::string(section).append("/").append(key));
  return found == Booleans.end() ? byDefault : found->second;
}

void TMemorySettings::WriteBool(std::string_view section, std::string_view key, bool value) {
  Booleans[std::string(section).append("/").append(key)] = value;
}

std::vector<std::string> TMemorySettings::ReadHistory(std::string_view name) const {
  const auto found = Histories.find(std::string(name));
  return found == Histories.end() ? std::vector<std::string>() : found->second;
}

void TMemorySettings::AddToHistory(std::string_view name, std::string_view text) {
  auto& history = Histories[std::string(name)];
  history.insert(history.begin(), std::string(text));
}

std::unique_ptr<ICoExpertFilter> TMemoryHost::CreateTextFilter() {
  return std::make_unique<TMemoryTextFilter>(*this);
}

} // namespace deployment
