#include "package/common/errors.h"
#include "tests/workbench/remote/target/remote_fixture.h"
#include "workbench/remote/profile/profile_store.h"

#include <sys/stat.h>

namespace workbench {
namespace {

using testing::TRemotePlace;

std::string AddError(TProfileStore& store, const TProfile& profile) {
  try {
    store.Add(profile);
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
  return "no error";
}

TEST(ProfileStore, KeepsProfilesInOrderForTheUserAlone) {
  const TRemotePlace place;
  const auto file = place.Local("config/profiles.json");
  TProfileStore store(file);
  EXPECT_TRUE(store.List().empty());
  store.Add({.Name = "b", .Platform = "Win32", .Path = "/x", .IsDefault = true});
  store.Add({.Name = "a", .Platform = "Win64", .Path = "/y", .AllowOutside = true});
  TProfileStore other(file);
  EXPECT_EQ(other.List(), store.List());
  EXPECT_EQ(other.List()[0].Name, "b");
  EXPECT_EQ(other.FindDefault("Win32")->Name, "b");
  EXPECT_EQ(other.FindDefault("Win64"), nullptr);
  EXPECT_TRUE(other.Find("a")->AllowOutside);
  struct stat status = {};
  ASSERT_EQ(::stat(file.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST(ProfileStore, DoesNotLoseWhatAnotherRunAdds) {
  const TRemotePlace place;
  TProfileStore one(place.Local("profiles.json"));
  TProfileStore two(place.Local("profiles.json"));
  EXPECT_TRUE(one.List().empty());
  EXPECT_TRUE(two.List().empty());
  one.Add({.Name = "a", .Platform = "Win32", .Path = "/x"});
  two.Add({.Name = "b", .Platform = "Win32", .Path = "/x"});
  EXPECT_EQ(two.List().size(), 2U);
  EXPECT_TRUE(two.Remove("a"));
  EXPECT_FALSE(two.Remove("a"));
}

TEST(ProfileStore, RefusesWhatCannotBe) {
  const TRemotePlace place;
  TProfileStore store(place.Local("profiles.json"));
  EXPECT_EQ(AddError(store, {.Platform = "Win32", .Path = "/x"}),
            "the name of the profile is empty");
  EXPECT_EQ(AddError(store, {.Name = "-x", .Platform = "Win32", .Path = "/x"}),
            "\"-x\" cannot be the name of a profile");
  EXPECT_EQ(AddError(store, {.Name = "x", .Path = "/x"}), "the profile \"x\" names no platform");
  EXPECT_EQ(AddError(store, {.Name = "x", .Platform = "Win32", .Path = "x"}),
            "the path of the profile \"x\" is not a full path: x");
  EXPECT_EQ(AddError(store, {.Name = "x", .Platform = "Win32", .Path = "/a/.."}),
            "the path of the profile \"x\" is the root of the file system");
}

TEST(ProfileStore, NamesADamagedFile) {
  const TRemotePlace place;
  for (const std::string text :
       {"", "[]", "{\"profiles\":[{}]}",
        "{\"profiles\":[{\"name\":\"a\",\"platform\":\"P\",\"kind\":\"moon\",\"path\":\"/x\"}]}"}) {
    TRemotePlace::Write(place.Local("profiles.json"), text);
    TProfileStore store(place.Local("profiles.json"));
    try {
      static_cast<void>(store.List());
      ADD_FAILURE() << text;
    } catch (const deployment::TInputError& error) {
      EXPECT_TRUE(std::string(error.what()).starts_with("the profiles file is damaged: "));
      EXPECT_EQ(error.Place().File, place.Local("profiles.json").string());
    }
    EXPECT_EQ(TRemotePlace::Read(place.Local("profiles.json")), text);
  }
}

TEST(ProfileStore, RefusesNumbersThatCannotBe) {
  const TRemotePlace place;
  const auto errorWith = [&](const std::string& field) {
    TRemotePlace::Write(place.Local("profiles.json"),
                        R"({"profiles":[{"name":"a","platform":"P","kind":"ssh","path":"/x",)"
                        R"("host":"h",)" +
                            field + "}]}");
    try {
      static_cast<void>(TProfileStore(place.Local("profiles.json")).List());
    } catch (const deployment::TInputError& error) {
      return std::string(error.what());
    }
    return std::string("no error");
  };
  EXPECT_EQ(errorWith("\"port\":65535"), "no error");
  EXPECT_EQ(errorWith("\"port\":4294967318"),
            "the profiles file is damaged: \"port\" should be a whole number from 0 to 65535, but "
            "is 4294967318; mend it or remove it");
  EXPECT_EQ(errorWith("\"port\":-1"),
            "the profiles file is damaged: \"port\" should be a whole number from 0 to 65535, but "
            "is -1; mend it or remove it");
  EXPECT_EQ(errorWith("\"keepAlive\":1e999"),
            "the profiles file is damaged: a number is beyond all ranges at byte 93; mend it or "
            "remove it");
}

TEST(ProfileGroups, KeepTheirProfilesInOrderAndEachOnce) {
  const TRemotePlace place;
  TProfileStore store(place.Local("profiles.json"));
  for (const std::string name : {"a", "b", "c"})
    store.Add({.Name = name, .Platform = "Win32", .Path = "/" + name + "/x"});
  EXPECT_TRUE(store.AddToGroup("hall", {"b", "a", "b"}));
  EXPECT_FALSE(store.AddToGroup("hall", {"a"}));
  EXPECT_TRUE(store.AddToGroup("hall", {"c", "a"}));
  const TProfileStore other(place.Local("profiles.json"));
  ASSERT_NE(other.FindGroup("hall"), nullptr);
  EXPECT_EQ(other.FindGroup("hall")->Profiles, (std::vector<std::string>{"b", "a", "c"}));
  EXPECT_EQ(other.FindGroup("Hall"), nullptr);
  store.RemoveFromGroup("hall", {"a", "b"});
  EXPECT_EQ(store.FindGroup("hall")->Profiles, std::vector<std::string>{"c"});
  EXPECT_TRUE(store.RemoveGroup("hall"));
  EXPECT_FALSE(store.RemoveGroup("hall"));
  EXPECT_TRUE(store.Groups().empty());
}

TEST(ProfileGroups, FollowAProfileThatGoesOrIsRenamed) {
  const TRemotePlace place;
  TProfileStore store(place.Local("profiles.json"));
  for (const std::string name : {"a", "b"})
    store.Add({.Name = name, .Platform = "Win32", .Path = "/" + name + "/x"});
  store.AddToGroup("one", {"a", "b"});
  store.AddToGroup("two", {"a"});
  store.Replace("b", {.Name = "new", .Platform = "Win32", .Path = "/b/x"});
  EXPECT_TRUE(store.Remove("a"));
  EXPECT_EQ(store.FindGroup("one")->Profiles, std::vector<std::string>{"new"});
  EXPECT_TRUE(store.FindGroup("two")->Profiles.empty());
}

TEST(ProfileGroups, RefuseWhatCannotBe) {
  const TRemotePlace place;
  TProfileStore store(place.Local("profiles.json"));
  store.Add({.Name = "a", .Platform = "Win32", .Path = "/x"});
  const auto error = [](const auto& action) -> std::string {
    try {
      action();
    } catch (const std::invalid_argument& refused) {
      return refused.what();
    }
    return "no error";
  };
  EXPECT_EQ(error([&] { store.AddToGroup("g", {"a", "z"}); }), "there is no profile \"z\"");
  EXPECT_EQ(store.FindGroup("g"), nullptr);
  EXPECT_EQ(error([&] { store.AddToGroup("g,h", {"a"}); }),
            "\"g,h\" cannot be the name of a group: a comma stands between names");
  EXPECT_EQ(error([&] { store.RemoveFromGroup("g", {"a"}); }), "there is no group \"g\"");
  store.AddToGroup("g", {"a"});
  EXPECT_EQ(error([&] { store.RemoveFromGroup("g", {"b"}); }),
            "the group \"g\" has no profile \"b\"");
  EXPECT_EQ(AddError(store, {.Name = "b,c", .Platform = "Win32", .Path = "/x"}),
            "\"b,c\" cannot be the name of a profile: a comma stands between names");
}

TEST(ProfileGroups, OfADamagedFileAreDamagedToo) {
  const TRemotePlace place;
  for (const std::string groups :
       {"{}", "[{}]", "[{\"name\":\"\",\"profiles\":[]}]", "[{\"name\":\"a\",\"profiles\":[1]}]",
        "[{\"name\":\"a\",\"profiles\":[\"x\",\"x\"]}]",
        "[{\"name\":\"a\",\"profiles\":[]},{\"name\":\"a\",\"profiles\":[]}]"}) {
    TRemotePlace::Write(place.Local("profiles.json"),
                        "{\"profiles\":[],\"groups\":" + groups + "}");
    EXPECT_THROW(static_cast<void>(TProfileStore(place.Local("profiles.json")).Groups()),
                 deployment::TInputError)
        << groups;
  }
}

TEST(ProfileGroups, MayNameAProfileThatAnotherProgramTookAway) {
  const TRemotePlace place;
  TRemotePlace::Write(place.Local("profiles.json"),
                      "{\"profiles\":[],\"groups\":[{\"name\":\"g\",\"profiles\":[\"gone\"]}]}");
  EXPECT_EQ(TProfileStore(place.Local("profiles.json")).FindGroup("g")->Profiles,
            std::vector<std::string>{"gone"});
}

} // namespace
} // namespace workbench
