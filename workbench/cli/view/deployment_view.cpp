#include "workbench/cli/view/deployment_view.h"

#include "package/common/delimited_list.h"
#include "package/host/api/platformapi.h"

#include <algorithm>
#include <array>
#include <utility>

namespace workbench {
namespace {

// A text of a row and the column that it stands in.
struct TRowText {
  const char* Key;
  int Column;
};

constexpr std::array<TRowText, 10> RowTexts{{
    {"localPath", 0},
    {"localName", 1},
    {"type", 2},
    {"configuration", 3},
    {"platforms", 4},
    {"remotePath", 5},
    {"remoteName", 6},
    {"remoteStatus", 7},
    {"localStatus", 99}, // has a text, but no column of the header
    {"overwrite", 8},
}};

constexpr const char* ConnectButton = "tbConnect";
constexpr std::chrono::milliseconds PollInterval(100);

} // namespace

const std::vector<std::string>& TDeploymentView::RowKeys() {
  static const std::vector<std::string> keys = [] {
    std::vector<std::string> names;
    names.reserve(RowTexts.size());
    for (const TRowText& text : RowTexts)
      names.emplace_back(text.Key);
    return names;
  }();
  return keys;
}

TDeploymentView::TDeploymentView(TCommandContext& context) : FContext(context) {
  FContext.Session.SetEditorArea(this);
}

TDeploymentView::~TDeploymentView() {
  FContext.Session.CloseViews();
  FContext.Session.SetEditorArea(nullptr);
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

void TDeploymentView::Open(TOpenProject& project, const TTarget& target) {
  if (!target.AllPlatforms)
    project.Project().GetProjectPlatforms()->SetActivePlatform(target.Platform);
  FContext.Session.ShowDeployment(project);
  FControls->TargetsComboBox()->Choose(target.Configuration, target.Platform);
}

void TDeploymentView::Sort(std::string_view key, bool descending) {
  const auto found =
      std::ranges::find_if(RowTexts, [&](const TRowText& text) { return text.Key == key; });
  if (found == RowTexts.end())
    throw TUsageError("rows are not sorted by \"" + std::string(key) +
                      "\"; known are: " + deployment::JoinDelimited(RowKeys(), ", "));
  // The first click sorts upwards, the second one downwards.
  FControls->Tree()->ClickHeader(found->Column);
  if (descending)
    FControls->Tree()->ClickHeader(found->Column);
}

bool TDeploymentView::Press(std::string_view button) {
  TMemoryToolButton* found = FControls->ToolBar()->Find(button);
  if (!found)
    return false;
  found->Update();
  return found->Press();
}

void TDeploymentView::Connect() {
  if (!Press(ConnectButton))
    throw TExitError(exit_status::NoConnection, "this platform is not reached through a profile");
  // The attempt comes back to the main thread once, whatever its outcome.
  while (!FControls->MainThread().WaitAndRun(PollInterval)) {
  }
  if (FControls->ToolBar()->Find(ConnectButton)->GetDown())
    return;
  const std::vector<std::string> messages = TakeMessages();
  throw TExitError(exit_status::NoConnection, messages.empty()
                                                  ? "the project has no profile for this platform"
                                                  : deployment::JoinDelimited(messages, "; "));
}

std::vector<TViewRow> TDeploymentView::Rows() const {
  const TMemoryTree& tree = *FControls->Tree();
  std::vector<TViewRow> rows;
  for (const deployment::TNodeId node : tree.GetChildren(0)) {
    TViewRow& row = rows.emplace_back();
    row.Texts.reserve(RowTexts.size());
    for (const TRowText& text : RowTexts)
      row.Texts.push_back(tree.Text(node, text.Column));
    row.Checked = tree.GetCheckState(node) == deployment::TCheckState::Checked;
    row.Dimmed = tree.TextColor(node, 0) != deployment::TTextColor::Default;
  }
  return rows;
}

} // namespace workbench
