// Where the files of a list go: target, profile with its place, connection, states of the files.
#pragma once

#include "workbench/desktop/controls/form_controls.h"
#include "workbench/desktop/list/row_list.h"
#include "workbench/desktop/target/connection_watch.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <string>

class QAction;
class QComboBox;
class QHBoxLayout;
class QToolButton;

namespace workbench {

class TElidedLabel;
class TOpenProject;
class TSession;
class TStateChips;

/// One for each list. It shows what the list and its tool bar show and does what they do.
class TTargetBar final : public QWidget {
  Q_OBJECT

public:
  /// Session and project must outlive the object; controls and rows may go before it.
  TTargetBar(TSession& session, TOpenProject& project, TFormControls& controls, TRowList& rows);

  /// Brings the bar up to date.
  void Update();
  /// The files of the profile could not be asked about.
  void ConnectionLost(const std::string& profile, const std::string& reason);

signals:
  /// The user wants to make a profile or assign another one.
  void ProfilesWanted();

private:
  QComboBox* MakeBox(const char* name, const QString& label);
  void MakeButton();
  void Place();
  void ShowTargets();
  void ShowProfile();
  void ShowConnection();
  void ShowButton(bool mayConnect, const QString& profile);
  void ChooseTarget();
  void Press();
  std::string Platform() const;
  std::string ProfileName() const;
  QAction* ConnectAction() const;

  TSession& FSession;
  TOpenProject& FProject;
  QPointer<TFormControls> FControls;
  QPointer<TRowList> FRows;
  QComboBox* FPlatform;
  QComboBox* FConfiguration;
  TElidedLabel* FProfile;
  TElidedLabel* FConnection;
  QToolButton* FButton;
  QToolButton* FProfiles;
  TStateChips* FChips;
  TConnectionWatch FWatch;
  QTimer FSoon;
  QTimer FAge;
};

} // namespace workbench
