#include "workbench/desktop/projects/editor_tabs.h"

#include "workbench/desktop/text/qt_text.h"

#include <QKeyEvent>
#include <QTabBar>
#include <algorithm>
#include <utility>

namespace workbench {
namespace {

const QString ModifiedMark = QStringLiteral(" *");

} // namespace

TEditorTabs::TEditorTabs(deployment::ISettingsStore& settings, std::function<bool()> isBusy,
                         QWidget* parent)
    : QTabWidget(parent), FSettings(settings), FIsBusy(std::move(isBusy)) {
  setDocumentMode(true);
  setTabsClosable(true);
  setMovable(true);
  tabBar()->setAccessibleName(tr("Open projects"));
  tabBar()->installEventFilter(this);
}

// Keys that nobody below wanted come here too, such as Ctrl by itself; only those that go to the
// next tab or the one before end what is being typed.
void TEditorTabs::keyPressEvent(QKeyEvent* event) {
  const bool leaves = event->modifiers().testFlag(Qt::ControlModifier) &&
                      (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab);
  if (!leaves || !FMayLeave || FMayLeave())
    QTabWidget::keyPressEvent(event);
}

bool TEditorTabs::eventFilter(QObject* watched, QEvent* event) {
  const bool leaves = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::Wheel ||
                      event->type() == QEvent::KeyPress;
  if (watched == tabBar() && leaves && FMayLeave && !FMayLeave())
    return true;
  return QTabWidget::eventFilter(watched, event);
}

std::unique_ptr<deployment::IControls>
TEditorTabs::AddView(const deployment::INTACustomEditorView& view) {
  auto controls = std::make_unique<TFormControls>(FSettings, FIsBusy);
  FTabs.push_back({&view, controls.get()});
  const int index = addTab(controls->Page(), ToQString(view.GetCaption()));
  setCurrentIndex(index);
  emit Added(controls.get());
  return controls;
}

void TEditorTabs::BringForward(const deployment::INTACustomEditorView& view) {
  for (const TTab& tab : FTabs) {
    if (tab.View != &view)
      continue;
    const int index = IndexOf(*tab.Controls);
    const bool modified = tabText(index).endsWith(ModifiedMark);
    setTabText(index, ToQString(view.GetCaption())); // the project may have been renamed
    SetModified(index, modified);
    setCurrentIndex(index);
  }
}

void TEditorTabs::RemoveView(const deployment::INTACustomEditorView& view) {
  const auto found =
      std::ranges::find_if(FTabs, [&](const TTab& tab) { return tab.View == &view; });
  if (found == FTabs.end())
    return;
  const int index = IndexOf(*found->Controls);
  FTabs.erase(found);
  removeTab(index);
}

TFormControls* TEditorTabs::ControlsAt(int index) const {
  const QWidget* page = widget(index);
  const auto found = std::ranges::find_if(
      FTabs, [page](const TTab& tab) { return page && tab.Controls->Page() == page; });
  return found == FTabs.end() ? nullptr : found->Controls;
}

int TEditorTabs::IndexOf(const TFormControls& controls) const {
  return indexOf(controls.Page());
}

void TEditorTabs::SetModified(int index, bool modified) {
  QString text = tabText(index);
  const bool isMarked = text.endsWith(ModifiedMark);
  if (isMarked == modified)
    return;
  if (modified)
    text += ModifiedMark;
  else
    text.chop(ModifiedMark.size());
  setTabText(index, text);
}

} // namespace workbench
