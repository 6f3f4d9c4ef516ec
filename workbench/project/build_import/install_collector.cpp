#include "workbench/project/build_import/install_collector.h"

#include "workbench/text/quoted_text.h"
#include "workbench/text/storable_text.h"
#include "workbench/text/visible_text.h"

#include <algorithm>
#include <system_error>

namespace workbench {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Refuse(const TInstallRule& rule, const std::string& text) {
  throw deployment::TInputError(text, rule.Place);
}

// Stored paths take "\" for a delimiter, and "$(" begins a macro there.
void CheckText(const TInstallRule& rule, const std::string& text) {
  const bool isGood = IsStorable(text) && text.find('\\') == std::string::npos &&
                      text.find("$(") == std::string::npos;
  if (!isGood)
    Refuse(rule, "the rule installs " + Quoted(text) + ", a name that a project cannot hold");
}

bool Climbs(const fs::path& path) {
  return !path.empty() && *path.begin() == "..";
}

} // namespace

TInstallCollector::TInstallCollector(std::string tool, fs::path prefix,
                                     std::vector<std::string> components)
    : FPrefix(std::move(prefix)), FComponents(std::move(components)) {
  FPlan.Tool = std::move(tool);
}

bool TInstallCollector::Wants(const TInstallRule& rule) {
  FSeen.insert(rule.Component);
  if (FComponents.empty())
    return !rule.IsExcluded;
  return rule.IsForAllComponents ||
         std::ranges::find(FComponents, rule.Component) != FComponents.end();
}

std::string TInstallCollector::DirectoryOf(const TInstallRule& rule, const fs::path& below) const {
  CheckText(rule, rule.Destination);
  fs::path destination = fs::path(rule.Destination).lexically_normal();
  if (destination.is_absolute()) {
    const fs::path given = destination;
    destination =
        FPrefix.empty() ? fs::path() : given.lexically_relative(FPrefix.lexically_normal());
    if (destination.empty() || Climbs(destination))
      Refuse(rule, "the destination " + Quoted(rule.Destination) +
                       " is absolute and not below the install prefix" +
                       (FPrefix.empty() ? "" : " " + Quoted(FPrefix.string())) +
                       "; make it relative, or name the components to be taken and leave " +
                       Quoted(rule.Component) + " out");
  }
  const fs::path whole = (destination / below).lexically_normal();
  if (Climbs(destination.lexically_normal()) || Climbs(whole) || below.is_absolute())
    Refuse(rule, "the rule installs to " +
                     Quoted(below.empty() ? rule.Destination
                                          : (fs::path(rule.Destination) / below).generic_string()) +
                     ", which is above the install prefix");
  std::string text = whole.generic_string();
  while (text.ends_with('/'))
    text.pop_back();
  return text == "." ? std::string() : text;
}

void TInstallCollector::AddFile(const TInstallRule& rule, const fs::path& localFile,
                                std::string_view name) {
  if (!Wants(rule))
    return;
  std::error_code ignored;
  if (rule.IsOptional && !fs::exists(localFile, ignored))
    return FPlan.Warnings.push_back(
        {"the rule is optional and " + Quoted(localFile.string()) + " is not there; it is left out",
         rule.Place.File, rule.Place.Line});
  const fs::path path(name);
  CheckText(rule, localFile.string());
  CheckText(rule, std::string(name));
  if (!path.has_filename() || path.filename() == "." || path.filename() == "..")
    Refuse(rule, "the rule installs a file as " + Quoted(name) + ", which is no name of a file");
  FPlan.Files.push_back({rule.Configuration, localFile.lexically_normal(),
                         DirectoryOf(rule, path.parent_path()), path.filename().string(),
                         rule.Component, rule.IsProgram, rule.Place});
}

std::vector<fs::path> TInstallCollector::FilesBelow(const TInstallRule& rule,
                                                    const fs::path& directory) {
  std::vector<fs::path> files;
  std::error_code error;
  fs::recursive_directory_iterator entries(directory, error);
  for (const fs::recursive_directory_iterator end; !error && entries != end;
       entries.increment(error)) {
    std::error_code ignored;
    if (entries->is_directory(ignored)) {
      // A link to a directory is not gone into, so that a ring of them has an end.
      if (entries->is_symlink(ignored))
        Warn(rule.Place, Quoted(entries->path().string()) +
                             " is a link to a directory; what is behind it is left out");
    } else {
      files.push_back(entries->path());
    }
  }
  if (error)
    Warn(rule.Place, "the directory " + Quoted(directory.string()) +
                         " cannot be read: " + error.message() + "; its files are left out");
  std::ranges::sort(files);
  return files;
}

void TInstallCollector::AddTree(const TInstallRule& rule, const fs::path& directory,
                                std::string_view name) {
  AddTree(rule, directory, name, [](const fs::path&) { return false; });
}

void TInstallCollector::LeaveOut(const TInstallRule& rule, const std::string& why) {
  if (Wants(rule))
    Warn(rule.Place, why);
}

void TInstallCollector::Warn(const deployment::TErrorPlace& place, const std::string& text) {
  FPlan.Warnings.push_back({text, place.File, static_cast<unsigned>(place.Line)});
}

TInstallPlan TInstallCollector::Take(std::vector<std::string> configurations) {
  for (const std::string& component : FComponents) {
    if (FSeen.contains(component))
      continue;
    std::string known;
    for (const std::string& name : FSeen)
      known += (known.empty() ? "" : ", ") + Visible(name);
    throw deployment::TInputError("the build has no component " + Quoted(component) +
                                  "; known are: " + known);
  }
  FPlan.Configurations = std::move(configurations);
  return std::move(FPlan);
}

} // namespace workbench
