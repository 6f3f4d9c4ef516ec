// The views that packages show in the editor area.
#pragma once

#include "package/host/api/controls.h"
#include "package/host/api/toolsapi.h"

#include <list>
#include <memory>

namespace workbench {

/// What shows the views: a window, or nothing at all. Implemented by the two faces of the
/// workbench.
class IEditorArea {
public:
  virtual ~IEditorArea() = default;
  /// Makes room for a view; its frame is built with these controls.
  virtual std::unique_ptr<deployment::IControls>
  AddView(const deployment::INTACustomEditorView& view) = 0;
  virtual void BringForward(const deployment::INTACustomEditorView& view) = 0;
  /// The view's frame is gone, its controls are next.
  virtual void RemoveView(const deployment::INTACustomEditorView& view) = 0;
};

/// Holds each view that is shown with its frame and controls. A view whose frame cannot be made is
/// not kept.
class TEditorViews final : public deployment::IOTAEditorViewServices {
public:
  TEditorViews() = default;
  ~TEditorViews() override { CloseAll(); }
  TEditorViews(const TEditorViews&) = delete;
  TEditorViews& operator=(const TEditorViews&) = delete;

  /// Null, as at the start, for nobody; then views are not shown. Not owned.
  void SetEditorArea(IEditorArea* area) { FArea = area; }
  void ShowEditorView(const std::shared_ptr<deployment::INTACustomEditorView>& view) override;
  void CloseEditorView(const std::shared_ptr<deployment::INTACustomEditorView>& view) override;
  /// To be called before the package that owns the views goes.
  void CloseAll();

private:
  struct TShown {
    std::shared_ptr<deployment::INTACustomEditorView> View;
    std::unique_ptr<deployment::IControls> Controls;
    std::unique_ptr<deployment::IFrame> Frame;
  };

  void Close(TShown shown);

  IEditorArea* FArea = nullptr;
  std::list<TShown> FShown;
};

} // namespace workbench
