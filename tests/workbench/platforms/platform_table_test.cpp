#include "tests/support/memory_xml.h"
#include "workbench/platforms/platform_table.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace workbench {
namespace {

TPlatformTable Read(const std::string& text) {
  return TPlatformTable::FromXml(*deployment::ParseMemoryXML(text, "platforms.xml"));
}

std::string ErrorOf(const std::string& text) {
  try {
    Read(text);
  } catch (const deployment::TInputError& error) {
    return error.Place().File + ":" + std::to_string(error.Place().Line) + ": " + error.what();
  }
  return "no error";
}

std::string Platform(const std::string& attributes, const std::string& content = "") {
  return "<Platforms Version=\"1\">\n<Platform " + attributes + ">" + content +
         "</Platform></Platforms>";
}

const std::string Facts = "Mobile=\"false\" DefaultRemoteDir=\"\" RequiresProfile=\"true\" "
                          "IgnoresCase=\"0\"";

TEST(PlatformTable, ThatShipsIsTheBuiltInOne) {
  std::ifstream file("ObjRepos/Deploy/platforms.xml", std::ios::binary);
  std::stringstream text;
  text << file.rdbuf();
  const TPlatformTable shipped = Read(text.str());
  const TPlatformTable builtIn = TPlatformTable::BuiltIn();
  ASSERT_EQ(shipped.Names(), builtIn.Names());
  for (const std::string& name : shipped.Names()) {
    const TPlatformFacts& left = shipped.FindPlatform(name)->Facts();
    const TPlatformFacts& right = builtIn.FindPlatform(name)->Facts();
    EXPECT_EQ(left.Name, right.Name);
    EXPECT_EQ(left.Mobile, right.Mobile) << name;
    EXPECT_EQ(left.DefaultRemoteDir, right.DefaultRemoteDir) << name;
    EXPECT_EQ(left.RequiresProfile, right.RequiresProfile) << name;
    EXPECT_EQ(left.IgnoresCase, right.IgnoresCase) << name;
    ASSERT_EQ(left.Outputs.Count(), right.Outputs.Count()) << name;
    for (const auto& [kind, naming] : left.Outputs)
      EXPECT_EQ(naming, *right.Outputs.Find(kind)) << name << kind;
    ASSERT_EQ(left.Personalities.Count(), right.Personalities.Count()) << name;
    for (const auto& [personality, rules] : left.Personalities)
      EXPECT_EQ(rules, *right.Personalities.Find(personality)) << name << personality;
  }
}

TEST(PlatformTable, NamesThePlatformsInOrder) {
  EXPECT_EQ(TPlatformTable::BuiltIn().Names(),
            (std::vector<std::string>{"Win32", "Win64", "OSX32", "iOSSimulator", "iOSDevice32",
                                      "iOSDevice64", "Android", "Linux64", "LinuxARM64"}));
}

TEST(PlatformTable, NamesOutputsByKind) {
  const TPlatformTable table = TPlatformTable::BuiltIn();
  const TPlatform* windows = table.FindPlatform("Win32");
  EXPECT_EQ(windows->GetOutputExtension("Application"), ".exe");
  EXPECT_EQ(windows->GetOutputExtension("Console"), ".exe");
  EXPECT_EQ(windows->GetOutputExtension("Package"), ".vpk");
  EXPECT_EQ(windows->GetOutputExtension("Utility"), "");
  const TPlatform* android = table.FindPlatform("Android");
  EXPECT_EQ(android->GetOutputPrefix("Console"), "lib");
  EXPECT_EQ(android->GetOutputPrefix("Package"), "vpk");
  EXPECT_EQ(android->GetOutputExtension("Package"), ".so");
  EXPECT_EQ(android->GetDefaultRemoteDir(), "assets\\internal\\");
  EXPECT_TRUE(android->IsMobile());
  EXPECT_EQ(table.FindPlatform("OSX32")->GetOutputExtension("Library"), ".dylib");
}

TEST(PlatformTable, NamesLinuxOutputsAndSymbolsAsItsToolsDo) {
  const TPlatformTable table = TPlatformTable::BuiltIn();
  for (const char* name : {"Linux64", "LinuxARM64"}) {
    const TPlatform* platform = table.FindPlatform(name);
    ASSERT_NE(platform, nullptr) << name;
    EXPECT_EQ(platform->GetOutputPrefix("Application"), "");
    EXPECT_EQ(platform->GetOutputExtension("Application"), "");
    EXPECT_EQ(platform->GetOutputPrefix("Library"), "lib");
    EXPECT_EQ(platform->GetOutputExtension("Library"), ".so");
    EXPECT_EQ(platform->GetOutputPrefix("Package"), "vpk");
    EXPECT_EQ(platform->GetOutputExtension("Package"), ".so");
    EXPECT_EQ(platform->SymbolExtension("Ardent.Personality"), ".debug");
    EXPECT_EQ(platform->SymbolExtension("Corvane.Personality"), ".debug");
    EXPECT_EQ(platform->GetDefaultRemoteDir(), ".\\");
    EXPECT_FALSE(platform->IsMobile());
    EXPECT_FALSE(platform->IgnoresCase());
    EXPECT_TRUE(platform->RequiresProfile("Ardent.Personality"));
  }
}

TEST(PlatformTable, TakesTheUsersTableOnTop) {
  TPlatformTable table = TPlatformTable::BuiltIn();
  table.Overlay(Read("<Platforms Version=\"1\">"
                     "<Platform Name=\"Win64\" Mobile=\"true\" DefaultRemoteDir=\"\" "
                     "RequiresProfile=\"false\" IgnoresCase=\"false\"/>"
                     "<Platform Name=\"Orbit\" " +
                     Facts + "/></Platforms>"));
  EXPECT_TRUE(table.FindPlatform("Win64")->IsMobile());
  EXPECT_EQ(table.FindPlatform("Win64")->GetOutputExtension("Application"), "");
  EXPECT_EQ(table.FindPlatform("Win32")->GetOutputExtension("Application"), ".exe");
  EXPECT_EQ(table.Names(),
            (std::vector<std::string>{"Win32", "Win64", "OSX32", "iOSSimulator", "iOSDevice32",
                                      "iOSDevice64", "Android", "Linux64", "LinuxARM64", "Orbit"}));
}

TEST(PlatformTable, KnowsSymbolsAndProfilesByPersonality) {
  const TPlatformTable table = TPlatformTable::BuiltIn();
  EXPECT_EQ(table.FindPlatform("Win64")->SymbolExtension("Ardent.Personality"), ".qds");
  EXPECT_EQ(table.FindPlatform("Win64")->SymbolExtension("Corvane.Personality"), ".vcp");
  EXPECT_EQ(table.FindPlatform("Win64")->SymbolExtension("Other"), "");
  EXPECT_EQ(table.FindPlatform("Android")->SymbolExtension("Ardent.Personality"), "");
  EXPECT_TRUE(table.FindPlatform("Win32")->RequiresProfile("Other"));
  EXPECT_FALSE(table.FindPlatform("Android")->RequiresProfile("Ardent.Personality"));
  EXPECT_FALSE(table.FindPlatform("Android")->PersonalityRequiresProfile("Ardent.Personality"));
}

TEST(PlatformTable, FindsPlatformsByTheirExactName) {
  const TPlatformTable table = TPlatformTable::BuiltIn();
  EXPECT_EQ(table.FindPlatform("win32"), nullptr);
  EXPECT_EQ(table.FindPlatform(""), nullptr);
}

TEST(PlatformTable, TakesPlatformsThatNobodyKnewBefore) {
  const TPlatformTable table = Read(
      Platform("Name=\"Orbit\" " + Facts,
               "<Output Kind=\"Application\" Prefix=\"o-\" Extension=\".orb\"/>"
               "<Personality Name=\"Third\" SymbolExtension=\".sym\" RequiresProfile=\"true\"/>"));
  const TPlatform* platform = table.FindPlatform("Orbit");
  ASSERT_NE(platform, nullptr);
  EXPECT_EQ(platform->GetOutputPrefix("Console"), "o-");
  EXPECT_EQ(platform->SymbolExtension("Third"), ".sym");
  EXPECT_TRUE(platform->PersonalityRequiresProfile("Third"));
  EXPECT_FALSE(platform->PersonalityRequiresProfile("Fourth"));
}

TEST(PlatformTable, SaysWhereItIsWrong) {
  EXPECT_EQ(ErrorOf("<Other/>"), "platforms.xml:1: element \"Other\": the root of a platform table "
                                 "is \"Platforms\"");
  EXPECT_EQ(ErrorOf("<Platforms/>"), "platforms.xml:1: element \"Platforms\" lacks the required "
                                     "attribute \"Version\"");
  EXPECT_EQ(
      ErrorOf("<Platforms Version=\"2\"/>"),
      "platforms.xml:1: element \"Platforms\": attribute \"Version\" is \"2\", known is \"1\"");
  EXPECT_EQ(ErrorOf("<Platforms Version=\"1\"/>"),
            "platforms.xml:1: element \"Platforms\": the table has no platform");
  EXPECT_EQ(ErrorOf("<Platforms Version=\"1\">\n<Platfrom/></Platforms>"),
            "platforms.xml:2: element \"Platfrom\": a platform table has no such element");
  EXPECT_EQ(ErrorOf(Platform("Name=\" \" " + Facts)),
            "platforms.xml:2: element \"Platform\": attribute \"Name\" is empty");
  EXPECT_EQ(
      ErrorOf(Platform("Name=\"All Platforms\" " + Facts)),
      "platforms.xml:2: element \"Platform\": \"All Platforms\" stands for every platform and "
      "cannot name one");
  EXPECT_EQ(ErrorOf(Platform("Name=\"A\"")), "platforms.xml:2: element \"Platform\" lacks the "
                                             "required attribute \"Mobile\"");
  EXPECT_EQ(
      ErrorOf(Platform("Name=\"A\" Mobile=\"maybe\"")),
      "platforms.xml:2: element \"Platform\": attribute \"Mobile\" is \"maybe\", which is not "
      "a Boolean (true or false)");
  EXPECT_EQ(ErrorOf(Platform("Name=\"A\" Mobile=\"1\" DefaultRemoteDir=\"a\\..\\..\\b\"")),
            "platforms.xml:2: element \"Platform\": attribute \"DefaultRemoteDir\" is "
            "\"a\\..\\..\\b\", which leaves the project's directory on the target");
}

TEST(PlatformTable, RefusesNamesThatStandTwice) {
  const std::string platform = "<Platform Name=\"A\" " + Facts + "/>\n";
  EXPECT_EQ(ErrorOf("<Platforms Version=\"1\">\n" + platform + platform + "</Platforms>"),
            "platforms.xml:3: element \"Platform\": the platform \"A\" stands in the table twice");
  const std::string output = "\n<Output Kind=\"K\" Prefix=\"\" Extension=\"\"/>";
  EXPECT_EQ(
      ErrorOf(Platform("Name=\"A\" " + Facts, output + output)),
      "platforms.xml:4: element \"Output\": the platform \"A\" has the output kind \"K\" twice");
  const std::string rules =
      "\n<Personality Name=\"P\" SymbolExtension=\"\" RequiresProfile=\"false\"/>";
  EXPECT_EQ(ErrorOf(Platform("Name=\"A\" " + Facts, rules + rules)),
            "platforms.xml:4: element \"Personality\": the platform \"A\" has the personality "
            "\"P\" twice");
}

} // namespace
} // namespace workbench
