#include "tests/workbench/project/project_fixture.h"

namespace workbench {
namespace {

using PropertyFunctions = TProjectTest;

struct TExample {
  const char* Call;
  const char* Value;
};

TEST_F(PropertyFunctions, GiveWhatABuildGives) {
  MakeFile("here/x.txt");
  MakeFile("marker.props");
  Environment = {{"HOME_DIR", "/home/u"}};
  const TExample examples[] = {
      {"$(T.Replace('b', 'x'))", "axcd.axCD"},
      {"$(T.Substring(2))", "cd.abCD"},
      {"$(T.Substring(2, 2))", "cd"},
      {"$(T.Length)", "9"},
      {"$(Empty.Length)", "0"},
      {"$(Umlaut.Length)", "4"},
      {"$(Umlaut.Substring(1, 1))", "\xC3\xA4"},
      {"$(T.ToUpper())", "ABCD.ABCD"},
      {"$(T.ToLowerInvariant())", "abcd.abcd"},
      {"$(T.Split('.')[1])", "abCD"},
      {"$(T.Split('.').Length)", "2"},
      {"$(T[1])", "b"},
      {"$(T.StartsWith(`ab`))", "True"},
      {"$(T.EndsWith(\"cd\"))", "False"},
      {"$(T.EndsWith('cd', StringComparison.OrdinalIgnoreCase))", "True"},
      {"$(T.Contains('d.a'))", "True"},
      {"$(T.IndexOf('.'))", "4"},
      {"$(T.IndexOf('ab', 1))", "5"},
      {"$(T.LastIndexOf('ab'))", "5"},
      {"$(T.IndexOf('zz'))", "-1"},
      {"$(Path.TrimEnd('\\'))", "out\\bin"},
      {"$(Padded.Trim())", "x"},
      {"$(Number.PadLeft(3, '0'))", "007"},
      {"$(T.Insert(1, '-').Remove(3))", "a-b"},
      {"$(T.Replace('b', '$(Number)').Substring(0, 2))", "a7"},
      {"$([System.String]::IsNullOrEmpty('$(Empty)'))", "True"},
      {"$([System.String]::Concat(a, 'b', `c`))", "abc"},
      {"$([System.String]::Join('-', a, b))", "a-b"},
      {"$([System.String]::Format('{0}_{1}', x, $(Number)))", "x_7"},
      {"$([System.IO.Path]::GetFileName('a\\b.c.txt'))", "b.c.txt"},
      {"$([System.IO.Path]::GetFileNameWithoutExtension('a/b.c.txt'))", "b.c"},
      {"$([System.IO.Path]::GetExtension('a\\b.c.txt'))", ".txt"},
      {"$([System.IO.Path]::GetDirectoryName('a\\b\\c'))", "a\\b"},
      {"$([System.IO.Path]::Combine('a', 'b\\', 'c'))", "a\\b\\c"},
      {"$([System.IO.Path]::ChangeExtension('a.txt', 'md'))", "a.md"},
      {"$([System.IO.Path]::IsPathRooted('\\x'))", "True"},
      {"$([System.IO.File]::Exists('here\\x.txt'))", "True"},
      {"$([System.IO.File]::Exists('here'))", "False"},
      {"$([System.IO.Directory]::Exists('here'))", "True"},
      {"$([System.Environment]::GetEnvironmentVariable('HOME_DIR'))", "/home/u"},
      {"$([System.Environment]::GetEnvironmentVariable('NOT_SET'))", ""},
      {"$([System.Version]::Parse('1.2.3').Minor)", "2"},
      {"$([System.Version]::Parse('1.2.3').ToString(2))", "1.2"},
      {"$([System.Version]::new(4, 5))", "4.5"},
      {"$([System.Math]::Max(3, 12))", "12"},
      {"$([System.Int32]::Parse('42'))", "42"},
      {"$([MSBuild]::Add($(Number), 5))", "12"},
      {"$([MSBuild]::Divide(7, 2))", "3"},
      {"$([MSBuild]::Multiply(1.5, 2))", "3"},
      {"$([MSBuild]::Modulo(7, 4))", "3"},
      {"$([MSBuild]::BitwiseOr(4, 1))", "5"},
      {"$([MSBuild]::EnsureTrailingSlash('a\\b'))", "a\\b\\"},
      {"$([MSBuild]::ValueOrDefault('$(Empty)', 'd'))", "d"},
      {"$([MSBuild]::Unescape('a%3Bb'))", "a;b"},
      {"$([MSBuild]::IsOSPlatform('windows'))", "True"},
      {"$([MSBuild]::VersionGreaterThanOrEquals('v4.10', '4.9'))", "True"},
      {"$([MSBuild]::MakeRelative('/a/b', '/a/c/d'))", "../c/d"},
  };
  for (const TExample& example : examples) {
    TMSBuildEvaluation& project =
        Evaluate("<PropertyGroup><T>abcd.abCD</T><Number>7</Number><Path>out\\bin\\</Path>"
                 "<Padded> x </Padded><Umlaut>b\xC3\xA4r!</Umlaut><A>" +
                 std::string(example.Call) + "</A></PropertyGroup>");
    EXPECT_EQ(project.Property("A"), example.Value) << example.Call;
    EXPECT_FALSE(project.Value("A").Unknown) << example.Call;
  }
}

TEST_F(PropertyFunctions, FindFilesAboveTheProject) {
  MakeFile("marker.props");
  const std::string found = PathOf("marker.props");
  TMSBuildEvaluation& project = Evaluate(
      "<PropertyGroup>"
      "<A>$([MSBuild]::GetPathOfFileAbove('marker.props', '$(MSBuildProjectDirectory)\\a\\b'))</A>"
      "<B>$([MSBuild]::GetDirectoryNameOfFileAbove($(MSBuildThisFileDirectory), marker.props))</B>"
      "<C>$([MSBuild]::GetPathOfFileAbove('no such file anywhere.props'))</C>"
      "<D>$([MSBuild]::NormalizePath('$(MSBuildProjectDirectory)', 'a', '..\\b.txt'))</D>"
      "</PropertyGroup>");
  EXPECT_EQ(project.Property("A"), found);
  EXPECT_EQ(project.Property("B"), Directory.string());
  EXPECT_EQ(project.Property("C"), "");
  EXPECT_EQ(project.Property("D"), PathOf("b.txt"));
}

TEST_F(PropertyFunctions, WithWrongArgumentsAreNotedWithTheirPlace) {
  for (const std::string call :
       {"$(T.Substring(9))", "$(T.Substring(-1))", "$(T.Replace('', 'x'))", "$(T.Replace('a'))",
        "$([MSBuild]::Add(one, 2))", "$([MSBuild]::Divide(1, 0))", "$(T.Split('.')[7])",
        "$([System.Version]::Parse('x'))", "$(T.PadLeft(99999999))", "$(T.)", "$(T.Replace('a')",
        "$([MSBuild])", "$([MSBuild]::GetPathOfFileAbove('..\\x'))", "$(T!)"}) {
    TMSBuildEvaluation& project =
        Evaluate("<PropertyGroup><T>abc</T>\n\n<A>" + call + "</A></PropertyGroup>");
    if (call == "$(T.Replace('a')") // an open reference is plain text
      continue;
    ASSERT_EQ(project.Notes().size(), 1U) << call;
    EXPECT_EQ(project.Notes()[0].Kind, TNoteKind::WrongFunction);
    EXPECT_EQ(project.Notes()[0].Place.Line, 3U);
    EXPECT_TRUE(project.Value("A").Unknown) << call;
  }
}

TEST_F(PropertyFunctions, AreBoundedInLengthAndDepth) {
  std::string doubling = "<T>aaaaaaaa</T>";
  for (int i = 0; i < 20; ++i)
    doubling += "<T>$(T.Replace('a', 'aa'))</T>";
  TMSBuildEvaluation& project = Evaluate("<PropertyGroup>" + doubling + "</PropertyGroup>");
  EXPECT_TRUE(project.Value("T").Unknown);
  std::string deep = "x";
  for (int i = 0; i < 200; ++i)
    deep = "$([System.String]::Copy(" + deep + "))";
  EXPECT_TRUE(Evaluate("<PropertyGroup><A>" + deep + "</A></PropertyGroup>").Value("A").Unknown);
}

TEST_F(PropertyFunctions, RunNothingAndReadNothing) {
  for (const std::string call :
       {"$([System.IO.File]::ReadAllText('Demo.vproj'))",
        "$([System.Diagnostics.Process]::Start(x))", "$([System.DateTime]::Now)",
        "$([System.Guid]::NewGuid())", "$([System.Net.Dns]::GetHostName())",
        "$(Registry:HKEY_CURRENT_USER\\X)"}) {
    TMSBuildEvaluation& project = Evaluate("<PropertyGroup><A>" + call + "</A></PropertyGroup>");
    EXPECT_TRUE(project.Value("A").Unknown) << call;
    EXPECT_EQ(project.Property("A"), "") << call;
  }
}

} // namespace
} // namespace workbench
