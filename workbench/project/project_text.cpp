#include "workbench/project/project_text.h"

#include "package/common/delimited_list.h"
#include "workbench/text/storable_text.h"

namespace workbench {
namespace {

std::string Property(const std::string& name, const std::string& value) {
  return "    <" + name + ">" + value + "</" + name + ">\n";
}

std::string PropertyUnlessSet(const std::string& name, const std::string& value) {
  return "    <" + name + " Condition=\"'$(" + name + ")'==''\">" + value + "</" + name + ">\n";
}

std::string CommonProperties(const TProjectValues& values) {
  return "  <PropertyGroup>\n" + Property("ProjectPersonality", values.Personality) +
         Property("AppType", values.ApplicationType) + Property("FrameworkType", values.Framework) +
         PropertyUnlessSet("Config", values.ActiveConfiguration) +
         PropertyUnlessSet("Platform", values.ActivePlatform) +
         Property("OutputDir", "$(Platform)\\$(Config)") + "  </PropertyGroup>\n";
}

std::string ConfigurationProperties(const std::string& configuration) {
  const std::string buildType = configuration == "Debug" ? "Debug" : "Release";
  return "  <PropertyGroup Condition=\"'$(Config)'=='" + configuration + "'\">\n" +
         Property("BT_BuildType", buildType) + "  </PropertyGroup>\n";
}

std::string Items(const TProjectValues& values) {
  const std::string platforms = deployment::JoinDelimited(values.Platforms);
  std::string text = "  <ItemGroup>\n    <BuildConfiguration Include=\"Base\"/>\n";
  for (const std::string& configuration : values.Configurations)
    text.append("    <BuildConfiguration Include=\"")
        .append(configuration)
        .append("\"><Parent>Base</Parent><Platforms>")
        .append(platforms)
        .append("</Platforms></BuildConfiguration>\n");
  for (const std::string& platform : values.Platforms)
    text.append("    <TargetPlatform Include=\"").append(platform).append("\"/>\n");
  return text + "  </ItemGroup>\n";
}

} // namespace

bool IsProjectName(std::string_view name) {
  constexpr std::string_view Reserved = "'\"`;|<>&$%@*?()";
  return !name.empty() && IsStorable(name) &&
         name.find_first_of(Reserved) == std::string_view::npos;
}

std::string ProjectText(const TProjectValues& values) {
  std::string text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                     "<Project DefaultTargets=\"Build\" "
                     "xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\">\n" +
                     CommonProperties(values);
  for (const std::string& configuration : values.Configurations)
    text += ConfigurationProperties(configuration);
  text += Items(values);
  if (!values.MoreItems.empty())
    text += "  " + values.MoreItems + "\n";
  text += "  <ProjectExtensions>\n  </ProjectExtensions>\n"
          "  <Target Name=\"Build\">\n"
          "    <Message Text=\"@(DeployFile)\" Importance=\"high\"/>\n"
          "  </Target>\n"
          "  <Import Project=\"$(MSBuildProjectName).deployproj\" "
          "Condition=\"Exists('$(MSBuildProjectName).deployproj')\"/>\n"
          "</Project>\n";
  return text;
}

} // namespace workbench
