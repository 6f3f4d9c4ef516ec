#include "workbench/remote/target/target_place.h"

#include <gtest/gtest.h>

#include <array>

namespace workbench {
namespace {

std::string PlaceText(std::string_view path, bool allowOutside = true) {
  const TTargetPlace place = FindTargetPlace(path, {.AllowOutside = allowOutside});
  return place.Problem.empty() ? place.Name.Directory + "|" + place.Name.Name : place.Problem;
}

struct TCase {
  const char* Path;
  const char* Place; // directory | name
};

TEST(TargetPlace, IsTheDirectoryAsAConnectionTakesItAndTheName) {
  for (const TCase& test : std::to_array<TCase>({
           {"a", "|a"},
           {"demo\\a.dat", "demo|a.dat"},
           {"demo/sub\\a.dat", "demo/sub|a.dat"},
           {".\\demo\\.\\a", "demo|a"},
           {"demo\\\\x\\..\\a", "demo|a"},
           {"x\\..\\a", "|a"},
           {"/srv/a", "/srv|a"},
           {"\\a", "/|a"},
           {"~\\a", "~/|a"},
           {"~/a", "~/|a"},
           {"~\\sub\\a", "~/sub|a"},
           {"~\\sub\\deep/a", "~/sub/deep|a"},
           {"~\\x\\..\\a", "~/|a"},
           {"demo\\~a", "demo|~a"},
           {"demo\\ a .", "demo| a ."},
           {"Ж\\ü", "Ж|ü"},
       }))
    EXPECT_EQ(PlaceText(test.Path), test.Place) << test.Path;
}

TEST(TargetPlace, IsRefusedWhereThePathLeadsNowhere) {
  for (const TCase& test : std::to_array<TCase>({
           {"", "names no file"},
           {"demo\\", "names no file"},
           {"demo/", "names no file"},
           {"demo\\..", "names no file"},
           {"~", "names no file"},
           {"~\\", "names no file"},
           {"..\\a", "climbs above the directory where it begins"},
           {"a\\..\\..\\b", "climbs above the directory where it begins"},
           {"~\\..\\a", "climbs above the directory where it begins"},
           {"~eva\\a", "names the home directory of another user"},
           {"~eva", "names the home directory of another user"},
           {".\\~\\a", "begins with \"~\", which stands for a home directory"},
           {".\\~a", "begins with \"~\", which stands for a home directory"},
           {"x/../~/a", "begins with \"~\", which stands for a home directory"},
           {"C:\\a", "names a drive, which the target does not have"},
       }))
    EXPECT_EQ(PlaceText(test.Path),
              "its remote path \"" + std::string(test.Path) + "\" " + test.Place);
}

TEST(TargetPlace, StaysBelowThePathOfTheProfileUnlessMoreIsAllowed) {
  for (const char* path : {"..\\a", "/a", "~\\a", "C:\\a", "x\\..\\..\\a"})
    EXPECT_EQ(PlaceText(path, false),
              "its remote path \"" + std::string(path) + "\" leaves the path of the profile");
  EXPECT_EQ(PlaceText("x\\..\\a", false), "|a");
}

TEST(TargetPlace, HasNamesThatTheTargetCanHold) {
  const TPlaceRules windows{.Names = {.WindowsNames = true}};
  EXPECT_EQ(FindTargetPlace("nul.txt\\a", windows).Problem,
            "\"nul.txt\" in its remote path is the name of a device of Windows");
  EXPECT_EQ(FindTargetPlace("a.", windows).Problem,
            "\"a.\" in its remote path ends in a dot or a blank, which Windows drops");
}

TEST(TargetPlace, IsInADirectoryThatCanHoldFiles) {
  EXPECT_EQ(DirectoryProblem({.Path = "/srv", .IsInside = true}, {}), "");
  EXPECT_EQ(DirectoryProblem({.Path = "", .Problem = "x is a file"}, {.AllowOutside = true}),
            "x is a file");
  EXPECT_EQ(DirectoryProblem({.Path = "/etc", .IsInside = false}, {}),
            "it leads to /etc, which is outside the path of the profile");
  EXPECT_EQ(DirectoryProblem({.Path = "/etc", .IsInside = false}, {.AllowOutside = true}), "");
}

} // namespace
} // namespace workbench
