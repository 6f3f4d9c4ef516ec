// What the window shows while no project is open.
#pragma once

#include "workbench/desktop/welcome/example_projects.h"

#include <QStringList>
#include <QWidget>
#include <vector>

class QVBoxLayout;

namespace workbench {

/// Ways to the first project: a new one, those that were open lately, the examples, the guide.
class TWelcomePage final : public QWidget {
  Q_OBJECT

public:
  /// `hasGuide` says whether there is one to be shown.
  TWelcomePage(const std::vector<TExampleProject>& examples, bool hasGuide, QWidget* parent);

  /// Shows the projects that were open lately, full paths, the last one first.
  void SetRecent(const QStringList& files);

signals:
  void OpenWanted();
  void NewWanted();
  void GuideWanted();
  /// A project that was open lately.
  void RecentWanted(const QString& file);
  void ExampleWanted(const TExampleProject& example);

private:
  QVBoxLayout* AddGroup(const QString& title);

  QVBoxLayout* FContent;
  QVBoxLayout* FRecent = nullptr;
  QWidget* FRecentGroup = nullptr;
};

} // namespace workbench
