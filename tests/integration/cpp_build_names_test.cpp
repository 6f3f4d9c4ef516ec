// What a real build of another maker's C++ project sees of the side file.
#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

namespace integration {
namespace {

constexpr const char* CppProject = R"(<?xml version="1.0" encoding="utf-8"?>
<Project DefaultTargets="Build" xmlns="http://schemas.microsoft.com/developer/msbuild/2003">
  <ItemGroup Label="ProjectConfigurations">
    <ProjectConfiguration Include="Debug|x64">
      <Configuration>Debug</Configuration>
      <Platform>x64</Platform>
    </ProjectConfiguration>
  </ItemGroup>
  <Import Project="$(VCTargetsPath)\Microsoft.Cpp.Default.props"/>
  <PropertyGroup Label="Configuration">
    <ConfigurationType>Application</ConfigurationType>
  </PropertyGroup>
  <Import Project="$(VCTargetsPath)\Microsoft.Cpp.props"/>
  <Import Project="$(VCTargetsPath)\Microsoft.Cpp.targets"/>
</Project>
)";

TEST(CppBuildNames, SideFileSpeaksTheWordsOfTheProjectsBuilds) {
  TWorkplace place;
  place.Write("app.vcxproj", CppProject);
  const TRun run = place.Run({"reconcile", "app.vcxproj", "--all"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  const std::string sideFile = place.Read("app.deployproj");
  EXPECT_NE(sideFile.find("<ItemGroup Condition=\"'$(Platform)'=='x64'\">"), std::string::npos)
      << sideFile;
  EXPECT_NE(sideFile.find("<DeployFile Include=\"x64\\Debug\\app.exe\" "
                          "Condition=\"'$(Configuration)'=='Debug'\">"),
            std::string::npos)
      << sideFile;
  EXPECT_EQ(sideFile.find("Win64"), std::string::npos) << sideFile;
  EXPECT_EQ(sideFile.find("$(Config)"), std::string::npos) << sideFile;
}

TEST(CppBuildNames, PlatformIsTakenByItsOwnNameToo) {
  TWorkplace place;
  place.Write("app.vcxproj", CppProject);
  const TRun own = place.Run({"list", "app.vcxproj", "-p", "x64", "-c", "Debug"});
  EXPECT_EQ(own.Status, 0) << own.Errors;
  EXPECT_EQ(own.Output, place.Run({"list", "app.vcxproj", "-p", "Win64", "-c", "Debug"}).Output);
  EXPECT_NE(own.Output.find("app.exe"), std::string::npos) << own.Output;
}

TEST(CppBuildNames, SideFileHasThePlatformsThatOnlyTheProjectKnows) {
  TWorkplace place;
  place.Write("app.vcxproj", Replaced(CppProject, "x64", "ARM"));
  ASSERT_EQ(place.Run({"reconcile", "app.vcxproj", "--all"}).Status, 0);
  const std::string sideFile = place.Read("app.deployproj");
  const std::size_t group = sideFile.find("<ItemGroup Condition=\"'$(Platform)'=='ARM'\">");
  ASSERT_NE(group, std::string::npos) << sideFile;
  EXPECT_NE(sideFile.find("<DeployFile Include=\"ARM\\Debug\\app.exe\"", group), std::string::npos);
}

} // namespace
} // namespace integration
