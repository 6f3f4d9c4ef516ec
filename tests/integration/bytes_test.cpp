// A save touches the Deployment element and, once, the import line; every other byte stays.
#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

namespace integration {
namespace {

constexpr std::string_view Import =
    R"XML(<Import Project="$(MSBuildProjectName).deployproj" Condition="Exists('$(MSBuildProjectName).deployproj')"/>)XML";

struct TShape {
  std::string Name;
  std::string Text;
};

std::string Plain() {
  return ProjectWith(R"(    <Deployment Version="2">
      <!-- the first -->
      <DeployFile LocalName="a" Configuration="Debug" Class="File">
        <Platform Name="Win32">
          <Overwrite>true</Overwrite>
        </Platform>
      </DeployFile>
      <?keep this?>
      <DeployFile Class='File' LocalName='b &amp; c' Configuration='Debug'><Platform Name='Win32'><Overwrite>true</Overwrite></Platform></DeployFile>
    </Deployment>)");
}

std::vector<TShape> Shapes() {
  const std::string plain = Plain();
  std::string noNewline = plain;
  noNewline.pop_back();
  return {{"plain", plain},
          {"byte order mark", "\xEF\xBB\xBF" + plain},
          {"CRLF", Replaced(plain, "\n", "\r\n")},
          {"CR", Replaced(plain, "\n", "\r")},
          {"tabs", Replaced(plain, "  ", "\t")},
          {"no final newline", noNewline},
          {"one line", Replaced(plain, "\n", "")},
          {"comments, CDATA and entities around",
           Replaced(plain, "<ItemGroup>",
                    "<!-- <Deployment/> --><PropertyGroup><X>&lt;<![CDATA[<&]]>&#233;</X>"
                    "</PropertyGroup>\n  <ItemGroup  >")},
          {"Latin-1", Replaced(Replaced(plain, "utf-8", "iso-8859-1"), "<ItemGroup>",
                               "<!-- \xE4 --><ItemGroup>")}};
}

class Bytes : public testing::TestWithParam<TShape> {};

TEST_P(Bytes, OfAnUnchangedProjectStay) {
  TWorkplace place;
  place.Write("p.vproj", GetParam().Text);
  ASSERT_EQ(place.Run({"upgrade", "p.vproj"}).Status, 0);
  ASSERT_EQ(place.Run({"set", "p.vproj", "a", "--enabled", "true"}).Status, 0);
  EXPECT_EQ(place.Read("p.vproj"), GetParam().Text);
}

TEST_P(Bytes, OutsideTheListStayWhenItChanges) {
  TWorkplace place;
  place.Write("p.vproj", GetParam().Text);
  const TRun run = place.Run({"set", "p.vproj", "a", "--remote-name", "\xC3\xA4.dat"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  const std::string after = place.Read("p.vproj");
  EXPECT_EQ(WithoutSection(after), WithoutSection(GetParam().Text));
  EXPECT_EQ(place.Run({"show", "p.vproj", "--json"})
                .Json()["files"][0]["platforms"]["Win32"]["remoteName"],
            "\xC3\xA4.dat");
  EXPECT_NE(after.find("<!-- the first -->"), std::string::npos);
  EXPECT_NE(after.find("<?keep this?>"), std::string::npos);
  EXPECT_NE(after.find("<DeployFile Class='File' LocalName='b &amp; c'"), std::string::npos);
}

TEST_P(Bytes, OfOtherEntriesStayWhenOneIsAddedAndRemovedAgain) {
  TWorkplace place;
  place.Write("p.vproj", GetParam().Text);
  ASSERT_EQ(place.Run({"add", "p.vproj", "new.dat", "--missing-ok", "--quiet"}).Status, 0);
  EXPECT_NE(place.Read("p.vproj"), GetParam().Text);
  ASSERT_EQ(place.Run({"remove", "p.vproj", "new.dat", "--yes", "--quiet"}).Status, 0);
  EXPECT_EQ(place.Read("p.vproj"), GetParam().Text);
}

INSTANTIATE_TEST_SUITE_P(Shapes, Bytes, testing::ValuesIn(Shapes()), [](const auto& shape) {
  std::string name;
  for (const char c : shape.param.Name)
    name += std::isalnum(static_cast<unsigned char>(c)) ? std::string(1, c) : std::string();
  return name;
});

std::string Utf16(std::string_view ascii, bool little) {
  std::string text = little ? "\xFF\xFE" : "\xFE\xFF";
  for (const char c : ascii)
    text += little ? std::string{c, '\0'} : std::string{'\0', c};
  return text;
}

TEST(BytesOfUtf16, StayInTheirEncoding) {
  for (const bool little : {true, false}) {
    TWorkplace place;
    const std::string plain = Replaced(Plain(), "utf-8", "utf-16");
    place.Write("p.vproj", Utf16(plain, little));
    ASSERT_EQ(place.Run({"set", "p.vproj", "a", "--enabled", "true"}).Status, 0);
    EXPECT_EQ(place.Read("p.vproj"), Utf16(plain, little));
    const TRun run = place.Run({"add", "p.vproj", "z.dat", "--missing-ok", "--quiet"});
    ASSERT_EQ(run.Status, 0) << run.Errors;
    EXPECT_EQ(place.Read("p.vproj").substr(0, 2), little ? "\xFF\xFE" : "\xFE\xFF");
    EXPECT_EQ(place.Run({"show", "p.vproj", "--json"}).Json()["files"].size(), 3U);
    ASSERT_EQ(place.Run({"remove", "p.vproj", "z.dat", "--yes", "--quiet"}).Status, 0);
    EXPECT_EQ(place.Read("p.vproj"), Utf16(plain, little));
  }
}

// What stands in the place of the containers, and what a first save makes of it.
TEST(BytesOfAProjectWithoutAList, GetTheListAndTheImportLineAsLastChildren) {
  const std::string head =
      "<Project xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\">";
  for (const std::string& text :
       {head + "\n  <PropertyGroup/>\n</Project>\n", head + "\r\n\t<PropertyGroup/>\r\n</Project>",
        head + "</Project>", std::string("<Project/>"), head + "<ProjectExtensions/></Project>",
        head + "\n  <ProjectExtensions>\n  </ProjectExtensions>\n</Project>\n"}) {
    TWorkplace place;
    place.Write("p.vproj", text);
    const TRun run = place.Run({"add", "p.vproj", "z.dat", "--missing-ok", "--quiet"});
    ASSERT_EQ(run.Status, 0) << run.Errors << text;
    const std::string after = place.Read("p.vproj");
    EXPECT_NE(after.find(Import), std::string::npos) << after;
    EXPECT_EQ(after.find(Import), after.rfind(Import));
    EXPECT_GT(after.find(Import), after.find("</ProjectExtensions>"));
    EXPECT_EQ(place.Run({"show", "p.vproj", "--json"}).Json()["files"].size(), 1U);
    ASSERT_EQ(place.Run({"add", "p.vproj", "y.dat", "--missing-ok", "--quiet"}).Status, 0);
    EXPECT_EQ(WithoutSection(place.Read("p.vproj")), WithoutSection(after));
  }
}

TEST(BytesOfAnUnknownElement, AreWarnedOfBeforeTheyAreLost) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith("<Deployment Version=\"2\">\n<DeployFile LocalName=\"a\" "
                                     "Configuration=\"\" Class=\"File\" Odd=\"1\"/>\n<Strange/>\n"
                                     "</Deployment>"));
  const TRun run = place.Run({"show", "p.vproj"});
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Errors,
            "deploymgr: p.vproj:19: warning: unknown element \"Strange\" in \"Deployment\" is not "
            "kept when the project is saved\n"
            "deploymgr: p.vproj:18: warning: unknown attribute \"Odd\" of \"DeployFile\" is not "
            "kept when the project is saved\n");
}

} // namespace
} // namespace integration
