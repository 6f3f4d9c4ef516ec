#include "workbench/project/cpp/cpp_build_system.h"

#include "package/common/case_fold.h"
#include "workbench/xml/xml_reader.h"

#include <array>

namespace workbench {
namespace {

class TTextDocument final : public deployment::IXMLDocument {
public:
  TTextDocument(std::string_view text, std::string name) : FReader(text, std::move(name)) {}
  deployment::IXMLNode& DocumentElement() override { return FReader.Root(); }

private:
  TXmlReader FReader;
};

struct TStandIn {
  std::string_view Name;
  std::string_view Text;
};

// "_Program...", "_Library..." are how the target platform names its outputs. A configuration type
// that is set behind the second file still gets its extension in the third.
constexpr std::array<TStandIn, 3> StandIns{{
    {"Microsoft.Cpp.Default.props", R"XML(<Project>
  <PropertyGroup Condition="'$(ImportDirectoryBuildProps)'!='false' And '$(DirectoryBuildPropsPath)'==''">
    <DirectoryBuildPropsPath>$([MSBuild]::GetPathOfFileAbove('Directory.Build.props', '$(MSBuildProjectDirectory)'))</DirectoryBuildPropsPath>
  </PropertyGroup>
  <Import Project="$(DirectoryBuildPropsPath)" Condition="'$(ImportDirectoryBuildProps)'!='false' And Exists('$(DirectoryBuildPropsPath)')"/>
  <PropertyGroup>
    <ConfigurationType Condition="'$(ConfigurationType)'==''">Application</ConfigurationType>
    <ProjectName Condition="'$(ProjectName)'==''">$(MSBuildProjectName)</ProjectName>
    <SolutionDir Condition="'$(SolutionDir)'==''">$(ProjectDir)</SolutionDir>
    <PlatformToolset Condition="'$(PlatformToolset)'==''">$(DefaultPlatformToolset)</PlatformToolset>
  </PropertyGroup>
</Project>)XML"},
    {"Microsoft.Cpp.props", R"XML(<Project>
  <PropertyGroup>
    <ProjectName Condition="'$(ProjectName)'==''">$(MSBuildProjectName)</ProjectName>
    <SolutionDir Condition="'$(SolutionDir)'==''">$(ProjectDir)</SolutionDir>
    <OutDir Condition="'$(OutDir)'=='' And '$(Platform)'=='Win32'">$(SolutionDir)$(Configuration)\</OutDir>
    <OutDir Condition="'$(OutDir)'==''">$(SolutionDir)$(Platform)\$(Configuration)\</OutDir>
    <IntDir Condition="'$(IntDir)'=='' And '$(Platform)'=='Win32'">$(Configuration)\</IntDir>
    <IntDir Condition="'$(IntDir)'==''">$(Platform)\$(Configuration)\</IntDir>
    <TargetName Condition="'$(TargetName)'=='' And '$(ConfigurationType)'=='DynamicLibrary'">$(_LibraryPrefix)$(ProjectName)</TargetName>
    <TargetName Condition="'$(TargetName)'==''">$(_ProgramPrefix)$(ProjectName)</TargetName>
    <TargetExt Condition="'$(TargetExt)'=='' And '$(ConfigurationType)'=='Application'">$(_ProgramExtension)</TargetExt>
    <TargetExt Condition="'$(TargetExt)'=='' And '$(ConfigurationType)'=='DynamicLibrary'">$(_LibraryExtension)</TargetExt>
    <TargetExt Condition="'$(TargetExt)'=='' And '$(ConfigurationType)'=='StaticLibrary'">.lib</TargetExt>
  </PropertyGroup>
  <ItemDefinitionGroup>
    <Link><OutputFile>$(OutDir)$(TargetName)$(TargetExt)</OutputFile></Link>
    <Lib><OutputFile>$(OutDir)$(TargetName)$(TargetExt)</OutputFile></Lib>
  </ItemDefinitionGroup>
</Project>)XML"},
    {"Microsoft.Cpp.targets", R"XML(<Project>
  <PropertyGroup>
    <TargetExt Condition="'$(TargetExt)'=='' And '$(ConfigurationType)'=='Application'">$(_ProgramExtension)</TargetExt>
    <TargetExt Condition="'$(TargetExt)'=='' And '$(ConfigurationType)'=='DynamicLibrary'">$(_LibraryExtension)</TargetExt>
    <TargetExt Condition="'$(TargetExt)'=='' And '$(ConfigurationType)'=='StaticLibrary'">.lib</TargetExt>
    <OutDir Condition="'$(OutDir)'!='' And !HasTrailingSlash('$(OutDir)')">$(OutDir)\</OutDir>
    <TargetFileName Condition="'$(TargetFileName)'==''">$(TargetName)$(TargetExt)</TargetFileName>
    <TargetDir Condition="'$(TargetDir)'=='' And '$(OutDir)'!=''">$([MSBuild]::NormalizeDirectory('$(OutDir)'))</TargetDir>
    <TargetPath Condition="'$(TargetPath)'==''">$(TargetDir)$(TargetFileName)</TargetPath>
  </PropertyGroup>
  <PropertyGroup Condition="'$(ImportDirectoryBuildTargets)'!='false' And '$(DirectoryBuildTargetsPath)'==''">
    <DirectoryBuildTargetsPath>$([MSBuild]::GetPathOfFileAbove('Directory.Build.targets', '$(MSBuildProjectDirectory)'))</DirectoryBuildTargetsPath>
  </PropertyGroup>
  <Import Project="$(DirectoryBuildTargetsPath)" Condition="'$(ImportDirectoryBuildTargets)'!='false' And Exists('$(DirectoryBuildTargetsPath)')"/>
</Project>)XML"},
}};

} // namespace

std::shared_ptr<deployment::IXMLDocument> TCppBuildSystem::StandIn(std::string_view fileName) {
  for (const TStandIn& standIn : StandIns) {
    if (!deployment::SameText(standIn.Name, fileName))
      continue;
    std::shared_ptr<deployment::IXMLDocument>& document = FDocuments[std::string(standIn.Name)];
    if (!document)
      document =
          std::make_shared<TTextDocument>(standIn.Text, "built-in " + std::string(standIn.Name));
    return document;
  }
  return nullptr;
}

std::vector<std::string_view> TCppBuildSystem::Names() const {
  std::vector<std::string_view> names;
  names.reserve(StandIns.size());
  for (const TStandIn& standIn : StandIns)
    names.push_back(standIn.Name);
  return names;
}

std::vector<std::string_view> TCppBuildSystem::UnknownProperties() const {
  return {"AppData",
          "CommonProgramFiles",
          "DefaultPlatformToolset",
          "DevEnvDir",
          "FrameworkDir",
          "FrameworkSdkDir",
          "LocalAppData",
          "MSBuildBinPath",
          "MSBuildExtensionsPath",
          "MSBuildExtensionsPath32",
          "MSBuildExtensionsPath64",
          "MSBuildProgramFiles32",
          "MSBuildStartupDirectory",
          "MSBuildToolsPath",
          "ProgramData",
          "ProgramFiles",
          "ProgramW6432",
          "SolutionExt",
          "SolutionFileName",
          "SolutionName",
          "SolutionPath",
          "SystemDrive",
          "SystemRoot",
          "UniversalCRTSdkDir",
          "UserProfile",
          "UserRootDir",
          "VCInstallDir",
          "VCTargetsPath",
          "VCToolsInstallDir",
          "VCToolsRedistVersion",
          "VCToolsVersion",
          "VSInstallDir",
          "WinDir",
          "WindowsSdkDir"};
}

} // namespace workbench
