#include "tests/workbench/project/build_import/build_place.h"

namespace workbench {
namespace {

using TLines = std::vector<std::string>;

// A build directory with what Meson 1.0 wrote into it.
class MesonPlan : public ::testing::Test {
protected:
  MesonPlan() {
    WriteInfo(1);
    Place.Write("build/meson-info/intro-buildoptions.json",
                R"([{"name":"prefix","value":"/usr/local"},{"name":"bindir","value":"bin"},
                {"name":"libdir","value":"lib/x86_64-linux-gnu"},{"name":"datadir","value":"share"},
                {"name":"localstatedir","value":"/var/local"},{"name":"buildtype","value":"debug"},
                {"name":"strip","value":false}])");
    Place.Write(
        "build/meson-info/intro-targets.json",
        R"([{"name":"tide","type":"shared library","defined_in":")" + Source() +
            R"(/lib/meson.build","filename":[")" + Build() + R"(/libtide.so.1.2.3"],
                "install_filename":["/usr/local/lib/x86_64-linux-gnu/libtide.so.1.2.3",
                "/usr/local/lib/x86_64-linux-gnu/libtide.so.1","/usr/local/lib/x86_64-linux-gnu/libtide.so"]},
                {"name":"harbour","type":"executable","filename":[")" +
            Build() +
            R"(/harbour"],"install_filename":["/usr/local/bin/harbour","/usr/local/bin/harbour-link"]}])");
  }

  std::string Source() const { return Place.Path("source").string(); }
  std::string Build() const { return Place.Path("build").string(); }
  void WriteInfo(int version) {
    Place.Write("build/meson-info/meson-info.json",
                R"({"directories":{"source":")" + Source() +
                    R"("},"introspection":{"version":{"major":)" + std::to_string(version) + "}}}");
  }
  void WritePlan(const std::string& text) {
    Place.Write("build/meson-info/intro-install_plan.json", text);
  }

  testing::TBuildPlace Place;
};

TEST_F(MesonPlan, TellsProgramsLibrariesWithTheirLinksAndFiles) {
  Place.Write("source/tree/a.txt", "");
  Place.Write("source/tree/deep/b.txt", "");
  Place.Write("source/tree/skip/c.txt", "");
  WritePlan(
      R"({"targets":{")" + Build() +
      R"(/libtide.so.1.2.3":{"destination":"{libdir_shared}/libtide.so.1.2.3","tag":"runtime"},
      ")" +
      Build() + R"(/harbour":{"destination":"{bindir}/harbour","tag":"runtime"}},
      "data":{")" +
      Source() + R"(/levels.dat":{"destination":"{datadir}/harbour/levels2.dat","tag":null}},
      "install_subdirs":{")" +
      Source() +
      R"(/tree":{"destination":"{datadir}/tree","tag":null,"exclude_dirs":["skip"],"exclude_files":["a.txt"]}}})");
  const TInstallPlan plan = Place.Read();
  EXPECT_EQ(plan.Tool, "Meson");
  EXPECT_EQ(plan.Configurations, TLines{"Debug"});
  EXPECT_EQ(
      Place.LinesOf(plan),
      (TLines{"Base runtime build/libtide.so.1.2.3 -> lib/x86_64-linux-gnu/libtide.so.1.2.3 @0",
              "Base runtime build/libtide.so.1 -> lib/x86_64-linux-gnu/libtide.so.1 @0",
              "Base runtime build/libtide.so -> lib/x86_64-linux-gnu/libtide.so @0",
              "Base runtime build/harbour -> bin/harbour program @0",
              "Base Unspecified source/levels.dat -> share/harbour/levels2.dat @0",
              "Base Unspecified source/tree/deep/b.txt -> share/tree/deep/b.txt @0"}));
  EXPECT_EQ(plan.Files[0].Rule.File, Source() + "/lib/meson.build");
  EXPECT_EQ(plan.Files[4].Rule.File, Source() + "/meson.build");
}

TEST_F(MesonPlan, OutsideThePrefixIsRefused) {
  WritePlan(R"({"data":{")" + Source() +
            R"(/x.service":{"destination":"/lib/systemd/system/x.service","tag":"systemd"}}})");
  EXPECT_EQ(Place.ErrorOf(),
            "source/meson.build: the destination \"/lib/systemd/system\" is absolute "
            "and not below the install prefix \"/usr/local\"; make it relative, or "
            "name the components to be taken and leave \"systemd\" out");
  WritePlan(R"({"data":{")" + Source() +
            R"(/x":{"destination":"{localstatedir}/x","tag":"state"}}})");
  EXPECT_TRUE(Place.ErrorOf().starts_with("source/meson.build: the destination \"/var/local\""))
      << Place.ErrorOf();
}

TEST_F(MesonPlan, SaysWhichPlacesItCannotTell) {
  WritePlan(R"({"python":{")" + Source() +
            R"(/x.py":{"destination":"{py_purelib}/x.py","tag":"python-runtime"}}})");
  const TInstallPlan plan = Place.Read();
  EXPECT_EQ(Place.LinesOf(plan), TLines());
  EXPECT_EQ(
      Place.WarningsOf(plan),
      TLines{"source/meson.build: \"source/x.py\" goes to \"{py_purelib}/x.py\", a place that "
             "Meson does not tell; it is left out"});
}

TEST_F(MesonPlan, OfAnotherVersionOrCutIsRefused) {
  WritePlan("{\"data\":{\n\"x");
  EXPECT_EQ(Place.ErrorOf(),
            "build/meson-info/intro-install_plan.json:2: the install plan of Meson "
            "cannot be read: it is no JSON at byte 13");
  WriteInfo(2);
  EXPECT_EQ(Place.ErrorOf(), "build/meson-info/meson-info.json: the summary of Meson: "
                             "\"introspection.version\" is 2; known is 1");
}

} // namespace
} // namespace workbench
