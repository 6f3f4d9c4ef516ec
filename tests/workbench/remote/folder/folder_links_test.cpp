#include "tests/workbench/remote/target/remote_fixture.h"
#include "workbench/remote/target/remote_path.h"

namespace workbench {
namespace {

class FolderLinks : public ::testing::Test {
protected:
  testing::TRemotePlace Place;
  TFolderConnection Connection{Place.Target()};
  const std::string Root = Place.Target().string();
};

TEST_F(FolderLinks, ArePutInPlaceAndReadBack) {
  Place.Write(Place.Target("libx.so.1.2"), "library");
  Place.Write(Place.Target("libx.so"), "an old copy");
  ASSERT_TRUE(Connection.KnowsLinks());
  EXPECT_EQ(Connection.MakeLink({Root, "libx.so.1"}, "libx.so.1.2"), "");
  EXPECT_EQ(Connection.MakeLink({Root, "libx.so"}, "libx.so.1"), "");
  EXPECT_EQ(std::filesystem::read_symlink(Place.Target("libx.so")), "libx.so.1");
  EXPECT_EQ(Place.Read(Place.Target("libx.so")), "library");
  const std::vector<TRemoteName> names{{Root, "libx.so"}, {Root, "libx.so.1.2"}, {Root, "none"}};
  const auto links = Connection.ReadLinks(names);
  EXPECT_EQ(links[0].Text, "libx.so.1");
  EXPECT_EQ(links[0].Problem, "");
  EXPECT_EQ(links[1].Problem, "reading the link: Invalid argument");
  EXPECT_EQ(links[2].Problem, "reading the link: No such file or directory");
  EXPECT_EQ(Connection.Examine(names)[0].Kind, TRemoteKind::Link);
}

TEST_F(FolderLinks, AreReadWhole) {
  const std::string deep = std::string(700, 'a') + "/" + std::string(900, 'b');
  EXPECT_EQ(Connection.MakeLink({Root, "link"}, deep), "");
  const std::vector<TRemoteName> names{{Root, "link"}};
  EXPECT_EQ(Connection.ReadLinks(names)[0].Text, deep);
}

TEST_F(FolderLinks, DoNotTakeThePlaceOfADirectory) {
  std::filesystem::create_directories(Place.Target("directory/with"));
  EXPECT_EQ(Connection.MakeLink({Root, "directory"}, "y"), "putting it in place: Is a directory");
  EXPECT_TRUE(std::filesystem::is_directory(Place.Target("directory/with")));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Place.Target()), {}), 1);
}

TEST_F(FolderLinks, ThatAreJustBeingMadeAreLeftAlone) {
  const std::string name = std::string(UnfinishedPrefix) + "old" + std::string(UnfinishedSuffix);
  std::filesystem::create_symlink("x", Place.Target(name));
  const std::vector<TSendRequest> requests{{.LocalFile = {}, .Target = {Root, "x"}}};
  Connection.RemoveUnfinished(requests);
  EXPECT_TRUE(std::filesystem::is_symlink(Place.Target(name)));
}

} // namespace
} // namespace workbench
