#include "package/model/deployment_file_list.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

// Owns a list the way a deployment does: it passes on what files say.
class TListOwner final : public IDeploymentItemOwner {
public:
  void ItemModified(IProjectDeploymentItem&) override {}
  void FileFieldChanging(TDeploymentFile& file, TFileField field,
                         std::string_view newValue) override {
    List.FileFieldChanging(file, field, newValue);
  }

  std::shared_ptr<TDeploymentFile> Add(std::string_view configuration, std::string_view platform,
                                       std::string_view localName,
                                       std::string_view className = "File") {
    auto file = std::make_shared<TDeploymentFile>(configuration, platform, localName);
    file->SetDeploymentClass(className);
    file->SetEnabled(platform, true);
    List.Add({configuration, platform, localName}, file);
    return file;
  }

  TDeploymentFileList List{*this};
};

std::string Names(const TDeploymentFiles& files) {
  std::string names;
  for (const auto& file : files)
    names += file->GetLocalName() + " ";
  return names;
}

TEST(DeploymentFileList, ReplacesInPlace) {
  TListOwner owner;
  owner.Add("Debug", "Win32", "a");
  const auto old = owner.Add("Debug", "Win32", "b", "Old");
  owner.Add("Debug", "Win32", "c");
  const auto newer = std::make_shared<TDeploymentFile>("Debug", "Win32", "b");
  newer->SetDeploymentClass("New");
  EXPECT_EQ(owner.List.Add({"Debug", "Win32", "b"}, newer), old);
  EXPECT_EQ(Names(owner.List.Files()), "a b c ");
  EXPECT_EQ(owner.List.Count(), 3U);
  EXPECT_EQ(owner.List.Get({"DebugWin32b", "", ""}), newer);
  EXPECT_EQ(Names(owner.List.FilesOfClass("old")), "");
  EXPECT_EQ(Names(owner.List.FilesOfClass("new")), "b ");
  EXPECT_EQ(old->GetOwner(), nullptr);
  EXPECT_EQ(newer->GetOwner(), &owner);
  EXPECT_FALSE(owner.List.Holds(*old));
}

TEST(DeploymentFileList, KeepsTheKeyThatAFileWasAddedWith) {
  TListOwner owner;
  const auto file = owner.Add("Debug", "Win32", "a");
  file->SetLocalName("b");
  file->SetConfiguration("Release");
  file->SetFilePlatform("Win64");
  EXPECT_EQ(owner.List.Get({"Debug", "Win32", "a"}), file);
  EXPECT_EQ(owner.List.Get({"Release", "Win64", "b"}), nullptr);
  const auto other = owner.Add("Release", "Win64", "b");
  EXPECT_EQ(Names(owner.List.Files()), "b b ");
  EXPECT_EQ(owner.List.Remove(TFileKey{"Debug", "Win32", "a"}), file);
  EXPECT_EQ(owner.List.Get({"Release", "Win64", "b"}), other);
}

TEST(DeploymentFileList, TakesTheKeyFromTheArgumentsRatherThanTheFile) {
  TListOwner owner;
  const auto file = std::make_shared<TDeploymentFile>("Debug", "Win32", "a");
  owner.List.Add({"Base", "All", "a"}, file);
  EXPECT_EQ(owner.List.Get({"Base", "All", "a"}), file);
  EXPECT_EQ(owner.List.Get({"Debug", "Win32", "a"}), nullptr);
}

TEST(DeploymentFileList, FindsByTheTextsThatFilesHaveNow) {
  TListOwner owner;
  const auto file = owner.Add("Debug", "Win32", "Ärger.txt", "Old");
  owner.Add("Debug", "Win32", "other", "Old");
  EXPECT_EQ(owner.List.Find({.LocalName = "äRGER.TXT"}).size(), 1U);
  file->SetLocalName("new");
  file->SetDeploymentClass("New");
  EXPECT_TRUE(owner.List.Find({.LocalName = "äRGER.TXT"}).empty());
  EXPECT_EQ(Names(owner.List.Find({.LocalName = "NEW"})), "new ");
  EXPECT_EQ(Names(owner.List.Find({.ClassName = "new"})), "new ");
  EXPECT_EQ(Names(owner.List.Find({.ClassName = "old"})), "other ");
}

TEST(DeploymentFileList, MeetsEveryArgumentThatIsGiven) {
  TListOwner owner;
  owner.Add("Debug", "Win32", "a", "X");
  owner.Add("Release", "Win32", "a", "X");
  owner.Add("Debug", "Android", "a", "Y");
  owner.Add("Debug", "Win32", "b", "X");
  EXPECT_EQ(owner.List.Find({}).size(), 4U);
  EXPECT_EQ(owner.List.Find({.LocalName = "A"}).size(), 3U);
  EXPECT_EQ(owner.List.Find({.Configuration = "debug"}).size(), 3U);
  EXPECT_EQ(owner.List.Find({.Platform = "WIN32"}).size(), 3U);
  EXPECT_EQ(owner.List.Find({.ClassName = "x"}).size(), 3U);
  EXPECT_EQ(owner.List.Find({"a", "DEBUG", "win32", "x"}).size(), 1U);
  EXPECT_EQ(Names(owner.List.Find({"", "debug", "Win32", "X"})), "a b ");
  EXPECT_TRUE(owner.List.Find({"a", "Debug", "Win32", "Y"}).empty());
  EXPECT_TRUE(owner.List.Find({.Platform = "Win"}).empty());
}

TEST(DeploymentFileList, FindsInOrderAfterFilesJoinedAClassLate) {
  TListOwner owner;
  const auto first = owner.Add("", "W", "1", "Other");
  owner.Add("", "W", "2", "X");
  owner.Add("", "W", "3", "X");
  first->SetDeploymentClass("X");
  EXPECT_EQ(Names(owner.List.FilesOfClass("X")), "1 2 3 ");
}

TEST(DeploymentFileList, MovesAFileThatIsAddedUnderAnotherKey) {
  TListOwner owner;
  const auto file = owner.Add("Debug", "Win32", "a");
  owner.Add("Debug", "Win32", "b");
  EXPECT_EQ(owner.List.Add({"Release", "Win32", "a"}, file), nullptr);
  EXPECT_EQ(owner.List.Count(), 2U);
  EXPECT_EQ(Names(owner.List.Files()), "b a ");
  EXPECT_EQ(owner.List.Get({"Debug", "Win32", "a"}), nullptr);
  EXPECT_EQ(owner.List.Get({"Release", "Win32", "a"}), file);
  EXPECT_EQ(owner.List.Add({"Release", "Win32", "a"}, file), nullptr);
  EXPECT_EQ(Names(owner.List.Files()), "b a ");
  EXPECT_EQ(file->GetOwner(), &owner);
}

TEST(DeploymentFileList, ReleasesFilesWhenItGoes) {
  std::shared_ptr<TDeploymentFile> file;
  {
    TListOwner owner;
    file = owner.Add("Debug", "Win32", "a");
  }
  EXPECT_EQ(file->GetOwner(), nullptr);
  file->SetLocalName("b");
  EXPECT_EQ(file->GetLocalName(), "b");
}

TEST(DeploymentFileList, StaysTrueThroughManyChanges) {
  constexpr std::size_t Count = 100'000;
  TListOwner owner;
  std::vector<std::shared_ptr<TDeploymentFile>> files;
  for (std::size_t i = 0; i < Count; ++i)
    files.push_back(owner.Add("Debug", "Win32", "f" + std::to_string(i), "C"));
  for (std::size_t i = 0; i < Count; i += 2)
    files[i]->SetLocalName("g" + std::to_string(i));
  std::size_t found = 0;
  for (std::size_t i = 0; i < Count; ++i)
    found += owner.List.Find({.LocalName = files[i]->GetLocalName()}).size();
  EXPECT_EQ(found, Count);
  for (std::size_t i = 0; i < Count; ++i)
    files[i]->SetDeploymentClass(i % 3 ? "D" : "E");
  EXPECT_EQ(owner.List.FilesOfClass("e").size(), 33'334U);
  const TDeploymentFiles snapshot = owner.List.Files();
  for (std::size_t i = 0; i < Count; ++i) {
    if (i % 10 != 5)
      owner.List.Remove(*files[i]);
  }
  EXPECT_EQ(snapshot.size(), Count);
  EXPECT_EQ(owner.List.Count(), Count / 10);
  const TDeploymentFiles left = owner.List.Files();
  ASSERT_EQ(left.size(), Count / 10);
  EXPECT_EQ(left[1], files[15]);
  EXPECT_EQ(owner.List.Get({"Debug", "Win32", "f15"}), files[15]);
  EXPECT_EQ(owner.List.Get({"Debug", "Win32", "f14"}), nullptr);
  EXPECT_EQ(owner.List.Find({.LocalName = "F25"}).size(), 1U);
  owner.List.Clear();
  EXPECT_TRUE(owner.List.IsEmpty());
  EXPECT_TRUE(owner.List.Find({.LocalName = "F25"}).empty());
}

TEST(DeploymentFileList, KeepsFrozenKeysWhenPlacesAreMovedTogether) {
  TListOwner owner;
  for (int i = 0; i < 200; ++i)
    owner.Add("", "W", std::to_string(i));
  const auto renamed = owner.List.Get({"", "W", "199"});
  renamed->SetLocalName("late");
  for (int i = 0; i < 199; ++i)
    ASSERT_NE(owner.List.Remove(TFileKey{"", "W", std::to_string(i)}), nullptr);
  EXPECT_EQ(owner.List.Get({"", "W", "199"}), renamed);
  EXPECT_EQ(Names(owner.List.Find({.LocalName = "LATE"})), "late ");
  EXPECT_EQ(owner.List.Remove(TFileKey{"", "W", "199"}), renamed);
  EXPECT_TRUE(owner.List.IsEmpty());
}

} // namespace
} // namespace deployment
