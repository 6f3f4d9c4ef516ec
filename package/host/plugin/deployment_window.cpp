#include "package/host/plugin/deployment_window.h"

#include "package/common/case_fold.h"
#include "package/common/path_text.h"
#include "package/view/deployment_frame.h"
#include "package/view/view_strings.h"

#include <utility>

namespace deployment {

std::shared_ptr<TDeploymentWindow> TDeploymentWindow::Create(std::shared_ptr<TViewContext> context,
                                                             std::shared_ptr<IOTAProject> project,
                                                             std::optional<TShowRequest> request) {
  auto window = std::make_shared<TDeploymentWindow>(std::move(context), std::move(project),
                                                    std::move(request));
  window->Enter();
  return window;
}

TDeploymentWindow::TDeploymentWindow(std::shared_ptr<TViewContext> context,
                                     std::shared_ptr<IOTAProject> project,
                                     std::optional<TShowRequest> request)
    : FContext(std::move(context)), FProject(std::move(project)), FRequest(std::move(request)),
      FProjectName(FProject->GetFileName()) {
  IProjectEvents* events = FContext->Services.GetProjectEvents();
  if (!events)
    return;
  FClosing = events->EvProjectClosing().Subscribe(
      [this](ICustomProject& closing) { ProjectClosing(closing); });
  FRenamed = events->EvProjectRenamed().Subscribe(
      [this](std::string_view oldName, std::string_view newName) {
        ProjectRenamed(oldName, newName);
      });
}

TDeploymentWindow::~TDeploymentWindow() {
  if (IProjectEvents* events = FContext->Services.GetProjectEvents()) {
    events->EvProjectRenamed().Unsubscribe(FRenamed);
    events->EvProjectClosing().Unsubscribe(FClosing);
  }
  FContext->OpenViews->Delete(FIndex);
}

void TDeploymentWindow::Enter() {
  FIndex = FContext->OpenViews->Add(FProjectName, weak_from_this());
}

std::string TDeploymentWindow::GetCaption() const {
  std::string caption(LoadText(TViewString::Deployment));
  return caption.append(" ").append(ChangeExtension(FileNamePart(FProject->GetFileName()), ""));
}

std::unique_ptr<IFrame> TDeploymentWindow::CreateFrame(IControls& controls) {
  return std::make_unique<TDeploymentFrame>(FContext->Services, controls, FContext->Threads);
}

void TDeploymentWindow::FrameCreated(IFrame& frame) {
  FFrame = dynamic_cast<TDeploymentFrame*>(&frame);
  if (FFrame)
    FFrame->InitializeData(FProject, FRequest);
}

void TDeploymentWindow::ShowTarget(const TShowRequest& request) {
  if (FFrame)
    FFrame->ShowTarget(request);
}

std::optional<TInputError> TDeploymentWindow::TargetProblem() const {
  return FFrame ? FFrame->TargetProblem() : std::nullopt;
}

void TDeploymentWindow::ProjectClosing(const ICustomProject& project) {
  if (!SameText(project.GetProjectFileName(), FProjectName))
    return;
  if (IOTAEditorViewServices* views = FContext->Services.GetEditorViewServices())
    views->CloseEditorView(shared_from_this());
}

void TDeploymentWindow::ProjectRenamed(std::string_view oldName, std::string_view newName) {
  if (oldName != FProjectName)
    return;
  FProjectName = newName;
  TOpenViews& openViews = *FContext->OpenViews;
  if (const std::size_t position = openViews.Find(oldName); position != TOpenViews::None)
    openViews.Delete(position);
  Enter();
  IOTAEditorViewServices* views = FContext->Services.GetEditorViewServices();
  const auto view = openViews.View(FIndex);
  if (views && view)
    views->ShowEditorView(view);
}

std::optional<TInputError> ShowDeployment(const std::shared_ptr<TViewContext>& context,
                                          const std::shared_ptr<IOTAProject>& project,
                                          const std::optional<TShowRequest>& request) {
  IOTAEditorViewServices* views = context->Services.GetEditorViewServices();
  if (!views)
    return std::nullopt;
  if (!context->OpenViews)
    context->OpenViews = std::make_unique<TOpenViews>();
  TOpenViews& openViews = *context->OpenViews;
  if (const std::size_t position = openViews.Find(project->GetFileName());
      position != TOpenViews::None) {
    if (const auto view = openViews.View(position)) {
      views->ShowEditorView(view);
      if (request)
        view->ShowTarget(*request);
      return view->TargetProblem();
    }
    // Its view went away without taking it along.
    openViews.Delete(position);
  }
  const auto view = TDeploymentWindow::Create(context, project, request);
  views->ShowEditorView(view);
  return view->TargetProblem();
}

} // namespace deployment
