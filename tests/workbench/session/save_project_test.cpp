#include "tests/workbench/session/session_fixture.h"

namespace workbench {
namespace {

using testing::ErrorOf;
using testing::ProjectHead;
using testing::ProjectWith;
using testing::StoredEntry;

using SaveProject = testing::TSessionTest;

const std::string ImportLine = "  <Import Project=\"$(MSBuildProjectName).deployproj\" "
                               "Condition=\"Exists('$(MSBuildProjectName).deployproj')\"/>\n";

std::size_t CountOf(const std::string& text, std::string_view piece) {
  std::size_t count = 0;
  for (std::size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at + 1))
    ++count;
  return count;
}

TEST_F(SaveProject, WritesNothingWithoutChanges) {
  const std::string text = ProjectWith(StoredEntry);
  TOpenProject& project = OpenText(text);
  project.Deployment().GetFiles();
  const TSaveReport report = project.Save(false);
  EXPECT_FALSE(report.ProjectWritten);
  EXPECT_FALSE(report.SideFileWritten);
  EXPECT_EQ(Read(FFile), text);
  EXPECT_EQ(Names(), std::vector<std::string>{"demo.vproj"});
}

TEST_F(SaveProject, ChangesTheSectionAndAddsTheImportOnce) {
  const std::string text = ProjectWith(StoredEntry);
  TOpenProject& project = OpenText(text, TOpenPurpose::Edit);
  project.Deployment().GetFiles().at(0)->SetRemoteDir("Win32", "other\\");
  const TSaveReport report = project.Save(false);
  EXPECT_TRUE(report.ProjectWritten);
  EXPECT_TRUE(report.SideFileWritten);
  EXPECT_EQ(report.SideFile, FDirectory / "demo.deployproj");
  EXPECT_FALSE(project.HasChanges());
  const std::string saved = Read(FFile);
  EXPECT_EQ(saved.substr(0, ProjectHead.size()), ProjectHead);
  EXPECT_NE(saved.find("other\\"), std::string::npos);
  EXPECT_EQ(CountOf(saved, ImportLine), 1U);
  EXPECT_NE(Read(report.SideFile).find("<DeployFile Include=\"data\\levels.dat\""),
            std::string::npos);
}

TEST_F(SaveProject, SavesTwiceInARow) {
  TOpenProject& project = OpenText(ProjectWith(StoredEntry), TOpenPurpose::Edit);
  AddFile(project, "b.dat");
  project.Save(false);
  const std::string first = Read(FFile);
  AddFile(project, "c.dat");
  EXPECT_TRUE(project.HasChanges());
  EXPECT_TRUE(project.Save(false).ProjectWritten);
  const std::string second = Read(FFile);
  EXPECT_EQ(CountOf(second, "<DeployFile "), 3U);
  EXPECT_EQ(CountOf(second, "<Import "), 1U);
  EXPECT_EQ(second.substr(0, first.find("    </Deployment>")),
            first.substr(0, first.find("    </Deployment>")));
  EXPECT_FALSE(project.Save(false).ProjectWritten);
  EXPECT_EQ(FilesOf(Open()), "data\\levels.dat b.dat c.dat");
}

TEST_F(SaveProject, TakesAnEditBackByteForByte) {
  TOpenProject& project = OpenText(ProjectWith(StoredEntry), TOpenPurpose::Edit);
  AddFile(project, "b.dat");
  project.Save(false);
  const std::string first = Read(FFile);
  AddFile(project, "c.dat");
  project.Save(false);
  project.Deployment().RemoveFile("Debug", "Win32", "c.dat");
  EXPECT_TRUE(project.Save(false).ProjectWritten);
  EXPECT_EQ(Read(FFile), first);
}

TEST_F(SaveProject, FindsNothingToWriteWhenTheContentIsTheSame) {
  TOpenProject& project = OpenText(ProjectWith(StoredEntry), TOpenPurpose::Edit);
  project.MarkChanged();
  project.Save(false);
  const std::string saved = Read(FFile);
  project.MarkChanged();
  const TSaveReport report = project.Save(false);
  EXPECT_FALSE(report.ProjectWritten);
  EXPECT_FALSE(report.SideFileWritten);
  EXPECT_EQ(Read(FFile), saved);
  EXPECT_FALSE(project.HasChanges());
}

TEST_F(SaveProject, WritesTheProjectAlone) {
  TOpenProject& project = OpenText(ProjectWith(StoredEntry), TOpenPurpose::Edit);
  AddFile(project, "b.dat");
  EXPECT_TRUE(project.SaveProjectFile(false));
  EXPECT_EQ(CountOf(Read(FFile), ImportLine), 1U);
  EXPECT_FALSE(project.HasChanges());
  EXPECT_EQ(Names(), std::vector<std::string>{"demo.vproj"});
}

TEST_F(SaveProject, WritesTheSideFileAlone) {
  const std::string text = ProjectWith(StoredEntry);
  TOpenProject& project = OpenText(text);
  const TSaveReport first = project.Export();
  EXPECT_FALSE(first.ProjectWritten);
  EXPECT_TRUE(first.SideFileWritten);
  EXPECT_FALSE(project.Export().SideFileWritten);
  EXPECT_EQ(Read(FFile), text);
}

TEST_F(SaveProject, RefusesWhenTheFileChangedMeanwhile) {
  TOpenProject& project = OpenText(ProjectWith(StoredEntry));
  AddFile(project, "b.dat");
  const std::string other = ProjectWith("");
  Write(FFile, other);
  const std::string error = ErrorOf<TSaveError>([&] { project.Save(false); });
  EXPECT_NE(error.find(FFile.string()), std::string::npos) << error;
  EXPECT_NE(error.find("changed"), std::string::npos) << error;
  EXPECT_EQ(Read(FFile), other);
  EXPECT_EQ(Names(), std::vector<std::string>{"demo.vproj"});
  EXPECT_TRUE(project.HasChanges());
}

TEST_F(SaveProject, OverwritesAChangedFileByForce) {
  TOpenProject& project = OpenText(ProjectWith(StoredEntry));
  AddFile(project, "b.dat");
  Write(FFile, ProjectWith(""));
  EXPECT_THROW(project.Save(false), TSaveError);
  EXPECT_TRUE(project.Save(true).ProjectWritten);
  EXPECT_EQ(FilesOf(Open()), "data\\levels.dat b.dat");
}

TEST_F(SaveProject, SaysWhenATextCannotBeWritten) {
  const std::string text = ProjectWith(StoredEntry);
  TOpenProject& project = OpenText(text, TOpenPurpose::Edit);
  AddFile(project, "bad\x01name");
  EXPECT_EQ(ErrorOf<TSaveError>([&] { project.Save(false); }),
            "the project was not saved: the text \"bad\x01name\" holds characters that an XML "
            "file cannot hold");
  EXPECT_EQ(Read(FFile), text);
  EXPECT_TRUE(project.HasChanges());
  project.Deployment().RemoveFile("Debug", "Win32", "bad\x01name");
  AddFile(project, "good");
  EXPECT_TRUE(project.Save(false).ProjectWritten);
  EXPECT_EQ(FilesOf(Open()), "data\\levels.dat good");
}

TEST_F(SaveProject, KeepsTheContentThatItReplaces) {
  const std::string text = ProjectWith(StoredEntry);
  TOpenProject& project = OpenText(text, TOpenPurpose::Edit);
  AddFile(project, "b.dat");
  project.Save(false);
  const auto backup = NewestBackup(FFile);
  ASSERT_TRUE(backup.has_value());
  EXPECT_EQ(Read(*backup), text);
}

TEST_F(SaveProject, KeepsALinkAndPutsTheSideFileBesideIt) {
  std::filesystem::create_directory(FRoot / "real");
  Write(FRoot / "real" / "target.vproj", ProjectWith(StoredEntry));
  std::filesystem::create_symlink(FRoot / "real" / "target.vproj", FFile);
  TOpenProject& project = Open(TOpenPurpose::Edit);
  AddFile(project, "b.dat");
  EXPECT_TRUE(project.Save(false).ProjectWritten);
  EXPECT_TRUE(std::filesystem::is_symlink(FFile));
  EXPECT_EQ(Names(), (std::vector<std::string>{"demo.deployproj", "demo.vproj"}));
  EXPECT_NE(Read(FRoot / "real" / "target.vproj").find("b.dat"), std::string::npos);
}

TEST_F(SaveProject, ReadsBackWhatANewProjectGot) {
  Host().Create(FFile, std::string(ProjectHead) + "</Project>\n");
  TOpenProject& project = Open(TOpenPurpose::Edit);
  AddFile(project, "b.dat");
  project.Deployment().GetFiles();
  const auto classes = project.Deployment().GetClasses().size();
  EXPECT_GT(classes, 20U);
  EXPECT_TRUE(project.Save(false).ProjectWritten);
  Host().Close(project);
  TOpenProject& again = Open();
  EXPECT_EQ(FilesOf(again), "b.dat");
  EXPECT_EQ(again.Deployment().GetClasses().size(), classes);
  EXPECT_TRUE(again.Warnings().empty());
  EXPECT_FALSE(again.HasChanges());
}

} // namespace
} // namespace workbench
