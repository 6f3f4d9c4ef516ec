// The commands of a project's list: their keys in the window, and what the window adds to them.
#pragma once

#include <QObject>

class QWidget;

namespace workbench {

class TFormControls;
class TOpenProject;
class TSession;

/// Where the keys of the commands work.
enum class TKeyReach {
  Window, ///< in the whole window, but those that change what is selected
  List    ///< in the list, and only those that nothing else has: the window is a foreign one
};

/// Gives the commands of the tool bar their keys, and says why Connect cannot connect.
class TListCommands final : public QObject {
  Q_OBJECT

public:
  /// The session must outlive the object; messages stand before the window.
  TListCommands(TSession& session, QWidget& window, TKeyReach reach = TKeyReach::Window);

  /// To be called once for each project that is opened. All live as long as the controls.
  void Attach(TOpenProject& project, TFormControls& controls);

signals:
  /// A command was done.
  void Done();

private:
  void ExplainMissingProfile(TOpenProject& project, const TFormControls& controls);

  TSession& FSession;
  QWidget& FWindow;
  const TKeyReach FReach;
};

} // namespace workbench
