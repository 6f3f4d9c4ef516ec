#include "tests/integration/temporary_project.h"

#include <algorithm>
#include <cstdlib>
#include <unistd.h>

namespace integration {

TWorkplace::TWorkplace() {
  const std::string home = Path("home").string();
  FVariables = {"HOME=" + home, "XDG_CONFIG_HOME=" + home + "/.config",
                "XDG_STATE_HOME=" + home + "/.local/state", "PATH=/usr/local/bin:/usr/bin:/bin",
                "LANG=C.UTF-8"};
}

std::filesystem::path TWorkplace::Write(std::string_view name, std::string_view content) const {
  workbench::testing::WriteText(Path(name), content);
  return Path(name);
}

std::string TWorkplace::Read(std::string_view name) const {
  return workbench::testing::ReadText(Path(name));
}

std::filesystem::path TWorkplace::CopyOf(const std::filesystem::path& file) const {
  const auto copy = Path(file.filename().string());
  std::filesystem::copy(file, copy, std::filesystem::copy_options::recursive);
  return copy;
}

void TWorkplace::CopyRoot() const {
  std::filesystem::create_directories(Path("root"));
  std::filesystem::copy(Tree / "ObjRepos", Path("root/ObjRepos"),
                        std::filesystem::copy_options::recursive);
}

std::vector<std::string> TWorkplace::Files() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(FDirectory)) {
    const std::string name = entry.path().lexically_relative(FDirectory).string();
    if (!entry.is_directory() && !name.starts_with("home/"))
      names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

nlohmann::ordered_json TWorkplace::FilesOf(std::string_view project) const {
  return Run({"show", std::string(project), "--json"}).Json()["files"];
}

TStart TWorkplace::Start(std::vector<std::string> arguments) const {
  arguments.insert(arguments.begin(), DEPLOYMGR_PROGRAM);
  TStart start;
  start.Command = std::move(arguments);
  start.Environment = FVariables;
  start.Directory = FDirectory;
  start.AsNobody = FOrdinary;
  return start;
}

TRun TWorkplace::Run(std::vector<std::string> arguments) const {
  return integration::RunProgram(Start(std::move(arguments)));
}

TRun TWorkplace::RunAtTerminal(std::vector<std::string> arguments,
                               std::function<std::string(const TQuestion&)> answer) const {
  TStart start = Start(std::move(arguments));
  start.Answer = std::move(answer);
  return integration::RunProgram(std::move(start));
}

TRun TWorkplace::RunProgram(std::vector<std::string> command) const {
  TStart start = Start({});
  start.Command = std::move(command);
  return integration::RunProgram(std::move(start));
}

void TWorkplace::SetVariable(std::string assignment) {
  const std::string name = assignment.substr(0, assignment.find('=') + 1);
  std::erase_if(FVariables, [&](const std::string& other) { return other.starts_with(name); });
  FVariables.push_back(std::move(assignment));
}

bool TWorkplace::BecomeOrdinary() {
  if (::getuid() != 0)
    return true;
  std::filesystem::create_directories(Path("home"));
  bool done = ::chown(FDirectory.c_str(), Nobody, Nobody) == 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(FDirectory))
    done = done && ::lchown(entry.path().c_str(), Nobody, Nobody) == 0;
  FOrdinary = done;
  // The program itself may stand where an ordinary user may not look.
  return done && Run({"--version"}).Status == 0;
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

std::string ListOf(std::string_view entries) {
  return "<Deployment Version=\"2\">\n" + std::string(entries) + "</Deployment>";
}

std::string Entry(std::string_view name, std::string_view configuration,
                  std::string_view platform) {
  return "<DeployFile LocalName=\"" + std::string(name) + "\" Configuration=\"" +
         std::string(configuration) + "\" Class=\"File\"><Platform Name=\"" +
         std::string(platform) + "\"><Overwrite>true</Overwrite></Platform></DeployFile>\n";
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

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos;
       at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

std::size_t CountOf(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string_view::npos;
       at = text.find(part, at + part.size()))
    ++count;
  return count;
}

} // namespace integration
