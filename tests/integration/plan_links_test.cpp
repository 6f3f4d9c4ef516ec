// Plans of links.
#include "tests/integration/link_place.h"

namespace integration {
namespace {

constexpr const char* LinkPlan = "links.plan";

// A plan that leads one deployed link elsewhere and finds the other one the same.
class TPlannedLibrary : public TWorkplace {
public:
  TPlannedLibrary() {
    MakeLibraryProject(*this);
    EXPECT_EQ(Run({"deploy", "p.vproj"}).Status, 0);
    LeadTo(*this, "lib/libx.so", "libx.so.1.2.3");
    const TRun run = Run({"plan", "p.vproj", "--out", LinkPlan});
    EXPECT_EQ(run.Status, 0) << run.Errors;
  }
  TRun Apply() const { return Run({"apply", LinkPlan, "--json"}); }
  void ExpectRefusal(const std::string& reason) const {
    const std::string before = LinkAt(*this, "there/p/libx.so");
    const TRun run = Apply();
    EXPECT_EQ(run.Status, 8) << run.Output << run.Errors;
    const std::string message = run.Json()["error"]["message"];
    EXPECT_NE(message.find(reason), std::string::npos) << message;
    EXPECT_EQ(LinkAt(*this, "there/p/libx.so"), before);
  }
};

TEST(PlanOfLinks, IsCarriedOutAsItStands) {
  const TPlannedLibrary place;
  const TRun run = place.Apply();
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(run.Json()["copied"], 1);
  EXPECT_EQ(LinkAt(place, "there/p/libx.so"), "libx.so.1.2.3");
  EXPECT_EQ(place.Run({"verify", "p.vproj"}).Status, 0);
  place.ExpectRefusal("there/p/libx.so");
}

TEST(PlanOfLinks, IsRefusedOnceOneLeadsElsewhereHere) {
  const TPlannedLibrary place;
  LeadTo(place, "lib/libx.so", "libx.so.1");
  place.ExpectRefusal("lib/libx.so leads elsewhere");
  LeadTo(place, "lib/libx.so", "libx.so.1.2.3");
  EXPECT_EQ(place.Apply().Status, 0);
}

TEST(PlanOfLinks, IsRefusedOnceOneIsAFileHere) {
  const TPlannedLibrary place;
  PutFile(place, "lib/libx.so", "a file");
  place.ExpectRefusal("lib/libx.so is no link");
}

TEST(PlanOfLinks, IsRefusedOnceOneLeadsElsewhereOnTheTarget) {
  const TPlannedLibrary place;
  LeadTo(place, "there/p/libx.so", "/elsewhere");
  place.ExpectRefusal("there/p/libx.so leads elsewhere on the target now");
  LeadTo(place, "there/p/libx.so", "libx.so.1");
  EXPECT_EQ(place.Apply().Status, 0);
}

TEST(PlanOfLinks, IsRefusedOnceOneThatStaysLeadsElsewhereOnTheTarget) {
  const TPlannedLibrary place;
  LeadTo(place, "there/p/libx.so.1", "/elsewhere");
  place.ExpectRefusal("there/p/libx.so.1 leads elsewhere on the target now");
}

TEST(PlanOfLinks, IsRefusedOnceAFileIsInItsPlace) {
  const TPlannedLibrary place;
  PutFile(place, "there/p/libx.so", "a file");
  place.ExpectRefusal("there/p/libx.so is something else on the target now");
}

TEST(PlanOfLinks, IsRefusedOnceAPrunedOneLeadsElsewhereOnTheTarget) {
  const TPlannedLibrary place;
  ASSERT_EQ(place.Run({"remove", "p.vproj", "lib\\libx.so", "--yes"}).Status, 0);
  ASSERT_EQ(place.Run({"plan", "p.vproj", "--prune", "--out", LinkPlan}).Status, 0);
  LeadTo(place, "there/p/libx.so", "/elsewhere");
  place.ExpectRefusal("there/p/libx.so leads elsewhere on the target now");
  LeadTo(place, "there/p/libx.so", "libx.so.1");
  EXPECT_EQ(place.Apply().Status, 0);
  EXPECT_EQ(LinkAt(place, "there/p/libx.so"), "no link");
}

} // namespace
} // namespace integration
