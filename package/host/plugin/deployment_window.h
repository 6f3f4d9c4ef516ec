// The editor view that holds the Deployment Manager of one project.
#pragma once

#include "package/host/api/events.h"
#include "package/host/api/ideservices.h"
#include "package/host/api/toolsapi.h"
#include "package/host/plugin/open_views.h"
#include "package/view/connect_threads.h"

#include <cstddef>
#include <memory>
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
  std::shared_ptr<TConnectThreads> Threads = std::make_shared<TConnectThreads>();
};

/// Owned by the host as long as it shows the view.
class TDeploymentWindow final : public INTACustomEditorView150,
                                public std::enable_shared_from_this<TDeploymentWindow> {
public:
  /// Makes the view of a project and enters it into the registry, which must exist.
  static std::shared_ptr<TDeploymentWindow> Create(std::shared_ptr<TViewContext> context,
                                                   std::shared_ptr<IOTAProject> project);

  /// Listens to the project's closing and renaming. For Create.
  TDeploymentWindow(std::shared_ptr<TViewContext> context, std::shared_ptr<IOTAProject> project);
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
  TDeploymentFrame* FFrame = nullptr; ///< the host's
  std::size_t FIndex = 0;             ///< in the registry, when the view was entered
  std::string FProjectName;
  TEventHandle FClosing = 0;
  TEventHandle FRenamed = 0;
};

/// Brings the project's view forward, or makes and shows one. Does nothing in a host without editor
/// views.
void ShowDeployment(const std::shared_ptr<TViewContext>& context,
                    const std::shared_ptr<IOTAProject>& project);

} // namespace deployment
