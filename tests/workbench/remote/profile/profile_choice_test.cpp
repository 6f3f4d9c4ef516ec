#include "tests/workbench/remote/target/remote_fixture.h"
#include "workbench/remote/profile/profile_choice.h"

#include <stdexcept>

namespace workbench {
namespace {

using testing::TRemotePlace;

class ProfileChoice : public ::testing::Test {
protected:
  ProfileChoice() {
    for (const std::string name : {"a", "b", "c"})
      Store.Add({.Name = name, .Platform = "Win32", .Path = "/srv/" + name});
    Store.Add({.Name = "mac", .Platform = "OSX32", .Path = "/srv/mac"});
    Store.AddToGroup("hall", {"c", "a"});
  }

  std::string Names(const std::vector<TNamedTarget>& named) const {
    std::string names;
    for (const TProfile& profile : ChooseProfiles(Store, named, "Win32"))
      names += profile.Name;
    return names;
  }
  std::string Error(const std::vector<TNamedTarget>& named) const {
    try {
      Names(named);
    } catch (const std::invalid_argument& error) {
      return error.what();
    }
    return "no error";
  }

  TRemotePlace Place;
  TProfileStore Store{Place.Local("profiles.json")};
};

TEST_F(ProfileChoice, KeepsTheOrderAndTakesEachOnce) {
  EXPECT_EQ(Names({{"b"}, {"a"}, {"b"}}), "ba");
  EXPECT_EQ(Names({{"a"}, {"hall", true}, {"b"}}), "acb");
  EXPECT_EQ(Names({{"hall", true}, {"a"}}), "ca");
}

TEST_F(ProfileChoice, NamesTheKnownOnesForAnUnknownOne) {
  EXPECT_EQ(Error({{"a"}, {"z"}}), "there is no profile \"z\"; known are: a, b, c, mac");
  EXPECT_EQ(Error({{"yard", true}}), "there is no group \"yard\"; known are: hall");
  EXPECT_EQ(Error({{"mac"}}), "the profile \"mac\" is one of the platform \"OSX32\", not of "
                              "\"Win32\"; known are: a, b, c");
}

TEST_F(ProfileChoice, NamesTheGroupThatNamesWhatCannotBe) {
  Store.AddToGroup("hall", {"mac"});
  EXPECT_EQ(Error({{"hall", true}}),
            "the profile \"mac\", which the group \"hall\" names, is one of the platform "
            "\"OSX32\", not of \"Win32\"; known are: a, b, c");
  TRemotePlace::Write(Place.Local("profiles.json"),
                      R"({"profiles":[],"groups":[{"name":"hall","profiles":["gone"]},)"
                      R"({"name":"none","profiles":[]}]})");
  Store.Forget();
  EXPECT_EQ(Error({{"hall", true}}), "there is no profile \"gone\", which the group \"hall\" "
                                     "names; none was added yet");
  EXPECT_EQ(Error({{"none", true}}), "the group \"none\" has no profiles; none was added yet");
}

TEST_F(ProfileChoice, RefusesOnePlaceUnderTwoNames) {
  Store.Add({.Name = "again", .Platform = "Win32", .Path = "/srv/./a/"});
  EXPECT_EQ(Error({{"b"}, {"a"}, {"again"}}), "the profiles \"a\" and \"again\" lead to the same "
                                              "place; known are: a, b, c, again");
}

TEST(PlaceKey, IsOfKindHostPortUserAndPath) {
  const TProfile box{.Name = "x",
                     .Platform = "P",
                     .Kind = TProfileKind::Ssh,
                     .Path = "~/apps",
                     .Host = "Box",
                     .Port = 22,
                     .User = "u"};
  TProfile other = box;
  other.Name = "y";
  other.Path = "~/./apps/";
  other.Host = "box";
  EXPECT_EQ(PlaceKey(box), PlaceKey(other));
  for (const auto change : {+[](TProfile& profile) { profile.Host = "c"; },
                            +[](TProfile& profile) { profile.Port = 23; },
                            +[](TProfile& profile) { profile.User = "v"; },
                            +[](TProfile& profile) { profile.Path = "~/app"; },
                            +[](TProfile& profile) { profile.Kind = TProfileKind::Folder; }}) {
    TProfile changed = box;
    change(changed);
    EXPECT_NE(PlaceKey(box), PlaceKey(changed));
  }
}

} // namespace
} // namespace workbench
