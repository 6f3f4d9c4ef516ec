// The Deployment Manager as a tool view of Kate.
#pragma once

#include "workbench/ide/view/deployment_view.h"

#include <KTextEditor/MainWindow>
#include <KTextEditor/Plugin>
#include <KXMLGUIClient>
#include <QObject>
#include <QPointer>
#include <QVariantList>

namespace workbench {

/// Kate's windows share one view: the lists and the package are there once.
class TKatePlugin final : public KTextEditor::Plugin {
  Q_OBJECT

public:
  explicit TKatePlugin(QObject* parent, const QVariantList& arguments = {});
  ~TKatePlugin() override;

  QObject* createView(KTextEditor::MainWindow* window) override;
  TDeploymentView& View() { return *FView; }

private:
  TDeploymentView* FView; // deletes itself
};

/// The part of the plug-in in one window: tool view, menu, and which project is active there.
class TKateWindow final : public QObject, public KXMLGUIClient {
  Q_OBJECT

public:
  TKateWindow(TKatePlugin& plugin, KTextEditor::MainWindow& window);
  ~TKateWindow() override;

private slots: // connected by name: the project plug-in has no header
  void FollowProject();
  void ForgetProject(const QString& directory);

private:
  void AddActions();
  void WatchProjects(QObject* projects);
  void Raise();

  TDeploymentView& FView;
  KTextEditor::MainWindow& FWindow;
  QPointer<QWidget> FToolView;
  QPointer<QObject> FProjects; // the project plug-in of the window
};

} // namespace workbench
