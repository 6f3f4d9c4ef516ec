// Files from beyond a project's tree leave this machine only when its user says so.
#include "tests/integration/bad_inputs.h"

namespace integration {
namespace {

class FilesFromOutside : public ::testing::Test {
protected:
  FilesFromOutside() {
    Place.Write("project/p.vproj",
                ProjectListing(DeployedFile("a.dat", "") + DeployedFile("..\\home\\key", "")));
    Place.Write("project/a.dat", "a");
    Place.Write("home/key", "secret");
    std::filesystem::create_directory(Place.Path("target"));
    EXPECT_EQ(
        Place.Run({"profile", "add", "box", "-p", "Win32", "--path", "target", "--default"}).Status,
        0);
  }
  bool WasSent() const { return std::filesystem::exists(Place.Path("target/p/key")); }

  TWorkplace Place;
};

TEST_F(FilesFromOutside, StayHereWithoutConsent) {
  const TRun run = Place.Run({"deploy", "project/p.vproj"});
  EXPECT_EQ(run.Status, 6);
  EXPECT_EQ(run.Errors, "deploymgr: nothing was copied: files beyond the project's directory may "
                        "not be sent without consent; --allow-outside gives it. They are: " +
                            Place.Path("home/key").string() + "\n");
  EXPECT_FALSE(WasSent());
  EXPECT_FALSE(std::filesystem::exists(Place.Path("target/p/a.dat")));
}

TEST_F(FilesFromOutside, AreNamedByADryRun) {
  const TRun run = Place.Run({"deploy", "project/p.vproj", "--dry-run"});
  EXPECT_EQ(run.Status, 0);
  EXPECT_NE(run.Errors.find("this file beyond the project's directory needs consent: "),
            std::string::npos);
}

TEST_F(FilesFromOutside, AreSentWhenTheCommandLineSaysSo) {
  EXPECT_EQ(Place.Run({"deploy", "project/p.vproj", "--allow-outside"}).Status, 0);
  EXPECT_TRUE(WasSent());
}

TEST_F(FilesFromOutside, AreAskedForOnceAtATerminal) {
  const auto no = Place.RunAtTerminal({"deploy", "project/p.vproj"},
                                      [](const TQuestion&) { return std::string("n"); });
  EXPECT_EQ(no.Status, 6);
  EXPECT_FALSE(WasSent());
  const auto yes = Place.RunAtTerminal({"deploy", "project/p.vproj"},
                                       [](const TQuestion&) { return std::string("y"); });
  EXPECT_EQ(yes.Status, 0);
  EXPECT_TRUE(WasSent());
  EXPECT_EQ(Place.Run({"deploy", "project/p.vproj", "--force"}).Status, 0);
}

TEST_F(FilesFromOutside, AreMeantWhenTheirUserAddsThem) {
  Place.Write("home/other", "x");
  ASSERT_EQ(Place.Run({"add", "project/p.vproj", "home/other", "--outside"}).Status, 0);
  const TRun run = Place.Run({"deploy", "project/p.vproj"});
  EXPECT_EQ(run.Status, 6);
  EXPECT_NE(run.Errors.find("home/key"), std::string::npos);
  Place.Write("project/p.vproj", ProjectListing(DeployedFile("..\\home\\other", "")));
  EXPECT_EQ(Place.Run({"deploy", "project/p.vproj"}).Status, 0);
}

TEST_F(FilesFromOutside, AreOfTheTreeBelowAWorkingCopyOrASolution) {
  std::filesystem::create_directory(Place.Path(".git"));
  EXPECT_EQ(Place.Run({"deploy", "project/p.vproj"}).Status, 0);
  EXPECT_TRUE(WasSent());
}

TEST_F(FilesFromOutside, NeedConsentAlsoWhenAPlanIsApplied) {
  ASSERT_EQ(Place.Run({"plan", "project/p.vproj", "--out", "a.plan"}).Status, 0);
  EXPECT_EQ(Place.Run({"apply", "a.plan"}).Status, 6);
  EXPECT_FALSE(WasSent());
  EXPECT_EQ(Place.Run({"apply", "a.plan", "--allow-outside"}).Status, 0);
  EXPECT_TRUE(WasSent());
}

TEST_F(FilesFromOutside, MayBeNamedByALinkInside) {
  Place.Write("project/p.vproj", ProjectListing(DeployedFile("link", "")));
  std::filesystem::create_symlink("../home/key", Place.Path("project/link"));
  EXPECT_EQ(Place.Run({"deploy", "project/p.vproj"}).Status, 6);
}

} // namespace
} // namespace integration
