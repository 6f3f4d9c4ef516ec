// The editor view that holds the Deployment Manager of one project.
#pragma once

#include "package/common/errors.h"
#include "package/host/api/deploymentapi.h"
#include "package/host/api/events.h"
#include "package/host/api/ideservices.h"
#include "package/host/api/toolsapi.h"
#include "package/host/plugin/open_views.h"
#include "package/view/view_threads.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace deployment {

class TDeploymentFrame;

/// What all views of one loaded package have in common. Shared, since the host may hold a view a
/// little longer than the package is at work.
struct TViewContext {
  explicit TViewContext(VelmorIDEServices& services) : Services(services) {}

  VelmorIDEServices& Services;
  /// Null until the first view is asked for.
  std::unique_ptr<TOpenViews> OpenViews;
  std::shared_ptr<TViewThreads> Threads = std::make_shared<TViewThreads>();
};

/// Owned by the host as long as it shows the view.
class TDeploymentWindow final : public INTACustomEditorView150,
                                public std::enable_shared_from_this<TDeploymentWindow> {
public:
  /// Makes the view of a project and enters it into the registry, which must exist. Without a
  /// request the view shows the project's active target.
  static std::shared_ptr<TDeploymentWindow> Create(std::shared_ptr<TViewContext> context,
                                                   std::shared_ptr<IOTAProject> project,
                                                   std::optional<TShowRequest> request);

  /// Listens to the project's closing and renaming. For Create.
  TDeploymentWindow(std::shared_ptr<TViewContext> context, std::shared_ptr<IOTAProject> project,
                    std::optional<TShowRequest> request);
  TDeploymentWindow(const TDeploymentWindow&) = delete;
  TDeploymentWindow& operator=(const TDeploymentWindow&) = delete;
  /// Takes out of the registry what stands where the view was entered. Entries that came or went
  /// since then may have moved another view there.
  ~TDeploymentWindow() override;

  std::shared_ptr<INTACustomEditorView> CloneView() override { return nullptr; }
  void ViewShown() override {}
  std::string GetCaption() const override;
  std::string GetEditorWindowCaption() const override { return GetCaption(); }
  std::string GetViewIdentifier() const override { return "ProjectDeployment"; }
  std::vector<TEditAction> GetEditState() const override { return {}; }
  bool EditAction(TEditAction /*action*/) override { return false; }
  bool CanClose() const override { return true; }
  void ViewActivated() override {}
  void ViewDeactivated() override {}
  /// Shows the target; before the frame exists, nothing happens.
  void ShowTarget(const TShowRequest& request);
  /// Why the target that is shown could not be computed; empty when it could.
  std::optional<TInputError> TargetProblem() const;
  std::unique_ptr<IFrame> CreateFrame(IControls& controls) override;
  void FrameCreated(IFrame& frame) override;

  int GetImageIndex() const override { return 0; }
  std::string GetTabHintText() const override { return {}; }
  bool CanCloseTab() const override { return true; }

private:
  void Enter();
  void ProjectClosing(const ICustomProject& project);
  void ProjectRenamed(std::string_view oldName, std::string_view newName);

  std::shared_ptr<TViewContext> FContext;
  std::shared_ptr<IOTAProject> FProject;
  std::optional<TShowRequest> FRequest; ///< what the frame shows first
  TDeploymentFrame* FFrame = nullptr;   ///< the host's
  std::size_t FIndex = 0;               ///< in the registry, when the view was entered
  std::string FProjectName;
  TEventHandle FClosing = 0;
  TEventHandle FRenamed = 0;
};

/// Brings the project's view forward, or makes and shows one; with a request the view shows its
/// target. Returns why that could not be computed. Does nothing in a host without editor views.
std::optional<TInputError>
ShowDeployment(const std::shared_ptr<TViewContext>& context,
               const std::shared_ptr<IOTAProject>& project,
               const std::optional<TShowRequest>& request = std::nullopt);

} // namespace deployment
