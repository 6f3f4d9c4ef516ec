#include "tests/faults/power_cut.h"

#include "tests/faults/family.h"
#include "tests/faults/sample_project.h"

#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <thread>
#include <unistd.h>

namespace faults {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t BigFile = 300'000;

bool Succeeds(const std::string& command) {
  return std::system((command + " >/dev/null 2>&1").c_str()) == 0; // NOLINT: the words are ours
}

void Must(const std::string& command) {
  if (!Succeeds(command))
    throw std::runtime_error("\"" + command + "\" fails");
}

// An ext4 file system in an image, mounted as long as the object lives.
class TMountedImage {
public:
  TMountedImage(fs::path image, fs::path directory, const std::string& options)
      : FDirectory(std::move(directory)) {
    fs::create_directories(FDirectory);
    Must("mount -o loop" + options + " " + image.string() + " " + FDirectory.string());
  }
  ~TMountedImage() { Succeeds("umount -l " + FDirectory.string()); }
  TMountedImage(const TMountedImage&) = delete;
  TMountedImage& operator=(const TMountedImage&) = delete;

private:
  fs::path FDirectory;
};

struct TCut {
  const char* Options; ///< of the mount
  std::chrono::milliseconds Delay;
  bool IsDeploy;
};

// The place is on the machine, what is written to is on the image.
class TPowerCut {
public:
  TPowerCut(const TPrograms& programs, const TCut& cut) : FPlace(programs), FCut(cut) {}

  TFaultResult Run() {
    const fs::path image = FPlace.Path("image");
    const fs::path copy = FPlace.Path("copy");
    Must("truncate -s 24M " + image.string());
    Must("mkfs.ext4 -q -F " + image.string());
    TTreeState expected;
    {
      const TMountedImage disk(image, FPlace.Path("disk"), FCut.Options);
      Prepare();
      Must("sync -f " + FPlace.Path("disk").string());
      const TRunEnd end = RunPlainly(FPlace.Deploymgr(Arguments()));
      if (end.Status != 0)
        throw std::runtime_error("a run on an image fails: " + end.Errors);
      std::this_thread::sleep_for(FCut.Delay);
      Must("cp --sparse=always " + image.string() + " " + copy.string());
      expected = StateOf(FPlace.Path("disk"));
    }
    const TMountedImage disk(copy, FPlace.Path("disk"), "");
    return Result(expected, StateOf(FPlace.Path("disk")));
  }

private:
  std::vector<std::string> Arguments() const {
    if (FCut.IsDeploy)
      return {"deploy", "demo.vproj", "--yes", "--overwrite-changed"};
    return {
        "set",  FPlace.Path("disk/demo.vproj").string(), "files\\f1.dat", "-c", "Base", "--enabled",
        "false"};
  }

  void Prepare() {
    if (!FCut.IsDeploy) {
      FPlace.Write("disk/demo.vproj", SampleProjectText(5));
      FPlace.Prepare({"export", FPlace.Path("disk/demo.vproj").string()});
      return;
    }
    FPlace.Write("disk/target/keep", "not ours");
    FPlace.Write("demo.vproj", SampleProjectText(5));
    for (int i = 1; i <= 5; ++i)
      FPlace.Write("files/f" + std::to_string(i) + ".dat", "old");
    FPlace.Prepare({"profile", "add", "box", "-p", "OSX32", "--kind", "folder", "--path",
                    FPlace.Path("disk/target").string()});
    FPlace.Prepare({"export", "demo.vproj"});
    FPlace.Prepare(Arguments());
    for (int i = 1; i <= 5; ++i)
      FPlace.Write("files/f" + std::to_string(i) + ".dat",
                   "new" + std::string(static_cast<std::size_t>(i - 1) * BigFile, 'n'));
  }

  TFaultResult Result(const TTreeState& expected, const TTreeState& found) const {
    TFaultResult result;
    result.IsFired = true;
    result.Fault = std::string(FCut.IsDeploy ? "deploy" : "save") + " on \"" + FCut.Options +
                   "\", cut after " + std::to_string(FCut.Delay.count()) + " ms";
    for (const auto& [name, content] : expected) {
      const auto file = found.find(name);
      if (file == found.end())
        result.Broken = name + " is not there after the cut";
      else if (file->second != content)
        result.Broken = name + " has " + std::to_string(file->second.size()) + " of " +
                        std::to_string(content.size()) + " bytes after the cut";
    }
    return result;
  }

  TFaultPlace FPlace;
  const TCut& FCut;
};

} // namespace

std::string WhyNoPowerCut() {
  if (::geteuid() != 0)
    return "only root mounts images";
  if (!Succeeds("command -v mkfs.ext4"))
    return "mkfs.ext4 is not installed";
  const std::string probe = "/tmp/fault-mount-" + std::to_string(::getpid());
  const bool mounts =
      Succeeds("mkdir " + probe + " && truncate -s 4M " + probe + "/image && mkfs.ext4 -q -F " +
               probe + "/image && mkdir " + probe + "/disk && mount -o loop " + probe + "/image " +
               probe + "/disk && umount " + probe + "/disk");
  Succeeds("rm -rf " + probe);
  return mounts ? std::string() : "images cannot be mounted here";
}

std::vector<TFaultResult> RunPowerCuts(const TPrograms& programs, bool isQuick) {
  std::vector<TFaultResult> results;
  for (const char* options : {",data=ordered", ",data=writeback", ",noauto_da_alloc"}) {
    for (const int delay : {0, 1500, 7000}) {
      if (isQuick && delay > 0)
        continue;
      for (const bool isDeploy : {false, true}) {
        const TCut cut{options, std::chrono::milliseconds(delay), isDeploy};
        results.push_back(TPowerCut(programs, cut).Run());
      }
    }
  }
  return results;
}

} // namespace faults
