#include "workbench/project/build_import/build_record.h"

#include "workbench/files/machine_path.h"
#include "workbench/text/visible_text.h"

#include <algorithm>
#include <map>
#include <system_error>
#include <unordered_map>

namespace workbench {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view DirectoryItem = "BuildDirectory";
constexpr std::string_view FileItem = "InstalledFile";

// Links of a directory resolved as far as it exists; asked once for each.
class TRealDirectories {
public:
  const fs::path& Of(const fs::path& directory) {
    const auto [found, isNew] = FReal.try_emplace(directory.native());
    if (isNew) {
      std::error_code error;
      found->second = fs::weakly_canonical(directory, error);
      if (error)
        found->second = directory.lexically_normal();
    }
    return found->second;
  }

private:
  std::unordered_map<std::string, fs::path> FReal;
};

std::string StoredName(const fs::path& path, const fs::path& projectDirectory,
                       TRealDirectories& real) {
  const fs::path normal = path.lexically_normal();
  const fs::path full = real.Of(normal.parent_path()) / normal.filename();
  const fs::path relative = full.lexically_relative(real.Of(projectDirectory));
  return ToStoredPath(relative.empty() ? full : relative);
}

std::string StoredDirectory(const std::string& directory) {
  return directory.empty() ? ".\\" : ToStoredPath(directory) + "\\";
}

std::string Place(const deployment::TErrorPlace& place) {
  return Visible(place.File) + (place.Line ? ":" + std::to_string(place.Line) : "");
}

} // namespace

std::vector<TLabelledItem> ItemsOf(const TBuildRecord& record) {
  std::vector<TLabelledItem> items;
  items.reserve(record.Files.size() + 1);
  TLabelledItem directory{
      std::string(DirectoryItem), record.Directory, {{"Platform", record.Platform}}};
  for (const std::string& component : record.Components)
    directory.Metadata.emplace_back("Component", component);
  items.push_back(std::move(directory));
  for (const TTakenFile& file : record.Files)
    items.push_back({std::string(FileItem),
                     file.LocalName,
                     {{"Configuration", file.Configuration},
                      {"RemoteDir", file.RemoteDir},
                      {"RemoteName", file.RemoteName},
                      {"Component", file.Component},
                      {"Program", file.IsProgram ? "true" : "false"}}});
  return items;
}

TBuildRecord RecordFrom(const std::vector<TLabelledItem>& items,
                        const deployment::TErrorPlace& place) {
  const auto isDirectory = [](const TLabelledItem& item) { return item.Type == DirectoryItem; };
  const auto found = std::ranges::find_if(items, isDirectory);
  if (found == items.end() || found->Include.empty() || found->FindMetadata("Platform").empty())
    throw deployment::TInputError("the project was not made from a build: it has no item \"" +
                                      std::string(DirectoryItem) + "\" with a platform",
                                  place);
  TBuildRecord record;
  record.Directory = found->Include;
  record.Platform = found->FindMetadata("Platform");
  for (const auto& [name, value] : found->Metadata) {
    if (name == "Component")
      record.Components.push_back(value);
  }
  for (const TLabelledItem& item : items) {
    if (item.Type == FileItem)
      record.Files.push_back({std::string(item.FindMetadata("Configuration")), item.Include,
                              std::string(item.FindMetadata("RemoteDir")),
                              std::string(item.FindMetadata("RemoteName")),
                              std::string(item.FindMetadata("Component")),
                              item.FindMetadata("Program") == "true"});
  }
  return record;
}

std::string StoredFromProject(const fs::path& path, const fs::path& projectDirectory) {
  TRealDirectories real;
  return StoredName(path, projectDirectory, real);
}

std::vector<TTakenFile> TakenFiles(const TInstallPlan& plan, const fs::path& projectDirectory,
                                   std::vector<TWarning>& warnings) {
  std::vector<TTakenFile> files;
  std::map<std::pair<std::string, std::string>, const TInstalledFile*> taken;
  TRealDirectories real;
  for (const TInstalledFile& file : plan.Files) {
    const std::string localName = StoredName(file.LocalFile, projectDirectory, real);
    const auto [first, isNew] = taken.try_emplace({file.Configuration, localName}, &file);
    if (!isNew) {
      warnings.push_back({"\"" + Visible(localName) +
                              "\" is installed a second time, here; the list has one entry for one "
                              "file, which is that of " +
                              Place(first->second->Rule),
                          file.Rule.File, file.Rule.Line});
      continue;
    }
    files.push_back({file.Configuration, localName, StoredDirectory(file.Directory), file.Name,
                     file.Component, file.IsProgram});
  }
  return files;
}

} // namespace workbench
