#include "tests/workbench/session/session_fixture.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/services/ide_services.h"
#include "workbench/services/project_module.h"
#include "workbench/session/package_loader.h"
#include "workbench/session/session.h"

#include <algorithm>
#include <dlfcn.h>

namespace workbench {
namespace {

using deployment::TInputError;
using testing::ErrorOf;
using testing::ProjectWith;
using testing::StoredEntry;

using Session = testing::TSessionTest;

bool PackageIsLoaded() {
  void* module = ::dlopen(PackageModuleFile().c_str(), RTLD_NOW | RTLD_NOLOAD);
  if (module)
    ::dlclose(module);
  return module != nullptr;
}

TEST_F(Session, CanBeMadeAgainAfterItsEnd) {
  Write(FFile, ProjectWith(StoredEntry));
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(FilesOf(Open()), "data\\levels.dat");
    EXPECT_TRUE(PackageIsLoaded());
    FSession.reset();
  }
}

TEST_F(Session, TakesThePackageOutOfMemoryAtItsEnd) {
  OpenText(ProjectWith(StoredEntry));
  FSession.reset();
  EXPECT_FALSE(PackageIsLoaded());
}

TEST_F(Session, LeavesNothingRegisteredWhenThePackageStops) {
  const TPlatformTable platforms = TPlatformTable::BuiltIn();
  TIDEServices services(std::filesystem::current_path(), platforms, FRoot / "settings.json");
  const auto hasDeployment = [&] {
    TProjectModule module(
        FFile, std::make_unique<TProjectDocument>("<Project/>", "demo.vproj", "Deployment"),
        platforms, services.GetSettings());
    services.GetModuleHandlerGauntlet().AttachHandlers(module);
    return module.GetProjectDeployment() != nullptr;
  };
  for (int round = 0; round < 2; ++round) {
    {
      const TPackageLoader loader(services);
      loader.Package().Start();
      services.GetEvents().MainFormCreated().Raise();
      EXPECT_EQ(services.GetProjectFileStorage().NotifierCount(), 1U);
      EXPECT_EQ(services.GetProjectFileStorage().SectionName(), "Deployment");
      EXPECT_TRUE(hasDeployment());
      loader.Package().Stop();
      EXPECT_EQ(services.GetProjectFileStorage().NotifierCount(), 0U);
      EXPECT_FALSE(hasDeployment());
    }
    services.GetEvents().MainFormCreated().Raise(); // nobody listens who is gone
  }
}

TEST_F(Session, ClosesWhatIsOpenAtItsEnd) {
  Write(FDirectory / "other.vproj", ProjectWith(""));
  OpenText(ProjectWith(StoredEntry), TOpenPurpose::Edit);
  Host().Open(FDirectory / "other.vproj", TOpenPurpose::Look);
  Host().ShippedClasses();
  FSession.reset();
  EXPECT_EQ(Names(), (std::vector<std::string>{"demo.vproj", "other.vproj"}));
}

TEST_F(Session, OpensClosesAndOpensAgain) {
  TOpenProject& first = OpenText(ProjectWith(StoredEntry), TOpenPurpose::Edit);
  AddFile(first, "lost.dat");
  Host().Close(first);
  EXPECT_EQ(FilesOf(Open(TOpenPurpose::Edit)), "data\\levels.dat");
}

TEST_F(Session, KeepsSeveralProjectsApart) {
  TOpenProject& first = OpenText(ProjectWith(StoredEntry));
  Write(FDirectory / "other.vproj", ProjectWith(""));
  TOpenProject& second = Host().Open(FDirectory / "other.vproj", TOpenPurpose::Look);
  AddFile(second, "b.dat");
  EXPECT_EQ(FilesOf(first), "data\\levels.dat");
  EXPECT_FALSE(first.HasChanges());
  EXPECT_TRUE(second.HasChanges());
  Host().Close(first);
  EXPECT_NE(FilesOf(second).find("b.dat"), std::string::npos);
}

TEST_F(Session, StaysUsableAfterAProjectThatCannotBeRead) {
  EXPECT_EQ(ErrorOf<TInputError>([this] { OpenText("<Project>"); }),
            "not well-formed XML: no element found");
  EXPECT_EQ(ErrorOf<TInputError>([this] {
              OpenText(ProjectWith("      <DeployFile LocalName=\"x\"><Platform/></DeployFile>\n"),
                       TOpenPurpose::Edit);
            }).find("\"Platform\"") != std::string::npos,
            true);
  EXPECT_EQ(FilesOf(OpenText(ProjectWith(StoredEntry), TOpenPurpose::Edit)), "data\\levels.dat");
}

TEST_F(Session, KnowsItsRootAndPlatforms) {
  EXPECT_EQ(Host().Root(), std::filesystem::current_path());
  EXPECT_NE(Host().Platforms().FindPlatform("Win32"), nullptr);
}

TEST_F(Session, TakesTheBuiltInPlatformsWithoutATable) {
  std::filesystem::create_directories(FRoot / "root");
  const TSession session({FRoot / "root"});
  EXPECT_EQ(session.Platforms().Names(), TPlatformTable::BuiltIn().Names());
}

TEST_F(Session, RefusesADamagedPlatformTable) {
  const auto folder = FRoot / "root" / "ObjRepos" / "Deploy";
  std::filesystem::create_directories(folder);
  Write(folder / "platforms.xml", "<Platforms>");
  EXPECT_EQ(ErrorOf<TInputError>([this] { TSession({FRoot / "root"}); }),
            "not well-formed XML: no element found");
}

TEST_F(Session, ListsTheShippedClassesWithoutAProject) {
  const auto classes = Host().ShippedClasses();
  EXPECT_GT(classes.size(), 20U);
  EXPECT_EQ(Host().ShippedClasses(), classes);
  const auto isFile = [](const auto& entry) { return entry->GetClassId() == "File"; };
  EXPECT_TRUE(std::any_of(classes.begin(), classes.end(), isFile));
}

TEST_F(Session, CreatesAProjectWithAnEmptySection) {
  Host().Create(FFile, "<Project>\n  <PropertyGroup/>\n</Project>\n");
  EXPECT_EQ(Read(FFile), "<Project>\n  <PropertyGroup/>\n  <ProjectExtensions>\n"
                         "    <Deployment Version=\"2\"/>\n  </ProjectExtensions>\n</Project>\n");
  TOpenProject& project = Open();
  EXPECT_EQ(project.SectionVersionRead(), 2);
  EXPECT_FALSE(project.WasUpgraded());
}

TEST_F(Session, CreatesNoProjectOverAFile) {
  Write(FFile, "precious");
  const std::string error = ErrorOf<TSaveError>([this] { Host().Create(FFile, "<Project/>"); });
  EXPECT_NE(error.find(FFile.string()), std::string::npos) << error;
  EXPECT_EQ(Read(FFile), "precious");
}

TEST_F(Session, CreatesNoProjectFromAnotherText) {
  EXPECT_EQ(ErrorOf<TInputError>([this] { Host().Create(FFile, "<Solution/>"); }),
            "the root element is \"Solution\", so this is not an MSBuild project");
  EXPECT_FALSE(std::filesystem::exists(FFile));
}

} // namespace
} // namespace workbench
