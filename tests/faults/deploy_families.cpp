// Deploys: after any fault each final name on the target holds what it held before or the whole new
// file, and the next deploy completes the work and sweeps.
#include "tests/faults/family.h"
#include "tests/faults/sample_project.h"

#include <algorithm>
#include <functional>
#include <set>
#include <sstream>
#include <utility>

namespace faults {
namespace {

namespace fs = std::filesystem;

struct TDeploying {
  std::string Name;
  std::size_t Files = 5;
  unsigned Connections = 1;
  bool IsOverSsh = false;
  std::size_t MostCalls = 0;
  std::size_t MostAllocations = 0;
};

std::string LocalName(std::size_t number) {
  return "files/f" + std::to_string(number) + ".dat";
}

std::string TargetName(std::size_t number) {
  return "target/demo/data/f" + std::to_string(number) + ".dat";
}

// The client of the machine, which starts its programs right here.
void WriteStandInForSsh(const TFaultPlace& place) {
  place.Write("home/bin/ssh", R"(#!/bin/sh
for word; do last=$word; done
case " $* " in
  *" sftp "*) exec /usr/lib/openssh/sftp-server ;;
  *" -G "*) exit 0 ;;
esac
exec /bin/sh -c "$last"
)");
  fs::permissions(place.Path("home/bin/ssh"), fs::perms::owner_all);
}

class TDeployFamily final : public IFamily {
public:
  explicit TDeployFamily(TDeploying deploying) : FDeploying(std::move(deploying)) {}

  std::string Name() const override { return FDeploying.Name; }
  std::size_t MostCalls() const override { return FDeploying.MostCalls; }
  std::size_t MostAllocations() const override { return FDeploying.MostAllocations; }

  // A first deploy of older files, so that some are the same, some change and some are new.
  void SetUp(TFaultPlace& place) override {
    place.Write("demo.vproj", SampleProjectText(FDeploying.Files));
    place.Write("target/keep", "not ours");
    AddProfile(place);
    for (std::size_t i = 1; i <= FDeploying.Files; i += 2)
      place.Write(LocalName(i), "old " + std::to_string(i));
    for (std::size_t i = 2; i <= FDeploying.Files; i += 2)
      place.Write(LocalName(i), "same " + std::to_string(i));
    place.Prepare({"export", "demo.vproj"});
    place.Prepare(DeployArguments());
    for (std::size_t i = 1; i <= FDeploying.Files; i += 2)
      place.Write(LocalName(i), "new content " + std::to_string(i) + std::string(i * 100, 'x'));
    fs::remove(place.Path(TargetName(FDeploying.Files)));
    place.Keep();
    FBefore = place.State();
  }

  TProgramStart Run(const TFaultPlace& place) const override {
    return place.Deploymgr(DeployArguments());
  }

  void Learn(const TFaultPlace& place, const TRunEnd& /*end*/) override { FAfter = place.State(); }

  TBroken Check(const TFaultPlace& place, const TRunEnd& end) const override {
    if (TBroken broken = CheckManners(end))
      return broken;
    const TTreeState now = place.State();
    if (TBroken broken = CheckTarget(now))
      return broken;
    if (end.Status == 0 && !IsComplete(now))
      return "it says that all went well, and the target is not complete";
    if (end.Status != 0 && !end.WasEnded() && !end.HitsMessages && !NamesSomething(end))
      return "its message names nothing: " + end.Errors + end.Output;
    return CheckNext(place);
  }

private:
  std::vector<std::string> DeployArguments() const {
    return {"deploy", "demo.vproj",
            "--yes",  "--overwrite-changed",
            "--jobs", std::to_string(FDeploying.Connections)};
  }

  void AddProfile(TFaultPlace& place) const {
    const std::string target = place.Path("target").string();
    std::vector<std::string> arguments{"profile", "add", "box", "-p", "OSX32", "--path", target};
    if (FDeploying.IsOverSsh) {
      WriteStandInForSsh(place);
      place.SetVariables({"PATH=" + place.Path("home/bin").string() + ":/usr/bin:/bin"});
      arguments.insert(arguments.end(), {"--kind", "ssh", "--host", "machine"});
    } else {
      arguments.insert(arguments.end(), {"--kind", "folder"});
    }
    place.Prepare(arguments);
  }

  static bool IsOurs(const std::string& name) {
    return name.starts_with("target/") && !IsTemporaryName(name) &&
           name.find(".deployment-manager/") == std::string::npos;
  }

  bool IsComplete(const TTreeState& now) const { return Missing(now).empty(); }
  std::string Missing(const TTreeState& now) const {
    for (const auto& [name, content] : FAfter) {
      const auto file = now.find(name);
      if (IsOurs(name) && (file == now.end() || file->second != content))
        return name;
    }
    return {};
  }

  TBroken CheckTarget(const TTreeState& now) const {
    std::set<std::string> names;
    for (const TTreeState* state : {&now, &FBefore, &FAfter}) {
      for (const auto& [name, content] : *state)
        names.insert(name);
    }
    const auto contentIn = [](const TTreeState& state, const std::string& name) {
      const auto found = state.find(name);
      return found == state.end() ? std::string("(none)") : found->second;
    };
    for (const std::string& name : names) {
      const std::string content = contentIn(now, name);
      const bool isKnown =
          content == contentIn(FBefore, name) || content == contentIn(FAfter, name);
      if ((IsOurs(name) || name.starts_with("files/") || name == "demo.vproj") && !isKnown)
        return name + (content == "(none)" ? " is gone" : " is neither old nor new");
    }
    return std::nullopt;
  }

  // A person has to find what it is about.
  static bool NamesSomething(const TRunEnd& end) {
    const std::string text = end.Errors + end.Output;
    for (const char* part : {".dat", "/", "demo.vproj", "box", "\"", "lock", "connect", "machine",
                             "record", "client", "thread", "memory"}) {
      if (text.find(part) != std::string::npos)
        return true;
    }
    return false;
  }

  TBroken CheckNext(const TFaultPlace& place) const {
    const TRunEnd again = DeployAgain(place, DeployArguments(), FDeploying.IsOverSsh);
    const TTreeState now = place.State();
    if (again.Status != 0)
      return "the next deploy ends with " + std::to_string(again.Status) + ": " + again.Errors;
    if (!IsComplete(now))
      return "the next deploy does not complete " + Missing(now);
    for (const auto& [name, content] : now) {
      if (name.starts_with("target/") && IsTemporaryName(name))
        return "the next deploy does not sweep " + name;
    }
    return std::nullopt;
  }

  TDeploying FDeploying;
  TTreeState FBefore;
  TTreeState FAfter;
};

} // namespace

TFamilies DeployFamilies() {
  TFamilies families;
  const auto add = [&families](TDeploying deploying) {
    families.push_back(std::make_unique<TDeployFamily>(std::move(deploying)));
  };
  add({.Name = "deploy to a folder, 1 connection", .MostAllocations = 60});
  add({.Name = "deploy to a folder, 4 connections",
       .Files = 60,
       .Connections = 4,
       .MostCalls = 140});
  if (fs::exists("/usr/lib/openssh/sftp-server"))
    add({.Name = "deploy over ssh, the client is hit",
         .IsOverSsh = true,
         .MostCalls = 200,
         .MostAllocations = 60});
  return families;
}

} // namespace faults
