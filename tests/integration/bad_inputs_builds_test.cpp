// What builds and the projects of other makers leave damaged.
#include "tests/integration/bad_inputs.h"

namespace integration {
namespace {

// A C++ project with this between its sheets.
std::string CppProjectWith(const std::string& text) {
  return "<Project xmlns='http://schemas.microsoft.com/developer/msbuild/2003'>"
         "<ItemGroup Label='ProjectConfigurations'><ProjectConfiguration Include='Debug|x64'>"
         "<Configuration>Debug</Configuration><Platform>x64</Platform></ProjectConfiguration>"
         "</ItemGroup>\n"
         "<Import Project='$(VCTargetsPath)\\Microsoft.Cpp.Default.props'/>"
         "<PropertyGroup Label='Configuration'><ConfigurationType>Application</ConfigurationType>"
         "</PropertyGroup><Import Project='$(VCTargetsPath)\\Microsoft.Cpp.props'/>\n" +
         text + "\n<Import Project='$(VCTargetsPath)\\Microsoft.Cpp.targets'/></Project>";
}

TDamage CppDamage(const char* name, const std::string& text, int status, const char* message,
                  std::vector<std::pair<std::string, std::string>> files = {}) {
  files.emplace_back("app.vcxproj", CppProjectWith(text));
  return {name, std::move(files), {"list", "app.vcxproj"}, status, message};
}

std::vector<TDamage> DamagedCppProjects() {
  return {
      CppDamage("SheetNoXml", "<Import Project='s.props'/>", 3,
                "%D/s.props:1: not well-formed XML: syntax error", {{"s.props", "no"}}),
      CppDamage(
          "SheetGone", "<Import Project='s.props'/>", 0,
          "app.vcxproj:3: warning: the import \"%D/s.props\" was skipped: there is no such file"),
      CppDamage("SheetOfTheDirectoryNoXml", "", 3,
                "%D/Directory.Build.props:1: not well-formed XML: syntax error",
                {{"Directory.Build.props", "no"}}),
      CppDamage("KindUnknown",
                "<PropertyGroup><ConfigurationType>Spaceship</ConfigurationType></PropertyGroup>",
                0, "is of the type \"Spaceship\", which makes no known kind of file"),
      CppDamage("ReferenceGone",
                "<ItemGroup><ProjectReference Include='gone.vcxproj'/></ItemGroup>", 0,
                "%D/gone.vcxproj: warning: the project that is referred to cannot be read"),
      CppDamage("ReferenceNoXml", "<ItemGroup><ProjectReference Include='b.vcxproj'/></ItemGroup>",
                0,
                "the project that is referred to cannot be read: not well-formed XML: syntax error",
                {{"b.vcxproj", "no"}}),
      CppDamage("FunctionUnknown",
                "<PropertyGroup><OutDir>$([System.Gone]::X())</OutDir></PropertyGroup>", 0,
                "the property \"OutDir\" is not known here: it calls \"[System.Gone]::X\""),
      CppDamage("FunctionThatFillsMemory",
                "<PropertyGroup><A>$([System.String]::Copy('x').PadLeft(2000000000))</A>"
                "<OutDir>$(A)</OutDir></PropertyGroup>",
                0, "\".PadLeft\" cannot be carried out: the width is out of range"),
      CppDamage("SolutionOfGarbage", "<Import Project='s.props'/>", 0, "there is no such file",
                {{"all.sln", "\xFF\xFE garbage app.vcxproj"}}),
  };
}

TDamage BuildDamage(const char* name, const char* file, const char* text, const char* message) {
  return {name,
          {{file, text}},
          {"new", "n.vproj", "--from-build", "build", "-p", "Linux64"},
          3,
          message};
}

constexpr const char* ReplyIndex = "build/.cmake/api/v1/reply/index-1.json";

TDamage CMakeDamage(const char* name, const char* text, const char* message) {
  TDamage damage = BuildDamage(name, ReplyIndex, text, message);
  damage.Files.emplace_back("build/CMakeCache.txt", "");
  return damage;
}

std::vector<TDamage> DamagedBuilds() {
  return {
      BuildDamage("Gone", "other/x", "", "%D/build: this is no build directory of CMake or Meson"),
      BuildDamage("IsAFile", "build", "x",
                  "%D/build: this is no build directory of CMake or Meson"),
      BuildDamage(
          "MesonNoJson", "build/meson-info/meson-info.json", "x",
          "meson-info.json:1: the summary of Meson cannot be read: it is no JSON at byte 1"),
      BuildDamage("MesonList", "build/meson-info/meson-info.json", "[]",
                  "meson-info.json: the summary of Meson: its root is no object"),
      CMakeDamage("CMakeEmpty", "",
                  "index-1.json:1: the reply of CMake cannot be read: it is no JSON"),
      CMakeDamage("CMakeCutOff", "{\"cmake\":", "the reply of CMake cannot be read: it is no JSON"),
      CMakeDamage("CMakeWithoutObjects", "{\"reply\":{}}",
                  "the reply of CMake: its root has no member \"objects\""),
      CMakeDamage("CMakeObjectsOfNumbers", "{\"objects\":[1]}", "index-1.json: the reply of CMake"),
      CMakeDamage("CMakeLeadsOut",
                  R"({"objects":[{"kind":"codemodel","version":{"major":2,"minor":0},)"
                  R"("jsonFile":"../../../../../p.json"}]})",
                  "the reply of CMake"),
      {"RefreshOfARecordWithoutNames",
       {{"p.vproj",
         ProjectHolding("<ItemGroup Label='BuildInstall'><BuildDirectory/></ItemGroup>")}},
       {"refresh", "p.vproj"},
       3,
       "the item \"BuildDirectory\" lacks the attribute \"Include\""},
  };
}

class DamagedBuild : public testing::TestWithParam<TDamage> {};

TEST_P(DamagedBuild, IsToldAndLeftAlone) {
  ExpectToldAndLeftAlone(GetParam());
}

INSTANTIATE_TEST_SUITE_P(CppProjects, DamagedBuild, testing::ValuesIn(DamagedCppProjects()),
                         NameOfDamage);
INSTANTIATE_TEST_SUITE_P(Directories, DamagedBuild, testing::ValuesIn(DamagedBuilds()),
                         NameOfDamage);

} // namespace
} // namespace integration
