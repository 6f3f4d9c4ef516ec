// Projects whose views are shown: which view belongs to which project.
#include "tests/workbench/session/session_fixture.h"
#include "workbench/controls/memory_controls.h"
#include "workbench/services/editor_views.h"

#include <map>

namespace workbench {
namespace {

using deployment::TInputError;
using testing::ErrorOf;
using testing::ProjectWith;
using testing::StoredEntry;

const deployment::TShowRequest Debug{{"Debug", "Win32"}};

class TSilentDialogs final : public deployment::IDialogs {
public:
  deployment::TMessageAnswer ShowMessage(const deployment::TMessageBox& /*message*/) override {
    return deployment::TMessageAnswer::None;
  }
  bool InputBox(std::string_view /*caption*/, std::string_view /*prompt*/,
                std::string& /*value*/) override {
    return false;
  }
  std::vector<std::string> OpenFiles(const deployment::TFileOpenOptions& /*options*/) override {
    return {};
  }
};

/// Notes which views are there.
class TViewList final : public IEditorArea {
public:
  std::unique_ptr<deployment::IControls>
  AddView(const deployment::INTACustomEditorView& view) override {
    Captions[&view] = view.GetCaption();
    return std::make_unique<TMemoryControls>(FDialogs);
  }
  void BringForward(const deployment::INTACustomEditorView& /*view*/) override { ++Forward; }
  void RemoveView(const deployment::INTACustomEditorView& view) override { Captions.erase(&view); }

  std::map<const deployment::INTACustomEditorView*, std::string> Captions;
  int Forward = 0;

private:
  TSilentDialogs FDialogs;
};

class ShownProjects : public testing::TSessionTest {
protected:
  void SetUp() override {
    TSessionTest::SetUp();
    Host().SetEditorArea(&FViews);
    Write(FFile, ProjectWith(StoredEntry));
    FOther = FDirectory / "DEMO.vproj";
    Write(FOther, ProjectWith(""));
  }
  void TearDown() override {
    FSession.reset();
    TSessionTest::TearDown();
  }

  TViewList FViews;
  std::filesystem::path FOther; // the same name in capitals
};

TEST_F(ShownProjects, AreFoundUnderEachSpellingOfTheirName) {
  TOpenProject& first = Open();
  EXPECT_EQ(Host().FindOpen(FOther), &first);
  EXPECT_EQ(Host().FindOpen(FDirectory / "other.vproj"), nullptr);
  Host().Close(first);
  EXPECT_EQ(Host().FindOpen(FFile), nullptr);
}

TEST_F(ShownProjects, RefuseAViewToASecondProjectOfTheirName) {
  TOpenProject& first = Open();
  Host().ShowDeployment(first, Debug);
  TOpenProject& second = Host().Open(FOther, TOpenPurpose::Look);
  EXPECT_EQ(ErrorOf<TInputError>([&] { Host().ShowDeployment(second, Debug); }),
            "the project is shown already, as " + FFile.string());
  Host().Close(second);
  EXPECT_EQ(FViews.Captions.size(), 1U) << "the view of the first project stays";
  Host().ShowDeployment(first, Debug);
  EXPECT_EQ(FViews.Forward, 1);
  Host().Close(first);
  EXPECT_TRUE(FViews.Captions.empty());
}

TEST_F(ShownProjects, MakeRoomForAnotherOfTheirNameWhenTheyAreClosed) {
  TOpenProject& first = Open();
  TOpenProject& second = Host().Open(FOther, TOpenPurpose::Look);
  Host().ShowDeployment(first, Debug);
  Host().Close(first);
  EXPECT_TRUE(FViews.Captions.empty());
  Host().ShowDeployment(second, Debug);
  EXPECT_EQ(FViews.Captions.size(), 1U);
}

TEST_F(ShownProjects, KeepTheirViewWhenTheyAreSavedUnderAnotherName) {
  TOpenProject& project = Open();
  Host().ShowDeployment(project, Debug);
  ASSERT_EQ(FViews.Captions.size(), 1U);
  const auto* view = FViews.Captions.begin()->first;
  Host().SaveAs(project, FDirectory / "other.vproj", false);
  ASSERT_EQ(FViews.Captions.size(), 1U);
  EXPECT_EQ(FViews.Captions.begin()->first, view);
  EXPECT_EQ(view->GetCaption(), "Deployment other");
  EXPECT_EQ(FViews.Forward, 1) << "the host is asked to show it again";
  // The old name is free for another project now.
  TOpenProject& former = Open();
  Host().ShowDeployment(former, Debug);
  EXPECT_EQ(FViews.Captions.size(), 2U);
  Host().Close(project);
  ASSERT_EQ(FViews.Captions.size(), 1U);
  EXPECT_EQ(FViews.Captions.begin()->second, "Deployment demo");
}

TEST_F(ShownProjects, LeaveNoHalfMadeViewWhereTheirListCannotBeMade) {
  const auto root = FRoot / "root";
  std::filesystem::create_directories(root / "ObjRepos" / "Deploy");
  Write(root / "ObjRepos" / "Deploy" / "defaults.xml", "<Deployment>");
  FSession = std::make_unique<TSession>(TSessionOptions{root});
  Host().SetEditorArea(&FViews);
  Write(FFile, ProjectWith(""));
  TOpenProject& project = Open();
  for (int attempt = 0; attempt < 2; ++attempt) {
    EXPECT_NE(ErrorOf<TInputError>([&] { Host().ShowDeployment(project, Debug); }), "");
    EXPECT_TRUE(FViews.Captions.empty());
  }
}

} // namespace
} // namespace workbench
