// The editor area of the window: a tab for each view.
#pragma once

#include "workbench/desktop/controls/form_controls.h"
#include "workbench/services/editor_views.h"

#include <QTabWidget>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace workbench {

class TEditorTabs final : public QTabWidget, public IEditorArea {
  Q_OBJECT

public:
  /// The settings must outlive the object. While `isBusy` says so, what threads post waits.
  TEditorTabs(deployment::ISettingsStore& settings, std::function<bool()> isBusy, QWidget* parent);

  std::unique_ptr<deployment::IControls>
  AddView(const deployment::INTACustomEditorView& view) override;
  void BringForward(const deployment::INTACustomEditorView& view) override;
  void RemoveView(const deployment::INTACustomEditorView& view) override;

  /// The controls on a tab; null for none.
  TFormControls* ControlsAt(int index) const;
  int IndexOf(const TFormControls& controls) const;
  /// Shows behind the caption that there is something to save.
  void SetModified(int index, bool modified);

  /// Asked before the user leaves a tab; false keeps it in front. Empty: it may always be left.
  void SetMayLeave(std::function<bool()> mayLeave) { FMayLeave = std::move(mayLeave); }

signals:
  /// A view came.
  void Added(TFormControls* controls);

protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  struct TTab {
    const deployment::INTACustomEditorView* View = nullptr;
    TFormControls* Controls = nullptr; // the session's
  };

  deployment::ISettingsStore& FSettings;
  std::function<bool()> FIsBusy;
  std::function<bool()> FMayLeave;
  std::vector<TTab> FTabs; // in no order
};

} // namespace workbench
