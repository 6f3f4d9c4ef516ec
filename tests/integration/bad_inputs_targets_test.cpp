// Lists that would write where they must not, and what stands damaged on a target or beside a
// project.
#include "tests/integration/bad_inputs.h"

namespace integration {
namespace {

constexpr const char* BoxProfiles =
    R"({"profiles":[{"name":"box","platform":"Win32","kind":"folder","path":"%D/target","default":true}]})";

// A deploy of these entries to an empty directory.
TDamage DeployDamage(const char* name, const std::string& entries, int status,
                     const std::string& message) {
  return {name,
          {{"p.vproj", ProjectListing(entries)},
           {ProfilesName, BoxProfiles},
           {"target/there", ""},
           {"a.dat", "a"},
           {"b.dat", "b"}},
          {"deploy", "p.vproj"},
          status,
          message};
}

TDamage DirectoryDamage(const char* name, const std::string& directory) {
  return DeployDamage(name, DeployedFile("a.dat", "<RemoteDir>" + directory + "</RemoteDir>"), 1,
                      "leaves the path of the profile");
}

TDamage NameDamage(const char* name, const std::string& remoteName, const std::string& message) {
  return DeployDamage(name, DeployedFile("a.dat", "<RemoteName>" + remoteName + "</RemoteName>"), 1,
                      message);
}

std::vector<TDamage> HostileNames() {
  const std::string device = " is the name of a device of Windows";
  const std::string character = " has a character that names of Windows cannot have";
  const std::string ending = " ends in a dot or a blank, which Windows drops";
  return {
      DirectoryDamage("DirectoryAbove", "..\\..\\"),
      DirectoryDamage("DirectoryAboveOnTheWay", "x\\..\\..\\..\\y\\"),
      DirectoryDamage("DirectoryOfTheMachine", "/etc/"),
      DirectoryDamage("DirectoryOfADrive", "C:\\x\\"),
      DirectoryDamage("DirectoryOfAShare", "\\\\h\\s\\"),
      DirectoryDamage("DirectoryOfAHome", "~/x"),
      NameDamage("NameAbove", "..\\..\\x", "leaves the path of the profile"),
      NameDamage("NameOfDots", "..", "names no file"),
      NameDamage("Device", "CON", "\"CON\" in its remote path" + device),
      NameDamage("DeviceWithAnEnding", "nul.txt", "\"nul.txt\" in its remote path" + device),
      NameDamage("DeviceWithASuperscript", "COM\xC2\xB2", "in its remote path" + device),
      NameDamage("Stream", "a:b", "\"a:b\" in its remote path" + character),
      NameDamage("DotAtTheEnd", "a.", "\"a.\" in its remote path" + ending),
      NameDamage("BlankAtTheEnd", "a&#32;", "\"a \" in its remote path" + ending),
      NameDamage("LineEnd", "a&#10;b", "\"a\\x0Ab\" in its remote path" + character),
      NameDamage("Star", "*", "\"*\" in its remote path" + character),
      NameDamage("TooLong", std::string(256, 'n'), "in its remote path is longer than"),
      DeployDamage("PlaceOfTheRecord",
                   DeployedFile("a.dat", "<RemoteDir>..\\.deployment-manager\\</RemoteDir>"), 1,
                   "leads to where deploys keep what they remember"),
      DeployDamage("TwoOfOneName",
                   DeployedFile("a.dat", "<RemoteName>x</RemoteName>") +
                       DeployedFile("b.dat", "<RemoteName>X</RemoteName>"),
                   1, "it lands on %D/target/p/X, and so does \"a.dat\""),
      DeployDamage("FileWhereADirectoryIsDue",
                   DeployedFile("a.dat", "<RemoteName>x</RemoteName>") +
                       DeployedFile("b.dat", "<RemoteDir>x\\</RemoteDir>"),
                   1, "which is a directory for \"b.dat\""),
      DeployDamage("LocalFileGone", DeployedFile("gone.dat", ""), 1, "%D/gone.dat is missing"),
      DeployDamage("RequiredFileGone", DeployedFile("gone.dat", "", " Required='true'"), 1,
                   "%D/gone.dat is missing, and it is required"),
      DeployDamage("LocalFileIsADirectory", DeployedFile("target", ""), 1,
                   "%D/target is a directory, not a file"),
      DeployDamage("CommandWithoutConsent",
                   DeployedFile("a.dat", "<LocalCommand>echo &#9;x</LocalCommand>"), 6,
                   "They are: on this machine: echo \\x09x"),
  };
}

// A file that stands on the target beforehand.
TDamage RecordDamage(const char* name, std::string text, const std::string& message) {
  return {name,
          {{"target/.deployment-manager/p/record.json", std::move(text)},
           {"p.vproj", ProjectListing(DeployedFile("a.dat", ""))},
           {ProfilesName, BoxProfiles},
           {"a.dat", "a"}},
          {"history", "p.vproj"},
          0,
          "the record on the target is damaged: " + message};
}

std::vector<TDamage> DamagedRecords() {
  TDamage lock =
      DeployDamage("Lock", DeployedFile("a.dat", ""), 1,
                   "somebody else deploys there: somebody on a machine that it does not name; "
                   "--break-lock goes on all the same");
  lock.Files.emplace_back("target/.deployment-manager/p/lock", "garbage");
  TDamage gone = DeployDamage("TargetGone", DeployedFile("a.dat", ""), 5,
                              "%D/gone cannot be reached: No such file or directory");
  gone.Files[1].second = Replaced(BoxProfiles, "%D/target", "%D/gone");
  TDamage file = DeployDamage("TargetIsAFile", DeployedFile("a.dat", ""), 5,
                              "%D/target/there is a file, not a directory");
  file.Files[1].second = Replaced(BoxProfiles, "%D/target", "%D/target/there");
  return {
      RecordDamage("Empty", "", "it is no JSON at byte 1"),
      RecordDamage("CutOff", "{\"format\":", "it is no JSON at byte"),
      RecordDamage("ZeroBytes", std::string(30, '\0'), "it is no JSON at byte 1"),
      RecordDamage("List", "[]", "it should be an object with the member \"format\", but is []"),
      RecordDamage("WithoutFormat", "{}", "there is no member \"format\""),
      std::move(lock),
      std::move(gone),
      std::move(file),
  };
}

TDamage SideFileDamage(const char* name, const char* file, std::string text, const char* message) {
  return {name,
          {{"p.vproj", ProjectListing(DeployedFile("a.dat", ""))}, {file, std::move(text)}},
          {"list", "p.vproj"},
          0,
          message};
}

std::vector<TDamage> DamagedSideFiles() {
  return {
      SideFileDamage("SideFileEmpty", "p.deployproj", "",
                     "%D/p.deployproj\" was skipped: in line 1, the file is empty"),
      SideFileDamage("SideFileCutOff", "p.deployproj", "<Pro",
                     "was skipped: in line 1, not well-formed XML: unclosed token"),
      SideFileDamage("SideFileOfZeroBytes", "p.deployproj", std::string(9, '\0'),
                     "was skipped: in line 1, the file holds nothing but zero bytes"),
      SideFileDamage(
          "SideFileOfAnotherRoot", "p.deployproj", "<A/>",
          "was skipped: in line 1, the root element is \"A\", which is no MSBuild project"),
      SideFileDamage("SideFileIsADirectory", "p.deployproj/x", "", "was skipped: it is no file"),
  };
}

class DamagedTarget : public testing::TestWithParam<TDamage> {};

TEST_P(DamagedTarget, IsToldAndLeftAlone) {
  ExpectToldAndLeftAlone(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Names, DamagedTarget, testing::ValuesIn(HostileNames()), NameOfDamage);
INSTANTIATE_TEST_SUITE_P(Records, DamagedTarget, testing::ValuesIn(DamagedRecords()), NameOfDamage);
INSTANTIATE_TEST_SUITE_P(SideFiles, DamagedTarget, testing::ValuesIn(DamagedSideFiles()),
                         NameOfDamage);

TEST(DamagedTargets, ReadAgainAfterARecordOfAnotherFormat) {
  const TWorkplace place;
  place.Write("p.vproj", ProjectListing(DeployedFile("a.dat", "")));
  place.Write("a.dat", "a");
  place.Write("target/.deployment-manager/p/record.json", "{\"format\":");
  ASSERT_EQ(
      place.Run({"profile", "add", "box", "-p", "Win32", "--path", "target", "--default"}).Status,
      0);
  const TRun run = place.Run({"deploy", "p.vproj"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_NE(run.Errors.find("is damaged and counts as none: it is no JSON"), std::string::npos);
  EXPECT_EQ(place.Run({"history", "p.vproj"}).Errors, "");
}

TEST(DamagedConsents, EndWithTheirNames) {
  TWorkplace place;
  place.Write("p.vproj",
              ProjectListing(DeployedFile("a.dat", "<LocalCommand>true</LocalCommand>")));
  place.Write("a.dat", "a");
  std::filesystem::create_directory(place.Path("target"));
  ASSERT_EQ(
      place.Run({"profile", "add", "box", "-p", "Win32", "--path", "target", "--default"}).Status,
      0);
  const auto answered =
      place.RunAtTerminal({"deploy", "p.vproj"}, [](const TQuestion&) { return std::string("y"); });
  ASSERT_EQ(answered.Status, 0) << answered.Errors;
  const std::string settings = place.Read(SettingsName);
  ASSERT_NE(settings.find("allowed-commands."), std::string::npos) << settings;
  for (const char* damage : {"17", "[\\\"tr", "{}", ""}) {
    const std::size_t start = settings.find("\": \"", settings.find("allowed-commands.")) + 4;
    const std::size_t end = settings.rfind('"');
    place.Write(SettingsName, settings.substr(0, start) + damage + settings.substr(end));
    const TRun run = place.Run({"deploy", "p.vproj"});
    EXPECT_EQ(run.Status, 3) << damage << run.Errors;
    EXPECT_NE(run.Errors.find("\" is damaged: "), std::string::npos) << run.Errors;
    EXPECT_NE(run.Errors.find("\"settings unset\" removes it"), std::string::npos) << run.Errors;
  }
}

} // namespace
} // namespace integration
