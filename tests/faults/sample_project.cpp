#include "tests/faults/sample_project.h"

namespace faults {
namespace {

// What a build would make is not there and is not to be deployed.
std::string Disabled(const std::string& name, const std::string& className) {
  return "      <DeployFile LocalName=\"" + name + "\" Configuration=\"Debug\" Class=\"" +
         className +
         "\">\n        <Platform Name=\"OSX32\">\n          <Enabled>false</Enabled>\n"
         "        </Platform>\n      </DeployFile>\n";
}

} // namespace

std::string SampleProjectText(std::size_t files) {
  std::string text =
      R"(<?xml version="1.0" encoding="utf-8"?>
<Project xmlns="http://schemas.microsoft.com/developer/msbuild/2003">
  <PropertyGroup>
    <ProjectPersonality>Ardent.Personality</ProjectPersonality>
    <AppType>Application</AppType>
    <Config>Debug</Config>
    <Platform>OSX32</Platform>
  </PropertyGroup>
  <ItemGroup>
    <TargetPlatform Include="OSX32"><Profile>box</Profile></TargetPlatform>
  </ItemGroup>
  <ProjectExtensions>
    <Deployment Version="2">
      <DeployClass Name="File"/>
)" + Disabled("demo", "ProjectOutput") +
      Disabled("demo.info.plist", "ProjectOSXInfoPList") +
      Disabled("demo.entitlements", "ProjectOSXEntitlements");
  for (std::size_t i = 1; i <= files; ++i)
    text += "      <DeployFile LocalName=\"files\\f" + std::to_string(i) +
            ".dat\" Configuration=\"Base\" Class=\"File\">\n        <Platform Name=\"OSX32\">\n"
            "          <RemoteDir>data\\</RemoteDir>\n        </Platform>\n      </DeployFile>\n";
  return text + "    </Deployment>\n  </ProjectExtensions>\n</Project>\n";
}

void WriteSampleProject(TFaultPlace& place) {
  place.Write("demo.vproj", SampleProjectText(5));
  place.Prepare({"export", "demo.vproj"});
}

} // namespace faults
