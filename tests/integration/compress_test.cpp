// What travels is compressed where that is wanted.
#include "tests/integration/ssh_place.h"

#include <sys/stat.h>

namespace integration {
namespace {

// A client that says how it was started.
class TCompressPlace : public TSshPlace {
public:
  TCompressPlace() : TSshPlace(RemoteEntry("a.dat")) {
    Write("a.dat", "a");
    Server().Introduce();
    Write("tools/ssh", "#!/bin/sh\necho \"$*\" >>'" + Path("started").string() +
                           "'\nPATH=/usr/bin:/bin exec ssh \"$@\"\n");
    ::chmod(Path("tools/ssh").c_str(), 0755);
    SetVariable("PATH=" + Path("tools").string() + ":/usr/bin:/bin");
  }
  /// Whether each client that the command started was told to compress; they agree.
  bool Compresses(const std::vector<std::string>& command) const {
    std::filesystem::remove(Path("started"));
    const TRun run = Run(command);
    EXPECT_EQ(run.Status, 0) << run.Errors;
    // Who only asks for the host key sends nothing.
    const std::string started = Read("started");
    const std::size_t all = CountOf(started, "EscapeChar=none");
    const std::size_t compressing = CountOf(started, "Compression=yes");
    EXPECT_GT(all, 0U);
    EXPECT_TRUE(compressing == 0 || compressing == all) << started;
    return compressing > 0;
  }
};

TEST(Compress, IsToldToTheClientByTheOption) {
  NEEDS_SSH_SERVER();
  const TCompressPlace place;
  EXPECT_FALSE(place.Compresses({"deploy", "demo.vproj"}));
  // Of another size each: they are written in one second.
  place.Write("a.dat", "another");
  EXPECT_TRUE(place.Compresses({"deploy", "demo.vproj", "--compress", "--jobs", "2"}));
  place.Write("a.dat", "a third one");
  EXPECT_TRUE(place.Compresses({"deploy", "demo.vproj", "--compress", "--to-profile", "box"}));
  EXPECT_EQ(place.Read("target/demo/a.dat"), "a third one");
}

TEST(Compress, IsToldToTheClientByTheProfile) {
  NEEDS_SSH_SERVER();
  const TCompressPlace place;
  place.ChangeProfile({"--compress"});
  EXPECT_TRUE(place.Compresses({"deploy", "demo.vproj"}));
  EXPECT_TRUE(place.Compresses({"status", "demo.vproj"}));
  // What an edit does not name stays.
  ASSERT_EQ(place.Run({"profile", "edit", "box", "--keep-alive", "7"}).Status, 0);
  EXPECT_EQ(place.Run({"profile", "show", "box", "--json"}).Json()["compress"], true);
  EXPECT_TRUE(place.Compresses({"deploy", "demo.vproj"}));
}

TEST(Compress, IsKeptByAPlan) {
  NEEDS_SSH_SERVER();
  const TCompressPlace place;
  ASSERT_EQ(place.Run({"plan", "demo.vproj", "--out", "plain.plan"}).Status, 0);
  ASSERT_EQ(place.Run({"plan", "demo.vproj", "--compress", "--out", "thin.plan"}).Status, 0);
  EXPECT_TRUE(place.Compresses({"apply", "thin.plan", "--dry-run"}));
  EXPECT_FALSE(place.Compresses({"apply", "plain.plan", "--dry-run"}));
  EXPECT_TRUE(place.Compresses({"apply", "plain.plan", "--compress"}));
  EXPECT_EQ(place.Read("target/demo/a.dat"), "a");
}

} // namespace
} // namespace integration
