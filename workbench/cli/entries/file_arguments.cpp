#include "workbench/cli/entries/file_arguments.h"

#include "workbench/cli/context/name_hint.h"
#include "workbench/files/machine_path.h"
#include "workbench/session/link_chain.h"

#include <algorithm>
#include <system_error>
#include <unordered_set>

namespace workbench {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t NamesShown = 10;

// Names beside a file that is not there, to find the one that was meant.
std::vector<std::string> NeighboursOf(const std::string& argument, const fs::path& projectFile) {
  constexpr std::size_t MostNames = 2000;
  const fs::path below = fs::path(argument).parent_path();
  std::vector<std::string> names;
  for (const fs::path& place :
       {fs::current_path() / below, fs::absolute(projectFile).parent_path() / below}) {
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(place, ignored)) {
      if (names.size() >= MostNames)
        return names;
      names.push_back((below / entry.path().filename()).string());
    }
  }
  return names;
}

std::string Enumeration(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < std::min(names.size(), NamesShown); ++i)
    text += (i > 0 ? ", \"" : "\"") + names[i] + "\"";
  if (names.size() > NamesShown)
    text += " and " + std::to_string(names.size() - NamesShown) + " more";
  return text;
}

// The command line tells a wrong name from a file that is of the wrong kind.
template <class TAction>
auto Guarded(TAction action) {
  try {
    return action();
  } catch (const TAddError& error) {
    if (error.Reason() == TAddError::TReason::Name)
      throw TUsageError(error.what());
    throw TWorkError(error.what());
  }
}

class TCollector {
public:
  TCollector(const TFileArguments& arguments, const fs::path& projectFile)
      : FArguments(arguments), FProjectFile(projectFile) {}

  void AddFile(const std::string& argument) {
    TAddedFile file = Guarded([&] { return LocalNameOf(argument, FProjectFile); });
    if (file.Exists && FArguments.Chains)
      return TakeChain(argument);
    if (file.Exists || !IsPattern(argument))
      return Take(argument, std::move(file));
    if (argument.find("$(") != std::string::npos)
      throw TUsageError("the pattern \"" + argument + "\" holds a macro, which only a build knows");
    const std::vector<std::string> found = FilesOfPattern(argument, FProjectFile);
    if (found.empty())
      throw TWorkError("no file matches the pattern \"" + argument + "\"");
    for (const std::string& each : found)
      TakeChain(each);
  }

  void AddTree(TCommandContext& context, const std::string& argument) {
    TAddedTree tree = Guarded([&] { return FilesOfTree(argument, FProjectFile); });
    for (TAddedFile& file : tree.Files) {
      const std::string name = file.LocalName;
      Take(name, std::move(file));
    }
    for (const std::string& link : tree.LeftOut)
      context.Output.Warn({"the link to a directory is left out", link, 0});
  }

  std::vector<TAddedFile> Finish() {
    if (!FMissing.empty())
      RaiseMissing();
    if (!FOutside.empty())
      throw TWorkError("outside the project's directory: " + Enumeration(FOutside) +
                       "; --outside adds them all the same");
    return std::move(FFiles);
  }

private:
  // Names are seen from the current directory, else from the project's.
  void TakeChain(const std::string& argument) {
    const fs::path given = ToMachinePath(argument);
    std::error_code ignored;
    const fs::path place =
        fs::exists(given, ignored) ? fs::path() : fs::absolute(FProjectFile).parent_path();
    for (const fs::path& each : LinkChain(place / given)) {
      const std::string name = fs::path(given).replace_filename(each.filename()).string();
      Take(name, Guarded([&] { return LocalNameOf(name, FProjectFile); }));
    }
  }

  void Take(const std::string& argument, TAddedFile file) {
    const bool hasMacros = file.LocalName.find("$(") != std::string::npos;
    if (!file.Exists && !FArguments.MissingOk)
      FMissing.push_back(argument);
    else if (file.IsOutside && !hasMacros && !FArguments.Outside)
      FOutside.push_back(argument);
    if (FKnown.insert(file.LocalName).second)
      FFiles.push_back(std::move(file));
  }

  [[noreturn]] void RaiseMissing() const {
    if (FMissing.size() > 1)
      throw TWorkError("there are no files " + Enumeration(FMissing) +
                       "; --missing-ok adds files that come later");
    const std::string& name = FMissing.front();
    const std::string hint = HintAt(name, NeighboursOf(name, FProjectFile));
    throw TWorkError("there is no file \"" + name + "\"" +
                     (hint.empty() ? "; --missing-ok adds a file that comes later" : hint));
  }

  const TFileArguments& FArguments;
  const fs::path& FProjectFile;
  std::vector<TAddedFile> FFiles;
  std::unordered_set<std::string> FKnown;
  std::vector<std::string> FMissing;
  std::vector<std::string> FOutside;
};

} // namespace

std::vector<TAddedFile> CollectFiles(TCommandContext& context, const TFileArguments& arguments,
                                     const TOpenProject& project) {
  TCollector collector(arguments, project.GivenFileName());
  for (const std::string& file : arguments.Files)
    collector.AddFile(file);
  for (const std::string& tree : arguments.Trees)
    collector.AddTree(context, tree);
  return collector.Finish();
}

} // namespace workbench
