// Projects that get another name while they are open.
#include "tests/workbench/session/session_fixture.h"
#include "workbench/project/project_settings.h"

namespace workbench {
namespace {

using deployment::TInputError;
using testing::ErrorOf;
using testing::ProjectWith;
using testing::StoredEntry;

class SaveAs : public testing::TSessionTest {
protected:
  std::filesystem::path Other() const { return FDirectory / "other.vproj"; }
};

/// Notes what the module says about its name.
class TNames final : public deployment::IOTAModuleNotifier {
public:
  void AfterSave() override { Log += "saved;"; }
  void ModuleRenamed(std::string_view oldName, std::string_view newName) override {
    Log.append(oldName).append(">").append(newName).append(";");
  }
  void ModuleRemoved(std::string_view /*name*/) override {}
  void Destroyed() override {}

  std::string Log;
};

TEST_F(SaveAs, WritesTheProjectAndItsSideFileUnderTheNewNameAndGoesOnThere) {
  TOpenProject& project = OpenText(ProjectWith(StoredEntry));
  const std::string before = Read(FFile);
  const auto names = std::make_shared<TNames>();
  project.Project().AddNotifier(names);
  AddFile(project, "b.dat");
  const TSaveReport report = Host().SaveAs(project, Other(), false);
  EXPECT_TRUE(report.ProjectWritten);
  EXPECT_EQ(report.SideFile, FDirectory / "other.deployproj");
  EXPECT_TRUE(std::filesystem::exists(FDirectory / "other.deployproj"));
  EXPECT_EQ(Read(FFile), before) << "the old file stays";
  EXPECT_NE(Read(Other()).find("b.dat"), std::string::npos);
  EXPECT_EQ(project.GivenFileName(), Other());
  EXPECT_EQ(project.Project().GetFileName(), Other().string());
  EXPECT_FALSE(project.HasChanges());
  EXPECT_FALSE(project.IsChangedOnDisk());
  EXPECT_EQ(names->Log, FFile.string() + ">" + Other().string() + ";saved;");
  AddFile(project, "c.dat");
  EXPECT_TRUE(project.Save(false).ProjectWritten);
  EXPECT_NE(Read(Other()).find("c.dat"), std::string::npos);
  EXPECT_EQ(Read(FFile), before);
}

TEST_F(SaveAs, CopiesAProjectThatASaveWouldLeaveByteForByte) {
  TOpenProject& project = OpenText(ProjectWith(StoredEntry));
  project.MarkChanged();
  project.Save(false);
  Host().SaveAs(project, Other(), false);
  EXPECT_EQ(Read(Other()), Read(FFile));
  EXPECT_EQ(project.Settings().ActivePlatform(), "Win32");
}

TEST_F(SaveAs, ReplacesAFileOnlyWhenItMay) {
  TOpenProject& project = OpenText(ProjectWith(StoredEntry));
  Write(Other(), "precious");
  EXPECT_NE(ErrorOf<TSaveError>([&] { Host().SaveAs(project, Other(), false); }), "");
  EXPECT_EQ(Read(Other()), "precious");
  EXPECT_EQ(project.GivenFileName(), FFile);
  Host().SaveAs(project, Other(), true);
  EXPECT_NE(Read(Other()).find("levels.dat"), std::string::npos);
}

TEST_F(SaveAs, RefusesTheNameOfAnotherOpenProject) {
  TOpenProject& project = OpenText(ProjectWith(StoredEntry));
  Write(Other(), ProjectWith(""));
  Host().Open(Other(), TOpenPurpose::Look);
  const auto capitals = FDirectory / "OTHER.vproj";
  EXPECT_EQ(ErrorOf<TInputError>([&] { Host().SaveAs(project, capitals, true); }),
            "a project of that name is open");
  EXPECT_FALSE(std::filesystem::exists(capitals));
  EXPECT_EQ(ErrorOf<TInputError>([&] { Host().Rename(project, Other()); }),
            "a project of that name is open");
  EXPECT_EQ(project.GivenFileName(), FFile);
}

TEST_F(SaveAs, MovesTheLockOfAnEditingRun) {
  TOpenProject& project = OpenText(ProjectWith(StoredEntry), TOpenPurpose::Edit);
  Host().SaveAs(project, Other(), false);
  const auto lock = [](const std::filesystem::path& file) {
    return ErrorOf<TSaveError>([&] { TFileLock(file, std::chrono::milliseconds(60)); });
  };
  EXPECT_EQ(lock(FFile), "");
  EXPECT_NE(lock(Other()), "");
}

TEST_F(SaveAs, AFileThatWasRenamedOnDiskIsFound) {
  TOpenProject& project = OpenText(ProjectWith(StoredEntry));
  EXPECT_EQ(project.FindRenamed(), std::nullopt);
  std::filesystem::rename(FFile, Other());
  EXPECT_EQ(project.FindRenamed(), Other());
  Host().Rename(project, Other());
  EXPECT_EQ(project.FindRenamed(), std::nullopt);
  EXPECT_FALSE(project.IsChangedOnDisk());
  std::filesystem::remove(Other());
  EXPECT_EQ(project.FindRenamed(), std::nullopt) << "gone altogether";
}

} // namespace
} // namespace workbench
