#include "workbench/project/cpp/solution.h"

#include "package/common/case_fold.h"
#include "package/common/errors.h"
#include "workbench/files/file_reader.h"
#include "workbench/msbuild/project_paths.h"
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
      else if (line->starts_with("GlobalSection("))
        FIsTargets = line->find("ProjectConfigurationPlatforms") != std::string_view::npos;
      else if (*line == "EndGlobalSection")
        FIsTargets = false;
      else if (FIsTargets)
        ReadTarget(*line);
    }
    if (!FHasHeader)
      Fail("the file is empty, so it is no solution");
  }

private:
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
    if (deployment::SameText(texts[0], FolderType) || IsForeignPath(texts[2]))
      return;
    if (FSolution.FProjects.size() == MostProjects)
      Fail("the solution names more than " + std::to_string(MostProjects) + " projects");
    TSolutionProject project{std::string(texts[1]), std::string(texts[2]),
                             ResolvePath(texts[2], FSolution.FFile.parent_path()),
                             deployment::UpperCase(texts[3]), FLine};
    if (FSolution.FByFile
            .emplace(deployment::UpperCase(project.File.string()), FSolution.FProjects.size())
            .second)
      FSolution.FProjects.push_back(std::move(project));
  }

  // {ID}.Debug|Win32.ActiveCfg = Debug|Win32
  void ReadTarget(std::string_view line) {
    constexpr std::string_view Active = ".ActiveCfg";
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
      return;
    std::string_view key = Trim(line.substr(0, equals));
    const std::size_t brace = key.find('}');
    if (!key.ends_with(Active) || brace == std::string_view::npos)
      return;
    key.remove_suffix(Active.size());
    const std::string id = deployment::UpperCase(key.substr(0, brace + 1));
    const std::string_view own = key.substr(std::min(brace + 2, key.size()));
    FSolution.FTargetsById[id][deployment::UpperCase(own)] = SplitTarget(line.substr(equals + 1));
  }

  [[noreturn]] void Fail(const std::string& text) const {
    throw deployment::TInputError(text, {FSolution.FFile.string(), FLine});
  }

  std::string_view FText;
  TSolution& FSolution;
  unsigned FLine = 0;
  bool FHasHeader = false;
  bool FIsTargets = false;
};

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

TFoundSolution FindSolutionOf(const fs::path& project) {
  TFoundSolution result;
  for (fs::path directory = project.parent_path();; directory = directory.parent_path()) {
    std::vector<fs::path> files;
    std::error_code error;
    std::size_t count = 0;
    for (fs::directory_iterator entry(directory, error), end;
         !error && entry != end && ++count < MostEntries; entry.increment(error)) {
      if (deployment::SameText(entry->path().extension().string(), ".sln"))
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
          result.Solution = std::move(solution);
      } catch (const deployment::TInputError&) {
        continue; // it tells nothing about this project
      }
    }
    if (result.Solution || directory == directory.parent_path())
      return result;
  }
}

} // namespace workbench
