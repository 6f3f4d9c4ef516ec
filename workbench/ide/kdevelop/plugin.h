// The Deployment Manager as a tool view of KDevelop.
#pragma once

#include "workbench/ide/kdevelop/problem_list.h"
#include "workbench/ide/view/deployment_view.h"

#include <QVariantList>
#include <interfaces/iplugin.h>
#include <memory>

namespace KDevelop {
class IDocument;
class IProject;
class IToolViewFactory;
} // namespace KDevelop

namespace workbench {

/// Shows the list of the project that the active document belongs to.
class TKDevelopPlugin final : public KDevelop::IPlugin {
  Q_OBJECT

public:
  explicit TKDevelopPlugin(QObject* parent, const QVariantList& arguments = {});
  ~TKDevelopPlugin() override;

  void unload() override;
  void createActionsForMainWindow(Sublime::MainWindow* window, QString& xmlFile,
                                  KActionCollection& actions) override;

private:
  void AddProject(KDevelop::IProject* project);
  void RemoveProject(KDevelop::IProject* project);
  void FollowDocument(const KDevelop::IDocument* document);
  void AddToolViewOnce();
  void Raise();
  void Leave();

  TDeploymentView* FView; // deletes itself; null when it was left
  KDevelop::IToolViewFactory* FFactory;
  std::unique_ptr<TProblemList> FProblems;
};

} // namespace workbench
