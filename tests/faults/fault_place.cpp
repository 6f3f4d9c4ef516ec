#include "tests/faults/fault_place.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <unistd.h>

namespace faults {

namespace fs = std::filesystem;

TFaultPlace::TFaultPlace(TPrograms programs) : FPrograms(std::move(programs)) {
  const bool hasMemory = ::access("/dev/shm", W_OK) == 0;
  std::string name = hasMemory ? "/dev/shm/faults-XXXXXX" : "/tmp/faults-XXXXXX";
  if (!::mkdtemp(name.data()))
    throw std::runtime_error("no directory to work in");
  FDirectory = name;
  FWork = FDirectory / "work";
  FKept = FDirectory / "kept";
  fs::create_directories(FWork);
}

TFaultPlace::~TFaultPlace() {
  std::error_code ignored;
  fs::remove_all(FDirectory, ignored);
}

void TFaultPlace::Write(std::string_view name, std::string_view text) const {
  fs::create_directories(Path(name).parent_path());
  std::ofstream(Path(name), std::ios::binary) << text;
}

std::string TFaultPlace::Read(std::string_view name) const {
  std::ostringstream text;
  text << std::ifstream(Path(name), std::ios::binary).rdbuf();
  return text.str();
}

TProgramStart TFaultPlace::Start(std::vector<std::string> command) const {
  const std::string home = Path("home").string();
  TProgramStart start{std::move(command),
                      {"HOME=" + home, "XDG_CONFIG_HOME=" + home + "/.config",
                       "XDG_STATE_HOME=" + home + "/.local/state", "LANG=C.UTF-8",
                       "XDG_RUNTIME_DIR=" + home + "/run", "TZ=UTC"},
                      FWork};
  bool hasPath = false;
  for (const std::string& variable : FVariables) {
    hasPath = hasPath || variable.starts_with("PATH=");
    start.Environment.push_back(variable);
  }
  if (!hasPath)
    start.Environment.emplace_back("PATH=/usr/local/bin:/usr/bin:/bin");
  return start;
}

TProgramStart TFaultPlace::Deploymgr(std::vector<std::string> arguments) const {
  arguments.insert(arguments.begin(),
                   {FPrograms.Deploymgr.string(), "--root", FPrograms.Root.string()});
  return Start(std::move(arguments));
}

TProgramStart TFaultPlace::Probe(std::vector<std::string> arguments) const {
  arguments.insert(arguments.begin(), FPrograms.Probe.string());
  return Start(std::move(arguments));
}

void TFaultPlace::Prepare(std::vector<std::string> arguments, int expectedStatus) const {
  const TRunEnd end = RunPlainly(Deploymgr(arguments));
  if (end.Status != expectedStatus)
    throw std::runtime_error("\"" + arguments.front() + "\", which prepares the place, ends with " +
                             std::to_string(end.Status) + ": " + end.Errors);
}

void TFaultPlace::Keep() const {
  Restore(FWork, FKept);
}

} // namespace faults
