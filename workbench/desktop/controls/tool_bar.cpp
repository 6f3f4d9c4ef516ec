#include "workbench/desktop/controls/tool_bar.h"

#include "package/host/api/view_buttons.h"
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/controls/svg_icon.h"
#include "workbench/desktop/text/package_texts.h"
#include "workbench/desktop/text/qt_text.h"

#include <QAction>
#include <QCoreApplication>
#include <QToolBar>
#include <QToolButton>
#include <QWidget>
#include <algorithm>

namespace workbench {
namespace {

constexpr int IconSize = 16; // of the package's images
constexpr int UpdateInterval = 500;

// What is used daily has its name beside its image.
bool HasText(std::string_view button) {
  namespace view_button = deployment::view_button;
  return button == view_button::Reconcile || button == view_button::AddFiles ||
         button == view_button::Deploy || button == view_button::Connect;
}

} // namespace

TToolButton::TToolButton(deployment::TToolButton button, QAction* action,
                         const std::function<bool()>& mayStart)
    : FButton(std::move(button)), FMayStart(mayStart), FAction(action) {
  FAction->setEnabled(FButton.Enabled);
  connect(FAction, &QAction::triggered, this, &TToolButton::Press);
}

bool TToolButton::GetEnabled() const {
  return FAction && FAction->isEnabled();
}

void TToolButton::SetEnabled(bool enabled) {
  if (FAction)
    FAction->setEnabled(enabled);
}

bool TToolButton::GetDown() const {
  return FAction && FAction->isChecked();
}

void TToolButton::SetDown(bool down) {
  if (FAction)
    FAction->setChecked(down);
}

void TToolButton::Update() {
  if (FButton.OnUpdate)
    Guarded(FButton.OnUpdate);
}

void TToolButton::Press() {
  const bool mayStart = !FMayStart || FMayStart();
  Update();
  if (!mayStart || !GetEnabled()) {
    // It was enabled when it was pressed, and a check button has changed already.
    if (FAction && FAction->isCheckable())
      FAction->setChecked(!FAction->isChecked());
    return;
  }
  if (!FButton.OnExecute)
    return;
  const QPointer<TToolButton> self(this); // a command may close the project
  FIsRunning = true;
  Guarded(FButton.OnExecute);
  if (self)
    FIsRunning = false;
}

TToolBar::TToolBar(deployment::TImageList images, std::function<bool()> isBusy, QWidget* parent)
    : FImages(images), FIsBusy(std::move(isBusy)), FBar(new QToolBar(parent)) {
  FBar->setIconSize(QSize(IconSize, IconSize));
  FBar->setAccessibleName(QCoreApplication::translate("TToolBar", "Commands"));
  FSoon.setSingleShot(true);
  FSoon.setInterval(0);
  connect(&FSoon, &QTimer::timeout, this, &TToolBar::Update);
  connect(&FNowAndThen, &QTimer::timeout, this, [this] {
    if (FBar && FBar->isVisible())
      Update();
  });
  FNowAndThen.start(UpdateInterval);
  UpdateSoon();
}

TToolBar::~TToolBar() {
  delete FBar.data();
}

deployment::IToolButton& TToolBar::AddButton(deployment::TToolButton button) {
  const auto image = static_cast<std::size_t>(button.ImageIndex);
  const QString hint = PackageText(button.Hint);
  auto* action =
      new QAction(image < FImages.size() ? SvgIcon(FImages[image]) : QIcon(), hint, FBar);
  action->setObjectName(ToQString(button.Name));
  action->setToolTip(hint);
  action->setStatusTip(hint);
  action->setCheckable(button.Style == deployment::TToolButtonStyle::Check);
  FBar->addAction(action);
  if (HasText(button.Name)) {
    action->setIconText(PackageText(button.Caption));
    if (auto* shown = qobject_cast<QToolButton*>(FBar->widgetForAction(action)))
      shown->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  }
  FButtons.push_back(std::make_unique<TToolButton>(std::move(button), action, FMayStart));
  connect(action, &QAction::triggered, this, [this, action] {
    UpdateSoon();
    emit Executed(action);
  });
  return *FButtons.back();
}

void TToolBar::AddSeparator() {
  FBar->addSeparator();
}

QList<QAction*> TToolBar::Actions() const {
  return FBar ? FBar->actions() : QList<QAction*>();
}

QAction* TToolBar::Find(std::string_view name) const {
  for (const auto& button : FButtons) {
    if (button->Description().Name == name)
      return button->Action();
  }
  return nullptr;
}

bool TToolBar::IsRunning(std::string_view name) const {
  return std::ranges::any_of(FButtons, [name](const auto& button) {
    return button->Description().Name == name && button->IsRunning();
  });
}

void TToolBar::Update() {
  if (FIsBusy && FIsBusy())
    return;
  for (const auto& button : FButtons)
    button->Update();
}

} // namespace workbench
