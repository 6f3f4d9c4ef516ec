#include "workbench/project/cpp/solution.h"

#include "package/common/case_fold.h"
#include "package/common/errors.h"
#include "workbench/files/file_reader.h"
#include "workbench/msbuild/values/project_paths.h"
#include "workbench/xml/short_text.h"

#include <algorithm>
#include <system_error>

namespace workbench {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view FolderType = "{2150E333-8FDC-42A3-9474-1A3956D46DE8}";
constexpr std::string_view Header = "Solution File, Format Version";
constexpr std::uint64_t LargestSolution = std::uint64_t{16} * 1024 * 1024;
constexpr std::size_t MostEntries = 100'000;
constexpr std::size_t MostProjects = 10'000;

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

TSolutionTarget SplitTarget(std::string_view text) {
  const std::size_t bar = std::min(text.find('|'), text.size());
  return {std::string(Trim(text.substr(0, bar))),
          std::string(Trim(text.substr(std::min(bar + 1, text.size()))))};
}

bool IsSame(const TSolutionTarget& left, const TSolutionTarget& right) {
  return deployment::SameText(left.Configuration, right.Configuration) &&
         deployment::SameText(left.Platform, right.Platform);
}

} // namespace

// Goes through the lines of a solution.
class TSolution::TReader {
public:
  TReader(std::string_view text, TSolution& solution) : FText(text), FSolution(solution) {}

  void Read() {
    if (FText.starts_with("\xEF\xBB\xBF"))
      FText.remove_prefix(3);
    while (const auto line = Next()) {
      if (!FHasHeader)
        ReadHeader(*line);
      else if (line->starts_with("Project("))
        ReadProject(*line);
      else if (line->starts_with("GlobalSection(") || line->starts_with("ProjectSection("))
        FSection = SectionOf(*line);
      else if (*line == "EndGlobalSection" || *line == "EndProjectSection")
        FSection = TSection::Other;
      else if (FSection == TSection::Targets)
        ReadTarget(*line);
      else if (FSection != TSection::Other)
        ReadLink(*line);
    }
    if (!FHasHeader)
      Fail("the file is empty, so it is no solution");
  }

private:
  enum class TSection { Other, Targets, Dependencies, Nesting };

  static TSection SectionOf(std::string_view line) {
    const auto names = [&](std::string_view name) {
      return line.find(name) != std::string_view::npos;
    };
    if (names("(ProjectConfigurationPlatforms)"))
      return TSection::Targets;
    if (names("(ProjectDependencies)"))
      return TSection::Dependencies;
    return names("(NestedProjects)") ? TSection::Nesting : TSection::Other;
  }

  std::optional<std::string_view> Next() {
    if (FText.empty())
      return std::nullopt;
    const std::size_t end = std::min(FText.find('\n'), FText.size());
    const std::string_view line = Trim(FText.substr(0, end));
    FText.remove_prefix(std::min(end + 1, FText.size()));
    ++FLine;
    return line;
  }

  void ReadHeader(std::string_view line) {
    if (line.empty())
      return;
    if (line.find(Header) == std::string_view::npos)
      Fail("this is no solution: \"" + ShortText(line) + "\" stands where the format is named");
    FHasHeader = true;
  }

  // Project("{TYPE}") = "NAME", "PATH", "{ID}"
  void ReadProject(std::string_view line) {
    std::vector<std::string_view> texts;
    for (std::size_t start = line.find('"'); start != std::string_view::npos;
         start = line.find('"', start)) {
      const std::size_t end = line.find('"', start + 1);
      if (end == std::string_view::npos)
        Fail("a quote of the project is not closed");
      texts.push_back(line.substr(start + 1, end - start - 1));
      start = end + 1;
    }
    if (texts.size() < 4)
      Fail("the project lacks its type, name, path or id");
    FId = deployment::UpperCase(texts[3]);
    FSolution.FNameById.emplace(FId, texts[1]);
    if (deployment::SameText(texts[0], FolderType) || IsForeignPath(texts[2]))
      return;
    if (FSolution.FProjects.size() == MostProjects)
      Fail("the solution names more than " + std::to_string(MostProjects) + " projects");
    TSolutionProject project{std::string(texts[1]), std::string(texts[2]),
                             ResolvePath(texts[2], FSolution.FFile.parent_path()), FId, FLine};
    if (FSolution.FByFile
            .emplace(deployment::UpperCase(project.File.string()), FSolution.FProjects.size())
            .second)
      FSolution.FProjects.push_back(std::move(project));
  }

  // {ID}.Debug|Win32.ActiveCfg = Debug|Win32
  // {ID}.Debug|Win32.Build.0 = Debug|Win32
  void ReadTarget(std::string_view line) {
    constexpr std::string_view Active = ".ActiveCfg";
    constexpr std::string_view Built = ".Build.0";
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
      return;
    std::string_view key = Trim(line.substr(0, equals));
    const std::size_t brace = key.find('}');
    const bool isBuilt = key.ends_with(Built);
    if ((!isBuilt && !key.ends_with(Active)) || brace == std::string_view::npos)
      return;
    key.remove_suffix(isBuilt ? Built.size() : Active.size());
    const std::string id = deployment::UpperCase(key.substr(0, brace + 1));
    const std::string_view own = key.substr(std::min(brace + 2, key.size()));
    auto& byId = isBuilt ? FSolution.FBuildsById : FSolution.FTargetsById;
    byId[id][deployment::UpperCase(own)] = SplitTarget(line.substr(equals + 1));
  }

  // {ID} = {ID}: what lies in what, and in a project what it waits for.
  void ReadLink(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
      return;
    const bool nests = FSection == TSection::Nesting;
    std::string from = nests ? deployment::UpperCase(Trim(line.substr(0, equals))) : FId;
    auto& links = nests ? FSolution.FNesting : FSolution.FDependencies;
    links.push_back({std::move(from), deployment::UpperCase(Trim(line.substr(equals + 1))), FLine});
  }

  [[noreturn]] void Fail(const std::string& text) const {
    throw deployment::TInputError(text, {FSolution.FFile.string(), FLine});
  }

  std::string_view FText;
  TSolution& FSolution;
  unsigned FLine = 0;
  bool FHasHeader = false;
  TSection FSection = TSection::Other;
  std::string FId; // of the project that is read
};

bool IsSolutionName(const fs::path& file) {
  return deployment::SameText(file.extension().string(), ".sln");
}

TSolution TSolution::Parse(std::string_view text, const fs::path& file) {
  TSolution solution;
  solution.FFile = file;
  TReader(text, solution).Read();
  return solution;
}

TSolution TSolution::Read(const fs::path& file) {
  const TFileContent content = ReadWholeFile(file, LargestSolution, "solution");
  return Parse(content.Text(), fs::absolute(file).lexically_normal());
}

const TSolutionProject* TSolution::FindProject(const fs::path& file) const {
  const auto found = FByFile.find(deployment::UpperCase(file.string()));
  return found == FByFile.end() ? nullptr : &FProjects[found->second];
}

std::optional<TSolutionTarget> TSolution::TargetOf(const TSolutionProject& other,
                                                   const TSolutionProject& project,
                                                   const TSolutionTarget& target) const {
  const auto own = FTargetsById.find(project.Id);
  const auto others = FTargetsById.find(other.Id);
  if (own == FTargetsById.end() || others == FTargetsById.end())
    return std::nullopt;
  std::optional<TSolutionTarget> found;
  for (const auto& [build, taken] : own->second) {
    const auto match = others->second.find(build);
    if (!IsSame(taken, target) || match == others->second.end())
      continue;
    if (found && !IsSame(*found, match->second))
      return std::nullopt;
    found = match->second;
  }
  return found;
}

std::optional<TProjectBuild> TSolution::BuildOf(const TSolutionProject& project,
                                                const TSolutionTarget& target) const {
  const std::string build = deployment::UpperCase(target.Configuration + "|" + target.Platform);
  const auto targets = FTargetsById.find(project.Id);
  if (targets == FTargetsById.end())
    return std::nullopt;
  const auto found = targets->second.find(build);
  if (found == targets->second.end())
    return std::nullopt;
  // A solution that builds nothing at all leaves that part out.
  const auto builds = FBuildsById.find(project.Id);
  const bool isBuilt =
      FBuildsById.empty() || (builds != FBuildsById.end() && builds->second.contains(build));
  return TProjectBuild{found->second, isBuilt};
}

void TSolution::CheckOrder() const {
  CheckRing(FDependencies, "projects wait for each other");
  CheckRing(FNesting, "folders lie in each other");
}

// What nothing stands in the way of is taken away, until all that is left leads into a ring.
void TSolution::CheckRing(const std::vector<TLink>& links, std::string_view what) const {
  std::map<std::string_view, std::vector<const TLink*>> from;
  std::map<std::string_view, std::vector<const TLink*>> to;
  std::map<std::string_view, std::size_t> open; // links that still lead on
  for (const TLink& link : links) {
    from[link.From].push_back(&link);
    to[link.To].push_back(&link);
    ++open[link.From];
    open.try_emplace(link.To, 0);
  }
  std::vector<std::string_view> free;
  for (const auto& [id, count] : open) {
    if (count == 0)
      free.push_back(id);
  }
  std::size_t left = open.size();
  for (; !free.empty(); --left) {
    const std::string_view id = free.back();
    free.pop_back();
    for (const TLink* link : to[id]) {
      if (--open[link->From] == 0)
        free.push_back(link->From);
    }
  }
  if (left == 0)
    return;
  // From any of them each step leads to another one, and in the end to one that was there before.
  const auto leadsOn = [&](const TLink* link) { return open[link->To] > 0; };
  std::map<std::string_view, std::size_t> steps;
  std::vector<const TLink*> way;
  std::string_view id =
      std::ranges::find_if(open, [](const auto& each) { return each.second > 0; })->first;
  while (steps.emplace(id, way.size()).second) {
    way.push_back(*std::ranges::find_if(from[id], leadsOn));
    id = way.back()->To;
  }
  const auto nameOf = [&](const std::string& each) {
    const auto name = FNameById.find(each);
    return "\"" + ShortText(name == FNameById.end() ? each : name->second) + "\"";
  };
  std::string ring = nameOf(std::string(id));
  for (std::size_t i = steps.at(id); i < way.size(); ++i)
    ring.append(", ").append(nameOf(way[i]->To));
  throw deployment::TInputError(std::string(what) + " in a ring: " + ShortText(ring),
                                {FFile.string(), way.back()->Line});
}

TFoundSolution FindSolutionOf(const fs::path& project) {
  TFoundSolution result;
  for (fs::path directory = project.parent_path();; directory = directory.parent_path()) {
    std::vector<fs::path> files;
    std::error_code error;
    std::size_t count = 0;
    for (fs::directory_iterator entry(directory, error), end;
         !error && entry != end && ++count < MostEntries; entry.increment(error)) {
      if (IsSolutionName(entry->path()))
        files.push_back(entry->path());
    }
    std::ranges::sort(files);
    for (const fs::path& file : files) {
      try {
        TSolution solution = TSolution::Read(file);
        if (!solution.FindProject(project))
          continue;
        if (result.Solution)
          result.Others.push_back(file.filename().string());
        else
          result.Solution = std::make_shared<const TSolution>(std::move(solution));
      } catch (const deployment::TInputError&) {
        continue; // it tells nothing about this project
      }
    }
    if (result.Solution || directory == directory.parent_path())
      return result;
  }
}

} // namespace workbench
