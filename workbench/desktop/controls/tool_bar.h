// The tool bar of a form.
#pragma once

#include "package/host/api/toolbars.h"

#include <QAction>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QToolBar>
#include <functional>
#include <memory>
#include <vector>

namespace workbench {

/// A button that is a command: it also stands in menus.
class TToolButton final : public QObject, public deployment::IToolButton {
  Q_OBJECT

public:
  /// `mayStart` is asked before the command is given; empty: it always may.
  TToolButton(deployment::TToolButton button, QAction* action,
              const std::function<bool()>& mayStart);

  bool GetEnabled() const override;
  void SetEnabled(bool enabled) override;
  bool GetDown() const override;
  void SetDown(bool down) override;

  QAction* Action() const { return FAction; }
  const deployment::TToolButton& Description() const { return FButton; }
  /// True while the form does the command.
  bool IsRunning() const { return FIsRunning; }
  /// Lets the form bring the button up to date.
  void Update();

private:
  void Press();

  const deployment::TToolButton FButton;
  const std::function<bool()>& FMayStart;
  QPointer<QAction> FAction;
  bool FIsRunning = false;
};

/// Buttons are brought up to date when something happened, and now and then, but not in the middle
/// of other work.
class TToolBar final : public QObject, public deployment::IToolBar {
  Q_OBJECT

public:
  /// The bar is owned by the object; `parent` may take it away earlier. While `isBusy` says so, the
  /// form is asked nothing; empty: never.
  TToolBar(deployment::TImageList images, std::function<bool()> isBusy, QWidget* parent);
  ~TToolBar() override;

  deployment::IToolButton& AddButton(deployment::TToolButton button) override;
  void AddSeparator() override;

  QToolBar& Bar() { return *FBar; }
  /// What stands in the bar, separators included, in order.
  QList<QAction*> Actions() const;
  /// The command of the button of that name; null when there is none.
  QAction* Find(std::string_view name) const;
  /// True while the form does the command of the button of that name.
  bool IsRunning(std::string_view name) const;
  /// Lets the form bring all buttons up to date, when the event loop comes round.
  void UpdateSoon() { FSoon.start(); }
  /// Asked before each command; false and the command is not given.
  void SetMayStart(std::function<bool()> mayStart) { FMayStart = std::move(mayStart); }

signals:
  /// The user gave the command, and the form has done it.
  void Executed(QAction* action);

private:
  void Update();

  const deployment::TImageList FImages;
  const std::function<bool()> FIsBusy;
  QPointer<QToolBar> FBar;
  std::function<bool()> FMayStart;
  std::vector<std::unique_ptr<TToolButton>> FButtons;
  QTimer FSoon;
  QTimer FNowAndThen;
};

} // namespace workbench
