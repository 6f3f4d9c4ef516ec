#include "workbench/project/build_import/meson_plan.h"

#include "workbench/project/build_import/install_collector.h"
#include "workbench/project/build_import/reply_value.h"

#include <algorithm>
#include <optional>
#include <system_error>
#include <unordered_map>

namespace workbench {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t KnownMesonVersion = 1;

// What a target is, by the full path of its file.
struct TTarget {
  bool IsProgram = false;
  std::string DefinedIn;
  std::vector<std::string> Links; ///< names of the links beside a library that lead to it
};

class TMesonPlan {
public:
  TMesonPlan(const fs::path& build, TInstallCollector& collector)
      : FInfo(build / "meson-info"), FCollector(collector) {}

  void Collect(const fs::path& source,
               const std::unordered_map<std::string, std::string>& options) {
    FSource = source;
    FOptions = &options;
    ReadTargets();
    const TReplyValue plan =
        TReplyValue::Read(FInfo / "intro-install_plan.json", "the install plan of Meson");
    for (const auto& [group, entries] : plan.Members()) {
      for (const auto& [path, entry] : entries.Members())
        CollectEntry(group, path, entry);
    }
  }

private:
  // A library's file name is that of its links and more.
  static std::vector<std::string> LinksOf(const TReplyValue& target, const std::string& file) {
    std::vector<std::string> links;
    const std::string name = fs::path(file).filename().string();
    if (!target.Text("type").starts_with("shared"))
      return links;
    for (const TReplyValue& installed : target.ArrayOrNone("install_filename")) {
      const std::string link = fs::path(installed.AsText()).filename().string();
      if (name.size() > link.size() && name.starts_with(link) && name[link.size()] == '.')
        links.push_back(link);
    }
    return links;
  }

  void ReadTargets() {
    const TReplyValue targets =
        TReplyValue::Read(FInfo / "intro-targets.json", "the targets of Meson");
    for (const TReplyValue& target : targets.Values()) {
      for (const TReplyValue& value : target.Array("filename")) {
        const std::string file = value.AsText();
        FTargets[file] = {target.Text("type") == "executable", target.TextOr("defined_in", ""),
                          LinksOf(target, file)};
      }
    }
  }

  void CollectEntry(const std::string& group, const std::string& path, const TReplyValue& entry) {
    TInstallRule rule;
    rule.Configuration = "Base";
    rule.Component = entry.TextOr("tag", "Unspecified");
    const auto target = FTargets.find(path);
    rule.Place.File = target != FTargets.end() && !target->second.DefinedIn.empty()
                          ? target->second.DefinedIn
                          : (FSource / "meson.build").string();
    const auto destination = Resolved(entry.Text("destination"));
    if (!destination)
      return FCollector.LeaveOut(rule, "\"" + path + "\" goes to \"" + entry.Text("destination") +
                                           "\", a place that Meson does not tell; it is left out");
    if (group == "install_subdirs")
      return CollectTree(rule, path, *destination, entry);
    rule.Destination = destination->parent_path().string();
    rule.IsProgram = target != FTargets.end() && target->second.IsProgram;
    FCollector.AddFile(rule, path, destination->filename().string());
    if (target == FTargets.end())
      return;
    for (const std::string& link : target->second.Links)
      FCollector.AddFile(rule, fs::path(path).replace_filename(link), link);
  }

  void CollectTree(TInstallRule& rule, const std::string& path, const fs::path& destination,
                   const TReplyValue& entry) {
    std::vector<fs::path> files;
    std::vector<fs::path> directories;
    for (const TReplyValue& value : entry.ArrayOrNone("exclude_files"))
      files.emplace_back(value.AsText());
    for (const TReplyValue& value : entry.ArrayOrNone("exclude_dirs"))
      directories.emplace_back(value.AsText());
    rule.Destination = destination.string();
    FCollector.AddTree(rule, path, ".", [&](const fs::path& below) {
      const auto holds = [&](const fs::path& directory) {
        return std::ranges::mismatch(directory, below).in1 == directory.end();
      };
      return std::ranges::find(files, below) != files.end() ||
             std::ranges::any_of(directories, holds);
    });
  }

  // "{libdir_shared}/x": the option "libdir" and the rest. Nothing for what is no option.
  std::optional<fs::path> Resolved(const std::string& destination) const {
    if (!destination.starts_with('{'))
      return fs::path(destination);
    const std::size_t end = destination.find('}');
    if (end == std::string::npos)
      return std::nullopt;
    std::string name = destination.substr(1, end - 1);
    for (const std::string_view suffix : {"_shared", "_static"}) {
      if (name.ends_with(suffix))
        name.resize(name.size() - suffix.size());
    }
    if (name == "moduledir")
      name = "libdir";
    const std::size_t rest = destination.find_first_not_of('/', end + 1);
    const std::string below = rest == std::string::npos ? "" : destination.substr(rest);
    if (name == "prefix")
      return fs::path(below);
    const auto option = FOptions->find(name);
    if (option == FOptions->end())
      return std::nullopt;
    return fs::path(option->second) / below;
  }

  const fs::path FInfo;
  fs::path FSource;
  TInstallCollector& FCollector;
  const std::unordered_map<std::string, std::string>* FOptions = nullptr;
  std::unordered_map<std::string, TTarget> FTargets;
};

// Options whose value is a text.
std::unordered_map<std::string, std::string> ReadOptions(const fs::path& info) {
  std::unordered_map<std::string, std::string> options;
  const TReplyValue list =
      TReplyValue::Read(info / "intro-buildoptions.json", "the options of Meson");
  for (const TReplyValue& option : list.Values()) {
    if (option.Has("value") && option.At("value").IsText())
      options[option.Text("name")] = option.Text("value");
  }
  return options;
}

} // namespace

bool IsMesonBuild(const fs::path& directory) {
  std::error_code ignored;
  return fs::is_directory(directory / "meson-info", ignored);
}

TInstallPlan ReadMesonPlan(const fs::path& directory, const std::vector<std::string>& components) {
  const fs::path infoDirectory = directory / "meson-info";
  const TReplyValue info =
      TReplyValue::Read(infoDirectory / "meson-info.json", "the summary of Meson");
  const TReplyValue version = info.At("introspection").At("version");
  if (version.Number("major") != KnownMesonVersion)
    version.Refuse("is " + std::to_string(version.Number("major")) + "; known is " +
                   std::to_string(KnownMesonVersion));
  const auto options = ReadOptions(infoDirectory);
  const auto option = [&](const char* name) {
    const auto found = options.find(name);
    return found == options.end() ? std::string() : found->second;
  };
  TInstallCollector collector("Meson", option("prefix"), components);
  TMesonPlan plan(directory, collector);
  plan.Collect(info.At("directories").Text("source"), options);
  return collector.Take({option("buildtype") == "debug" ? "Debug" : "Release"});
}

} // namespace workbench
