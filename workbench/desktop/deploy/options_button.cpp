#include "workbench/desktop/deploy/options_button.h"

#include <QMenu>

namespace workbench {

TOptionsButton::TOptionsButton(QWidget* parent) : QToolButton(parent) {
  setText(tr("&Options"));
  setToolButtonStyle(Qt::ToolButtonTextOnly);
  setPopupMode(QToolButton::InstantPopup);
  setFocusPolicy(Qt::TabFocus);
  setObjectName(QStringLiteral("options"));
  setAccessibleName(tr("How the deploy decides"));
  auto* menu = new QMenu(this);
  menu->setToolTipsVisible(true);
  setMenu(menu);
  FChecksum = Add(tr("Compare by &Content"), tr("Size and time are not trusted."));
  FForce = Add(tr("Copy Also What Is the &Same"),
               tr("What others changed on the target is not overwritten by that."));
  FSkipMissing = Add(tr("Skip &Missing Files"), tr("Unless they are required."));
  FPrune = Add(tr("&Remove What Is Not in the List Any More"),
               tr("Files that were deployed earlier and that nobody changed since."));
  for (const QAction* action : {FChecksum, FForce, FSkipMissing, FPrune})
    connect(action, &QAction::toggled, this, &TOptionsButton::Changed);
  menu->addSeparator();
  FOutside = Add(tr("Send Files from &Beyond the Project without a Question"), QString());
}

QAction* TOptionsButton::Add(const QString& text, const QString& hint) {
  QAction* action = menu()->addAction(text);
  action->setCheckable(true);
  action->setToolTip(hint);
  return action;
}

TDeployOptions TOptionsButton::Options() const {
  return {.Force = FForce->isChecked(),
          .Checksum = FChecksum->isChecked(),
          .SkipMissing = FSkipMissing->isChecked(),
          .Prune = FPrune->isChecked()};
}

bool TOptionsButton::AllowsOutside() const {
  return FOutside->isChecked();
}

} // namespace workbench
