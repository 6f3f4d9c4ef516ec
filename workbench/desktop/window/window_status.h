// What the window says about the project in front: title, counts, warnings, notices.
#pragma once

#include <QObject>
#include <QString>

class QLabel;
class QMainWindow;
class QToolButton;

namespace workbench {

class TEditorTabs;
class TProjectTabs;

class TWindowStatus final : public QObject {
  Q_OBJECT

public:
  /// Fills the window's status bar. Everything must outlive the object.
  TWindowStatus(QMainWindow& window, TProjectTabs& projects, TEditorTabs& tabs);

  void Update();
  /// Shows a sentence until the next one.
  void Say(const QString& text);

private:
  void UpdateTitle();
  void UpdateCounts();
  void UpdateWarnings();
  void UpdateProblem();
  void ShowWarnings();

  QMainWindow& FWindow;
  TProjectTabs& FProjects;
  TEditorTabs& FTabs;
  QLabel* FCounts;
  QToolButton* FWarnings;
  QString FProblem; // that was said
};

} // namespace workbench
