#include "tests/faults/lying_server_family.h"

#include "tests/faults/family.h"
#include "tests/faults/lies.h"
#include "tests/faults/sample_project.h"

#include <algorithm>
#include <optional>
#include <stdexcept>

namespace faults {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t LieFiles = 4;
constexpr std::size_t CutFiles = 24;   // their deploy is some two hundred requests
constexpr std::size_t MostLies = 1000; // of a whole run
constexpr const char* RealServer = "/usr/lib/openssh/sftp-server";

std::string OnTarget(std::size_t number) {
  return "target/demo/data/f" + std::to_string(number) + ".dat";
}

// One lie in one conversation.
struct TScene {
  bool IsStatus = false;      ///< the questions of "status", not a deploy
  bool HasPosixRename = true; ///< the server has it
  std::uint64_t Requests = 0; ///< of a run without lies
};

class TLyingPlace {
public:
  TLyingPlace(const TPrograms& programs, std::size_t files) : FPlace(programs), FCount(files) {
    FPlace.Write("demo.vproj", SampleProjectText(FCount));
    FPlace.Write("target/keep", "not ours");
    for (std::size_t i = 1; i <= FCount; ++i)
      FPlace.Write("files/f" + std::to_string(i) + ".dat", "old " + std::to_string(i));
    SetLie("none", 0, true);
    FPlace.SetVariables({"PATH=" + FPlace.Path("home/bin").string() + ":/usr/bin:/bin"});
    FPlace.Prepare({"profile", "add", "box", "-p", "OSX32", "--kind", "ssh", "--host", "machine",
                    "--path", FPlace.Path("target").string()});
    FPlace.Prepare({"export", "demo.vproj"});
    FPlace.Prepare(DeployArguments());
    for (std::size_t i = 1; i < FCount; ++i)
      FPlace.Write("files/f" + std::to_string(i) + ".dat",
                   "new " + std::to_string(i) + std::string(i * 1000, 'n'));
    fs::remove(FPlace.Path(OnTarget(1)));
    FPlace.Keep();
    FBefore = FPlace.State();
    for (std::size_t i = 1; i <= FCount; ++i)
      FNewHashes.push_back(HashOf("files/f" + std::to_string(i) + ".dat"));
  }

  std::uint64_t RequestsOf(const TScene& scene) {
    FPlace.Reset();
    SetLie("none", 0, scene.HasPosixRename);
    const TRunEnd end = RunPlainly(Run(scene));
    if (end.Status != 0)
      throw std::runtime_error("a deploy without lies fails: " + end.Errors);
    return fs::file_size(FPlace.Path("home/requests"));
  }

  TFaultResult Try(const TScene& scene, const TLie& lie, std::uint64_t at) {
    FPlace.Reset();
    SetLie(lie.Name, at, scene.HasPosixRename);
    const TRunEnd end = RunPlainly(Run(scene));
    std::error_code ignored;
    const auto asked = fs::file_size(FPlace.Path("home/requests"), ignored);
    TFaultResult result;
    result.IsFired = !ignored && asked >= at;
    result.Fault = std::string(scene.IsStatus ? "status" : "deploy") +
                   (scene.HasPosixRename ? "" : " without atomic rename") + ": " + lie.Name +
                   " at request " + std::to_string(at);
    result.Broken = (scene.IsStatus ? CheckStatus(lie, end) : CheckDeploy(end)).value_or("");
    return result;
  }

  /// The line is cut behind a request, for good.
  TFaultResult Cut(std::uint64_t at) {
    TFaultResult result = Try({}, *FindLie("hang-up"), at);
    result.Fault = "the line ends behind request " + std::to_string(at);
    if (result.Broken.empty())
      result.Broken = CheckUndo().value_or("");
    return result;
  }

private:
  // Told by a program that is not ours.
  std::string HashOf(const std::string& name) const {
    const TRunEnd end = RunPlainly(FPlace.Of({"/usr/bin/sha256sum", FPlace.Path(name).string()}));
    const std::string hash = end.Output.substr(0, end.Output.find(' '));
    if (hash.size() != 64)
      throw std::runtime_error("sha256sum does not tell the hash of " + name);
    return hash;
  }
  static std::vector<std::string> DeployArguments() {
    return {"deploy", "demo.vproj", "--yes", "--overwrite-changed"};
  }
  TProgramStart Run(const TScene& scene) const {
    return FPlace.Deploymgr(scene.IsStatus
                                ? std::vector<std::string>{"status", "demo.vproj", "--json"}
                                : DeployArguments());
  }

  // The client of the machine: the conversation goes through the lying server.
  void SetLie(const std::string& lie, std::uint64_t at, bool hasPosixRename) const {
    fs::remove(FPlace.Path("home/requests"));
    FPlace.Write("home/bin/ssh", "#!/bin/sh\nfor word; do last=$word; done\ncase \" $* \" in\n"
                                 "*\" sftp \"*) exec " +
                                     FPlace.Programs().LyingServer.string() + " " + RealServer +
                                     " " + FPlace.Path("home/requests").string() + " " +
                                     std::to_string(at) + " " + lie +
                                     (hasPosixRename ? "" : " -P posix-rename") +
                                     " ;;\nesac\nexec /bin/sh -c \"$last\"\n");
    fs::permissions(FPlace.Path("home/bin/ssh"), fs::perms::owner_all);
  }

  std::string Old(std::size_t number) const {
    const auto found = FBefore.find(OnTarget(number));
    return found == FBefore.end() ? std::string() : found->second;
  }
  std::string New(std::size_t number) const {
    return FPlace.Read("files/f" + std::to_string(number) + ".dat");
  }
  // The old file may wait under another name for the new one.
  bool IsKept(const TTreeState& now, std::size_t number) const {
    return Old(number).empty() || std::ranges::any_of(now, [&](const auto& file) {
             return file.first.starts_with("target/") && file.second == Old(number);
           });
  }

  TBroken CheckDeploy(const TRunEnd& end) const {
    if (TBroken broken = CheckManners(end))
      return broken;
    const TTreeState now = FPlace.State();
    if (!now.contains("target/keep"))
      return "a file that is not ours is gone";
    bool isComplete = true;
    for (std::size_t i = 1; i <= FCount; ++i) {
      const auto file = now.find(OnTarget(i));
      const bool isNew = file != now.end() && file->second == New(i);
      isComplete = isComplete && isNew;
      if (file != now.end() && !isNew && file->second != Old(i))
        return OnTarget(i) + " is neither old nor new";
      if (!isNew && !IsKept(now, i))
        return "the old " + OnTarget(i) + " is gone, and the new one is not there";
    }
    if (end.Status == 0 && !isComplete)
      return "it says that all went well, and the target is not complete";
    if (TBroken broken = CheckRecord(now))
      return broken;
    return CheckNextDeploy();
  }

  // What the record says of a file is there, or was there before.
  TBroken CheckRecord(const TTreeState& now) const {
    const auto record = now.find("target/.deployment-manager/demo/record.json");
    for (std::size_t i = 1; record != now.end() && i <= FCount; ++i) {
      const auto file = now.find(OnTarget(i));
      const bool isNew = file != now.end() && file->second == New(i);
      const bool isUnchanged = Old(i) == New(i);
      if (!isNew && !isUnchanged && record->second.find(FNewHashes[i - 1]) != std::string::npos)
        return "the record has the new " + OnTarget(i) + ", which is not there";
    }
    return std::nullopt;
  }

  // The deploy that completed and the one that was cut are taken back, one after the other.
  TBroken CheckUndo() const {
    for (int back = 1; back <= 2; ++back) {
      const TRunEnd end = RunPlainly(FPlace.Deploymgr({"undo", "demo.vproj", "--yes"}));
      if (end.Status != 0)
        return "undo " + std::to_string(back) + " ends with " + std::to_string(end.Status) + ": " +
               end.Errors;
      const TTreeState now = FPlace.State();
      for (std::size_t i = 1; i <= FCount; ++i) {
        const auto file = now.find(OnTarget(i));
        if (file != now.end() && file->second != New(i) && file->second != Old(i))
          return "undo leaves " + OnTarget(i) + " neither old nor new";
        // The second one may take back the very first deploy, where the cut one did nothing.
        if (file == now.end() && !Old(i).empty() && back == 1)
          return "undo takes " + OnTarget(i) + ", which was there before both deploys";
      }
    }
    return std::nullopt;
  }

  TBroken CheckNextDeploy() const {
    SetLie("none", 0, true);
    const TRunEnd again = DeployAgain(FPlace, DeployArguments(), /*mayBreakLock=*/true);
    if (again.Status != 0)
      return "the next deploy ends with " + std::to_string(again.Status) + ": " + again.Errors;
    for (std::size_t i = 1; i <= FCount; ++i) {
      if (FPlace.Read(OnTarget(i)) != New(i))
        return "the next deploy does not complete " + OnTarget(i);
    }
    for (const auto& [name, content] : FPlace.State()) {
      if (name.starts_with("target/") && IsTemporaryName(name))
        return "the next deploy does not sweep " + name;
    }
    return std::nullopt;
  }

  // All files but the first are there.
  static TBroken CheckStatus(const TLie& lie, const TRunEnd& end) {
    if (TBroken broken = CheckManners(end))
      return broken;
    std::size_t missing = 0;
    const std::string word = "\"Not Found\"";
    for (std::size_t at = end.Output.find("\"remoteStatus\": " + word); at != std::string::npos;
         at = end.Output.find("\"remoteStatus\": " + word, at + 1))
      ++missing;
    // Those that are not there: the first file, and the three of a build.
    constexpr std::size_t ReallyMissing = 4;
    if (missing > ReallyMissing && !lie.IsPlausible)
      return "status says \"Not Found\" of files that are there";
    return std::nullopt;
  }

  TFaultPlace FPlace;
  std::size_t FCount;
  TTreeState FBefore;
  std::vector<std::string> FNewHashes; // SHA-256 of the new files
};

} // namespace

std::vector<TFaultResult> RunLyingServer(const TPrograms& programs, std::size_t sample,
                                         unsigned job, unsigned jobs) {
  std::vector<TFaultResult> results;
  if (!fs::exists(RealServer))
    return results;
  TLyingPlace place(programs, LieFiles);
  struct TTry {
    TScene Scene;
    const TLie* Lie;
    std::uint64_t At;
  };
  std::vector<TTry> all;
  for (TScene scene : {TScene{false, true}, TScene{false, false}, TScene{true, true}}) {
    scene.Requests = place.RequestsOf(scene);
    for (std::uint64_t at = 2; at <= scene.Requests; ++at) { // the first one is the greeting
      for (const TLie& lie : AllLies())
        all.push_back({scene, &lie, at});
    }
  }
  const std::size_t most = std::min(all.size(), sample == 0 ? MostLies : sample);
  for (std::size_t i = job; i < most; i += jobs) {
    const TTry& chosen = all[i * all.size() / most];
    results.push_back(place.Try(chosen.Scene, *chosen.Lie, chosen.At));
  }
  return results;
}

std::vector<TFaultResult> RunCutLines(const TPrograms& programs, std::size_t sample, unsigned job,
                                      unsigned jobs) {
  std::vector<TFaultResult> results;
  if (!fs::exists(RealServer))
    return results;
  TLyingPlace place(programs, CutFiles);
  const std::uint64_t last = place.RequestsOf({});
  const std::uint64_t most = sample == 0 ? last : std::min<std::uint64_t>(last, sample);
  for (std::uint64_t i = job; i < most; i += jobs)
    results.push_back(place.Cut(1 + i * last / most));
  return results;
}

} // namespace faults
