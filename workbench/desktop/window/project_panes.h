// What the window puts around the list of a project: target bar, filter, details.
#pragma once

#include <QObject>
#include <QPointer>
#include <string>
#include <vector>

namespace workbench {

class TDetailsPane;
class TFormControls;
class TOpenProject;
class TProjectTabs;
class TRowList;
class TSession;
class TTargetBar;

class TProjectPanes final : public QObject {
  Q_OBJECT

public:
  /// Session and projects must outlive the object. The window that it belongs to places the
  /// details, which are shown when they are wanted.
  TProjectPanes(TSession& session, TProjectTabs& projects, bool wantsDetails, QWidget& window);

  /// Beside the lists, for the one in front; hidden while there is none.
  TDetailsPane& Details() { return *FDetails; }
  /// Shows the details, or hides them.
  void SwitchDetails();
  /// Do they stand beside lists?
  bool WantsDetails() const { return FWantsDetails; }
  /// This list is in front now; null: none is.
  void Show(TOpenProject* project, TFormControls* controls);

  /// To be called once for each project that is opened. The panes go with the page of the controls.
  void Attach(TOpenProject& project, TFormControls& controls);
  /// Takes the keyboard to the filter of the list.
  static void FocusFilter(TFormControls& controls);
  /// The files of the profile could not be asked about.
  void ConnectionLost(const std::string& profile, const std::string& reason);

signals:
  /// The user wants to make a profile or assign another one.
  void ProfilesWanted();

private:
  struct TPanes {
    QPointer<TFormControls> Controls;
    QPointer<TRowList> Rows;
    QPointer<TTargetBar> Bar;
  };

  TSession& FSession;
  TDetailsPane* FDetails;
  bool FWantsDetails;
  std::vector<TPanes> FPanes; // of open projects
};

} // namespace workbench
