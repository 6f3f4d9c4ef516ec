#include "tests/package/model/stored_deployment.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace deployment {
namespace {

std::vector<std::string> WarningsOf(std::string_view section) {
  TStoredDeployment stored;
  stored.Load(section);
  std::vector<std::string> texts;
  for (const auto& [text, place] : stored.Host.GetMessageServices().Warnings)
    texts.push_back(place.File + ":" + std::to_string(place.Line) + ": " + text);
  return texts;
}

using TTexts = std::vector<std::string>;

TEST(LostContent, SaysNothingOfASectionThatIsWrittenAsItWasRead) {
  EXPECT_EQ(WarningsOf(R"(<Deployment Version="2">
<DeployFile LocalName="a" Configuration="Debug" Class="File" Condition="x" Required="true">
<Platform Name="Win32"><RemoteDir>d</RemoteDir><Operation>1</Operation><LocalCommand>l</LocalCommand>
<RemoteCommand>r</RemoteCommand><Enabled>false</Enabled><RemoteName>n</RemoteName>
<Overwrite>true</Overwrite></Platform></DeployFile>
<DeployClass Name="File" Description="d" Condition="x" Required="true">
<Platform Name="Win32"><Extensions>.a</Extensions></Platform></DeployClass>
<ProjectRoot Platform="Win32" Name="App"/></Deployment>)"),
            TTexts());
}

TEST(LostContent, NamesUnknownElementsOfTheSectionWithTheirPlace) {
  EXPECT_EQ(WarningsOf("<Deployment Version=\"2\">\n<DeployThing/>\n</Deployment>"),
            TTexts({"App.vproj:2: unknown element \"DeployThing\" in \"Deployment\" is not kept "
                    "when the project is saved"}));
}

TEST(LostContent, NamesUnknownAttributesOfEveryKindOfElement) {
  EXPECT_EQ(WarningsOf(R"(<Deployment Version="2" A="1"><DeployFile LocalName="a" B="1">)"
                       R"(<Platform Name="Win32" C="1"><RemoteDir D="1">x</RemoteDir></Platform>)"
                       R"(</DeployFile><DeployClass Name="File" E="1"/>)"
                       R"(<ProjectRoot Platform="Win32" Name="App" F="1"/></Deployment>)"),
            TTexts({"App.vproj:1: unknown attribute \"A\" of \"Deployment\" is not kept when the "
                    "project is saved",
                    "App.vproj:1: unknown attribute \"B\" of \"DeployFile\" is not kept when the "
                    "project is saved",
                    "App.vproj:1: unknown attribute \"C\" of \"Platform\" is not kept when the "
                    "project is saved",
                    "App.vproj:1: unknown attribute \"D\" of \"RemoteDir\" is not kept when the "
                    "project is saved",
                    "App.vproj:1: unknown attribute \"E\" of \"DeployClass\" is not kept when the "
                    "project is saved",
                    "App.vproj:1: unknown attribute \"F\" of \"ProjectRoot\" is not kept when the "
                    "project is saved"}));
}

TEST(LostContent, NamesValuesThatBelongToTheOtherKindOfEntry) {
  EXPECT_EQ(WarningsOf(R"(<Deployment Version="2"><DeployFile LocalName="a"><Platform Name="W">)"
                       R"(<Extensions>.a</Extensions></Platform></DeployFile></Deployment>)"),
            TTexts({"App.vproj:1: unknown element \"Extensions\" in \"Platform\" is not kept when "
                    "the project is saved"}));
}

TEST(LostContent, NamesValuesThatStandInTheEntryItself) {
  EXPECT_EQ(WarningsOf(R"(<Deployment Version="2"><DeployFile LocalName="a">)"
                       R"(<RemoteDir>x</RemoteDir></DeployFile></Deployment>)"),
            TTexts({"App.vproj:1: unknown element \"RemoteDir\" in \"DeployFile\" is not kept when "
                    "the project is saved"}));
}

TEST(LostContent, NamesTheSecondOfSeveralCommands) {
  EXPECT_EQ(WarningsOf(R"(<Deployment Version="2"><DeployFile LocalName="a"><Platform Name="W">)"
                       R"(<LocalCommand>one</LocalCommand><LocalCommand>two</LocalCommand>)"
                       R"(</Platform></DeployFile></Deployment>)"),
            TTexts({"App.vproj:1: one of several elements \"LocalCommand\" in one \"Platform\" is "
                    "not kept when the project is saved"}));
}

TEST(LostContent, CountsEntriesThatALaterOneReplaces) {
  EXPECT_EQ(WarningsOf(R"(<Deployment Version="2"><DeployFile LocalName="a"/>)"
                       R"(<DeployFile LocalName="a"/><DeployFile LocalName="b"/></Deployment>)"),
            TTexts({"App.vproj:1: 1 file entries have the same configuration, platform and name as "
                    "a later one, which counts; the earlier ones are not kept when the project is "
                    "saved"}));
}

TEST(LostContent, TellsManyFindsInOneSentence) {
  std::string section = "<Deployment Version=\"2\">";
  for (int i = 0; i < 50; ++i)
    section += "<Strange/>";
  const TTexts warnings = WarningsOf(section + "</Deployment>");
  ASSERT_EQ(warnings.size(), 21U);
  EXPECT_EQ(warnings.back(), "App.vproj:1: 30 more unknown elements and attributes are not kept "
                             "when the project is saved");
}

TEST(LostContent, SaysNothingOfTheDefaultsThatShipWithTheHost) {
  TStoredDeployment stored;
  const auto defaults = ParseMemoryXML(R"(<Deployment Version="2" Odd="1"/>)");
  stored.Storage.Read(stored.Deployment(), *defaults);
  EXPECT_TRUE(stored.Host.GetMessageServices().Warnings.empty());
}

} // namespace
} // namespace deployment
