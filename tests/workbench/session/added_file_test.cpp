#include "tests/workbench/session/session_fixture.h"
#include "workbench/session/added_file.h"
#include "workbench/session/entry_adder.h"

namespace workbench {
namespace {

using testing::ErrorOf;
using testing::ProjectWith;

using AddedFile = testing::TSessionTest;

// Adds a file under the name that the project sees it by.
TAddOutcome Add(TOpenProject& project, const TPlatformTable& platforms,
                const std::filesystem::path& file, const std::string& configuration,
                const std::string& platform) {
  TNewEntry entry;
  entry.LocalName = LocalNameOf(file.string(), project.GivenFileName()).LocalName;
  entry.Configuration = configuration;
  entry.Platforms = {platform};
  return TEntryAdder(project, platforms).Add(entry);
}

TEST_F(AddedFile, IsStoredAsSeenFromTheProject) {
  TOpenProject& project = OpenText(ProjectWith(""));
  std::filesystem::create_directory(FDirectory / "data");
  Write(FDirectory / "data" / "a.dat", "x");
  EXPECT_EQ(Add(project, Host().Platforms(), FDirectory / "data" / "a.dat", "Debug", "OSX32"),
            TAddOutcome::Added);
  const auto file = project.Deployment().FindFile("Debug", "OSX32", "data\\a.dat");
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->GetDeploymentClass(), "File");
  EXPECT_TRUE(file->GetEnabled("OSX32"));
  EXPECT_EQ(file->GetRemoteDir("OSX32"), "Contents\\MacOS\\");
  EXPECT_EQ(file->GetRemoteName("OSX32"), "a.dat");
  EXPECT_TRUE(project.HasChanges());
}

TEST_F(AddedFile, StaysAsTheUserMadeItWhenItIsThereAlready) {
  TOpenProject& project = OpenText(ProjectWith(""));
  Write(FDirectory / "a.dat", "x");
  const auto add = [&] {
    return Add(project, Host().Platforms(), FDirectory / "a.dat", "Debug", "Win32");
  };
  EXPECT_EQ(add(), TAddOutcome::Added);
  const auto file = project.Deployment().FindFile("Debug", "Win32", "a.dat");
  file->SetRemoteDir("Win32", "mine\\");
  EXPECT_EQ(add(), TAddOutcome::Present);
  EXPECT_EQ(project.Deployment().GetFiles().size(), 1U);
  EXPECT_EQ(file->GetRemoteDir("Win32"), "mine\\");
}

TEST_F(AddedFile, TakesEachValueThatIsGiven) {
  TOpenProject& project = OpenText(ProjectWith(""));
  TNewEntry entry{"$(X)\\a.dat", "Debug", {"Win32", "OSX32"}, "Other", "dir", "sub\\",
                  "name",        false};
  EXPECT_EQ(TEntryAdder(project, Host().Platforms()).Add(entry), TAddOutcome::Added);
  const auto file = project.Deployment().FindFile("Debug", "Win32", "$(X)\\a.dat");
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->GetDeploymentClass(), "Other");
  for (const char* platform : {"Win32", "OSX32"}) {
    EXPECT_EQ(file->GetRemoteDir(platform), "dir\\sub\\");
    EXPECT_EQ(file->GetRemoteName(platform), "name");
    EXPECT_FALSE(file->GetEnabled(platform));
  }
}

TEST_F(AddedFile, NeverTakesTheKeyOfAnotherEntry) {
  TOpenProject& project = OpenText(ProjectWith(""));
  const auto moved = project.Deployment().AddFile("Debug", "Win32", "a.dat");
  moved->SetRemoteDir("Android", "kept\\");
  TEntryAdder adder(project, Host().Platforms());
  EXPECT_EQ(adder.Add({"a.dat", "Debug", {"Win32"}}), TAddOutcome::Extended);
  EXPECT_EQ(project.Deployment().GetFiles().size(), 1U);
  EXPECT_EQ(moved->GetRemoteDir("Android"), "kept\\");
  EXPECT_EQ(moved->GetRemoteDir("Win32"), ".\\");
}

TEST_F(AddedFile, IsNoDirectoryAndHasANameThatCanBeStored) {
  TOpenProject& project = OpenText(ProjectWith(""));
  const auto add = [&](const std::filesystem::path& file) {
    return ErrorOf<TAddError>([&] { Add(project, Host().Platforms(), file, "Debug", "Win32"); });
  };
  EXPECT_EQ(add(FDirectory), "\"" + FDirectory.string() + "\" is a directory; \"--tree " +
                                 FDirectory.string() + "\" adds all its files");
  EXPECT_EQ(add(""), "the name of a file is empty");
  EXPECT_EQ(add("a\x01"), "the file name \"a\x01\" holds characters that a project cannot hold");
  EXPECT_TRUE(project.Deployment().GetFiles().empty());
}

} // namespace
} // namespace workbench
