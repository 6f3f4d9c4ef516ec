// A session whose views, questions and long work a window, or a part of one, takes over.
#pragma once

#include "package/host/api/toolsapi.h"
#include "workbench/desktop/interaction/front_list.h"

#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QWidget;

namespace workbench {

class TBackgroundWork;
class TConnectionQuestions;
class TDeployPanel;
class TEditorTabs;
class TModalDialogs;
class TProjectTabs;
class TSession;
class TWindowDeploys;
class TWindowHistory;
struct TDeployReport;

/// What serves the session. Everything must outlive the TServedSession.
struct TServingParts {
  TEditorTabs& Tabs;
  TProjectTabs& Projects;
  TModalDialogs& Forms;
  TBackgroundWork& Background;
  TDeployPanel& Panel;
  QWidget& Window; ///< dialogs stand before it
  /// Says a sentence that needs no answer.
  std::function<void(const QString&)> Say;
  /// Hears that the files of a profile could not be asked about, and why; may be empty.
  std::function<void(const std::string& profile, const std::string& reason)> ConnectionLost = {};
  /// Hears of the end of each deploy; may be empty.
  std::function<void(const TDeployReport&)> Deployed = {};
};

/// The session is served as long as the object lives; then its views are closed and nobody answers.
class TServedSession {
public:
  /// The session must outlive the object.
  TServedSession(TSession& session, TServingParts parts);
  ~TServedSession();
  TServedSession(const TServedSession&) = delete;
  TServedSession& operator=(const TServedSession&) = delete;

  TWindowDeploys& Deploys() { return *FDeploys; }
  TWindowHistory& History() { return *FHistory; }
  /// Lets the user edit the profiles, and assign one to the project in front.
  void ShowProfiles();

private:
  TFrontList Front() const { return {FParts.Projects, FParts.Tabs}; }
  void ShowLostConnection(const std::string& profile, const std::string& reason) const;
  bool MayRun(const std::vector<std::string>& commands, const std::string& place);
  bool MaySend(const std::vector<std::string>& files);
  bool CreateProfile(const deployment::ICustomProject& project, std::string_view platform);

  TSession& FSession;
  const TServingParts FParts;
  std::shared_ptr<TConnectionQuestions> FQuestions; // threads hold it too
  std::unique_ptr<TWindowDeploys> FDeploys;
  std::unique_ptr<TWindowHistory> FHistory;
};

} // namespace workbench
