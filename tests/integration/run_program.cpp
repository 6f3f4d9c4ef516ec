#include "tests/integration/run_program.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace integration {
namespace {

constexpr uid_t Nobody = 65534;

struct TPipe {
  TPipe() {
    if (::pipe2(Ends.data(), O_CLOEXEC) != 0)
      throw std::runtime_error("no pipe");
  }
  std::array<int, 2> Ends{};
};

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts)
    pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

void ReadBoth(int output, int errors, TRun& run) {
  std::array<pollfd, 2> files{{{output, POLLIN, 0}, {errors, POLLIN, 0}}};
  std::array<std::string*, 2> texts{&run.Output, &run.Errors};
  std::array<char, 65536> buffer{};
  while (files[0].fd >= 0 || files[1].fd >= 0) {
    ::poll(files.data(), files.size(), -1);
    for (std::size_t i = 0; i < files.size(); ++i) {
      if (files[i].fd < 0 || files[i].revents == 0)
        continue;
      const ssize_t count = ::read(files[i].fd, buffer.data(), buffer.size());
      if (count > 0)
        texts[i]->append(buffer.data(), static_cast<std::size_t>(count));
      else
        files[i].fd = -1;
    }
  }
}

} // namespace

TWorkplace::TWorkplace() {
  std::string name = (std::filesystem::temp_directory_path() / "deploymgr-XXXXXX").string();
  if (!::mkdtemp(name.data()))
    throw std::runtime_error("no temporary directory");
  FDirectory = name;
}

TWorkplace::~TWorkplace() {
  std::error_code ignored;
  std::filesystem::permissions(FDirectory, std::filesystem::perms::owner_all, ignored);
  std::filesystem::remove_all(FDirectory, ignored);
}

std::filesystem::path TWorkplace::Write(std::string_view name, std::string_view content) const {
  std::filesystem::create_directories(Path(name).parent_path());
  std::ofstream(Path(name), std::ios::binary) << content;
  return Path(name);
}

std::string TWorkplace::Read(std::string_view name) const {
  std::ostringstream text;
  text << std::ifstream(Path(name), std::ios::binary).rdbuf();
  return text.str();
}

std::filesystem::path TWorkplace::CopyOf(const std::filesystem::path& file) const {
  const auto copy = Path(file.filename().string());
  std::filesystem::copy(file, copy, std::filesystem::copy_options::recursive);
  return copy;
}

std::vector<std::string> TWorkplace::Files() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(FDirectory)) {
    const std::string name = entry.path().lexically_relative(FDirectory).string();
    if (!entry.is_directory() && !name.starts_with("home"))
      names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

bool TWorkplace::BecomeOrdinary() {
  if (::getuid() != 0)
    return true;
  std::filesystem::create_directories(Path("home"));
  FOrdinary = ::chown(FDirectory.c_str(), Nobody, Nobody) == 0 &&
              ::chown(Path("home").c_str(), Nobody, Nobody) == 0;
  return FOrdinary;
}

TRun TWorkplace::Run(std::vector<std::string> arguments) const {
  arguments.insert(arguments.begin(), DEPLOYMGR_PROGRAM);
  return RunProgram(std::move(arguments));
}

TRun TWorkplace::RunProgram(std::vector<std::string> command) const {
  std::vector<std::string> environment{"HOME=" + Path("home").string(),
                                       "PATH=/usr/local/bin:/usr/bin:/bin",
                                       std::string("ZELK=") + SOURCE_TREE, "LANG=C.UTF-8"};
  environment.insert(environment.end(), FVariables.begin(), FVariables.end());
  const std::vector<char*> argv = Pointers(command);
  const std::vector<char*> envp = Pointers(environment);
  TPipe output;
  TPipe errors;
  const pid_t child = ::fork();
  if (child < 0)
    throw std::runtime_error("no process");
  if (child == 0) {
    ::dup2(::open("/dev/null", O_RDONLY), STDIN_FILENO);
    ::dup2(output.Ends[1], STDOUT_FILENO);
    ::dup2(errors.Ends[1], STDERR_FILENO);
    if (::chdir(FDirectory.c_str()) != 0 ||
        (FOrdinary && (::setgid(Nobody) != 0 || ::setuid(Nobody) != 0)))
      ::_exit(126);
    ::execvpe(argv[0], argv.data(), envp.data());
    ::_exit(127);
  }
  ::close(output.Ends[1]);
  ::close(errors.Ends[1]);
  TRun run;
  ReadBoth(output.Ends[0], errors.Ends[0], run);
  ::close(output.Ends[0]);
  ::close(errors.Ends[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  run.Status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return run;
}

std::string ProjectWith(std::string_view section) {
  return R"XML(<?xml version="1.0" encoding="utf-8"?>
<Project DefaultTargets="Build" xmlns="http://schemas.microsoft.com/developer/msbuild/2003">
  <PropertyGroup>
    <ProjectPersonality>Ardent.Personality</ProjectPersonality>
    <AppType>Application</AppType>
    <Config Condition="'$(Config)'==''">Debug</Config>
    <Platform Condition="'$(Platform)'==''">Win32</Platform>
  </PropertyGroup>
  <ItemGroup>
    <BuildConfiguration Include="Base"/>
    <BuildConfiguration Include="Debug"><Parent>Base</Parent></BuildConfiguration>
    <BuildConfiguration Include="Release"><Parent>Base</Parent></BuildConfiguration>
    <TargetPlatform Include="Win32"/>
    <TargetPlatform Include="Android"/>
  </ItemGroup>
  <ProjectExtensions>
)XML" + std::string(section) +
         R"XML(
  </ProjectExtensions>
  <Target Name="Build"/>
  <Import Project="$(MSBuildProjectName).deployproj" Condition="Exists('$(MSBuildProjectName).deployproj')"/>
</Project>
)XML";
}

std::string WithoutSection(std::string_view project) {
  std::string text(project);
  const std::size_t start = text.find("<Deployment");
  if (start != std::string::npos) {
    const std::size_t close = text.find("</Deployment>", start);
    const std::size_t end = close == std::string::npos ? text.find("/>", start) + 2 : close + 13;
    text.erase(start, end - start);
  }
  return text;
}

} // namespace integration
