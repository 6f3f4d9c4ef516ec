// The package's view in a session: made once, for a target, and not kept half made.
#include "package/host/api/file_columns.h"
#include "package/host/api/view_buttons.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/workbench/session/session_fixture.h"
#include "workbench/controls/memory_controls.h"
#include "workbench/services/editor_views.h"
#include "workbench/services/remote_profile_services.h"

#include <chrono>

namespace workbench::testing {
namespace {

namespace fs = std::filesystem;
using deployment::TShowRequest;

class ShownView : public TSessionTest, public IEditorArea {
protected:
  void TearDown() override {
    if (FSession)
      FSession->CloseViews();
    FSession.reset();
    TSessionTest::TearDown();
  }
  std::unique_ptr<deployment::IControls>
  AddView(const deployment::INTACustomEditorView& /*view*/) override {
    auto controls = std::make_unique<TMemoryControls>(Dialogs);
    Controls = controls.get();
    ++Views;
    return controls;
  }
  void BringForward(const deployment::INTACustomEditorView& /*view*/) override {}
  void RemoveView(const deployment::INTACustomEditorView& /*view*/) override {
    Controls = nullptr;
    --Views;
  }

  /// A project for two platforms, with an entry and these properties.
  static std::string ProjectOf(const std::string& properties) {
    std::string text = ProjectWith(StoredEntry);
    return text.insert(
        text.find("  <ProjectExtensions>"),
        "  <PropertyGroup>" + properties +
            "</PropertyGroup>\n  <ItemGroup>\n    <BuildConfiguration Include=\"Base\"/>\n"
            "    <BuildConfiguration Include=\"Debug\"><Parent>Base</Parent></BuildConfiguration>\n"
            "    <TargetPlatform Include=\"Win32\"/>\n    <TargetPlatform Include=\"Android\"/>\n"
            "    <TargetPlatform Include=\"iOSDevice64\"/>\n  </ItemGroup>\n");
  }
  std::size_t RowCount() const { return Controls->Tree()->GetChildren(0).size(); }
  // The target box is filled again with each build of the rows, and else when platforms come or go.
  int Builds() const { return Controls->TargetsComboBox()->Repopulations(); }

  deployment::TScriptedDialogs Dialogs;
  TMemoryControls* Controls = nullptr; // of the view that is shown
  int Views = 0;
};

// A reconcile for Android warns of such icons each time, so the warnings count them.
TEST_F(ShownView, OfATargetIsReconciledOnceAndBuiltOnce) {
  TOpenProject& project =
      OpenText(ProjectOf("<Android_LauncherIcon36>i.png</Android_LauncherIcon36>"
                         "<Android_LauncherIcon48>i.png</Android_LauncherIcon48>"));
  Host().SetEditorArea(this);
  const std::size_t told = project.Warnings().size();
  EXPECT_FALSE(Host().ShowDeployment(project, {{"Debug", "Android"}}));
  EXPECT_EQ(project.Warnings().size(), told + 1);
  EXPECT_GT(RowCount(), 0U);
  EXPECT_EQ(Builds(), 1);
}

TEST_F(ShownView, ThatConnectsAtOnceIsBuiltOnce) {
  fs::create_directory(FRoot / "target");
  TOpenProject& project = OpenText(ProjectOf(""));
  TProfile profile;
  profile.Name = "box";
  profile.Platform = "Win32";
  profile.Path = FRoot / "target";
  profile.IsDefault = true;
  Host().RemoteProfiles().AddProfile(profile);
  Host().SetEditorArea(this);
  EXPECT_FALSE(Host().ShowDeployment(project, TShowRequest{{"Debug", "Win32"}, /*Connect=*/true}));
  ASSERT_TRUE(Controls->MainThread().WaitAndRun(std::chrono::seconds(20)));
  EXPECT_TRUE(Controls->ToolBar()->Find(deployment::view_button::Connect)->GetDown());
  const auto rows = Controls->Tree()->GetChildren(0);
  ASSERT_FALSE(rows.empty());
  EXPECT_EQ(Controls->Tree()->Text(rows[0], deployment::file_column::RemoteStatus), "Not Found");
  EXPECT_EQ(Builds(), 1);
}

TEST_F(ShownView, OfATargetThatCannotBeComputedHoldsWhatIsStored) {
  TOpenProject& project = OpenText(ProjectOf("<PXC_GenerateUniversalBinaryFile>maybe"
                                             "</PXC_GenerateUniversalBinaryFile>"));
  Host().SetEditorArea(this);
  {
    const auto problem = Host().ShowDeployment(project, {{"Debug", "iOSDevice64"}});
    ASSERT_TRUE(problem);
    EXPECT_NE(std::string(problem->what()).find("maybe"), std::string::npos) << problem->what();
    EXPECT_TRUE(Controls->Tree()->Notice().starts_with(problem->what()));
  }
  EXPECT_EQ(Views, 1);
  EXPECT_FALSE(Host().ShowDeployment(project, {{"Debug", "Win32"}}));
  EXPECT_EQ(Controls->Tree()->Notice(), "");
  EXPECT_GT(RowCount(), 0U);
}

TEST_F(ShownView, IsNotKeptWhenItsFrameCannotBeMadeAndCanBeMadeLater) {
  const fs::path root = FRoot / "root";
  fs::create_directory(root);
  fs::copy(fs::current_path() / "ObjRepos", root / "ObjRepos", fs::copy_options::recursive);
  const fs::path defaults = root / "ObjRepos" / "Deploy" / "defaults.xml";
  const std::string whole = Read(defaults);
  Write(defaults, "<Deployment>");
  FSession = std::make_unique<TSession>(TSessionOptions{root});
  TOpenProject& project = OpenText(std::string(ProjectHead) + "</Project>\n");
  Host().SetEditorArea(this);
  const TShowRequest request{{"Debug", "Win32"}};
  EXPECT_THROW(Host().ShowDeployment(project, request), deployment::TInputError);
  EXPECT_EQ(Views, 0);
  Write(defaults, whole);
  EXPECT_FALSE(Host().ShowDeployment(project, request));
  EXPECT_EQ(Views, 1);
  EXPECT_GT(RowCount(), 0U);
}

} // namespace
} // namespace workbench::testing
