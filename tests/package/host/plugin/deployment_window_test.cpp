#include "package/host/plugin/deploy_service.h"
#include "package/host/plugin/deployment_window.h"
#include "package/view/deployment_frame.h"
#include "tests/package/host/plugin/memory_view_host.h"
#include "tests/package/view/recording_deployment.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TTexts = std::vector<std::string>;

class DeploymentWindow : public testing::Test {
protected:
  std::shared_ptr<TMemoryProject> Project(std::string fileName) {
    return TMemoryViewHost::MakeProject(std::move(fileName));
  }
  void Show(const std::shared_ptr<TMemoryProject>& project) { ShowDeployment(Context, project); }
  INTACustomEditorView150& View(std::size_t position) {
    return dynamic_cast<INTACustomEditorView150&>(*Host.Views.Views.at(position).View);
  }
  void Rename(const std::shared_ptr<TMemoryProject>& project, const std::string& newName) {
    const std::string oldName = std::exchange(project->FileName, newName);
    Host.Projects.Renamed.Raise(oldName, newName);
  }

  TMemoryViewHost Host;
  std::shared_ptr<TViewContext> Context = std::make_shared<TViewContext>(Host);
};

TEST_F(DeploymentWindow, AnswersTheHost) {
  Show(Project(R"(C:\work\MyApp.vproj)"));
  INTACustomEditorView150& view = View(0);
  EXPECT_EQ(view.CloneView(), nullptr);
  EXPECT_EQ(view.GetCaption(), "Deployment MyApp");
  EXPECT_EQ(view.GetEditorWindowCaption(), "Deployment MyApp");
  EXPECT_EQ(view.GetViewIdentifier(), "ProjectDeployment");
  EXPECT_TRUE(view.GetEditState().empty());
  EXPECT_FALSE(view.EditAction(TEditAction::Copy));
  EXPECT_TRUE(view.CanClose());
  EXPECT_EQ(view.GetImageIndex(), 0);
  EXPECT_EQ(view.GetTabHintText(), "");
  EXPECT_TRUE(view.CanCloseTab());
  view.ViewShown();
  view.ViewActivated();
  view.ViewDeactivated();
}

TEST_F(DeploymentWindow, BindsItsFrameToTheProject) {
  Show(Project(R"(C:\work\MyApp.vproj)"));
  const auto* frame = dynamic_cast<TDeploymentFrame*>(Host.Views.Views[0].Frame.get());
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->GetName(), "DeploymentFrame_C_3A_5Cwork_5CMyApp_2Evproj");
}

TEST_F(DeploymentWindow, IsOneForEachProject) {
  const auto first = Project(R"(C:\work\A.vproj)");
  const auto second = Project(R"(C:\work\B.vproj)");
  TDeploymentService service(Context);
  service.DeployManagerProject(first);
  service.DeployManagerProject(second);
  service.DeployManagerProject(first);
  EXPECT_EQ(Host.Views.Captions(), (TTexts{"Deployment A", "Deployment B"}));
  EXPECT_EQ(Host.Views.Shown, (TTexts{"Deployment A", "Deployment B", "Deployment A"}));
}

TEST_F(DeploymentWindow, IsTheSameForNamesThatDifferInCase) {
  Show(Project(R"(C:\work\A.vproj)"));
  Show(Project(R"(c:\WORK\a.vproj)"));
  EXPECT_EQ(Host.Views.Captions(), TTexts{"Deployment A"});
  EXPECT_EQ(Context->OpenViews->Count(), 1U);
}

TEST_F(DeploymentWindow, ClosesWithItsProjectInAnyCase) {
  Show(Project(R"(C:\work\A.vproj)"));
  const auto other = Project(R"(C:\work\B.vproj)");
  Host.Projects.Closing.Raise(*other);
  EXPECT_EQ(Host.Views.Views.size(), 1U);
  const auto closing = Project(R"(c:\WORK\a.vproj)");
  Host.Projects.Closing.Raise(*closing);
  EXPECT_TRUE(Host.Views.Views.empty());
  EXPECT_EQ(Context->OpenViews->Count(), 0U);
  EXPECT_TRUE(Host.Projects.Closing.Handlers.empty());
  EXPECT_TRUE(Host.Projects.Renamed.Handlers.empty());
}

TEST_F(DeploymentWindow, StaysOpenUnderANewName) {
  const auto project = Project(R"(C:\work\A.vproj)");
  Show(project);
  Rename(project, R"(C:\work\Z.vproj)");
  EXPECT_EQ(Host.Views.Shown, (TTexts{"Deployment A", "Deployment Z"}));
  EXPECT_EQ(Context->OpenViews->Count(), 1U);
  EXPECT_EQ(Context->OpenViews->Find(R"(C:\work\A.vproj)"), TOpenViews::None);
  Show(project);
  EXPECT_EQ(Host.Views.Captions(), TTexts{"Deployment Z"});
}

TEST_F(DeploymentWindow, GoesByItsNewNameFromThenOn) {
  const auto project = Project(R"(C:\work\A.vproj)");
  Show(project);
  Rename(project, R"(C:\work\Z.vproj)");
  Rename(project, R"(C:\work\M.vproj)");
  EXPECT_EQ(Context->OpenViews->Find(R"(C:\work\Z.vproj)"), TOpenViews::None);
  EXPECT_NE(Context->OpenViews->Find(R"(C:\work\M.vproj)"), TOpenViews::None);
  EXPECT_EQ(Host.Views.Shown.back(), "Deployment M");
  Host.Projects.Closing.Raise(*project);
  EXPECT_TRUE(Host.Views.Views.empty());
}

TEST_F(DeploymentWindow, StopsListeningInTheReverseOrder) {
  std::vector<std::string> order;
  Host.Projects.Closing.OnUnsubscribe = [&] { order.emplace_back("closing"); };
  Host.Projects.Renamed.OnUnsubscribe = [&] { order.emplace_back("renamed"); };
  Show(Project(R"(C:\work\A.vproj)"));
  Host.Views.Close(0);
  EXPECT_EQ(order, (TTexts{"renamed", "closing"}));
}

TEST_F(DeploymentWindow, ShowsTheTargetThatIsAskedFor) {
  const auto project = Project(R"(C:\work\A.vproj)");
  TRecordingDeployment deployment(*project, Host);
  project->GivenDeployment = &deployment;
  TDeploymentService service(Context);
  EXPECT_FALSE(service.ShowDeployment(project, {{"Release", "Win64"}}));
  EXPECT_EQ(deployment.Log, TTexts{"reconcile Release|Win64"});
  EXPECT_FALSE(service.ShowDeployment(project, {{"Debug", "Win32"}}));
  EXPECT_EQ(deployment.Log.back(), "reconcile Debug|Win32");
  EXPECT_EQ(Host.Views.Views.size(), 1U);
  Host.Views.Close(0);
}

TEST_F(DeploymentWindow, SaysWhyTheTargetCannotBeComputedAndIsShownAllTheSame) {
  const auto project = Project(R"(C:\work\A.vproj)");
  TRecordingDeployment deployment(*project, Host);
  deployment.OnReconcile = [] { throw TInputError("the option says \"maybe\""); };
  project->GivenDeployment = &deployment;
  TDeploymentService service(Context);
  for (int i = 0; i < 2; ++i) {
    const auto problem = service.ShowDeployment(project, {{"Debug", "Win32"}});
    ASSERT_TRUE(problem);
    EXPECT_STREQ(problem->what(), "the option says \"maybe\"");
    EXPECT_EQ(Host.Views.Views.size(), 1U);
  }
  Host.Views.Close(0);
}

TEST_F(DeploymentWindow, ComputesNothingInAHostWithoutViews) {
  Host.EditorViewServices = nullptr;
  TDeploymentService service(Context);
  EXPECT_FALSE(service.ShowDeployment(Project(R"(C:\work\A.vproj)"), {{"Debug", "Win32"}}));
}

TEST_F(DeploymentWindow, IgnoresARenameFromANameInAnotherCase) {
  const auto project = Project(R"(C:\work\A.vproj)");
  Show(project);
  Host.Projects.Renamed.Raise(R"(c:\work\a.vproj)", R"(C:\work\Z.vproj)");
  EXPECT_EQ(Context->OpenViews->Find(R"(C:\work\Z.vproj)"), TOpenViews::None);
  EXPECT_EQ(Host.Views.Shown.size(), 1U);
}

TEST_F(DeploymentWindow, OpensAnewAfterItWasClosed) {
  const auto project = Project(R"(C:\work\A.vproj)");
  Show(project);
  Host.Views.Close(0);
  Show(project);
  EXPECT_EQ(Host.Views.Captions(), TTexts{"Deployment A"});
  EXPECT_EQ(Context->OpenViews->Count(), 1U);
}

TEST_F(DeploymentWindow, TakesOutWhatStandsAtItsOldPlaceWhenItCloses) {
  const auto m = Project(R"(C:\work\M.vproj)");
  const auto a = Project(R"(C:\work\A.vproj)");
  Show(m);
  Show(a);
  Host.Views.Close(0);
  EXPECT_EQ(Context->OpenViews->Find(R"(C:\work\A.vproj)"), TOpenViews::None);
  EXPECT_EQ(Context->OpenViews->Find(R"(C:\work\M.vproj)"), 0U);
  Show(m);
  EXPECT_EQ(Host.Views.Captions(), (TTexts{"Deployment A", "Deployment M"}));
}

TEST_F(DeploymentWindow, OpensNothingInAHostWithoutViews) {
  Host.EditorViewServices = nullptr;
  Show(Project(R"(C:\work\A.vproj)"));
  EXPECT_TRUE(Host.Views.Views.empty());
}

TEST_F(DeploymentWindow, WorksInAHostWithoutProjectEvents) {
  Host.ProjectEvents = nullptr;
  Show(Project(R"(C:\work\A.vproj)"));
  EXPECT_EQ(Host.Views.Views.size(), 1U);
}

TEST(OpenViews, AreSortedAndComparedIgnoringCase) {
  TOpenViews views;
  EXPECT_EQ(views.Add("m", {}), 0U);
  EXPECT_EQ(views.Add("B", {}), 0U);
  EXPECT_EQ(views.Add("Ä", {}), 2U);
  EXPECT_EQ(views.Find("M"), 1U);
  EXPECT_EQ(views.Find("ä"), 2U);
  EXPECT_EQ(views.Find("x"), TOpenViews::None);
  EXPECT_EQ(views.Add("M", {}), 1U);
  EXPECT_EQ(views.Count(), 3U);
  views.Delete(7);
  views.Delete(0);
  EXPECT_EQ(views.Find("m"), 0U);
  EXPECT_EQ(views.View(0), nullptr);
  EXPECT_EQ(views.View(9), nullptr);
}

} // namespace
} // namespace deployment
