// What the pages of the settings dialog have in common.
#pragma once

#include <QWidget>

namespace workbench {

/// A page works on the changes that the dialog collects.
class TSettingsPage : public QWidget {
  Q_OBJECT

public:
  explicit TSettingsPage(QWidget* parent) : QWidget(parent) {}
  virtual QString Title() const = 0;
  /// Puts what its fields say among the changes; called before they are written.
  virtual void Collect() {}
};

} // namespace workbench
