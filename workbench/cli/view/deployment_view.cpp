#include "workbench/cli/view/deployment_view.h"

#include "package/common/delimited_list.h"
#include "package/host/api/file_columns.h"
#include "package/host/api/platformapi.h"
#include "package/host/api/platforms.h"
#include "package/host/api/view_buttons.h"
#include "workbench/services/remote_profile_services.h"

#include <algorithm>
#include <utility>

namespace workbench {
namespace {

constexpr std::chrono::milliseconds PollInterval(100);

} // namespace

std::string TViewRow::StoredName() const {
  const auto textOf = [this](std::string_view key) -> const std::string& {
    const auto& columns = deployment::FileColumns;
    const auto column = std::ranges::find(columns, key, &deployment::TFileColumn::Key);
    return Texts[static_cast<std::size_t>(column - columns.begin())];
  };
  return textOf("localPath") + textOf("localName");
}

TDeploymentView::TDeploymentView(TCommandContext& context) : FContext(context) {
  FContext.Session.SetEditorArea(this);
}

TDeploymentView::~TDeploymentView() {
  FContext.Session.CloseViews();
  FContext.Session.SetEditorArea(nullptr);
  FContext.Session.RemoteProfiles().ShareAnswers(nullptr);
}

std::unique_ptr<deployment::IControls>
TDeploymentView::AddView(const deployment::INTACustomEditorView& /*view*/) {
  auto controls = std::make_unique<TMemoryControls>(FDialogs);
  FControls = controls.get();
  return controls;
}

void TDeploymentView::BringForward(const deployment::INTACustomEditorView& /*view*/) {}

void TDeploymentView::RemoveView(const deployment::INTACustomEditorView& /*view*/) {
  FControls = nullptr;
}

void TDeploymentView::Show(TOpenProject& project, const TTarget& target, bool connect) {
  if (!target.AllPlatforms)
    project.Project().GetProjectPlatforms()->SetActivePlatform(target.Platform);
  const auto problem = FContext.Session.ShowDeployment(
      project, {{target.Configuration,
                 target.AllPlatforms ? std::string(deployment::sAllPlatforms) : target.Platform},
                connect});
  if (problem)
    throw deployment::TInputError(*problem);
}

void TDeploymentView::Open(TOpenProject& project, const TTarget& target) {
  Show(project, target, /*connect=*/false);
}

void TDeploymentView::OpenConnected(TOpenProject& project, const TTarget& target) {
  FContext.Session.RemoteProfiles().ShareAnswers(&FSeen);
  Show(project, target, /*connect=*/true);
  TMemoryToolButton& button = *FControls->ToolBar()->Find(deployment::view_button::Connect);
  button.Update();
  if (!button.GetEnabled())
    throw TExitError(exit_status::NoConnection, "this platform is not reached through a profile");
  // The attempt comes back to the main thread once, whatever its outcome.
  while (!FControls->MainThread().WaitAndRun(PollInterval)) {
  }
  if (button.GetDown())
    return;
  const std::vector<std::string> messages = TakeMessages();
  throw TExitError(exit_status::NoConnection, messages.empty()
                                                  ? "the project has no profile for this platform"
                                                  : deployment::JoinDelimited(messages, "; "));
}

void TDeploymentView::Sort(std::string_view key, bool descending) {
  const auto found = std::ranges::find(deployment::FileColumns, key, &deployment::TFileColumn::Key);
  if (found == deployment::FileColumns.end()) {
    std::vector<std::string> keys;
    keys.reserve(deployment::FileColumns.size());
    for (const deployment::TFileColumn& column : deployment::FileColumns)
      keys.emplace_back(column.Key);
    throw TUsageError("rows are not sorted by \"" + std::string(key) +
                      "\"; known are: " + deployment::JoinDelimited(keys, ", "));
  }
  // The first click sorts upwards, the second one downwards.
  FControls->Tree()->ClickHeader(found->Index);
  if (descending)
    FControls->Tree()->ClickHeader(found->Index);
}

bool TDeploymentView::Press(std::string_view button) {
  TMemoryToolButton* found = FControls->ToolBar()->Find(button);
  if (!found)
    return false;
  found->Update();
  return found->Press();
}

std::vector<TViewRow> TDeploymentView::Rows() const {
  const TMemoryTree& tree = *FControls->Tree();
  std::vector<TViewRow> rows;
  for (const deployment::TNodeId node : tree.GetChildren(0)) {
    TViewRow& row = rows.emplace_back();
    row.Texts.reserve(deployment::FileColumns.size());
    for (const deployment::TFileColumn& column : deployment::FileColumns)
      row.Texts.push_back(tree.Text(node, column.Index));
    row.Checked = tree.GetCheckState(node) == deployment::TCheckState::Checked;
    row.Dimmed = tree.TextColor(node, 0) != deployment::TTextColor::Default;
  }
  return rows;
}

} // namespace workbench
