#include "bench/sample_project.h"

#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>
#include <unistd.h>

namespace bench {
namespace {

// Removed with everything in it when the program ends.
class TTemporaryDirectory {
public:
  TTemporaryDirectory()
      : FPath(std::filesystem::temp_directory_path() /
              ("deployment-bench-" + std::to_string(::getpid()))) {
    std::filesystem::create_directories(FPath);
  }
  ~TTemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(FPath, ignored);
  }
  TTemporaryDirectory(const TTemporaryDirectory&) = delete;
  TTemporaryDirectory& operator=(const TTemporaryDirectory&) = delete;

  const std::filesystem::path& Path() const { return FPath; }

private:
  std::filesystem::path FPath;
};

std::string Chapter(std::size_t entry) {
  char text[16];
  std::snprintf(text, sizeof(text), "chapter%03zu", entry % 97);
  return text;
}

std::string Level(std::size_t entry) {
  char text[32];
  std::snprintf(text, sizeof(text), "level%06zu.dat", entry);
  return text;
}

void WriteEntry(std::ostream& out, std::size_t entry) {
  out << "      <DeployFile LocalName=\"" << EntryName(entry)
      << "\" Configuration=\"Debug\" Class=\"File\">\n"
      << "        <Platform Name=\"Win32\">\n"
      << "          <RemoteDir>levels\\" << Chapter(entry) << "\\</RemoteDir>\n"
      << "          <RemoteName>" << Level(entry) << "</RemoteName>\n"
      << "          <Overwrite>true</Overwrite>\n"
      << "        </Platform>\n"
      << "        <Platform Name=\"Android\">\n"
      << "          <RemoteDir>assets\\internal\\levels\\" << Chapter(entry) << "\\</RemoteDir>\n"
      << "          <Enabled>false</Enabled>\n"
      << "          <Overwrite>true</Overwrite>\n"
      << "        </Platform>\n"
      << "      </DeployFile>\n";
}

constexpr const char* Head = R"XML(<?xml version="1.0" encoding="utf-8"?>
<Project DefaultTargets="Build" xmlns="http://schemas.microsoft.com/developer/msbuild/2003">
  <PropertyGroup>
    <ProjectPersonality>Ardent.Personality</ProjectPersonality>
    <AppType>Application</AppType>
    <Config Condition="'$(Config)'==''">Debug</Config>
    <Platform Condition="'$(Platform)'==''">Win32</Platform>
    <OutputDir>$(Platform)\$(Config)</OutputDir>
  </PropertyGroup>
  <ItemGroup>
    <BuildConfiguration Include="Base"/>
    <BuildConfiguration Include="Debug"><Parent>Base</Parent></BuildConfiguration>
    <TargetPlatform Include="Win32"/>
    <TargetPlatform Include="Android"/>
  </ItemGroup>
  <ProjectExtensions>
    <Deployment Version="2">
)XML";

constexpr const char* Tail = R"XML(    </Deployment>
  </ProjectExtensions>
  <Import Project="$(MSBuildProjectName).deployproj" Condition="Exists('$(MSBuildProjectName).deployproj')"/>
</Project>
)XML";

} // namespace

std::string EntryName(std::size_t entry) {
  return "data\\levels\\" + Chapter(entry) + "\\" + Level(entry);
}

std::filesystem::path SampleProjectWithPackages(std::size_t entries, std::size_t packages) {
  const std::filesystem::path& plain = SampleProject(entries);
  const std::filesystem::path project = std::filesystem::path(plain).replace_filename(
      "packages" + std::to_string(packages) + ".vproj");
  const std::filesystem::path directory = plain.parent_path() / "packages";
  std::filesystem::create_directories(directory);
  std::string list;
  for (std::size_t package = 0; package < packages; ++package) {
    const std::string name = "package" + std::to_string(package);
    std::ofstream(directory / (name + ".vpk")) << "MZ";
    std::ofstream(directory / (name + ".de")) << "MZ";
    list.append("packages\\").append(name).append(".vpk;");
  }
  std::ostringstream text;
  text << std::ifstream(plain).rdbuf();
  std::string content = std::move(text).str();
  const std::size_t at = content.find("    <Config Condition");
  content.insert(at, "    <RuntimePackages>" + list + "</RuntimePackages>\n");
  std::ofstream(project) << content;
  return project;
}

std::filesystem::path SampleProjectWithFiles(std::size_t files) {
  const std::filesystem::path project =
      std::filesystem::path(SampleProject(0))
          .replace_filename("files" + std::to_string(files) + ".vproj");
  if (std::filesystem::exists(project))
    return project;
  std::string items;
  for (std::size_t file = 0; file < files; ++file)
    items.append("    <ProjectFile Include=\"")
        .append(EntryName(file))
        .append({'.', "abcd"[file % 4]})
        .append("\"/>\n");
  std::string head = Head;
  head.insert(head.find("  </ItemGroup>"), items);
  std::ofstream(project, std::ios::binary) << head << Tail;
  return project;
}

const std::filesystem::path& SampleProject(std::size_t entries) {
  static const TTemporaryDirectory directory;
  static std::map<std::size_t, std::filesystem::path> projects;
  std::filesystem::path& project = projects[entries];
  if (project.empty()) {
    project = directory.Path() / ("sample" + std::to_string(entries) + ".vproj");
    std::ofstream out(project, std::ios::binary);
    out << Head;
    for (std::size_t entry = 0; entry < entries; ++entry)
      WriteEntry(out, entry);
    out << Tail;
  }
  return project;
}

} // namespace bench
