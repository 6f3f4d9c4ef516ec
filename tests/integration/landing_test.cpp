// Where entries land: a deploy and a status that follows it are of one mind.
#include "tests/integration/ssh_place.h"

#include <array>

namespace integration {
namespace {

// "OUTSIDE" stands for a directory beyond the profile's path.
struct TLanding {
  const char* LocalName;
  const char* RemoteDir;
  const char* RemoteName; // empty: that of the local file
  const char* LocalFile;  // below the project
};

constexpr std::array<TLanding, 36> Landings{{
    {"01.dat", "", "", "01.dat"},
    {"02.dat", ".\\", "", "02.dat"},
    {"03.dat", ".", "", "03.dat"},
    {"04.dat", "sub", "", "04.dat"},
    {"05.dat", "sub\\", "", "05.dat"},
    {"06.dat", "sub/deep\\er/", "", "06.dat"},
    {"07.dat", ".\\.\\x\\", "", "07.dat"},
    {"08.dat", "x\\..\\y\\", "", "08.dat"},
    {"09.dat", "..\\beside\\", "", "09.dat"},
    {"10.dat", "x\\\\y", "", "10.dat"},
    {"11.dat", "~\\", "", "11.dat"},
    {"12.dat", "~\\new\\sub\\", "", "12.dat"},
    {"13.dat", "~/x", "", "13.dat"},
    {"14.dat", "~\\x\\..\\", "", "14.dat"},
    {"15.dat", "OUTSIDE", "", "15.dat"},
    {"16.dat", "OUTSIDE/made/new/", "", "16.dat"},
    {"17.dat", "$(Platform)\\", "", "17.dat"},
    {"18.dat", "$(Config)\\", "", "18.dat"},
    {"19.dat", "$(Configuration)\\c", "", "19.dat"},
    {"20.dat", "a$(Config)b$(Platform)", "", "20.dat"},
    {"21.dat", "$(Unknown)\\", "", "21.dat"},
    {"22.dat", "", "$(Platform).txt", "22.dat"},
    {"23.dat", "names\\", "$(Config).txt", "23.dat"},
    {"24.dat", "names\\", "sub\\$(Configuration)", "24.dat"},
    {"25.dat", "blanks  in it\\", "", "25.dat"},
    {"26.dat", "dots..\\...\\", "", "26.dat"},
    {"27.dat", "names\\", "trailing.", "27.dat"},
    {"28.dat", "names\\", "a;b 'c' $(d)`e`.dat", "28.dat"},
    {"29.dat", "Ж\\Grüße\\", "€.dat", "29.dat"},
    {"ü.dat", "", "", "ü.dat"},
    {"sub\\30.dat", "", "", "sub/30.dat"},
    {"sub/31.dat", "local\\", "", "sub/31.dat"},
    {"$(Config)\\32.dat", "", "", "Debug/32.dat"},
    {"$(Platform)\\$(Config).dat", "", "", "OSX32/Debug.dat"},
    {"~tilde.dat", "", "", "~tilde.dat"},
    {".hidden", "", "", ".hidden"},
}};

class TLandingPlace : public TSshPlace {
public:
  TLandingPlace() : TSshPlace(std::string()) {
    std::string entries;
    for (const TLanding& landing : Landings) {
      Write(landing.LocalFile, std::string("content of ") + landing.LocalName);
      std::string record;
      if (*landing.RemoteDir)
        record += std::string("<RemoteDir>") + landing.RemoteDir + "</RemoteDir>";
      if (*landing.RemoteName)
        record += std::string("<RemoteName>") + landing.RemoteName + "</RemoteName>";
      entries += RemoteEntry(landing.LocalName, record);
    }
    const std::string project = Read("demo.vproj");
    Write("demo.vproj", Replaced(Replaced(project, "</Deployment>", entries + "</Deployment>"),
                                 "OUTSIDE", Path("outside").string()));
    std::filesystem::create_directories(Path("home"));
    std::filesystem::create_directories(Path("target"));
  }

  // Both are of one mind about every entry, and so is another deploy.
  void ExpectAgreement() const {
    const TRun deploy = Deploy({"--json"});
    ASSERT_EQ(deploy.Status, 0) << deploy.Errors;
    EXPECT_EQ(deploy.Json()["copied"], Landings.size());
    for (const auto& file : deploy.Json()["files"])
      EXPECT_TRUE(std::filesystem::is_regular_file(file["remoteFile"].get<std::string>())) << file;
    const std::vector<std::string> states = States();
    EXPECT_EQ(states.size(), Landings.size());
    for (const std::string& state : states)
      EXPECT_TRUE(state.ends_with(" Same")) << state;
    EXPECT_EQ(Deploy({"--json"}).Json()["unchanged"], Landings.size());
    EXPECT_EQ(Read("home/11.dat"), "content of 11.dat");
    EXPECT_EQ(Read("home/new/sub/12.dat"), "content of 12.dat");
    EXPECT_EQ(Read("target/beside/09.dat"), "content of 09.dat");
    EXPECT_EQ(Read("target/demo/Debug/c/19.dat"), "content of 19.dat");
    EXPECT_EQ(Read("target/demo/OSX32.txt"), "content of 22.dat");
  }
};

TEST(Landing, IsTheSameForDeployAndStatusInAFolder) {
  NEEDS_SSH_SERVER();
  const TLandingPlace place;
  ASSERT_EQ(place.Run({"profile", "remove", "box"}).Status, 0);
  ASSERT_EQ(
      place.Run({"profile", "add", "box", "-p", "OSX32", "--path", "target", "--allow-outside"})
          .Status,
      0);
  place.ExpectAgreement();
}

TEST(Landing, IsTheSameForDeployAndStatusThroughSsh) {
  NEEDS_SSH_SERVER();
  TLandingPlace place;
  place.Server().Introduce();
  place.ChangeProfile({"--allow-outside"});
  place.Server().SetTransfer("cd '" + place.Path("home").string() +
                             "'\nexec /usr/lib/openssh/sftp-server");
  place.ExpectAgreement();
}

TEST(Status, IsUnknownWhereAFileMayNotBeExamined) {
  TWorkplace place;
  place.Write("demo.vproj",
              ProjectWith(ListOf("<DeployClass Name=\"File\"/>"
                                 "<DeployFile LocalName=\"a.dat\" Configuration=\"Base\" "
                                 "Class=\"File\"><Platform Name=\"Win32\"><RemoteDir>locked"
                                 "</RemoteDir></Platform></DeployFile>")));
  place.Write("a.dat", "a");
  ASSERT_EQ(
      place.Run({"profile", "add", "box", "-p", "Win32", "--path", "target", "--default"}).Status,
      0);
  std::filesystem::create_directories(place.Path("target/demo/locked"));
  if (!place.BecomeOrdinary())
    GTEST_SKIP() << "nobody may be kept from a directory here";
  std::filesystem::permissions(place.Path("target/demo/locked"), std::filesystem::perms::none);
  const TRun status = place.Run({"status", "demo.vproj", "-p", "Win32", "-c", "Debug", "--json"});
  std::filesystem::permissions(place.Path("target/demo/locked"), std::filesystem::perms::owner_all);
  ASSERT_EQ(status.Status, 0) << status.Errors;
  for (const auto& row : status.Json()["rows"]) {
    if (row["localName"] == "a.dat") {
      EXPECT_EQ(row["remoteStatus"], "Unknown");
    }
  }
}

TEST(Status, IsUnknownAndEndsWith5WhereTheConnectionBreaks) {
  NEEDS_SSH_SERVER();
  TSshPlace place(RemoteEntry("a.dat") + RemoteEntry("b.dat"));
  place.Server().Introduce();
  for (const char* name : {"a.dat", "b.dat"})
    place.Write(name, "content");
  ASSERT_EQ(place.Deploy().Status, 0);
  std::size_t broken = 0;
  for (const int bytes : {40, 120, 200, 280, 360, 440, 600, 800}) {
    place.Server().SetTransfer("dd bs=1 iflag=count_bytes status=none count=" +
                               std::to_string(bytes) + " | /usr/lib/openssh/sftp-server");
    const TRun status = place.Status();
    if (status.Status == 0)
      continue;
    ++broken;
    EXPECT_EQ(status.Status, 5) << status.Errors;
    EXPECT_EQ(status.Output.find("Not Found"), std::string::npos) << bytes << status.Output;
    const auto document = status.Json();
    if (document.contains("rows")) {
      EXPECT_EQ(document["connected"], false);
    }
  }
  EXPECT_GE(broken, 4U);
}

} // namespace
} // namespace integration
