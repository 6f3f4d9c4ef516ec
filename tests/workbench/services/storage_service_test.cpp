#include "tests/workbench/files/save_fixture.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/services/project_module.h"
#include "workbench/services/storage_service.h"
#include "workbench/settings/settings_store.h"

namespace workbench {
namespace {

// Owns a section of one entry and notes what it is asked.
class TOwner final : public deployment::IOTAProjectFileStorageNotifier {
public:
  explicit TOwner(std::string name) : FName(std::move(name)) {}

  std::string GetName() const override { return FName; }
  deployment::TSectionLayout GetLayout(deployment::IXMLNode& node) const override {
    return {node.HasChildren() ? 3 : 1, node.HasChildren()};
  }
  void CreatingProject(deployment::IOTAModule& /*module*/) override { Calls += "creating "; }
  void ProjectLoaded(deployment::IOTAModule& /*module*/, deployment::IXMLNode* node) override {
    Calls += node ? "loaded:" + std::string(node->NodeName()) + " " : "loaded without section ";
  }
  void ProjectSaving(deployment::IOTAModule& /*module*/, deployment::IXMLNode& node) override {
    Calls += "saving:" + std::string(node.NodeName()) + " ";
    node.AddChild("entry");
  }
  void ProjectClosing(deployment::IOTAModule& /*module*/) override { Calls += "closing "; }

  std::string Calls;

private:
  std::string FName;
};

class StorageService : public testing::TSaveTest {
protected:
  std::unique_ptr<TProjectModule> Module(std::string_view text) {
    return std::make_unique<TProjectModule>(
        FFile, std::make_unique<TProjectDocument>(text, FFile.string(), FStorage.SectionName()),
        FPlatforms, FSettings);
  }

  TPlatformTable FPlatforms = TPlatformTable::BuiltIn();
  TSettings FSettings{std::filesystem::path()};
  TProjectFileStorage FStorage;
};

TEST_F(StorageService, GivesIndexesThatStayGood) {
  const int first = FStorage.AddNotifier(std::make_shared<TOwner>("One"));
  const int second = FStorage.AddNotifier(std::make_shared<TOwner>("Two"));
  EXPECT_EQ(FStorage.NotifierCount(), 2U);
  EXPECT_EQ(FStorage.SectionName(), "One");
  FStorage.RemoveNotifier(first);
  EXPECT_EQ(FStorage.NotifierCount(), 1U);
  EXPECT_EQ(FStorage.SectionName(), "Two");
  FStorage.RemoveNotifier(first);
  FStorage.RemoveNotifier(-1);
  FStorage.RemoveNotifier(99);
  EXPECT_EQ(FStorage.NotifierCount(), 1U);
  const int third = FStorage.AddNotifier(std::make_shared<TOwner>("Three"));
  EXPECT_NE(third, second);
  FStorage.RemoveNotifier(second);
  EXPECT_EQ(FStorage.SectionName(), "Three");
}

TEST_F(StorageService, LetsGoOfARemovedOwner) {
  const auto owner = std::make_shared<TOwner>("One");
  const int index = FStorage.AddNotifier(owner);
  EXPECT_EQ(owner.use_count(), 2);
  FStorage.RemoveNotifier(index);
  EXPECT_EQ(owner.use_count(), 1);
}

TEST_F(StorageService, TellsTheOwnerOfEachStep) {
  const auto owner = std::make_shared<TOwner>("Deployment");
  FStorage.AddNotifier(owner);
  const auto module =
      Module("<Project><ProjectExtensions><deployment/></ProjectExtensions></Project>");
  FStorage.CreatingProject(*module);
  FStorage.ProjectLoaded(*module);
  const auto pieces = FStorage.ComposeProject(*module);
  FStorage.ProjectClosing(*module);
  EXPECT_EQ(owner->Calls, "creating loaded:deployment saving:deployment closing ");
  std::string text;
  for (const std::string_view piece : pieces->Pieces())
    text += piece;
  EXPECT_EQ(text, "<Project><ProjectExtensions><deployment><entry/></deployment>"
                  "</ProjectExtensions></Project>");
}

TEST_F(StorageService, TellsTheOwnerThatThereIsNoSection) {
  const auto owner = std::make_shared<TOwner>("Deployment");
  FStorage.AddNotifier(owner);
  FStorage.ProjectLoaded(*Module("<Project/>"));
  EXPECT_EQ(owner->Calls, "loaded without section ");
}

TEST_F(StorageService, DoesNothingWithoutOwner) {
  const auto module = Module("<Project/>");
  FStorage.CreatingProject(*module);
  FStorage.ProjectLoaded(*module);
  FStorage.ProjectClosing(*module);
  EXPECT_EQ(FStorage.ComposeProject(*module), nullptr);
  EXPECT_EQ(FStorage.SectionName(), "");
}

TEST_F(StorageService, FindsAndAddsSections) {
  FStorage.AddNotifier(std::make_shared<TOwner>("Deployment"));
  const auto module = Module("<Project><ProjectExtensions><Other/></ProjectExtensions></Project>");
  EXPECT_EQ(FStorage.GetProjectStorageNode(*module, "OTHER")->NodeName(), "Other");
  EXPECT_EQ(FStorage.GetProjectStorageNode(*module, "Deployment"), nullptr);
  deployment::IXMLNode& added = FStorage.AddNewSection(*module, "Deployment");
  EXPECT_EQ(&FStorage.AddNewSection(*module, "deployment"), &added);
  EXPECT_EQ(FStorage.GetProjectStorageNode(*module, "Deployment"), &added);
}

} // namespace
} // namespace workbench
