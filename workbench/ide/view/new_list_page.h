// What stands in the view of a project that has no deployment list yet.
#pragma once

#include "workbench/ide/view/ide_project.h"
#include "workbench/session/project_from_build.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;

namespace workbench {

/// Lets the user make the list from the install rules of the project's build.
class TNewListPage final : public QWidget {
  Q_OBJECT

public:
  explicit TNewListPage(QWidget* parent);

  void SetPlatforms(const std::vector<std::string>& platforms);
  void SetProject(const TIdeProject& project);

signals:
  /// The user wants the list of the project that is shown.
  void MakeWanted(const TBuildSource& source);

private:
  void AskForDirectory();

  QLabel* FText;
  QLineEdit* FBuild;
  QComboBox* FPlatform;
};

} // namespace workbench
