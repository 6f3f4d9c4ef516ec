#include "package/model/deployment_module_handler.h"
#include "tests/support/memory_host.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace deployment {
namespace {

class TFakeStorage : public IDeploymentStorage {
public:
  void ReadDefaultDeployment(ICustomProject&, IProjectDeployment& deployment) override {
    ++Reads;
    OnRead(deployment);
  }
  void WriteMSB(ICustomProject& project, IProjectDeployment&) override {
    Written.push_back(project.GetProjectFileName());
  }

  int Reads = 0;
  std::vector<std::string> Written;
  std::function<void(IProjectDeployment&)> OnRead = [](IProjectDeployment& deployment) {
    deployment.AddFile("Base", "Win32", "default");
  };
};

class TFakeListener : public IProjectDeploymentNotifier {
public:
  explicit TFakeListener(std::string name = "", std::vector<std::string>* log = nullptr)
      : Name(std::move(name)), Log(log ? log : &OwnLog) {}

  void ItemChanged(IProjectDeploymentItem& item, TDeploymentItemAction action) override {
    const auto* file = dynamic_cast<IProjectDeploymentFile*>(&item);
    Log->push_back(Name + (file ? file->GetLocalName() : "class") + ":" +
                   std::to_string(static_cast<int>(action)));
    if (OnChange)
      OnChange();
  }
  void Loaded(std::string_view project) override {
    Log->push_back(Name + "loaded " + std::string(project));
  }
  void Destroyed() override { Log->push_back(Name + "destroyed"); }

  std::string Name;
  std::vector<std::string> OwnLog;
  std::vector<std::string>* Log;
  std::function<void()> OnChange;
};

class DeploymentModuleHandler : public testing::Test {
protected:
  // What several listeners hear; first, since the deployment speaks until it is destroyed.
  std::vector<std::string> SharedLog;
  TMemoryHost Host;
  TFakeStorage Storage;
  TMemoryProject Module;
  TDeploymentModuleHandler& Deployment = *TDeploymentModuleHandler::Attach(Module, Host, Storage);
  std::shared_ptr<TFakeListener> Listener = std::make_shared<TFakeListener>();
  int ListenerIndex = Deployment.AddNotifier(Listener);

  using TLog = std::vector<std::string>;
  const TLog& Log() const { return *Listener->Log; }
  TDeploymentFiles AllFiles() { return Deployment.FindFiles("", "", "", ""); }
};

TEST_F(DeploymentModuleHandler, HandlesProjectsThatCarryADeployment) {
  EXPECT_TRUE(TDeploymentModuleHandler::CanHandleModule(Module));
  Module.WithoutDeployment = true;
  EXPECT_FALSE(TDeploymentModuleHandler::CanHandleModule(Module));
  Module.WithoutDeployment = false;
  Module.ProjectModule = false;
  EXPECT_FALSE(TDeploymentModuleHandler::CanHandleModule(Module));
}

TEST_F(DeploymentModuleHandler, IsReachedThroughTheModule) {
  EXPECT_EQ(Module.GetProjectDeployment(), &Deployment);
  EXPECT_EQ(Module.NotifierCount(), 1U);
}

TEST_F(DeploymentModuleHandler, SignalsEachAddAndKeepsTheLaterEntry) {
  const auto first = Deployment.AddFile("Debug", "Win32", "a");
  const auto second = Deployment.AddFile("Debug", "Win32", "a");
  EXPECT_EQ(AllFiles(), TDeploymentFiles{second});
  EXPECT_EQ(Log(), (TLog{"a:0", "a:0"}));
  first->SetRequired(true);
  EXPECT_EQ(Log().size(), 2U);
  EXPECT_EQ(second->GetConfiguration(), "Debug");
  EXPECT_EQ(second->GetFilePlatform(), "Win32");
  EXPECT_TRUE(second->GetPlatforms().empty());
}

TEST_F(DeploymentModuleHandler, SignalsChangesOfItsEntries) {
  const auto file = Deployment.AddFile("Debug", "Win32", "a");
  file->SetEnabled("Win32", false);
  file->SetEnabled("Win32", false);
  const auto entry = Deployment.CreateClass();
  entry->SetClassId("File");
  Deployment.AddClass(entry);
  entry->SetDescription("d");
  EXPECT_EQ(Log(), (TLog{"a:0", "a:1", "class:1"}));
}

TEST_F(DeploymentModuleHandler, RemovesByKeyWithASignal) {
  Deployment.AddFile("Debug", "Win32", "a");
  Deployment.RemoveFile("Debug", "Win32", "b");
  Deployment.RemoveFile("debug", "Win32", "a");
  EXPECT_EQ(Log(), TLog{"a:0"});
  Deployment.RemoveFile("Debug", "Win32", "a");
  EXPECT_EQ(Log(), (TLog{"a:0", "a:2"}));
  EXPECT_TRUE(Deployment.IsEmpty());
}

TEST_F(DeploymentModuleHandler, RemovesAnEntryThatWasRenamed) {
  const auto file = Deployment.AddFile("Debug", "Win32", "a");
  file->SetLocalName("b");
  Deployment.RemoveFile("Debug", "Win32", "b");
  EXPECT_EQ(AllFiles().size(), 1U);
  Deployment.RemoveFileEntry(*file);
  Deployment.RemoveFileEntry(*file);
  EXPECT_EQ(Log(), (TLog{"a:0", "b:1", "b:2"}));
  EXPECT_TRUE(Deployment.IsEmpty());
}

TEST_F(DeploymentModuleHandler, RemovesEveryFileOfAClassIgnoringCase) {
  for (const char* name : {"a", "b", "c"})
    Deployment.AddFile("Debug", "Win32", name)->SetDeploymentClass(*name == 'b' ? "" : "Icon");
  Listener->OwnLog.clear();
  Deployment.RemoveFilesOfClass("ICON");
  EXPECT_EQ(Log(), (TLog{"a:2", "c:2"}));
  Deployment.AddFile("Debug", "Win32", "d")->SetDeploymentClass("Icon");
  Listener->OwnLog.clear();
  Deployment.RemoveFilesOfClass("");
  EXPECT_EQ(Log(), TLog{"b:2"});
}

TEST_F(DeploymentModuleHandler, ChangesSilentlyWhileBlocked) {
  Deployment.SetBlockNotification(true);
  const auto file = Deployment.AddFile("Debug", "Win32", "a");
  Deployment.AddFile("Debug", "Win32", "b");
  file->SetRequired(true);
  Deployment.RemoveFile("Debug", "Win32", "b");
  EXPECT_TRUE(Log().empty());
  EXPECT_EQ(AllFiles(), TDeploymentFiles{file});
  Deployment.SetBlockNotification(false);
  file->SetRequired(false);
  EXPECT_EQ(Log(), TLog{"a:1"});
}

TEST_F(DeploymentModuleHandler, AddsEntriesUnderTheArgumentsGiven) {
  const auto file = Deployment.CreateFile("Debug", "Win32", "a");
  EXPECT_TRUE(Deployment.IsEmpty());
  Deployment.AddFileEntry("Base", "All", file);
  EXPECT_EQ(Log(), TLog{"a:0"});
  Module.AddSection("Deployment").AddChild("DeployFile");
  EXPECT_EQ(Deployment.FindFile("Base", "All", "a"), file);
  EXPECT_EQ(Deployment.FindFile("Debug", "Win32", "a"), nullptr);
  EXPECT_EQ(Deployment.GetFile("BaseAlla"), file);
  EXPECT_EQ(Deployment.GetFile("Base", "Alla"), file);
  EXPECT_EQ(Deployment.GetFile("Base", "All"), nullptr);
}

TEST_F(DeploymentModuleHandler, RefusesEntriesThatAreNotItsOwnToAdd) {
  EXPECT_THROW(Deployment.AddFileEntry("", "", nullptr), std::invalid_argument);
  EXPECT_THROW(Deployment.AddClass(nullptr), std::invalid_argument);
  TMemoryProject otherModule;
  TDeploymentModuleHandler other(otherModule, Host, Storage);
  const auto file = other.AddFile("Debug", "Win32", "a");
  EXPECT_THROW(Deployment.AddFileEntry("Debug", "Win32", file), std::invalid_argument);
  Deployment.RemoveFileEntry(*file);
  EXPECT_EQ(other.FindFiles("", "", "", "").size(), 1U);
  EXPECT_TRUE(Log().empty());
}

TEST_F(DeploymentModuleHandler, KeepsAClassUnderTheIdThatItWasAddedWith) {
  const auto first = Deployment.CreateClass();
  first->SetClassId("File");
  Deployment.AddClass(first);
  const auto second = Deployment.CreateClass();
  second->SetClassId("File");
  Deployment.AddClass(second);
  EXPECT_EQ(Deployment.GetClasses(), TDeploymentClasses{second});
  second->SetClassId("Other");
  EXPECT_EQ(Deployment.FindClass("File"), second);
  EXPECT_EQ(Deployment.FindClass("Other"), nullptr);
  Deployment.AddClass(second);
  EXPECT_EQ(Deployment.FindClass("File"), nullptr);
  EXPECT_EQ(Deployment.FindClass("Other"), second);
  EXPECT_EQ(Deployment.FindClass("other"), nullptr);
  EXPECT_FALSE(Deployment.IsEmpty());
  EXPECT_EQ(Log(), TLog{"class:1"});
}

TEST_F(DeploymentModuleHandler, ClearsEverythingSilently) {
  const auto file = Deployment.AddFile("Debug", "Win32", "a");
  Deployment.AddClass(Deployment.CreateClass());
  Deployment.SetProjectRoot("Win32", "Root");
  Deployment.Clear();
  file->SetRequired(true);
  EXPECT_TRUE(Deployment.IsEmpty());
  EXPECT_EQ(Deployment.GetProjectRoot("Win32"), "Root");
  EXPECT_EQ(Log(), TLog{"a:0"});
}

TEST_F(DeploymentModuleHandler, ClearsPlatformsOfAllButTheUsersFiles) {
  for (const char* name : {"user", "icon", "other"}) {
    const auto file = Deployment.AddFile("Debug", "Win32", name);
    file->SetDeploymentClass(*name == 'u' ? "File" : "Icon");
    file->SetEnabled(*name == 'o' ? "Android" : "Win32", true);
    file->SetEnabled("OSX32", true);
  }
  Deployment.AddClass(Deployment.CreateClass());
  Listener->OwnLog.clear();
  const std::vector<std::string> platforms{"Win32", "Win64"};
  Deployment.Clear(platforms);
  EXPECT_EQ(Log(), TLog{"icon:1"});
  const auto files = AllFiles();
  EXPECT_EQ(files[0]->GetPlatforms(), (TLog{"Win32", "OSX32"}));
  EXPECT_EQ(files[1]->GetPlatforms(), TLog{"OSX32"});
  EXPECT_EQ(files[2]->GetPlatforms(), (TLog{"Android", "OSX32"}));
  EXPECT_TRUE(Deployment.GetClasses().empty());
}

TEST_F(DeploymentModuleHandler, ReadsTheDefaultsOfANewProjectOnce) {
  EXPECT_EQ(Deployment.GetFiles().size(), 1U);
  EXPECT_NE(Module.FindSection("Deployment"), nullptr);
  EXPECT_EQ(Log(), (TLog{"default:0", "loaded App"}));
  Deployment.RemoveFile("Base", "Win32", "default");
  EXPECT_TRUE(Deployment.GetFiles().empty());
  EXPECT_EQ(Storage.Reads, 1);
  ASSERT_EQ(Host.ProjectFileUtils.Imports.size(), 1U);
  EXPECT_EQ(Host.ProjectFileUtils.Imports[0].first, "$(MSBuildProjectName).deployproj");
  EXPECT_EQ(Host.ProjectFileUtils.Imports[0].second, "Exists('$(MSBuildProjectName).deployproj')");
}

TEST_F(DeploymentModuleHandler, ReadsTheDefaultsIntoAnEmptySectionButNotIntoAFullOne) {
  Module.AddSection("Deployment").SetAttribute("Version", "2");
  EXPECT_NE(Deployment.GetFile("BaseWin32default"), nullptr);
  EXPECT_EQ(Module.Sections.size(), 1U);

  TMemoryProject stored;
  stored.AddSection("deployment").AddChild("DeployFile");
  TDeploymentModuleHandler other(stored, Host, Storage);
  EXPECT_EQ(other.FindFile("Base", "Win32", "default"), nullptr);
  EXPECT_EQ(Storage.Reads, 1);
  EXPECT_EQ(Host.ProjectFileUtils.Imports.size(), 2U);
}

TEST_F(DeploymentModuleHandler, AsksForTheDefaultsOnlyWhenFilesAreAskedFor) {
  AllFiles();
  Deployment.FindFiles("a", "", "", "");
  Deployment.GetClasses();
  Deployment.FindClass("File");
  Deployment.AddFile("Debug", "Win32", "a");
  Deployment.RemoveFile("Debug", "Win32", "a");
  EXPECT_TRUE(Deployment.IsEmpty());
  EXPECT_EQ(Storage.Reads, 0);
  Deployment.FindFile("", "", "");
  EXPECT_EQ(Storage.Reads, 1);
}

TEST_F(DeploymentModuleHandler, LetsTheReaderOfTheDefaultsAskForFiles) {
  Storage.OnRead = [](IProjectDeployment& deployment) {
    EXPECT_TRUE(deployment.GetFiles().empty());
    deployment.AddFile("Base", "Win32", "default");
  };
  EXPECT_EQ(Deployment.GetFiles().size(), 1U);
  EXPECT_EQ(Storage.Reads, 1);
}

TEST_F(DeploymentModuleHandler, MeetsTheErrorOfTheDefaultsAgain) {
  Storage.OnRead = [](IProjectDeployment&) { throw TInputError("bad template"); };
  EXPECT_THROW(Deployment.GetFiles(), TInputError);
  EXPECT_THROW(Deployment.GetFiles(), TInputError);
  EXPECT_EQ(Storage.Reads, 2);
  EXPECT_TRUE(Host.ProjectFileUtils.Imports.empty());
  Storage.OnRead = [](IProjectDeployment& deployment) { deployment.AddFile("", "", "x"); };
  EXPECT_EQ(Deployment.GetFiles().size(), 1U);
}

TEST_F(DeploymentModuleHandler, NamesTheRemoteBaseDirectory) {
  EXPECT_EQ(Deployment.GetRemoteBaseDir("Win32"), "App");
  Deployment.SetProjectRoot("Win32", "Root");
  Deployment.SetProjectRoot("Win64", "");
  EXPECT_EQ(Deployment.GetRemoteBaseDir("Win32"), "Root");
  EXPECT_EQ(Deployment.GetRemoteBaseDir("Win64"), "App");
  EXPECT_EQ(Deployment.GetProjectRoots().Count(), 2U);
  EXPECT_EQ(Deployment.GetProjectRoot("OSX32"), "");
}

TEST_F(DeploymentModuleHandler, RemembersMovedModulesUntilTheSave) {
  Module.RaiseModuleRenamed("a.cpp", "b.cpp");
  Module.RaiseModuleRemoved("c.cpp");
  EXPECT_EQ(*Deployment.GetRenamedModules().Find("a.cpp"), "b.cpp");
  EXPECT_EQ(Deployment.GetRemovedModules(), TLog{"c.cpp"});
  Module.RaiseAfterSave();
  EXPECT_TRUE(Deployment.GetRenamedModules().IsEmpty());
  EXPECT_TRUE(Deployment.GetRemovedModules().empty());
}

TEST_F(DeploymentModuleHandler, TellsListenersInOrderAndKeepsIndexesGood) {
  Deployment.RemoveNotifier(ListenerIndex);
  const int first = Deployment.AddNotifier(std::make_shared<TFakeListener>("1", &SharedLog));
  const int second = Deployment.AddNotifier(std::make_shared<TFakeListener>("2", &SharedLog));
  const int third = Deployment.AddNotifier(std::make_shared<TFakeListener>("3", &SharedLog));
  Deployment.AddFile("", "", "a");
  EXPECT_EQ(SharedLog, (TLog{"1a:0", "2a:0", "3a:0"}));
  SharedLog.clear();
  Deployment.RemoveNotifier(first);
  Deployment.RemoveNotifier(first);
  Deployment.RemoveNotifier(99);
  Deployment.AddFile("", "", "b");
  EXPECT_EQ(SharedLog, (TLog{"2b:0", "3b:0"}));
  SharedLog.clear();
  Deployment.RemoveNotifier(third);
  EXPECT_GT(Deployment.AddNotifier(std::make_shared<TFakeListener>("4", &SharedLog)), third);
  Deployment.RemoveNotifier(third);
  Deployment.RemoveNotifier(second);
  Deployment.AddFile("", "", "c");
  EXPECT_EQ(SharedLog, TLog{"4c:0"});
}

TEST_F(DeploymentModuleHandler, LetsListenersComeAndGoDuringACall) {
  const int next = Deployment.AddNotifier(std::make_shared<TFakeListener>("next", &SharedLog));
  Listener->OnChange = [&] {
    Deployment.RemoveNotifier(ListenerIndex);
    Deployment.RemoveNotifier(next);
    Deployment.AddNotifier(std::make_shared<TFakeListener>("new", &SharedLog));
  };
  Deployment.AddFile("", "", "a");
  EXPECT_EQ(Log(), TLog{"a:0"});
  EXPECT_TRUE(SharedLog.empty());
  Deployment.AddFile("", "", "b");
  EXPECT_EQ(Log(), TLog{"a:0"});
  EXPECT_EQ(SharedLog, TLog{"newb:0"});
}

TEST_F(DeploymentModuleHandler, LetsAListenerRemoveFilesOfTheClassThatGoes) {
  for (const char* name : {"a", "b", "c"})
    Deployment.AddFile("", "", name)->SetDeploymentClass("Icon");
  Listener->OwnLog.clear();
  Listener->OnChange = [&] { Deployment.RemoveFile("", "", "b"); };
  Deployment.RemoveFilesOfClass("Icon");
  EXPECT_EQ(Log(), (TLog{"a:2", "b:2", "c:2"}));
  EXPECT_TRUE(Deployment.IsEmpty());
}

TEST_F(DeploymentModuleHandler, TellsListenersThatItGoes) {
  const auto file = Deployment.AddFile("", "", "a");
  const auto entry = Deployment.CreateClass();
  Deployment.AddClass(entry);
  Module.Close();
  EXPECT_EQ(Log(), (TLog{"a:0", "destroyed"}));
  file->SetLocalName("b");
  entry->SetClassId("c");
  EXPECT_EQ(Log().size(), 2U);
}

TEST_F(DeploymentModuleHandler, LeavesTheModulesListWhenItGoesFirst) {
  Module.Handlers.clear();
  EXPECT_EQ(Module.NotifierCount(), 0U);
  EXPECT_EQ(Log(), TLog{"destroyed"});
}

TEST_F(DeploymentModuleHandler, ReachesNoModuleThatIsGone) {
  const auto kept = std::dynamic_pointer_cast<TDeploymentModuleHandler>(Module.Handlers.at(0));
  Module.Close();
  EXPECT_TRUE(kept->GetFiles().empty());
  EXPECT_EQ(kept->GetRemoteBaseDir("Win32"), "");
  EXPECT_EQ(kept->Reconcile("Debug", "Win32"), TReconcileResult::CannotReconcile);
  kept->SaveToDeployProj();
  EXPECT_TRUE(Storage.Written.empty());
  EXPECT_EQ(Storage.Reads, 0);
}

TEST_F(DeploymentModuleHandler, HandsTheProjectToTheWriterOfTheSideFile) {
  Deployment.SaveToDeployProj();
  EXPECT_EQ(Storage.Written, TLog{R"(C:\work\App\App.vproj)"});
}

TEST_F(DeploymentModuleHandler, PassesOnWhatAReconcileAnswers) {
  EXPECT_EQ(Deployment.Reconcile("", "", true), TReconcileResult::CannotReconcile);
  EXPECT_EQ(Deployment.Reconcile("Base", "Win32"), TReconcileResult::Reconciled);
}

TEST_F(DeploymentModuleHandler, RemovesALargeClassWithASignalForEach) {
  constexpr int Count = 100'000;
  for (int i = 0; i < Count; ++i)
    Deployment.AddFile("Debug", "Win32", std::to_string(i))->SetDeploymentClass("Icon");
  Listener->OwnLog.clear();
  Deployment.RemoveFilesOfClass("icon");
  EXPECT_EQ(Log().size(), static_cast<std::size_t>(Count));
  EXPECT_TRUE(Deployment.IsEmpty());
}

TEST_F(DeploymentModuleHandler, KeepsTheKeyOfAnEntryWhoseFilePlatformAloneChanges) {
  const auto file = Deployment.AddFile("Debug", "Win32", "a");
  file->SetFilePlatform("Win64");
  EXPECT_EQ(Deployment.FindFile("Debug", "Win32", "a"), file);
  EXPECT_EQ(Deployment.FindFile("Debug", "Win64", "a"), nullptr);
}

TEST_F(DeploymentModuleHandler, TakesPlatformsFromFilesOfAClassThatOnlyLooksLikeTheUsers) {
  const auto file = Deployment.AddFile("Debug", "Win32", "a");
  file->SetDeploymentClass("file");
  file->SetEnabled("Win32", true);
  const std::vector<std::string> platforms{"Win32"};
  Deployment.Clear(platforms);
  EXPECT_TRUE(file->GetPlatforms().empty());
}

TEST_F(DeploymentModuleHandler, HearsNothingMoreOfAClassThatWasReplaced) {
  const auto first = Deployment.CreateClass();
  first->SetClassId("Icon");
  Deployment.AddClass(first);
  const auto second = Deployment.CreateClass();
  second->SetClassId("Icon");
  Deployment.AddClass(second);
  first->SetDescription("gone");
  EXPECT_EQ(Log(), TLog{});
  second->SetDescription("here");
  EXPECT_EQ(Log(), TLog{"class:1"});
}

TEST_F(DeploymentModuleHandler, LetsGoOfItsEntriesAtItsEnd) {
  const auto file = std::dynamic_pointer_cast<TDeploymentFile>(Deployment.AddFile("", "", "a"));
  const auto ownClass = std::dynamic_pointer_cast<TDeploymentClass>(Deployment.CreateClass());
  Deployment.AddClass(ownClass);
  EXPECT_NE(file->GetOwner(), nullptr);
  Module.Close();
  EXPECT_EQ(file->GetOwner(), nullptr);
  EXPECT_EQ(ownClass->GetOwner(), nullptr);
}

} // namespace
} // namespace deployment
