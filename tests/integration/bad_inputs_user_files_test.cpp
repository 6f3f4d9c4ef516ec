// Files of the user's own and of the installation that are damaged or were made to do harm.
#include "tests/integration/bad_inputs.h"

namespace integration {
namespace {

TDamage SettingsDamage(const char* name, std::string text, const std::string& message) {
  return {name,
          {{SettingsName, std::move(text)}},
          {"settings", "list"},
          3,
          std::string("%D/") + SettingsName + message};
}

std::vector<TDamage> DamagedSettings() {
  const std::string damaged = ": the settings file is damaged: ";
  const std::string damagedHere = ":1: the settings file is damaged: ";
  return {
      SettingsDamage("Empty", "", damagedHere + "it is no JSON at byte 1; mend it or remove it"),
      SettingsDamage("ZeroBytes", std::string(20, '\0'), damagedHere + "it is no JSON at byte 1"),
      SettingsDamage("CutOff", "{\"language\": \"d", damagedHere + "it is no JSON"),
      SettingsDamage("List", "[]", damaged + "it should be an object, but is []"),
      SettingsDamage("Null", "null", damaged + "it should be an object, but is null"),
      SettingsDamage("NumberBeyondAllRanges", "{\"undo-runs\": 1e999}",
                     damagedHere + "a number is beyond all ranges"),
      SettingsDamage("ValueNull", "{\"language\": null}",
                     damaged + "\"language\" is neither a text nor a list of texts"),
      SettingsDamage("ListOfNumbers", "{\"language\": [1]}",
                     damaged + "\"language\" should be a list of texts, but is [1]"),
      SettingsDamage("NoUtf8", "{\"language\": \"\xFF\"}",
                     damagedHere + "it is no JSON at byte 15"),
      SettingsDamage("HalfCharacter", "{\"language\": \"\\ud800\"}", damagedHere + "it is no JSON"),
      SettingsDamage("TwoDocuments", "{} {}", damagedHere + "it is no JSON at byte 4"),
      SettingsDamage("Nested", std::string(100'000, '['),
                     damaged + "it is nested deeper than 200 levels"),
      SettingsDamage("MemberTwice", R"({"language":"de","language":"en"})",
                     damaged + "it has the member \"language\" twice"),
      {"Directory",
       {{std::string(SettingsName) + "/x", ""}},
       {"settings", "list"},
       3,
       "settings.json: the path names a directory, not a settings file"},
      {"BehindAnotherCommand",
       {{SettingsName, "{"}, {"p.vproj", ProjectListing("")}},
       {"add", "p.vproj", "a", "--missing-ok"},
       3,
       "the settings file is damaged"},
  };
}

TDamage ProfilesDamage(const char* name, const std::string& text, const std::string& message) {
  return {name,
          {{ProfilesName, text}},
          {"profile", "list"},
          3,
          std::string("%D/") + ProfilesName + ": the profiles file is damaged: " + message};
}

// One profile for a machine, with these members instead of its own.
TDamage MachineDamage(const char* name, const std::string& members, const std::string& message) {
  return ProfilesDamage(
      name,
      R"({"profiles":[{"name":"box","platform":"Win32","kind":"ssh","path":"/t",)" + members +
          "}]}",
      message);
}

std::vector<TDamage> DamagedProfiles() {
  const std::string folder = R"({"name":"box","platform":"Win32","kind":"folder","path":"/t"})";
  const std::string port = "\"port\" should be a whole number from 0 to 65535, but is ";
  const std::string box = "the profile \"box\": ";
  return {
      ProfilesDamage("List", "[]",
                     "it should be an object with the member \"profiles\", but is []"),
      ProfilesDamage("WithoutProfiles", "{}", "there is no member \"profiles\""),
      ProfilesDamage("Number", R"({"profiles":[1]})",
                     "it should be an object with the member \"name\""),
      ProfilesDamage("WithoutAName", R"({"profiles":[{"platform":"Win32"}]})",
                     "there is no member \"name\""),
      ProfilesDamage("OfAnUnknownKind",
                     R"({"profiles":[{"name":"b","platform":"P","kind":"ftp"}]})",
                     "there are no profiles of kind \"ftp\""),
      ProfilesDamage("OfARelativePath",
                     R"({"profiles":[{"name":"b","platform":"P","kind":"folder","path":"t"}]})",
                     "the path of the profile \"b\" is not a full path: t"),
      ProfilesDamage("Twice", "{\"profiles\":[" + folder + "," + folder + "]}",
                     "it has two profiles \"box\""),
      MachineDamage("PortTooLarge", R"("host":"h","port":4294967318)", port + "4294967318"),
      MachineDamage("PortNegative", R"("host":"h","port":-1)", port + "-1"),
      MachineDamage("PortOfLetters", R"("host":"h","port":"22x")", port + "\"22x\""),
      MachineDamage("PortFraction", R"("host":"h","port":22.5)", port + "22.5"),
      MachineDamage("HostEmpty", R"("host":"")", box + "no host is given"),
      MachineDamage("HostLikeAnOption", R"("host":"-oProxyCommand=x")",
                    box + "\"-oProxyCommand=x\" cannot be a host"),
      MachineDamage("HostWithShell", R"J("host":"$(touch x)")J",
                    box + "\"$(touch x)\" cannot be a host"),
      MachineDamage("UserWithALineEnd", R"("host":"h","user":"a\nb")",
                    box + "\"a\\x0Ab\" cannot be a user"),
      MachineDamage("OptionOfTheConnection",
                    R"("host":"h","sshOptions":["StrictHostKeyChecking=no"])",
                    box + "the option StrictHostKeyChecking is set by the connection itself"),
      MachineDamage("TimeoutBeyondAllRanges", R"("host":"h","connectTimeout":99999999999)",
                    "\"connectTimeout\" should be a whole number from 0 to 4294967295"),
      {"BehindADeploy",
       {{ProfilesName, "{"}, {"p.vproj", ProjectListing("")}},
       {"deploy", "p.vproj"},
       3,
       "the profiles file is damaged"},
  };
}

TDamage TableDamage(const char* name, const char* file, std::string text,
                    std::vector<std::string> command, const char* message) {
  return {name,
          {{file, std::move(text)}, {"p.vproj", ProjectHolding("")}},
          std::move(command),
          3,
          message};
}

std::vector<TDamage> DamagedUserTables() {
  return {
      TableDamage("NoXml", UserTableName, "x", {"list", "p.vproj"},
                  "platforms.xml:1: not well-formed"),
      TableDamage("OfAnotherRoot", UserTableName, "<A/>", {"platforms"},
                  "element \"A\": the root of a platform table is \"Platforms\""),
      TableDamage("OfAnotherVersion", UserTableName, "<Platforms Version='9'/>", {"platforms"},
                  "attribute \"Version\" is \"9\", known is \"1\""),
      TableDamage("WithoutAName", UserTableName, "<Platforms Version='1'>\n<Platform/></Platforms>",
                  {"platforms"},
                  "platforms.xml:2: element \"Platform\" lacks the required attribute"),
      TableDamage("WithABooleanOfLetters", UserTableName,
                  "<Platforms Version='1'><Platform Name='A' Mobile='perhaps'/></Platforms>",
                  {"platforms"}, "attribute \"Mobile\" is \"perhaps\", which is not a Boolean"),
  };
}

// A file of the installation; the others are those that ship.
TDamage ShippedDamage(const char* name, const std::string& file, std::string text,
                      std::vector<std::string> command, const std::string& message) {
  command.insert(command.end(), {"--root", "root"});
  return {name,
          {{"root/ObjRepos/Deploy/" + file, std::move(text)}, {"p.vproj", ProjectHolding("")}},
          std::move(command),
          3,
          "%D/root/ObjRepos/Deploy/" + file + message};
}

std::vector<TDamage> DamagedInstallations() {
  return {
      ShippedDamage("CatalogEmpty", "featuredfiles.xml", "", {"featured", "p.vproj"},
                    ":1: the file is empty"),
      ShippedDamage("CatalogCutOff", "featuredfiles.xml", "<FeaturedFiles>",
                    {"featured", "p.vproj"}, ":1: not well-formed XML: no element found"),
      ShippedDamage("DefaultsEmpty", "defaults.xml", "", {"upgrade", "p.vproj"},
                    ":1: the file is empty"),
      ShippedDamage("DefaultsWithABadOperation", "defaults.xml",
                    "<Deployment Version='2'><DeployClass Name='F'><Platform Name='Win32'>"
                    "<Operation>9</Operation></Platform></DeployClass></Deployment>",
                    {"upgrade", "p.vproj"},
                    ":1: element \"Operation\": its text is \"9\", which is not"),
      ShippedDamage("TemplateNoXml", "deploymenttemplate.xml", "x", {"export", "p.vproj"},
                    ":1: not well-formed XML: syntax error"),
      ShippedDamage("TemplateOfAnotherRoot", "deploymenttemplate.xml", "<A/>",
                    {"export", "p.vproj"},
                    ":1: the root element is \"A\", so this is not an MSBuild project"),
      ShippedDamage("PlatformsOfAnotherRoot", "platforms.xml", "<A/>", {"platforms"},
                    ":1: element \"A\": the root of a platform table is \"Platforms\""),
  };
}

class DamagedUserFile : public testing::TestWithParam<TDamage> {};

TEST_P(DamagedUserFile, EndsWithItsNameAndIsLeftAlone) {
  ExpectToldAndLeftAlone(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Settings, DamagedUserFile, testing::ValuesIn(DamagedSettings()),
                         NameOfDamage);
INSTANTIATE_TEST_SUITE_P(Profiles, DamagedUserFile, testing::ValuesIn(DamagedProfiles()),
                         NameOfDamage);
INSTANTIATE_TEST_SUITE_P(Tables, DamagedUserFile, testing::ValuesIn(DamagedUserTables()),
                         NameOfDamage);
INSTANTIATE_TEST_SUITE_P(Installation, DamagedUserFile, testing::ValuesIn(DamagedInstallations()),
                         NameOfDamage);

} // namespace
} // namespace integration
