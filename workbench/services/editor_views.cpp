#include "workbench/services/editor_views.h"

#include <algorithm>
#include <utility>

namespace workbench {

void TEditorViews::ShowEditorView(const std::shared_ptr<deployment::INTACustomEditorView>& view) {
  if (!FArea)
    return;
  const auto found =
      std::ranges::find_if(FShown, [&](const TShown& shown) { return shown.View == view; });
  if (found != FShown.end()) {
    FArea->BringForward(*view);
    view->ViewActivated();
    return;
  }
  TShown& shown = FShown.emplace_back();
  shown.View = view;
  try {
    shown.Controls = FArea->AddView(*view);
    shown.Frame = view->CreateFrame(*shown.Controls);
    view->FrameCreated(*shown.Frame);
  } catch (...) {
    CloseEditorView(view); // not half made, so that it can be tried again
    throw;
  }
  view->ViewShown();
  view->ViewActivated();
}

void TEditorViews::CloseEditorView(const std::shared_ptr<deployment::INTACustomEditorView>& view) {
  const auto found =
      std::ranges::find_if(FShown, [&](const TShown& shown) { return shown.View == view; });
  if (found == FShown.end())
    return;
  TShown shown = std::move(*found);
  FShown.erase(found);
  Close(std::move(shown));
}

void TEditorViews::CloseAll() {
  while (!FShown.empty()) {
    TShown shown = std::move(FShown.back());
    FShown.pop_back();
    Close(std::move(shown));
  }
}

// In the order in which a view can do without: the frame, then its controls, then the view.
void TEditorViews::Close(TShown shown) {
  shown.Frame.reset();
  if (FArea)
    FArea->RemoveView(*shown.View);
  shown.Controls.reset();
}

} // namespace workbench
