// The form that makes a project.
#pragma once

#include "workbench/desktop/controls/background_work.h"

#include <QDialog>
#include <QStringList>
#include <filesystem>

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QRadioButton;

namespace workbench {

class TSession;

/// Makes what "deploymgr new" makes: a project with platforms and configurations, or one from the
/// install rules of a build directory. Stays open until the project is made or the user gives up.
class TNewProjectDialog final : public QDialog {
  Q_OBJECT

public:
  /// The session must outlive the dialog.
  TNewProjectDialog(TSession& session, QWidget* parent);

  /// The project that was made.
  const std::filesystem::path& File() const { return FFile; }

public slots:
  void accept() override;

protected:
  void showEvent(QShowEvent* event) override;

private:
  void MakeFields();
  QLineEdit* AddPathField(QFormLayout& form, const QString& label, const char* name,
                          void (TNewProjectDialog::*browse)());
  void ShowKind();
  void BrowseFile();
  void BrowseBuild();
  QStringList Platforms() const;
  std::filesystem::path EnteredFile() const;
  QString Problem() const;
  void Make();
  void MakeEmpty();
  void MakeFromBuild();

  TSession& FSession;
  TBackgroundWork FBackground;
  std::filesystem::path FFile;
  QLineEdit* FName = nullptr;
  QRadioButton* FIsEmpty = nullptr;
  QRadioButton* FIsFromBuild = nullptr;
  QComboBox* FKind = nullptr;
  QListWidget* FPlatforms = nullptr;
  QLineEdit* FConfigurations = nullptr;
  QWidget* FEmptyFields = nullptr;
  QWidget* FBuildFields = nullptr;
  QLineEdit* FBuild = nullptr;
  QComboBox* FBuildPlatform = nullptr;
  QLabel* FProblem = nullptr;
};

} // namespace workbench
