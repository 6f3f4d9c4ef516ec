// How the next deploy decides, in a menu.
#pragma once

#include "workbench/deploy/deploy_request.h"

#include <QToolButton>

class QAction;

namespace workbench {

class TOptionsButton final : public QToolButton {
  Q_OBJECT

public:
  explicit TOptionsButton(QWidget* parent);

  /// What is ticked, over what is as usual.
  TDeployOptions Options() const;
  /// True when files from beyond the project's tree are sent without a question.
  bool AllowsOutside() const;

signals:
  /// An option that decides about the plan was changed.
  void Changed();

private:
  QAction* Add(const QString& text, const QString& hint);

  QAction* FChecksum;
  QAction* FForce;
  QAction* FSkipMissing;
  QAction* FPrune;
  QAction* FOutside;
};

} // namespace workbench
