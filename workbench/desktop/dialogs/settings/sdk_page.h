// The page of the settings with the development kits.
#pragma once

#include "workbench/desktop/dialogs/settings/sdk_model.h"
#include "workbench/desktop/dialogs/settings/settings_page.h"

#include <QDialog>
#include <QStringList>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace workbench {

/// The dialog of one kit. Its name is checked when it is left.
class TSdkEditDialog final : public QDialog {
  Q_OBJECT

public:
  TSdkEditDialog(const QStringList& platforms, const TSdk& start, const TSdkModel& others,
                 QWidget* parent);
  /// The kit as it was entered.
  TSdk Sdk() const;

public slots:
  void accept() override;

private:
  void AddPath(QFormLayout& form, const QString& label, QLineEdit& edit, bool isDirectory);
  void ShowPlatform();

  const TSdkModel& FOthers;
  const std::string FOldName;
  QLineEdit* FName;
  QComboBox* FPlatform;
  QLineEdit* FNdk;
  QLineEdit* FServer;
  QCheckBox* FDefault;
  QLabel* FProblem;
};

class TSdkPage final : public TSettingsPage {
  Q_OBJECT

public:
  TSdkPage(TSettingsEdit& settings, QStringList platforms, QWidget* parent);
  QString Title() const override;

private:
  void ShowState();
  const TSdk* Current() const;
  void Add();
  void Edit();
  void Remove();
  void ToggleDefault();
  void Put(const std::string& oldName, const TSdk& sdk);

  QStringList FPlatforms;
  TSdkModel FModel;
  QTableView* FTable;
  QPushButton* FEdit;
  QPushButton* FRemove;
  QPushButton* FDefault;
};

} // namespace workbench
