#include "tests/workbench/session/session_fixture.h"
#include "workbench/project/project_settings.h"

#include <chrono>

namespace workbench {
namespace {

using deployment::TInputError;
using testing::ErrorOf;
using testing::ProjectHead;
using testing::ProjectWith;
using testing::StoredEntry;

using OpenProject = testing::TSessionTest;

TEST_F(OpenProject, ReadsTheDeploymentOfItsFile) {
  TOpenProject& project = OpenText(ProjectWith(StoredEntry));
  EXPECT_EQ(project.GivenFileName(), FFile);
  EXPECT_EQ(project.Project().GetProjectFileName(), FFile.string());
  EXPECT_EQ(project.SectionVersionRead(), 2);
  EXPECT_FALSE(project.WasUpgraded());
  EXPECT_FALSE(project.HasChanges());
  EXPECT_TRUE(project.Warnings().empty());
  const auto file = project.Deployment().FindFile("Debug", "Win32", "data\\levels.dat");
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->GetRemoteDir("Win32"), "data\\");
  EXPECT_EQ(project.Settings().ActivePlatform(), "Win32");
}

TEST_F(OpenProject, TakesDefaultClassesOnlyWhenItIsAskedForFiles) {
  TOpenProject& project = OpenText(std::string(ProjectHead) + "</Project>\n");
  EXPECT_EQ(project.SectionVersionRead(), 0);
  EXPECT_FALSE(project.WasUpgraded());
  EXPECT_TRUE(project.Deployment().IsEmpty());
  EXPECT_FALSE(project.HasChanges());
  project.Deployment().GetFiles();
  EXPECT_NE(project.Deployment().FindClass("File"), nullptr);
  EXPECT_TRUE(project.HasChanges());
}

TEST_F(OpenProject, TakesDefaultClassesForAnEmptySectionToo) {
  TOpenProject& project =
      OpenText(std::string(ProjectHead) + "<ProjectExtensions><Deployment/></ProjectExtensions>"
                                          "</Project>\n");
  EXPECT_FALSE(project.WasUpgraded());
  project.Deployment().GetFiles();
  EXPECT_NE(project.Deployment().FindClass("File"), nullptr);
}

TEST_F(OpenProject, TakesNoDefaultClassesForASectionWithEntries) {
  TOpenProject& project = OpenText(ProjectWith(StoredEntry));
  EXPECT_EQ(project.Deployment().GetFiles().size(), 1U);
  EXPECT_TRUE(project.Deployment().GetClasses().empty());
  EXPECT_FALSE(project.HasChanges());
}

TEST_F(OpenProject, SaysThatAnOldSectionWasUpgraded) {
  const std::string text = ProjectWith(StoredEntry);
  std::string old = text;
  old.replace(old.find("Version=\"2\""), 11, "Version=\"1\"");
  TOpenProject& project = OpenText(old);
  EXPECT_EQ(project.SectionVersionRead(), 1);
  EXPECT_TRUE(project.WasUpgraded());
}

TEST_F(OpenProject, WarnsOfWhatASaveWouldDrop) {
  TOpenProject& project = OpenText(
      ProjectWith("      <DeployFile LocalName=\"a\" Configuration=\"Debug\" Class=\"File\">\n"
                  "        <Platform Name=\"Win32\">\n          <Colour>red</Colour>\n"
                  "        </Platform>\n      </DeployFile>\n"));
  ASSERT_EQ(project.Warnings().size(), 1U);
  EXPECT_EQ(project.Warnings()[0].Text, "unknown element \"Colour\" in \"Platform\" is not kept "
                                        "when the project is saved");
  EXPECT_EQ(project.Warnings()[0].File, FFile.string());
  EXPECT_EQ(project.Warnings()[0].Line, 12U);
}

TEST_F(OpenProject, WarnsOfImportsThatAreMissingOrWereSkipped) {
  TOpenProject& project = OpenText("<Project><Import Project=\"absent.targets\"/>\n"
                                   "<Import Project=\"http://localhost/x.targets\"/></Project>");
  ASSERT_EQ(project.Warnings().size(), 2U);
  EXPECT_EQ(project.Warnings()[0].Line, 1U);
  EXPECT_EQ(project.Warnings()[1].Line, 2U);
}

TEST_F(OpenProject, ChangesByItsListenersOrWhenItIsToldSo) {
  TOpenProject& project = OpenText(ProjectWith(StoredEntry));
  const auto file = project.Deployment().GetFiles().at(0);
  file->SetRemoteDir("Win32", "data\\");
  EXPECT_FALSE(project.HasChanges());
  file->SetRemoteDir("Win32", "other\\");
  EXPECT_TRUE(project.HasChanges());
  TOpenProject& second = Open();
  EXPECT_FALSE(second.HasChanges());
  second.MarkChanged();
  EXPECT_TRUE(second.HasChanges());
}

TEST_F(OpenProject, HoldsTheLockOfItsFileWhileItIsEdited) {
  TOpenProject& looking = OpenText(ProjectWith(StoredEntry), TOpenPurpose::Look);
  TOpenProject& editing = Open(TOpenPurpose::Edit);
  const auto lock = [this] { TFileLock(FFile, std::chrono::milliseconds(60)); };
  EXPECT_EQ(ErrorOf<TSaveError>(lock), FFile.string() + " is in use by another run; waited 60 "
                                                        "milliseconds; nothing was written");
  editing.MarkChanged();
  AddFile(editing, "b.dat");
  EXPECT_TRUE(editing.Save(false).ProjectWritten);
  EXPECT_NE(ErrorOf<TSaveError>(lock), "") << "the lock must go on with the new file";
  Host().Close(editing);
  EXPECT_EQ(ErrorOf<TSaveError>(lock), "");
  Host().Close(looking);
}

TEST_F(OpenProject, RefusesNamesThatNoProjectCanHave) {
  EXPECT_EQ(ErrorOf<TInputError>([this] { Host().Open("", TOpenPurpose::Look); }),
            "the name of the project file is empty");
  EXPECT_EQ(ErrorOf<TInputError>([this] { Host().Open("a\\b.vproj", TOpenPurpose::Edit); }),
            "the path holds a \"\\\", which this program takes for a path delimiter");
}

TEST_F(OpenProject, RefusesWhatIsNoPlainFile) {
  for (const auto purpose : {TOpenPurpose::Look, TOpenPurpose::Edit}) {
    const auto open = [&](const std::filesystem::path& file) {
      return ErrorOf<TInputError>([&] { Host().Open(file, purpose); });
    };
    EXPECT_NE(open(FDirectory).find("directory"), std::string::npos) << open(FDirectory);
    EXPECT_NE(open(FDirectory / "absent").find("No such file"), std::string::npos);
    EXPECT_NE(open("/dev/null").find("device"), std::string::npos) << open("/dev/null");
  }
}

TEST_F(OpenProject, NamesTheNewestBackupOfADamagedFile) {
  TOpenProject& project = OpenText(ProjectWith(StoredEntry), TOpenPurpose::Edit);
  AddFile(project, "b.dat");
  project.Save(false);
  Host().Close(project);
  Write(FFile, std::string(500, '\0'));
  const std::string error = ErrorOf<TInputError>([this] { Open(); });
  const std::string start = "the file holds nothing but zero bytes (the last content that was "
                            "replaced here is kept as ";
  ASSERT_EQ(error.substr(0, start.size()), start);
  const std::string backup = error.substr(start.size(), error.size() - start.size() - 1);
  EXPECT_EQ(Read(backup), ProjectWith(StoredEntry));
}

TEST_F(OpenProject, GivesTheReasonAloneWithoutABackup) {
  EXPECT_EQ(ErrorOf<TInputError>([this] { OpenText(""); }), "the file is empty");
}

} // namespace
} // namespace workbench
