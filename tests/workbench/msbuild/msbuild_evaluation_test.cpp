#include "tests/workbench/project/project_fixture.h"

namespace workbench {
namespace {

using MSBuildProperties = TProjectTest;
using MSBuildImports = TProjectTest;
using MSBuildLimits = TProjectTest;

template <class TAction>
std::string ErrorOf(TAction action) {
  try {
    action();
  } catch (const deployment::TInputError& error) {
    return error.what();
  }
  return "no error";
}

TEST_F(MSBuildProperties, TakeTheLaterAssignmentAndIgnoreCaseOfNames) {
  auto& project = Evaluate("<PropertyGroup><A>1</A><B>$(a)2</B><a>3</a></PropertyGroup>"
                           "<PropertyGroup><C>$(A)$(b)$(Unknown)</C></PropertyGroup>");
  EXPECT_EQ(project.Property("A"), "3");
  EXPECT_EQ(project.Property("c"), "312");
  EXPECT_EQ(project.Property("Unknown"), "");
}

TEST_F(MSBuildProperties, FollowConditionsOnGroupsAndProperties) {
  auto& project = Evaluate("<PropertyGroup Condition=\"'$(Config)'=='Debug'\"><A>debug</A>"
                           "<B Condition=\"'$(A)'!='debug'\">no</B></PropertyGroup>"
                           "<PropertyGroup Condition=\"'$(Config)'=='Release'\"><A>release</A>"
                           "</PropertyGroup>",
                           {{"Config", "Debug"}});
  EXPECT_EQ(project.Property("A"), "debug");
  EXPECT_EQ(project.Property("B"), "");
}

TEST_F(MSBuildProperties, GivenFromOutsideWinOverTheProject) {
  auto& project = Evaluate("<PropertyGroup><Platform>Win32</Platform></PropertyGroup>",
                           {{"Platform", "Android"}});
  EXPECT_EQ(project.Property("Platform"), "Android");
  EXPECT_TRUE(project.Notes().empty());
}

TEST_F(MSBuildProperties, StartFromTheEnvironment) {
  Environment = {{"HOMEDIR", "C:\\a%b"}, {"Kept", "x"}};
  auto& project = Evaluate("<PropertyGroup><A>$(HomeDir)</A><Kept>y</Kept></PropertyGroup>");
  EXPECT_EQ(project.Property("A"), "C:\\a%b");
  EXPECT_EQ(project.Property("Kept"), "y");
}

TEST_F(MSBuildProperties, NameTheProjectAndTheFileAtHand) {
  const std::string sub = PathOf("sub/part.props");
  Imports.Texts[sub] = "<Project><PropertyGroup><Part>$(MSBuildThisFileDirectory)|"
                       "$(MSBuildProjectFile)|$(MSBuildThisFileName)</Part></PropertyGroup>"
                       "</Project>";
  auto& project = Evaluate("<Import Project=\"sub\\part.props\"/><PropertyGroup><A>"
                           "$(MSBuildProjectName)$(MSBuildProjectExtension)</A>"
                           "<B>$(MSBuildThisFile)</B></PropertyGroup>");
  EXPECT_EQ(project.Property("Part"), PathOf("sub") + "/|Demo.vproj|part");
  EXPECT_EQ(project.Property("A"), "Demo.vproj");
  EXPECT_EQ(project.Property("B"), "Demo.vproj");
  EXPECT_EQ(project.Property("MSBuildProjectDirectory"), Directory.string());
  EXPECT_EQ(project.Property("MSBuildProjectFullPath"), PathOf("Demo.vproj"));
}

TEST_F(MSBuildProperties, OfTheBuildItselfCannotBeAssigned) {
  auto& project =
      Evaluate("<PropertyGroup><MSBuildProjectName>Other</MSBuildProjectName></PropertyGroup>");
  EXPECT_EQ(project.Property("MSBuildProjectName"), "Demo");
  ASSERT_EQ(project.Notes().size(), 1U);
  EXPECT_EQ(project.Notes()[0].Kind, TNoteKind::IgnoredAssignment);
  EXPECT_EQ(project.Notes()[0].Text,
            "the property \"MSBuildProjectName\" cannot be assigned; the build itself sets it");
}

TEST_F(MSBuildProperties, LoseTheirEscapesWhenTheyAreUsed) {
  auto& project = Evaluate("<PropertyGroup><A>a%3Bb</A><B>$(A);c</B></PropertyGroup>"
                           "<ItemGroup><X Include=\"$(B)\"/></ItemGroup>");
  EXPECT_EQ(project.Property("B"), "a;b;c");
  ASSERT_EQ(project.Items().size(), 2U);
  EXPECT_EQ(project.Items()[0].Include, "a;b");
}

TEST_F(MSBuildProperties, AreNotKnownWhereAFunctionIsNotCarriedOut) {
  auto& project = Evaluate("<PropertyGroup>\n<A>$([System.Environment]::Exit(1))$(X)</A>"
                           "\n<B>x$(A)</B><C>$(X</C></PropertyGroup>");
  ASSERT_TRUE(project.Value("B").Unknown);
  EXPECT_EQ(UnknownSentence(*project.Value("B").Unknown),
            "the property \"A\" is not known here: it calls \"[System.Environment]::Exit\", which "
            "is not evaluated here");
  EXPECT_EQ(UnknownPlace(*project.Value("B").Unknown).Line, 2U);
  EXPECT_EQ(project.Property("C"), "$(X");
  EXPECT_TRUE(project.Notes().empty());
}

TEST_F(MSBuildProperties, AreEmptyWhenTheyAreNothingButBlanks) {
  auto& project = Evaluate("<PropertyGroup><A>\n    </A><B>x</B><B> </B><C> y </C>"
                           "</PropertyGroup>");
  EXPECT_EQ(project.Property("A"), "");
  EXPECT_EQ(project.Property("B"), "");
  EXPECT_EQ(project.Property("C"), " y ");
}

TEST_F(MSBuildProperties, AreInDoubtBehindAConditionThatIsNotKnown) {
  auto& project = Evaluate(
      "<PropertyGroup><U>$(Registry:HKEY_LOCAL_MACHINE\\X@Y)</U><A>1</A><B>1</B></PropertyGroup>"
      "<PropertyGroup Condition=\"'$(U)'=='z'\"><A>2</A><B>1</B><C>3</C></PropertyGroup>"
      "<Choose><When Condition=\"'$(U)'=='z'\"><PropertyGroup><D>4</D></PropertyGroup></When>"
      "<Otherwise><PropertyGroup><E>5</E></PropertyGroup></Otherwise></Choose>"
      "<ItemGroup Condition=\"'$(U)'=='z'\"><X Include=\"x\"/></ItemGroup>");
  EXPECT_TRUE(project.Value("A").Unknown);
  EXPECT_EQ(project.Property("B"), "1");
  EXPECT_FALSE(project.Value("B").Unknown);
  for (const std::string_view name : {"C", "D", "E"})
    EXPECT_TRUE(project.Value(name).Unknown) << name;
  ASSERT_EQ(project.Items().size(), 1U);
  EXPECT_TRUE(project.Items()[0].Unknown);
}

TEST_F(MSBuildProperties, ComeFromTheFirstBranchThatHolds) {
  auto& project = Evaluate(
      "<Choose><When Condition=\"false\"><PropertyGroup><A>1</A></PropertyGroup></When>"
      "<When Condition=\"true\"><PropertyGroup><A>2</A></PropertyGroup>"
      "<ItemGroup><X Include=\"x\"/></ItemGroup></When>"
      "<When Condition=\"true\"><PropertyGroup><A>3</A></PropertyGroup></When>"
      "<Otherwise><PropertyGroup><A>4</A></PropertyGroup></Otherwise></Choose>"
      "<Choose><When Condition=\"false\"/><Otherwise><PropertyGroup><B>5</B></PropertyGroup>"
      "</Otherwise></Choose>");
  EXPECT_EQ(project.Property("A"), "2");
  EXPECT_EQ(project.Property("B"), "5");
  EXPECT_EQ(project.Items().size(), 1U);
}

TEST_F(MSBuildProperties, ReadElementNamesExactly) {
  EXPECT_EQ(Evaluate("<propertygroup><A>1</A></propertygroup><Target><PropertyGroup><A>2</A>"
                     "</PropertyGroup></Target>")
                .Property("A"),
            "");
}

TEST_F(MSBuildProperties, TellWhereTheyWereAssigned) {
  auto& project = Evaluate("\n<PropertyGroup>\n<A>1</A></PropertyGroup>");
  EXPECT_EQ(project.PropertyPlace("A").Line, 3U);
  EXPECT_EQ(project.PropertyPlace("A").File, PathOf("Demo.vproj"));
}

TEST_F(MSBuildProperties, GiveTheLineOfACondition) {
  try {
    Evaluate("\n\n<PropertyGroup Condition=\"'a\"/>");
    FAIL();
  } catch (const deployment::TInputError& error) {
    EXPECT_STREQ(error.what(),
                 "the condition \"'a\" is not valid: at character 1, a quote is not closed");
    EXPECT_EQ(error.Place().Line, 3U);
    EXPECT_EQ(error.Place().File, PathOf("Demo.vproj"));
  }
}

TEST_F(MSBuildImports, AreReadInTheirPlace) {
  Imports.Texts[PathOf("a.props")] = "<Project><PropertyGroup><A>a</A><B>$(Before)</B>"
                                     "</PropertyGroup><Import Project=\"b.props\"/></Project>";
  Imports.Texts[PathOf("b.props")] = "<Project><PropertyGroup><A>b</A></PropertyGroup></Project>";
  auto& project =
      Evaluate("<PropertyGroup><Before>x</Before><A>0</A></PropertyGroup>"
               "<ImportGroup Condition=\"true\"><Import Project=\".\\a.props\" "
               "Condition=\"'$(A)'=='0'\"/></ImportGroup>"
               "<ImportGroup Condition=\"false\"><Import Project=\"c\"/></ImportGroup>");
  EXPECT_EQ(project.Property("A"), "b");
  EXPECT_EQ(project.Property("B"), "x");
  EXPECT_EQ(Imports.Asked, (std::vector<std::string>{PathOf("a.props"), PathOf("b.props")}));
}

TEST_F(MSBuildImports, AreResolvedAgainstTheFileThatImports) {
  Imports.Texts[PathOf("sub/a.props")] = "<Project><Import Project=\"..\\b.props\"/></Project>";
  Imports.Texts[PathOf("b.props")] =
      "<Project><PropertyGroup><B>found</B></PropertyGroup></Project>";
  EXPECT_EQ(Evaluate("<Import Project=\"sub/a.props\"/>").Property("B"), "found");
}

TEST_F(MSBuildImports, ThatDoNotExistAreNoted) {
  auto& project = Evaluate("\n<Import Project=\"$(VCTargetsPath)\\Microsoft.Cpp.props\"/>");
  ASSERT_EQ(project.Notes().size(), 1U);
  EXPECT_EQ(project.Notes()[0].Kind, TNoteKind::MissingImport);
  EXPECT_EQ(project.Notes()[0].Text,
            "the import \"/Microsoft.Cpp.props\" was skipped: there is no such file");
  EXPECT_EQ(project.Notes()[0].Place.Line, 2U);
}

TEST_F(MSBuildImports, InACircleAreSkippedAndNoted) {
  Imports.Texts[PathOf("a.props")] = "<Project><Import Project=\"Demo.vproj\"/>"
                                     "<Import Project=\"a.props\"/></Project>";
  auto& project = Evaluate("<Import Project=\"Demo.vproj\"/><Import Project=\"a.props\"/>"
                           "<Import Project=\"a.props\"/>");
  ASSERT_EQ(project.Notes().size(), 4U);
  for (const TEvaluationNote& note : project.Notes())
    EXPECT_EQ(note.Kind, TNoteKind::SkippedImport);
  EXPECT_EQ(project.Notes()[0].Text, "the import \"" + PathOf("Demo.vproj") +
                                         "\" was skipped: it is part of the project already");
  EXPECT_EQ(Imports.Asked, (std::vector<std::string>{PathOf("a.props")}));
}

TEST_F(MSBuildImports, FromSharesAndTheNetworkAreNeverTouched) {
  auto& project = Evaluate("<Import Project=\"\\\\server\\share\\a.props\"/>"
                           "<Import Project=\"//server/share/a.props\"/>"
                           "<Import Project=\"http://host/a.props\"/>"
                           "<Import Project=\"C:\\a.props\"/>"
                           "<Import Project=\"\\\\server\\share\\*.props\"/>");
  EXPECT_TRUE(Imports.Asked.empty());
  ASSERT_EQ(project.Notes().size(), 5U);
  EXPECT_EQ(project.Notes()[0].Text, "the import \"\\\\server\\share\\a.props\" was skipped: it is "
                                     "not a file of this machine");
}

TEST_F(MSBuildImports, ThatAreNoProjectsAreNamed) {
  Imports.Texts[PathOf("a.props")] = "<Other/>";
  EXPECT_EQ(ErrorOf([&] { Evaluate("<Import Project=\"a.props\"/>"); }),
            "the root element is \"Other\", which is no MSBuild project");
  EXPECT_EQ(ErrorOf([&] { Evaluate("<Import/>"); }),
            "element \"Import\" lacks the required attribute \"Project\"");
}

TEST_F(MSBuildImports, WithWildcardsTakeTheFilesThatMatch) {
  MakeFile("ext/b.props");
  MakeFile("ext/a.props");
  MakeFile("ext/c.txt");
  Evaluate("<Import Project=\"ext\\*.props\"/>");
  EXPECT_EQ(Imports.Asked,
            (std::vector<std::string>{PathOf("ext/a.props"), PathOf("ext/b.props")}));
}

TEST_F(MSBuildImports, MayBeNested64Deep) {
  for (int i = 1; i <= 65; ++i)
    Imports.Texts[PathOf(std::to_string(i))] =
        "<Project><PropertyGroup><Deep>" + std::to_string(i) +
        "</Deep></PropertyGroup><Import Project=\"" + std::to_string(i + 1) + "\"/></Project>";
  EXPECT_EQ(ErrorOf([&] { Evaluate("<Import Project=\"1\"/>"); }),
            "the import \"" + PathOf("65") + "\" is nested deeper than 64 levels");
  EXPECT_EQ(Evaluate("<Import Project=\"2\"/>").Property("Deep"), "65");
}

TEST_F(MSBuildLimits, StopPropertiesThatDoubleEachOther) {
  std::string group = "<A0>0123456789</A0>";
  for (int i = 1; i < 60; ++i) {
    const std::string before = "$(A" + std::to_string(i - 1) + ")";
    const std::string name = "A" + std::to_string(i);
    for (const std::string& piece : {"<" + name + ">", before, before, "</" + name + ">"})
      group += piece;
  }
  EXPECT_EQ(ErrorOf([&] { Evaluate("<PropertyGroup>" + group + "</PropertyGroup>"); }),
            "element \"A17\": with its references replaced, \"$(A16)$(A16)\" grows too long");
}

TEST_F(MSBuildLimits, StopItemsThatDoubleThemselves) {
  std::string group = "<X Include=\"a\"/>";
  for (int i = 0; i < 60; ++i)
    group += "<X Include=\"@(X);@(X)\"/>";
  EXPECT_EQ(ErrorOf([&] { Evaluate("<ItemGroup>" + group + "</ItemGroup>").Items(); }),
            "the item \"X\" makes the lists of the project grow too long");
}

TEST_F(MSBuildLimits, StopNestedChoices) {
  std::string text;
  for (int i = 0; i < 257; ++i)
    text += "<Choose><Otherwise>";
  for (int i = 0; i < 257; ++i)
    text += "</Otherwise></Choose>";
  EXPECT_EQ(ErrorOf([&] { Evaluate(text); }), "\"Choose\" is nested deeper than 256 levels");
}

} // namespace
} // namespace workbench
