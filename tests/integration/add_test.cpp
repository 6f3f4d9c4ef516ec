// What `add` takes, refuses and leaves alone.
#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

namespace integration {
namespace {

using TTexts = std::vector<std::string>;

class AddFiles : public testing::Test {
protected:
  AddFiles() { Place.Write("p.vproj", ProjectWith("")); }

  TRun Add(TTexts arguments) {
    arguments.insert(arguments.begin(), {"add", "p.vproj"});
    return Place.Run(std::move(arguments));
  }
  // "local name -> remote directory on Win32" of every entry.
  TTexts Entries() {
    TTexts entries;
    const auto files = Place.FilesOf("p.vproj");
    for (const auto& file : files)
      entries.push_back(file["localName"].get<std::string>() + " -> " +
                        file["platforms"]["Win32"]["remoteDir"].get<std::string>());
    return entries;
  }
  void ExpectUnchanged() { EXPECT_EQ(Place.Read("p.vproj"), ProjectWith("")); }

  TWorkplace Place;
};

TEST_F(AddFiles, RefusesAFileThatIsNotThere) {
  Place.Write("data/levels.dat", "x");
  const TRun run = Add({"data/levels.dat", "data/lewels.dat"});
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Errors, "deploymgr: there is no file \"data/lewels.dat\"; did you mean "
                        "\"data/levels.dat\"?\n");
  EXPECT_EQ(Add({"later.dat"}).Errors,
            "deploymgr: there is no file \"later.dat\"; --missing-ok adds a file that comes "
            "later\n");
  ExpectUnchanged();
  EXPECT_EQ(Add({"later.dat", "--missing-ok"}).Output, "added later.dat for Debug, Win32\n");
}

TEST_F(AddFiles, RefusesAFileOutsideTheProject) {
  Place.Write("in/p.vproj", ProjectWith(""));
  Place.Write("beside.dat", "x");
  for (const std::string name : {"beside.dat", "/etc/hostname"}) {
    const TRun run = Place.Run({"add", "in/p.vproj", name});
    EXPECT_EQ(run.Status, 1) << name;
    EXPECT_EQ(run.Errors, "deploymgr: outside the project's directory: \"" + name +
                              "\"; --outside adds them all the same\n");
  }
  EXPECT_EQ(Place.Read("in/p.vproj"), ProjectWith(""));
  EXPECT_EQ(Place.Run({"add", "in/p.vproj", "beside.dat", "--outside"}).Output,
            "added ..\\beside.dat for Debug, Win32\n");
}

TEST_F(AddFiles, LeavesAFileOfTheTargetsListAsItIs) {
  Place.Write("p.vproj", ProjectWith(ListOf(Entry("a.dat", "Debug", "Win32") +
                                            Entry("data\\b.dat", "Base", "Win32"))));
  Place.Write("a.dat", "x");
  Place.Write("data/b.dat", "x");
  ASSERT_EQ(Place.Run({"export", "p.vproj"}).Status, 0);
  const std::string before = Place.Read("p.vproj");
  for (const std::string name : {"a.dat", "data/b.dat"}) {
    const TRun run = Add({name, "--remote-dir", "elsewhere"});
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Output, "nothing to do\n");
    EXPECT_EQ(run.Errors, "deploymgr: p.vproj: warning: \"" + Replaced(name, "/", "\\") +
                              "\" is on the list for Debug, Win32 already; \"set\" changes it\n");
  }
  EXPECT_EQ(Place.Read("p.vproj"), before);
}

TEST_F(AddFiles, GivesAnEntryEveryPlatformOfTheProject) {
  Place.Write("a.dat", "x");
  ASSERT_EQ(Add({"a.dat", "-p", "all"}).Output, "added a.dat for Debug, Win32,Android\n");
  const auto platforms = Place.FilesOf("p.vproj")[0]["platforms"];
  EXPECT_EQ(platforms.size(), 2U);
  EXPECT_EQ(platforms["Win32"]["remoteDir"], ".\\");
  EXPECT_EQ(platforms["Android"]["remoteDir"], "assets\\internal\\");
  EXPECT_EQ(CountOf(Place.Read("p.deployproj"), "<DeployFile "), 2U);
  for (const std::string platform : {"Win32", "Android", "all"}) {
    EXPECT_NE(Place.Run({"list", "p.vproj", "-p", platform}).Output.find("a.dat"),
              std::string::npos)
        << platform;
    EXPECT_EQ(Place.Run({"explain", "p.vproj", "a.dat", "-p", platform, "--json"}).Json()["listed"],
              true)
        << platform;
  }
  EXPECT_EQ(Add({"a.dat", "-p", "all"}).Output, "nothing to do\n");
}

TEST_F(AddFiles, GivesThePlatformsThatAnEntryLacks) {
  Place.Write("a.dat", "x");
  ASSERT_EQ(Add({"a.dat", "--remote-dir", "mine"}).Status, 0);
  ASSERT_EQ(Add({"a.dat", "-p", "all"}).Output, "changed a.dat for Debug, Win32,Android\n");
  const auto files = Place.FilesOf("p.vproj");
  ASSERT_EQ(files.size(), 1U);
  EXPECT_EQ(files[0]["platforms"]["Win32"]["remoteDir"], "mine");
  EXPECT_EQ(files[0]["platforms"]["Android"]["remoteDir"], "assets\\internal\\");
}

TEST_F(AddFiles, OfATreeKeepsItsStructure) {
  Place.Write("data/maps/a.dat", "x");
  Place.Write("data/maps/b/a.dat", "x");
  Place.Write("data/other.dat", "x");
  ASSERT_EQ(Add({"--tree", "data/maps"}).Status, 0);
  EXPECT_EQ(Entries(),
            (TTexts{"data\\maps\\a.dat -> .\\maps\\", "data\\maps\\b\\a.dat -> .\\maps\\b\\"}));
  EXPECT_EQ(Add({"--tree", "data/maps/"}).Output, "nothing to do\n");
}

TEST_F(AddFiles, OfATreeGoesBelowTheDirectoryGiven) {
  Place.Write("maps/b/a.dat", "x");
  ASSERT_EQ(Add({"--tree", "maps", "--remote-dir", "share"}).Status, 0);
  EXPECT_EQ(Entries(), TTexts{"maps\\b\\a.dat -> share\\maps\\b\\"});
}

TEST_F(AddFiles, OfATreeLeavesOutTheProjectAndLinksToDirectories) {
  Place.Write("t/p.vproj", ProjectWith(""));
  Place.Write("t/p.deployproj", "<Project/>");
  Place.Write("t/a.dat", "x");
  std::filesystem::create_directory_symlink("/etc", Place.Path("t/link"));
  const TRun run = Place.Run({"add", "t/p.vproj", "--tree", "t"});
  EXPECT_EQ(run.Output, "added a.dat for Debug, Win32\n");
  EXPECT_NE(run.Errors.find("t/link: warning: the link to a directory is left out"),
            std::string::npos)
      << run.Errors;
}

TEST_F(AddFiles, OfATreeOutsideTheProjectAreNamed) {
  Place.Write("in/p.vproj", ProjectWith(""));
  Place.Write("maps/a.dat", "x");
  const TRun run = Place.Run({"add", "in/p.vproj", "--tree", "maps"});
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Errors, "deploymgr: outside the project's directory: \"..\\maps\\a.dat\"; "
                        "--outside adds them all the same\n");
}

TEST_F(AddFiles, OfATreeThatIsNoneFails) {
  std::filesystem::create_directory(Place.Path("empty"));
  Place.Write("file", "x");
  EXPECT_EQ(Add({"--tree", "empty"}).Errors,
            "deploymgr: the directory \"empty\" has no file in it\n");
  EXPECT_EQ(Add({"--tree", "nowhere"}).Errors, "deploymgr: there is no directory \"nowhere\"\n");
  EXPECT_EQ(Add({"--tree", "file"}).Status, 1);
  EXPECT_EQ(Add({"empty"}).Errors,
            "deploymgr: \"empty\" is a directory; \"--tree empty\" adds all its files\n");
  EXPECT_EQ(Add({"--tree", "empty", "--remote-name", "x"}).Status, 2);
  ExpectUnchanged();
}

TEST_F(AddFiles, OfAPatternAreWhatItNames) {
  Place.Write("data/a.dat", "x");
  Place.Write("data/b.dat", "x");
  Place.Write("data/.c.dat", "x");
  Place.Write("data/deep/d.dat", "x");
  ASSERT_EQ(Add({"data/*.dat"}).Output,
            "added data\\a.dat for Debug, Win32\nadded data\\b.dat for Debug, Win32\n");
  EXPECT_EQ(Add({"data\\**\\?.dat"}).Output, "added data\\deep\\d.dat for Debug, Win32\n");
  EXPECT_EQ(Entries().size(), 3U);
}

TEST_F(AddFiles, OfAPatternThatNamesNothingFail) {
  const TRun run = Add({"data/*.dat"});
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Errors, "deploymgr: no file matches the pattern \"data/*.dat\"\n");
  EXPECT_EQ(Add({"data/*.dat", "--missing-ok"}).Status, 1);
  EXPECT_EQ(Add({"[abc]", "--missing-ok"}).Status, 1);
  ExpectUnchanged();
}

TEST_F(AddFiles, WhoseNameLooksLikeAPatternAreTakenAsTheyAre) {
  Place.Write("a[1].dat", "x");
  EXPECT_EQ(Add({"a[1].dat"}).Output, "added a[1].dat for Debug, Win32\n");
}

TEST_F(AddFiles, RefusesControlCharactersAndNoFileAtAll) {
  EXPECT_EQ(Add({"a\nb"}).Status, 2);
  EXPECT_EQ(Add({""}).Status, 2);
  EXPECT_EQ(Add({}).Status, 2);
  ExpectUnchanged();
}

} // namespace
} // namespace integration
