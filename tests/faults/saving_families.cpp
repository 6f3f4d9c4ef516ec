// Files that are replaced as a whole: after any fault each of them is what it was or what it was to
// be, and the same command done again brings it there.
#include "tests/faults/family.h"
#include "tests/faults/sample_project.h"

#include <algorithm>
#include <cerrno>
#include <functional>
#include <set>
#include <utility>

namespace faults {
namespace {

using TArguments = std::vector<std::string>;

struct TSaving {
  std::string Name;
  std::function<void(TFaultPlace&)> SetUp;
  std::function<TProgramStart(const TFaultPlace&)> Run;
  bool IsRepeatable = true; ///< a second run succeeds although the first one did
  std::vector<int> Errors = {EIO, ENOSPC, EACCES, EINTR};
  std::size_t MostAllocations = 0;
};

// Backups are named by the clock, so that two runs never make the same.
bool IsBackup(const std::string& path) {
  return path.find("/backups/") != std::string::npos;
}

class TSavingFamily final : public IFamily {
public:
  explicit TSavingFamily(TSaving saving) : FSaving(std::move(saving)) {}

  std::string Name() const override { return FSaving.Name; }
  std::vector<int> Errors() const override { return FSaving.Errors; }
  std::size_t MostAllocations() const override { return FSaving.MostAllocations; }
  TProgramStart Run(const TFaultPlace& place) const override { return FSaving.Run(place); }

  void SetUp(TFaultPlace& place) override {
    FSaving.SetUp(place);
    place.Keep();
    FBefore = place.State();
  }
  void Learn(const TFaultPlace& place, const TRunEnd& /*end*/) override { FAfter = place.State(); }

  TBroken Check(const TFaultPlace& place, const TRunEnd& end) const override {
    TTreeState now = place.State();
    if (TBroken broken = CheckManners(end))
      return broken;
    if (TBroken broken = CheckFiles(now, end))
      return broken;
    if (end.Status == 0 && !IsDone(now))
      return "it says that all went well, and the files are not what they were to be";
    if (!FSaving.IsRepeatable && IsDone(now))
      return std::nullopt;
    const TRunEnd again = RunPlainly(FSaving.Run(place));
    now = place.State();
    if (again.Status != 0)
      return "the next run ends with " + std::to_string(again.Status) + ": " + again.Errors;
    if (!IsDone(now))
      return "the next run does not complete it: " + FirstDifference(now);
    return std::nullopt;
  }

private:
  static const std::string* FileOf(const TTreeState& state, const std::string& name) {
    const auto found = state.find(name);
    return found == state.end() ? nullptr : &found->second;
  }
  static bool IsSame(const std::string* left, const std::string* right) {
    return left == right || (left && right && *left == *right);
  }

  // Every file that a complete run leaves stands as it leaves it.
  bool IsDone(const TTreeState& now) const { return FirstDifference(now).empty(); }
  std::string FirstDifference(const TTreeState& now) const {
    for (const auto& [name, content] : FAfter) {
      const std::string* file = FileOf(now, name);
      if (!IsBackup(name) && (!file || *file != content))
        return name;
    }
    return {};
  }

  TBroken CheckFiles(const TTreeState& now, const TRunEnd& end) const {
    std::size_t temporaries = 0;
    std::set<std::string> names;
    for (const TTreeState* state : {&now, &FBefore, &FAfter}) {
      for (const auto& [name, content] : *state)
        names.insert(name);
    }
    for (const std::string& name : names) {
      const std::string* file = FileOf(now, name);
      if (IsTemporaryName(name)) {
        temporaries += file ? 1 : 0;
        continue;
      }
      if (IsBackup(name)) {
        if (file && !IsKnown(*file))
          return "the backup " + name + " is not whole";
        continue;
      }
      if (!IsSame(file, FileOf(FBefore, name)) && !IsSame(file, FileOf(FAfter, name)))
        return name + (file ? " is neither old nor new" : " is gone");
    }
    // A fault in removing one leaves it; otherwise only a killed run does.
    const bool mayLeave = end.WasEnded() || end.Where.starts_with("unlink");
    if (temporaries > (mayLeave ? 1U : 0U))
      return std::to_string(temporaries) + " temporary files stay";
    return std::nullopt;
  }

  bool IsKnown(const std::string& content) const {
    return std::any_of(FBefore.begin(), FBefore.end(),
                       [&](const auto& file) { return file.second == content; });
  }

  TSaving FSaving;
  TTreeState FBefore;
  TTreeState FAfter;
};

TSaving Deploymgr(std::string name, std::function<void(TFaultPlace&)> setUp, TArguments arguments) {
  return {.Name = std::move(name),
          .SetUp = std::move(setUp),
          .Run = [arguments = std::move(arguments)](const TFaultPlace& place) {
            return place.Deploymgr(arguments);
          }};
}

TSaving Save() {
  TSaving saving =
      Deploymgr("save of a project", WriteSampleProject,
                {"set", "demo.vproj", "files\\f1.dat", "-c", "Base", "--enabled", "false"});
  saving.Errors = {EIO, ENOSPC, EACCES, EINTR, EDQUOT, EROFS, EMFILE, ENOMEM};
  saving.MostAllocations = 100;
  return saving;
}

TSaving SaveThroughLink() {
  return Deploymgr("the same behind a symbolic link",
                   [](TFaultPlace& place) {
                     WriteSampleProject(place);
                     std::filesystem::create_directory(place.Path("there"));
                     std::filesystem::rename(place.Path("demo.vproj"),
                                             place.Path("there/real.vproj"));
                     std::filesystem::create_symlink("there/real.vproj", place.Path("demo.vproj"));
                   },
                   {"set", "demo.vproj", "files\\f1.dat", "-c", "Base", "--enabled", "false"});
}

TSaving New() {
  TSaving saving =
      Deploymgr("new project", [](TFaultPlace&) {}, {"new", "fresh.vproj", "--platforms", "OSX32"});
  saving.IsRepeatable = false;
  return saving;
}

TSaving Export() {
  return Deploymgr("export",
                   [](TFaultPlace& place) {
                     WriteSampleProject(place);
                     place.Write("demo.deployproj", "<Project/>\n");
                   },
                   {"export", "demo.vproj"});
}

TSaving SettingsChange() {
  TSaving saving = Deploymgr("settings: change",
                             [](TFaultPlace& place) {
                               place.Prepare({"settings", "set", "library-path.Win32", "/old"});
                             },
                             {"settings", "set", "library-path.Win32", "/new"});
  saving.MostAllocations = 60;
  return saving;
}

TSaving SettingsFirst() {
  return Deploymgr("settings: first", [](TFaultPlace&) {},
                   {"settings", "set", "library-path.Win32", "/new"});
}

TSaving ProfileChange() {
  TSaving saving = Deploymgr("profiles: change",
                             [](TFaultPlace& place) {
                               place.Write("target/keep", "");
                               place.Prepare({"profile", "add", "old", "--kind", "folder", "-p",
                                              "OSX32", "--path", place.Path("target").string()});
                             },
                             {"profile", "add", "new", "--kind", "folder", "-p", "OSX32", "--path",
                              "target", "--default"});
  saving.IsRepeatable = false;
  return saving;
}

TSaving ProfileFirst() {
  TSaving saving =
      Deploymgr("profiles: first", [](TFaultPlace& place) { place.Write("target/keep", ""); },
                {"profile", "add", "new", "--kind", "folder", "-p", "OSX32", "--path", "target"});
  saving.IsRepeatable = false;
  return saving;
}

TSaving Consent() {
  return {.Name = "consent to commands",
          .SetUp =
              [](TFaultPlace& place) {
                place.Prepare({"settings", "set", "library-path.Win32", "/old"});
              },
          .Run =
              [](const TFaultPlace& place) {
                return place.Probe({"consent", place.Path("demo.vproj").string()});
              }};
}

} // namespace

TFamilies SavingFamilies() {
  TFamilies families;
  for (TSaving (*make)() : {Save, SaveThroughLink, New, Export, SettingsChange, SettingsFirst,
                            ProfileChange, ProfileFirst, Consent})
    families.push_back(std::make_unique<TSavingFamily>(make()));
  return families;
}

} // namespace faults
