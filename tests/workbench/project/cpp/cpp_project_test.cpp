#include "package/common/delimited_list.h"
#include "tests/workbench/project/project_fixture.h"
#include "workbench/project/import_loader.h"

namespace workbench {
namespace {

using CppProject = TProjectTest;

std::string Pairs(const std::string& pairs) {
  std::string items;
  for (const std::string_view pair : deployment::SplitDelimited(pairs))
    items += "<ProjectConfiguration Include=\"" + std::string(pair) + "\"/>";
  return "<ItemGroup Label=\"ProjectConfigurations\">" + items + "</ItemGroup>";
}

// A project as a wizard writes it, with something of its own between the usual imports.
std::string Usual(const std::string& type, const std::string& own = "",
                  const std::string& pairs = "Debug|x64;Release|Win32;Release|ARM64;Debug|Win32") {
  return Pairs(pairs) + "<Import Project=\"$(VCTargetsPath)\\Microsoft.Cpp.Default.props\"/>" +
         "<PropertyGroup><ConfigurationType>" + type + "</ConfigurationType></PropertyGroup>" +
         "<Import Project=\"$(VCTargetsPath)\\Microsoft.Cpp.props\"/>" + own +
         "<Import Project=\"$(VCTargetsPath)\\Microsoft.Cpp.targets\"/>";
}

std::string Property(const std::string& name, const std::string& value) {
  return "<PropertyGroup><" + name + ">" + value + "</" + name + "></PropertyGroup>";
}

TEST_F(CppProject, IsReadThroughItsPairs) {
  const TProjectSettings& settings = Open(Usual("DynamicLibrary"));
  std::string text;
  for (const auto& configuration : settings.Configurations())
    text += configuration->GetName() + "(" +
            deployment::JoinDelimited(configuration->GetPlatforms()) + ") ";
  EXPECT_EQ(text, "Base(Win64;Win32;ARM64) Debug(Win64;Win32) Release(Win32;ARM64) ");
  EXPECT_EQ(settings.ApplicationType(), "Library");
  EXPECT_EQ(settings.Personality(), "Corvane.Personality");
  EXPECT_EQ(settings.BuildPlatformName("Win64"), "x64");
  EXPECT_EQ(settings.ConfigurationProperty(), "Configuration");
  EXPECT_TRUE(settings.Notes().empty());
}

TEST_F(CppProject, StartsWithDebugForTheUsualPlatformsElseItsFirstPair) {
  const auto active = [this](const std::string& pairs) {
    const TProjectSettings& settings = Open(Usual("Application", "", pairs));
    return settings.ActiveConfiguration() + "|" + settings.ActivePlatform();
  };
  EXPECT_EQ(active("Release|ARM;Debug|x64;Debug|Win32"), "Debug|Win32");
  EXPECT_EQ(active("Release|Win32;Debug|ARM;Debug|x64"), "Debug|Win64");
  EXPECT_EQ(active("DLL Debug|Win32;Debug|ARM"), "DLL Debug|Win32");
}

TEST_F(CppProject, NotesAConfigurationThatItDoesNotHave) {
  Environment = {{"PLATFORM", "x64"}};
  const TProjectSettings& settings =
      Open(Usual("Application", Property("Config", "Profile") + Property("Configuration", "Odd")));
  EXPECT_EQ(settings.ActiveConfiguration(), "Debug");
  EXPECT_EQ(settings.ActivePlatform(), "Win64");
  ASSERT_EQ(settings.Notes().size(), 1U);
  EXPECT_EQ(settings.Notes()[0].Text,
            "the project has no configuration \"Profile\", which its property \"Config\" names");
}

TEST_F(CppProject, NamesItsOutputAsTheDefaultsDo) {
  const TProjectSettings& settings = Open(Usual("Application"));
  EXPECT_EQ(settings.OutputFileName("Debug", "Win32"), PathOf("Debug/Demo.exe"));
  EXPECT_EQ(settings.OutputFileName("Debug", "Win64"), PathOf("x64/Debug/Demo.exe"));
  EXPECT_EQ(settings.OutputFileName("Release", "ARM64"), PathOf("ARM64/Release/Demo.exe"));
  EXPECT_EQ(settings.OutputDirectory("Debug", "Win64"), PathOf("x64/Debug"));
  EXPECT_EQ(settings.Option("Debug", "Win64", "TargetPath"), PathOf("x64/Debug/Demo.exe"));
  EXPECT_EQ(Open(Usual("DynamicLibrary")).OutputFileName("Release", "Win32"),
            PathOf("Release/Demo.dll"));
}

TEST_F(CppProject, SetsDefaultsOnlyWhereNothingStands) {
  const TProjectSettings& settings = Open(Usual(
      "DynamicLibrary", Property("TargetExt", ".pyd") + Property("TargetName", "$(TargetName)_d") +
                            Property("OutDir", "bin\\$(PlatformShortName)")));
  EXPECT_EQ(settings.OutputFileName("Debug", "Win64"), PathOf("bin/x64/Demo_d.pyd"));
  EXPECT_EQ(settings.OutputFileName("Debug", "Win32"), PathOf("bin/x86/Demo_d.pyd"));
}

TEST_F(CppProject, TellsTheNameOnTheTargetWhateverTheExtension) {
  const TProjectSettings& usual = Open(Usual("DynamicLibrary"));
  EXPECT_EQ(usual.BaseName("Debug", "Win32"), "Demo");
  EXPECT_EQ(usual.OutputKind("Debug", "Win32"), "Library");
  EXPECT_EQ(usual.BaseName("Release", "ARM64"), "Demo.dll");
  const TProjectSettings& own = Open(Usual("DynamicLibrary", Property("TargetExt", ".pyd")));
  EXPECT_EQ(own.BaseName("Debug", "Win32"), "Demo.pyd");
  EXPECT_EQ(own.OutputKind("Debug", "Win32"), "");
}

TEST_F(CppProject, TakesTheFileThatIsLinkedOverTheDefaults) {
  const TProjectSettings& settings = Open(
      Usual("Application",
            "<ItemDefinitionGroup Condition=\"'$(Configuration)|$(Platform)'=='Debug|x64'\"><Link>"
            "<OutputFile>..\\out\\$(TargetName)64.exe</OutputFile></Link></ItemDefinitionGroup>"
            "<ItemDefinitionGroup><Link><OutputFile Condition=\"'$(Configuration)'=='Release'\">r_"
            "%(OutputFile)</OutputFile><SubSystem>Console</SubSystem></Link></ItemDefinitionGroup>"
            "<ItemDefinitionGroup><Link><OutputFile Condition=\"'$(Platform)'=='ARM64'\">"
            "%(Link.OutputFile).bin</OutputFile></Link></ItemDefinitionGroup>"));
  EXPECT_EQ(settings.OutputFileName("Debug", "Win64"),
            (Directory.parent_path() / "out/Demo64.exe").string());
  EXPECT_EQ(settings.OutputFileName("Debug", "Win32"), PathOf("Debug/Demo.exe"));
  EXPECT_TRUE(settings.OutputFileName("Release", "Win32").ends_with("/Release/Demo.exe"));
  EXPECT_TRUE(settings.OutputFileName("Release", "ARM64").ends_with("/Release/Demo.exe.bin"));
}

TEST_F(CppProject, IsBuiltWithTheNearestSolutionThatNamesIt) {
  std::ofstream(Directory / "all.sln") << "Solution File, Format Version 12.00\n"
                                          "Project(\"{1}\") = \"p\", \"src\\p.vcxproj\", \"{2}\"\n";
  std::filesystem::create_directory(Directory / "src");
  Parse(Usual("Application", Property("Named", "$(SolutionName)$(SolutionExt)")));
  TCppDialect dialect(Imports, Table);
  const TProjectSettings settings(*Root, Directory / "src" / "p.vcxproj", Imports, Table,
                                  {{}, {}, &dialect});
  EXPECT_EQ(settings.OutputFileName("Debug", "Win32"), PathOf("Debug/p.exe"));
  EXPECT_EQ(settings.Option("Debug", "Win32", "SolutionDir"), PathOf(""));
  EXPECT_EQ(settings.Option("Debug", "Win32", "Named"), "all.sln");
}

TEST_F(CppProject, WithoutASolutionKnowsNoNameOfOne) {
  const TProjectSettings& settings =
      Open(Usual("Application", Property("OutDir", "$(SolutionName)\\")));
  EXPECT_EQ(settings.OutputFileName("Debug", "Win32"), "");
  EXPECT_EQ(settings.NothingToDeploy("Debug", "Win32"),
            "it is not known what a build of Debug, Win32 makes");
  ASSERT_EQ(settings.Notes().size(), 1U);
  EXPECT_EQ(settings.Notes()[0].Text,
            "what a build of Debug, Win32 makes is not known: the property \"SolutionName\" is not "
            "known here: the build system sets it");
}

TEST_F(CppProject, NamesPropertyFileAndLineOfWhatIsNotKnown) {
  const TProjectSettings& settings =
      Open(Usual("Application", "\n<PropertyGroup>\n<Stamp>$([System.DateTime]::Now)</Stamp>\n"
                                "<OutDir>out\\$(Stamp)\\</OutDir></PropertyGroup>"));
  EXPECT_TRUE(settings.Notes().empty()) << "nobody asked yet";
  EXPECT_EQ(settings.OutputFileName("Debug", "Win32"), "");
  ASSERT_EQ(settings.Notes().size(), 1U);
  EXPECT_EQ(settings.Notes()[0].Text,
            "what a build of Debug, Win32 makes is not known: the property \"Stamp\" is not known "
            "here: it calls \"[System.DateTime]::Now\", which is not evaluated here");
  EXPECT_EQ(settings.Notes()[0].Place.File, PathOf("Demo.vproj"));
  EXPECT_EQ(settings.Notes()[0].Place.Line, 3U);
}

TEST_F(CppProject, MakesNothingToDeployWhenOthersLinkItOrItBuildsNoFile) {
  const auto nothing = [this](const std::string& type, const std::string& own = "") {
    const TProjectSettings& settings = Open(Usual(type, own));
    EXPECT_EQ(settings.OutputFileName("Debug", "Win64"), "");
    return settings.NothingToDeploy("Debug", "Win64");
  };
  EXPECT_EQ(nothing("StaticLibrary"), "a build of Debug, Win64 makes a static library, which other "
                                      "builds link: there is nothing to deploy");
  EXPECT_EQ(nothing("Utility"), "a build of Debug, Win64 is a utility, which makes no program or "
                                "library: there is nothing to deploy");
  EXPECT_EQ(nothing("Makefile"), "a build of Debug, Win64 runs commands and names no output "
                                 "(NMakeOutput): there is nothing to deploy");
  const TProjectSettings& made = Open(Usual("Makefile", Property("NMakeOutput", "out\\made.exe")));
  EXPECT_EQ(made.OutputFileName("Debug", "Win64"), PathOf("out/made.exe"));
  EXPECT_EQ(made.NothingToDeploy("Debug", "Win64"), "");
}

TEST_F(CppProject, HasTheKindOfTheTarget) {
  const TProjectSettings& settings =
      Open(Usual("$(Kind)", "", "Debug|Win32;DLL Debug|Win32")
               .insert(0, "<PropertyGroup><Kind>StaticLibrary</Kind><Kind Condition=\"'$("
                          "Configuration)'=='DLL Debug'\">DynamicLibrary</Kind></PropertyGroup>"));
  EXPECT_EQ(settings.ApplicationType("DLL Debug", "Win32"), "Library");
  EXPECT_EQ(settings.ApplicationType("Debug", "Win32"), "StaticLibrary");
  EXPECT_EQ(settings.NothingToDeploy("DLL Debug", "Win32"), "");
}

TEST_F(CppProject, ShipsContentAndWhatSaysSo) {
  const TProjectSettings& settings = Open(Usual(
      "Application",
      "<ItemDefinitionGroup><Text><DeploymentContent>true</DeploymentContent></Text>"
      "</ItemDefinitionGroup><ItemGroup>"
      "<Content Include=\"a.dat\"/>"
      "<Content "
      "Include=\"never.dat\"><CopyToOutputDirectory>Never</CopyToOutputDirectory></Content>"
      "<Content Include=\"no.dat\"><DeploymentContent>false</DeploymentContent></Content>"
      "<Content Include=\"debug.dat\"><ExcludedFromBuild "
      "Condition=\"'$(Configuration)'=='Release'\">"
      "true</ExcludedFromBuild></Content>"
      "<None Include=\"readme.md\"/>"
      "<None Include=\"copied.ini\"><CopyToOutputDirectory>PreserveNewest</CopyToOutputDirectory>"
      "</None><Image Include=\"i.png\"/><Text Include=\"t.txt\"/>"
      "<Image Include=\"deployed.png\"><DeploymentContent>true</DeploymentContent></Image>"
      "<ClCompile Include=\"a.c\"><DeploymentContent>true</DeploymentContent></ClCompile>"
      "<ClInclude Include=\"a.h\"/><ResourceCompile Include=\"a.rc\"/><Natvis "
      "Include=\"a.natvis\"/>"
      "<Content Include=\"$(Platform).dll\" Condition=\"'$(Platform)'=='x64'\"/></ItemGroup>"));
  const auto files = [&](std::string_view configuration, std::string_view platform) {
    std::string names;
    for (const std::string& file : settings.CompleteFileList(configuration, platform))
      names += std::filesystem::path(file).filename().string() + " ";
    return names;
  };
  EXPECT_EQ(files("Debug", "Win32"), "a.dat never.dat debug.dat copied.ini t.txt deployed.png ");
  EXPECT_EQ(files("Release", "Win64"), "a.dat never.dat copied.ini t.txt deployed.png x64.dll ");
}

TEST_F(CppProject, LeavesOutAFileThatIsNotKnown) {
  const TProjectSettings& settings = Open(
      Usual("Application", "\n<ItemGroup><Content Include=\"$(Registry:X)\\a.dat\"/>\n"
                           "<Content Include=\"b.dat\"/><ClCompile Include=\"$(Registry:X)\\a.c\"/>"
                           "</ItemGroup>"));
  EXPECT_EQ(settings.CompleteFileList("Debug", "Win32"), std::vector<std::string>{PathOf("b.dat")});
  ASSERT_EQ(settings.Notes().size(), 1U);
  EXPECT_EQ(settings.Notes()[0].Kind, TNoteKind::UnknownValue);
  EXPECT_EQ(settings.Notes()[0].Place.Line, 2U);
}

TEST_F(CppProject, AsksForSymbolsOfABuildForDebugging) {
  const auto link = [](const std::string& value) {
    return "<ItemDefinitionGroup><Link><GenerateDebugInformation>" + value +
           "</GenerateDebugInformation></Link></ItemDefinitionGroup>";
  };
  const std::string debug = "<PropertyGroup Condition=\"'$(Configuration)'=='Debug'\">"
                            "<UseDebugLibraries>true</UseDebugLibraries></PropertyGroup>";
  for (const std::string value : {"true", "DebugFastLink"}) {
    const TProjectSettings& settings = Open(Usual("Application", debug + link(value)));
    EXPECT_TRUE(settings.HasRemoteDebugSymbols("Debug", "Win32")) << value;
    EXPECT_FALSE(settings.HasRemoteDebugSymbols("Release", "Win32")) << value;
  }
  for (const std::string value : {"No", "false", ""})
    EXPECT_FALSE(Open(Usual("Application", debug + link(value))).HasRemoteDebugSymbols("Debug", ""))
        << value;
  EXPECT_EQ(Open(Usual("Application")).SymbolExtension("Win32"), ".pdb");
}

TEST_F(CppProject, TakesSheetsOfItsDirectoriesWhereTheDefaultsStand) {
  std::ofstream(PathOf("Directory.Build.props"))
      << "<Project><PropertyGroup><OutDir>$(MSBuildThisFileDirectory)all\\</OutDir>"
         "<TargetName>sheet</TargetName></PropertyGroup></Project>";
  std::ofstream(PathOf("Directory.Build.targets"))
      << "<Project><PropertyGroup><Last>$(TargetName)</Last></PropertyGroup></Project>";
  TImportLoader loader;
  std::filesystem::create_directory(Directory / "src");
  Parse(Usual("Application", Property("TargetName", "own")));
  TCppDialect dialect(loader, Table);
  const TProjectSettings settings(*Root, Directory / "src" / "p.vcxproj", loader, Table,
                                  {{}, {}, &dialect});
  EXPECT_EQ(settings.OutputFileName("Debug", "Win32"), PathOf("all/own.exe"));
  EXPECT_EQ(settings.Option("Debug", "Win32", "Last"), "own");
}

TEST_F(CppProject, FindsImportsWhateverTheirCaseAndMissesThoseThatAreNotThere) {
  MakeFile("Props/Common.props");
  std::ofstream(PathOf("Props/Common.props"))
      << "<Project><PropertyGroup><OutDir>common\\</OutDir></PropertyGroup></Project>";
  TImportLoader loader;
  Parse(Usual("Application",
              "<Import Project=\"props/common.PROPS\"/>\n<Import Project=\"gone.props\"/>"
              "<Import Project=\"asked.props\" Condition=\"Exists('asked.props')\"/>"
              "<Import Project=\"$(VCTargetsPath)\\BuildCustomizations\\x.props\"/>"
              "<Import Project=\"$(UserRootDir)\\u.props\" Condition=\"exists('$(UserRootDir)\\"
              "u.props')\"/>"));
  TCppDialect dialect(loader, Table);
  const TProjectSettings settings(*Root, Directory / "Demo.vcxproj", loader, Table,
                                  {{}, {}, &dialect});
  EXPECT_EQ(settings.OutputFileName("Debug", "Win32"), PathOf("common/Demo.exe"));
  ASSERT_EQ(settings.Notes().size(), 1U);
  EXPECT_EQ(settings.Notes()[0].Kind, TNoteKind::MissingImport);
  EXPECT_EQ(settings.Notes()[0].Place.Line, 2U);
}

TEST_F(CppProject, ListsTheLibrariesOfTheProjectsItRefersTo) {
  const auto reference = [](const std::string& file) {
    return "<ItemGroup><ProjectReference Include=\"" + file + "\"/></ItemGroup>";
  };
  const auto write = [this](const std::string& name, const std::string& content) {
    Imports.Texts[PathOf(name)] = "<Project>" + content + "</Project>";
  };
  write("core/core.vcxproj", Usual("DynamicLibrary"));
  write("util/util.vcxproj", Usual("StaticLibrary", reference("..\\core\\core.vcxproj")));
  write("net/net.vcxproj",
        Usual("DynamicLibrary", reference("..\\util\\util.vcxproj") + reference("..\\Demo.vproj")));
  write("Demo.vproj", Usual("Application"));
  const TProjectSettings& settings =
      Open(Usual("Application", reference("net\\net.vcxproj") + reference("core\\core.vcxproj") +
                                    reference("gone\\gone.vcxproj")));
  EXPECT_EQ(settings.RuntimePackages("Debug", "Win64"),
            (std::vector<std::string>{"net\\x64\\Debug\\net.dll", "core\\x64\\Debug\\core.dll"}));
  ASSERT_EQ(settings.Notes().size(), 1U);
  EXPECT_EQ(settings.Notes()[0].Place.File, PathOf("gone/gone.vcxproj"));
}

TEST_F(CppProject, IsEvaluatedWithGivenProperties) {
  Properties = {{"OutDir", "given\\"}, {"Configuration", "Release"}};
  const TProjectSettings& settings = Open(Usual("Application", Property("OutDir", "own\\")));
  EXPECT_EQ(settings.ActiveConfiguration(), "Release");
  EXPECT_EQ(settings.OutputFileName("Debug", "Win32"), PathOf("given/Demo.exe"));
  EXPECT_TRUE(settings.Notes().empty());
}

TEST_F(CppProject, WithoutTheUsualImportsCountsAsIfItHadThem) {
  const TProjectSettings& settings =
      Open(Pairs("Debug|Win32") + Property("ConfigurationType", "DynamicLibrary") +
           Property("TargetName", "core"));
  EXPECT_EQ(settings.OutputFileName("Debug", "Win32"), PathOf("Debug/core.dll"));
}

} // namespace
} // namespace workbench
