#include "package/reconcile/module_search.h"
#include "tests/package/reconcile/reconcile_world.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace deployment {
namespace {

class ModuleSearch : public testing::Test {
protected:
  std::string Find(std::string_view platform, std::string_view name = "core.vpk") {
    const TReconcileTarget target = World.Target(platform);
    const TModuleSearch search(target, platform,
                               [this](const std::string& path, const std::string& what) {
                                 Wrong.push_back(path + ": " + what);
                               });
    return search.FindModule(name);
  }
  void AddModule(const std::string& path, TImageWidth width) {
    World.AddFile(path);
    World.Host.FileUtils.ImageWidths[path] = width;
  }

  TReconcileWorld World;
  std::vector<std::string> Wrong;
};

TEST_F(ModuleSearch, TakesAnAbsoluteNameThatExists) {
  World.AddFile(R"(C:\lib\core.vpk)");
  EXPECT_EQ(Find("Win32", R"(C:\lib\core.vpk)"), R"(C:\lib\core.vpk)");
  EXPECT_EQ(Find("Win32", R"(C:\lib\gone.vpk)"), R"(C:\lib\gone.vpk)");
}

TEST_F(ModuleSearch, FindsRedistributablesAndKeepsTheMacro) {
  AddModule(R"(C:\ide\Redist\Win32\core.vpk)", TImageWidth::Bits32);
  EXPECT_EQ(Find("Win32"), R"($(ZELK)\Redist\Win32\core.vpk)");
}

TEST_F(ModuleSearch, LooksIntoTheDirectoryOfTheProgramsOfItsWidth) {
  AddModule(R"(C:\ide\bin\core.vpk)", TImageWidth::Bits32);
  AddModule(R"(C:\ide\bin64\core.vpk)", TImageWidth::Bits64);
  EXPECT_EQ(Find("Win32"), R"($(ZELK)\bin\core.vpk)");
  EXPECT_EQ(Find("Win64"), R"($(ZELK)\bin64\core.vpk)");
}

TEST_F(ModuleSearch, PassesOverModulesOfTheOtherWidthAndGoesOn) {
  World.Host.FileUtils.Environment["PATH"] = R"(C:\one;C:\two;C:\three)";
  AddModule(R"(C:\one\core.vpk)", TImageWidth::Bits32);
  AddModule(R"(C:\two\core.vpk)", TImageWidth::Neither);
  AddModule(R"(C:\three\core.vpk)", TImageWidth::Bits64);
  EXPECT_EQ(Find("Win64"), R"(C:\three\core.vpk)");
  EXPECT_EQ(Wrong, (std::vector<std::string>{R"(C:\one\core.vpk: 32-bit program)",
                                             R"(C:\two\core.vpk: no program)"}));
  EXPECT_EQ(Find("Win32"), R"(C:\one\core.vpk)");
}

TEST_F(ModuleSearch, NeverLooksAtThePathForOSX) {
  World.Host.FileUtils.Environment["PATH"] = R"(C:\one)";
  World.AddFile(R"(C:\one\core.vpk)");
  EXPECT_EQ(Find("OSX32"), "core.vpk");
  World.AddFile(R"(C:\ide\Redist\OSX32\core.vpk)");
  EXPECT_EQ(Find("OSX32"), R"($(ZELK)\Redist\OSX32\core.vpk)");
}

TEST_F(ModuleSearch, KnowsModulesOfOtherPlatformsByNameAlone) {
  AddModule(R"(C:\ide\Redist\Android\core.vpk)", TImageWidth::Bits32);
  AddModule(R"(C:\ide\Redist\iOSDevice64\core.vpk)", TImageWidth::Bits64);
  EXPECT_EQ(Find("Android"), "core.vpk");
  EXPECT_EQ(Find("iOSDevice64"), "core.vpk");
}

TEST_F(ModuleSearch, TakesTheLibraryPathOfAnArdentProject) {
  auto& paths = World.Personalities.Environments["Ardent.Personality"].Paths;
  paths[{1, "Win32"}] = R"(C:\libs;C:\more)";
  paths[{104, "Win32"}] = R"(C:\tools)";
  AddModule(R"(C:\tools\core.vpk)", TImageWidth::Bits32);
  EXPECT_EQ(Find("Win32"), "core.vpk");
  AddModule(R"(C:\more\core.vpk)", TImageWidth::Bits32);
  EXPECT_EQ(Find("Win32"), R"(C:\more\core.vpk)");
}

TEST_F(ModuleSearch, TakesToolChainThenLibraryThenCompilerDirectoryForCorvane) {
  World.Project.Personality = "Corvane.Personality";
  World.Project.CompilerOptions.OSXDirectory = R"(C:\osx)";
  World.Personalities.Environments["Corvane.Personality"].Paths[{104, "OSX32"}] = R"(C:\tools)";
  World.Personalities.Environments["Ardent.Personality"].Paths[{1, "OSX32"}] = R"(C:\libs)";
  World.AddFile(R"(C:\osx\core.vpk)");
  EXPECT_EQ(Find("OSX32"), R"(C:\osx\core.vpk)");
  World.AddFile(R"(C:\libs\core.vpk)");
  EXPECT_EQ(Find("OSX32"), R"(C:\libs\core.vpk)");
  World.AddFile(R"(C:\tools\core.vpk)");
  EXPECT_EQ(Find("OSX32"), R"(C:\tools\core.vpk)");
  World.Personalities.Without = {"environment of Corvane.Personality"};
  EXPECT_EQ(Find("OSX32"), "core.vpk");
}

TEST_F(ModuleSearch, SkipsEmptyPlacesAndSeesRelativeOnesFromTheProject) {
  World.Host.FileUtils.Environment["PATH"] = R"(;;tools;)";
  World.AddFile(R"(\core.vpk)");
  AddModule(R"(C:\work\App\tools\core.vpk)", TImageWidth::Bits32);
  EXPECT_EQ(Find("Win32"), R"(tools\core.vpk)");
}

TEST_F(ModuleSearch, PrefersRedistributablesToThePrograms) {
  AddModule(R"(C:\ide\Redist\Win32\core.vpk)", TImageWidth::Bits32);
  AddModule(R"(C:\ide\bin\core.vpk)", TImageWidth::Bits32);
  EXPECT_EQ(Find("Win32"), R"($(ZELK)\Redist\Win32\core.vpk)");
}

TEST_F(ModuleSearch, PrefersThePlacesOfThePersonalityToThePath) {
  World.Personalities.Environments["Ardent.Personality"].Paths[{1, "Win32"}] = R"(C:\libs)";
  World.Host.FileUtils.Environment["PATH"] = R"(C:\path)";
  AddModule(R"(C:\path\core.vpk)", TImageWidth::Bits32);
  AddModule(R"(C:\libs\core.vpk)", TImageWidth::Bits32);
  EXPECT_EQ(Find("Win32"), R"(C:\libs\core.vpk)");
}

TEST_F(ModuleSearch, TakesNothingThatIsNoImageForWin32) {
  AddModule(R"(C:\ide\bin\core.vpk)", TImageWidth::Neither);
  EXPECT_EQ(Find("Win32"), "core.vpk");
}

TEST_F(ModuleSearch, FindsNothingWhenTheSearchFails) {
  AddModule(R"(C:\ide\bin\core.vpk)", TImageWidth::Bits32);
  const TReconcileTarget target = World.Target("Win32");
  const TModuleSearch search(target, "Win32", [](const std::string&, const std::string&) {
    throw std::runtime_error("no room for notes");
  });
  AddModule(R"(C:\ide\Redist\Win32\core.vpk)", TImageWidth::Bits64);
  EXPECT_EQ(search.FindModule("core.vpk"), "core.vpk");
}

TEST_F(ModuleSearch, FindsNothingWhenItsPlacesCannotBeWorkedOut) {
  struct TBrokenEnvironment : TMemoryPersonalities {
    IEnvironmentService* GetEnvironmentService(std::string_view) override {
      throw std::runtime_error("no environment");
    }
  } broken;
  World.Host.PersonalityServices = &broken;
  AddModule(R"(C:\ide\Redist\Win32\core.vpk)", TImageWidth::Bits32);
  EXPECT_EQ(Find("Win32"), "core.vpk");
  EXPECT_EQ(Find("Win32", R"(C:\ide\Redist\Win32\core.vpk)"), R"(C:\ide\Redist\Win32\core.vpk)");
}

TEST_F(ModuleSearch, ExpandsTheMacrosOfTheTargetAndKeepsThem) {
  World.Personalities.Environments["Ardent.Personality"].Paths[{1, "Win64"}] =
      R"(libs\$(Platform)\$(Config))";
  AddModule(R"(C:\work\App\libs\Win64\Debug\core.vpk)", TImageWidth::Bits64);
  EXPECT_EQ(Find("Win64"), R"(libs\$(Platform)\$(Config)\core.vpk)");
}

} // namespace
} // namespace deployment
