#include "package/common/delimited_list.h"
#include "tests/workbench/project/project_fixture.h"
#include "workbench/project/import_loader.h"

namespace workbench {
namespace {

using ProjectSettings = TProjectTest;

constexpr std::string_view Demo = R"(
  <PropertyGroup>
    <ProjectPersonality>Ardent.Personality</ProjectPersonality>
    <AppType>Application</AppType>
    <FrameworkType>Form</FrameworkType>
    <Config Condition="'$(Config)'==''">Debug</Config>
    <Platform Condition="'$(Platform)'==''">Win32</Platform>
    <OutputDir>$(Platform)\$(Config)</OutputDir>
  </PropertyGroup>
  <PropertyGroup Condition="'$(Config)'=='Debug'">
    <BT_BuildType>Debug</BT_BuildType>
    <RemoteDebugSymbols>true</RemoteDebugSymbols>
    <RuntimePackages>one.vpk; two.vpk ;;</RuntimePackages>
  </PropertyGroup>
  <PropertyGroup Condition="'$(Config)'=='Debug' And '$(Platform)'=='iOSDevice64'">
    <iPhone_AppIcon57>art\icon57.png</iPhone_AppIcon57>
  </PropertyGroup>
  <ItemGroup>
    <BuildConfiguration Include="Base"/>
    <BuildConfiguration Include="Debug"><Parent>Base</Parent><Platforms>Win32;Android</Platforms></BuildConfiguration>
    <BuildConfiguration Include="Release"><Parent>Base</Parent></BuildConfiguration>
    <TargetPlatform Include="Win32"><Profile>lab-pc</Profile></TargetPlatform>
    <TargetPlatform Include="Android"><SDK>ndk-r21</SDK></TargetPlatform>
    <ProjectFile Include="data\levels.dat"/>
    <Reference Include="not\a\file.dat"/>
    <None Include="readme.txt;..\shared.txt;data/levels.dat"/>
  </ItemGroup>)";

std::string ConfigurationsOf(const TProjectSettings& settings) {
  std::string text;
  for (const auto& configuration : settings.Configurations()) {
    text += (text.empty() ? "" : " ") + configuration->GetName();
    if (configuration->GetParent())
      text += "<" + configuration->GetParent()->GetName();
    text += "(" + deployment::JoinDelimited(configuration->GetPlatforms()) + ")";
  }
  return text;
}

std::string PlatformsOf(const TProjectSettings& settings) {
  std::string text;
  for (const TProjectPlatform& platform : settings.Platforms())
    text += platform.Name + "/" + platform.Profile + "/" + platform.SDK + " ";
  return text;
}

template <class TAction>
std::string ErrorOf(TAction action) {
  try {
    action();
  } catch (const deployment::TInputError& error) {
    return std::to_string(error.Place().Line) + ": " + error.what();
  }
  return "no error";
}

TEST_F(ProjectSettings, ListConfigurationsAndPlatforms) {
  const TProjectSettings& settings = Open(Demo);
  EXPECT_EQ(ConfigurationsOf(settings),
            "Base(Win32;Android) Debug<Base(Win32;Android) Release<Base(Win32;Android)");
  EXPECT_EQ(PlatformsOf(settings), "Win32/lab-pc/ Android//ndk-r21 ");
  EXPECT_EQ(settings.ActiveConfiguration(), "Debug");
  EXPECT_EQ(settings.ActivePlatform(), "Win32");
  EXPECT_EQ(settings.FindConfiguration("Debug")->GetName(), "Debug");
  EXPECT_EQ(settings.FindConfiguration("debug"), nullptr);
  EXPECT_EQ(settings.FindPlatform("Android")->SDK, "ndk-r21");
  EXPECT_EQ(settings.FindPlatform("OSX32"), nullptr);
  EXPECT_EQ(&settings.BaseConfiguration(), settings.Configurations().front().get());
  EXPECT_TRUE(settings.Notes().empty());
}

TEST_F(ProjectSettings, EvaluateOptionsForTheirTarget) {
  const TProjectSettings& settings = Open(Demo);
  EXPECT_EQ(settings.Option("Debug", "iOSDevice64", "iPhone_AppIcon57"), "art\\icon57.png");
  EXPECT_EQ(settings.Option("Release", "iOSDevice64", "iPhone_AppIcon57"), "");
  EXPECT_EQ(settings.Option("Debug", "Win32", "iPhone_AppIcon57"), "");
  EXPECT_EQ(settings.Option("", "", "BT_BuildType"), "Debug");
  EXPECT_EQ(settings.Option("Base", "Win32", "BT_BuildType"), "");
  EXPECT_EQ(settings.Option("Debug", "Win32", "not a name"), "");
}

TEST_F(ProjectSettings, NameTheOutput) {
  const TProjectSettings& settings = Open(Demo);
  EXPECT_EQ(settings.OutputFileName("Debug", "Win32"), PathOf("Win32/Debug/Demo.exe"));
  EXPECT_EQ(settings.OutputFileName("Release", "Android"), PathOf("Android/Release/libDemo.so"));
  EXPECT_EQ(settings.OutputFileName("Release", "Orbit"), PathOf("Orbit/Release/Demo"));
  EXPECT_EQ(settings.OutputDirectory("Release", "Android"), PathOf("Android/Release"));
  EXPECT_EQ(settings.BaseName(), "Demo");
  EXPECT_EQ(settings.ProjectName(), "Demo");
}

TEST_F(ProjectSettings, NameTheOutputAsTheProjectWantsIt) {
  const TProjectSettings& settings =
      Open("<PropertyGroup><AppType>CppDynamicLibrary</AppType><OutputName>core</OutputName>"
           "</PropertyGroup>");
  EXPECT_EQ(settings.OutputFileName("Base", "OSX32"), PathOf("libcore.dylib"));
  EXPECT_EQ(settings.BaseName(), "core");
  EXPECT_EQ(
      Open("<PropertyGroup><OutputDir>C:\\out</OutputDir></PropertyGroup>").OutputFileName("", ""),
      "C:\\out\\Demo");
}

TEST_F(ProjectSettings, TakeTheOutputKindOfCorvaneProjectsFromItsOption) {
  const std::string_view text =
      "<PropertyGroup><ProjectPersonality>Corvane.Personality</ProjectPersonality>"
      "<AppType>CppConsoleApplication</AppType>"
      "<OutputKind Condition=\"'$(Platform)'=='Win64'\">Package</OutputKind></PropertyGroup>";
  const TProjectSettings& settings = Open(text);
  EXPECT_EQ(settings.OutputKind(), "Console");
  EXPECT_EQ(settings.OutputFileName("", "Win32"), PathOf("Demo.exe"));
  EXPECT_EQ(settings.OutputFileName("", "Win64"), PathOf("Demo.vpk"));
}

TEST_F(ProjectSettings, ListFilesOnceInDocumentOrder) {
  EXPECT_EQ(Open(Demo).CompleteFileList(),
            (std::vector<std::string>{PathOf("data/levels.dat"), PathOf("readme.txt"),
                                      (Directory.parent_path() / "shared.txt").string()}));
}

TEST_F(ProjectSettings, LeaveOutWhatIsCompiled) {
  EXPECT_EQ(Open("<ItemGroup><Compile Include=\"a.pas\"/><ClCompile Include=\"a.c\"/>"
                 "<ClInclude Include=\"a.h\"/><ResourceCompile Include=\"a.rc\"/>"
                 "<Image Include=\"a.png\"/></ItemGroup>")
                .CompleteFileList(),
            std::vector<std::string>{PathOf("a.png")});
}

TEST_F(ProjectSettings, TakeGivenPropertiesOverThoseOfTheProject) {
  Environment = {{"A", "environment"}};
  Properties = {{"A", "given"}, {"OutputDir", "elsewhere"}};
  const TProjectSettings& settings =
      Open("<PropertyGroup><A>project</A><B>$(A)!</B></PropertyGroup>");
  EXPECT_EQ(settings.Option("", "", "B"), "given!");
  EXPECT_EQ(settings.OutputDirectory("", ""), PathOf("elsewhere"));
}

TEST_F(ProjectSettings, AnswerTheKindForTheTarget) {
  const TProjectSettings& settings =
      Open("<PropertyGroup><AppType Condition=\"'$(Config)'=='Lib'\">Library</AppType>"
           "<OSXKind Condition=\"'$(Platform)'=='OSX32'\">2</OSXKind></PropertyGroup>");
  EXPECT_EQ(settings.ApplicationType("Lib", "Win32"), "Library");
  EXPECT_EQ(settings.ApplicationType("Debug", "Win32"), "");
  EXPECT_EQ(settings.OSXKind("Debug", "OSX32"), 2);
  EXPECT_EQ(settings.OSXKind("Debug", "Win32"), 1);
}

TEST_F(ProjectSettings, LeaveOutASideFileThatIsNoXml) {
  std::ofstream(PathOf("Demo.deployproj")) << "<Project>\n<<<<<<< mine\n</Project>";
  TImportLoader loader;
  Parse("<PropertyGroup><A>1</A></PropertyGroup>"
        "<Import Project=\"$(MSBuildProjectName).deployproj\"/>");
  const TProjectSettings settings(*Root, Directory / "Demo.vproj", loader, Table,
                                  {{}, {}, nullptr});
  EXPECT_EQ(settings.Option("", "", "A"), "1");
  ASSERT_EQ(settings.Notes().size(), 1U);
  EXPECT_TRUE(settings.Notes()[0].Text.starts_with("the import \"" + PathOf("Demo.deployproj") +
                                                   "\" was skipped: in line 2, "))
      << settings.Notes()[0].Text;
}

TEST_F(ProjectSettings, ListTheFilesOfATarget) {
  const TProjectSettings& settings =
      Open("<ItemGroup><Content Include=\"a.txt\" Condition=\"'$(Config)'=='Debug'\"/>"
           "<Text Include=\"b.txt\"/></ItemGroup>");
  EXPECT_EQ(settings.CompleteFileList("Release", "Win32"),
            std::vector<std::string>{PathOf("b.txt")});
  EXPECT_EQ(settings.CompleteFileList("Debug", "Win32").size(), 2U);
}

TEST_F(ProjectSettings, AnswerForTheProjectAsAWhole) {
  const TProjectSettings& settings = Open(Demo);
  EXPECT_EQ(settings.Personality(), "Ardent.Personality");
  EXPECT_EQ(settings.ApplicationType(), "Application");
  EXPECT_EQ(settings.FrameworkType(), "Form");
  EXPECT_EQ(settings.ProjectOption("AppType"), "Application");
  EXPECT_EQ(settings.OSXKind("Debug", "OSX32"), 1);
}

TEST_F(ProjectSettings, EvaluateTheKindOfAnOSXProgramForTheTarget) {
  const TProjectSettings& settings =
      Open("<PropertyGroup Condition=\"'$(Platform)'=='OSX32'\"><OSXKind>0</OSXKind>"
           "</PropertyGroup>");
  EXPECT_EQ(settings.OSXKind("Debug", "OSX32"), 0);
  EXPECT_EQ(settings.OSXKind("Debug", "Win32"), 1);
}

TEST_F(ProjectSettings, ListRuntimePackages) {
  const TProjectSettings& settings = Open(Demo);
  EXPECT_EQ(settings.RuntimePackages("Debug", "Win32"),
            (std::vector<std::string>{"one.vpk", "two.vpk"}));
  EXPECT_TRUE(settings.RuntimePackages("Release", "Win32").empty());
}

TEST_F(ProjectSettings, KnowRemoteDebugSymbols) {
  const TProjectSettings& settings = Open(Demo);
  EXPECT_TRUE(settings.HasRemoteDebugSymbols("Debug", "Win32"));
  EXPECT_FALSE(settings.HasRemoteDebugSymbols("Release", "Win32"));
}

TEST_F(ProjectSettings, SayWhichPropertyIsNoValueOfItsKind) {
  const TProjectSettings& settings = Open("<PropertyGroup>\n<RemoteDebugSymbols>maybe"
                                          "</RemoteDebugSymbols>\n<OSXKind>app</OSXKind>"
                                          "</PropertyGroup>");
  EXPECT_EQ(ErrorOf([&] { settings.HasRemoteDebugSymbols("Debug", "Win32"); }),
            "2: the property \"RemoteDebugSymbols\" is \"maybe\", which is not a Boolean (true or "
            "false)");
  EXPECT_EQ(ErrorOf([&] { settings.OSXKind("Debug", "OSX32"); }),
            "3: the property \"OSXKind\" is \"app\", which is not an integer");
}

TEST_F(ProjectSettings, ReadBasePropertiesFromGroupsWithoutCondition) {
  TProjectSettings& settings =
      Open("<PropertyGroup><FeatureFilesAdded>one</FeatureFilesAdded></PropertyGroup>"
           "<PropertyGroup Condition=\"true\"><FeatureFilesAdded>two</FeatureFilesAdded>"
           "</PropertyGroup><PropertyGroup><FeatureFilesAdded Condition=\"true\">three"
           "</FeatureFilesAdded></PropertyGroup>");
  EXPECT_EQ(settings.BaseProperty("FeatureFilesAdded"), "one");
  EXPECT_EQ(settings.BaseProperty("Other"), "");
  Root->FirstChild()->FirstChild()->SetText("one;four");
  EXPECT_EQ(settings.BaseProperty("featurefilesadded"), "one;four");
}

TEST_F(ProjectSettings, SeeChangesAfterARefresh) {
  TProjectSettings& settings =
      Open("<PropertyGroup><A>1</A></PropertyGroup><ItemGroup><TargetPlatform Include=\"Win32\"/>"
           "</ItemGroup>");
  EXPECT_EQ(settings.Option("", "", "A"), "1");
  Root->FirstChild()->FirstChild()->SetText("2");
  Root->FirstChild()->NextSibling()->FirstChild()->AddChild("Profile").SetText("lab");
  EXPECT_EQ(settings.Option("", "", "A"), "1");
  settings.Refresh();
  EXPECT_EQ(settings.Option("", "", "A"), "2");
  EXPECT_EQ(settings.FindPlatform("Win32")->Profile, "lab");
}

TEST_F(ProjectSettings, SupplyWhatAnEmptyProjectDoesNotSay) {
  const TProjectSettings& settings = Open("");
  EXPECT_EQ(ConfigurationsOf(settings), "Base(Win32)");
  EXPECT_EQ(PlatformsOf(settings), "Win32// ");
  EXPECT_EQ(settings.ActiveConfiguration(), "Base");
  EXPECT_EQ(settings.ActivePlatform(), "Win32");
  EXPECT_EQ(settings.Personality(), "");
  EXPECT_EQ(settings.ApplicationType(), "");
}

TEST_F(ProjectSettings, TakeTheActiveTargetForAProjectWithoutItems) {
  const TProjectSettings& settings =
      Open("<PropertyGroup><Config>Debug</Config><Platform>Android</Platform></PropertyGroup>");
  EXPECT_EQ(ConfigurationsOf(settings), "Base(Android) Debug<Base(Android)");
  EXPECT_EQ(PlatformsOf(settings), "Android// ");
}

TEST_F(ProjectSettings, TakePlatformsFromConfigurationsWhenThereIsNoList) {
  const TProjectSettings& settings =
      Open("<ItemGroup><BuildConfiguration Include=\"Debug\"><Platforms> OSX32 ; Win64</Platforms>"
           "</BuildConfiguration><BuildConfiguration Include=\"Release\"><Platforms>Win64;Android"
           "</Platforms></BuildConfiguration></ItemGroup>");
  EXPECT_EQ(ConfigurationsOf(settings),
            "Base(OSX32;Win64;Android) Debug<Base(OSX32;Win64) Release<Base(Win64;Android)");
  EXPECT_EQ(PlatformsOf(settings), "OSX32// Win64// Android// ");
  EXPECT_EQ(settings.ActiveConfiguration(), "Debug");
  EXPECT_EQ(settings.ActivePlatform(), "OSX32");
}

TEST_F(ProjectSettings, PutTheBaseConfigurationFirstAndMendParents) {
  const TProjectSettings& settings =
      Open("<ItemGroup><BuildConfiguration Include=\"A\"><Parent>B</Parent></BuildConfiguration>\n"
           "<BuildConfiguration Include=\"B\"><Parent>A</Parent></BuildConfiguration>\n"
           "<BuildConfiguration Include=\"C\"><Parent>Gone</Parent></BuildConfiguration>\n"
           "<BuildConfiguration Include=\"D\"><Parent>D</Parent></BuildConfiguration>\n"
           "<BuildConfiguration Include=\"Base\"><Parent>A</Parent></BuildConfiguration>\n"
           "<BuildConfiguration Include=\"A\"/></ItemGroup>");
  EXPECT_EQ(ConfigurationsOf(settings),
            "Base(Win32) A<B(Win32) B<Base(Win32) C<Base(Win32) D<Base(Win32)");
  ASSERT_EQ(settings.Notes().size(), 3U);
  EXPECT_EQ(settings.Notes()[0].Text,
            "the parent \"Gone\" of the configuration \"C\" is not in the "
            "project; it inherits from \"Base\"");
  EXPECT_EQ(settings.Notes()[0].Place.Line, 3U);
  EXPECT_EQ(settings.Notes()[1].Text,
            "the parent \"A\" of the configuration \"B\" inherits from it "
            "in turn; it inherits from \"Base\"");
  EXPECT_EQ(settings.Notes()[2].Text,
            "the parent \"D\" of the configuration \"D\" inherits from it "
            "in turn; it inherits from \"Base\"");
}

TEST_F(ProjectSettings, ReadAnImportOnceForAllTargets) {
  Imports.Texts[PathOf("a.props")] = "<Project/>";
  const TProjectSettings& settings = Open("<Import Project=\"a.props\"/>");
  settings.Option("Debug", "Win32", "A");
  settings.Option("Debug", "Win64", "A");
  EXPECT_EQ(Imports.Asked.size(), 1U);
}

TEST_F(ProjectSettings, AnswerForMoreTargetsThanAreKept) {
  const TProjectSettings& settings = Open("<PropertyGroup><A>$(Config)</A></PropertyGroup>");
  for (int i = 0; i < 200; ++i)
    EXPECT_EQ(settings.Option(std::to_string(i), "Win32", "A"), std::to_string(i));
}

} // namespace
} // namespace workbench
