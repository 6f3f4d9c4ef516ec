#include "workbench/desktop/interaction/list_commands.h"

#include "package/host/api/platformapi.h"
#include "package/host/api/view_buttons.h"
#include "workbench/desktop/controls/form_controls.h"
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/text/error_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/session/session.h"

#include <QAction>
#include <QKeySequence>
#include <array>
#include <string_view>

namespace workbench {
namespace {

struct TListKey {
  std::string_view Button;
  QKeySequence Keys;
  Qt::ShortcutContext Where;
  bool IsOfLists = false; // every list understands it
};

// Those that change what is selected need the focus in the list; the others work from anywhere.
const std::array<TListKey, 5>& Keys() {
  namespace view_button = deployment::view_button;
  static const std::array<TListKey, 5> keys{
      {{view_button::Reconcile, QKeySequence(QStringLiteral("Ctrl+R")), Qt::WindowShortcut},
       {view_button::AddFiles, Qt::Key_Insert, Qt::WindowShortcut, true},
       {view_button::DeleteFile, Qt::Key_Delete, Qt::WidgetWithChildrenShortcut, true},
       {view_button::Deploy, Qt::Key_F9, Qt::WindowShortcut},
       {view_button::Connect, Qt::Key_F8, Qt::WindowShortcut}}};
  return keys;
}

} // namespace

TListCommands::TListCommands(TSession& session, QWidget& window, TKeyReach reach)
    : QObject(&window), FSession(session), FWindow(window), FReach(reach) {}

void TListCommands::Attach(TOpenProject& project, TFormControls& controls) {
  TToolBar* toolBar = controls.ToolBar();
  if (!toolBar)
    return;
  for (const TListKey& key : Keys()) {
    QAction* action = toolBar->Find(key.Button);
    if (action && (FReach == TKeyReach::Window || key.IsOfLists)) {
      action->setShortcut(key.Keys);
      action->setShortcutContext(FReach == TKeyReach::Window ? key.Where
                                                             : Qt::WidgetWithChildrenShortcut);
      action->setToolTip(action->toolTip() + " (" + key.Keys.toString(QKeySequence::NativeText) +
                         ")");
      controls.Page()->addAction(action);
    }
  }
  connect(toolBar, &TToolBar::Executed, &controls, [this, &project, &controls](QAction* action) {
    if (action->objectName().toStdString() == deployment::view_button::Connect)
      Guarded([&] { ExplainMissingProfile(project, controls); });
    emit Done();
  });
}

// The view just lets its button come up again when there is nowhere to connect to.
void TListCommands::ExplainMissingProfile(TOpenProject& project, const TFormControls& controls) {
  const auto* platforms = project.Project().GetProjectPlatforms();
  if (!controls.TargetsComboBox() || !platforms)
    return;
  const std::string platform = controls.TargetsComboBox()->GetSelectedPlatform();
  const std::string profile = platforms->GetProfileName(platform);
  if (profile.empty())
    ShowError(tr("Connect"),
              tr("The project has no remote profile for %1. Make one with Tools, Remote Profiles, "
                 "and assign it to the project.")
                  .arg(ToQString(platform)),
              &FWindow);
  else if (!FSession.RemoteProfiles().FindProfile(profile))
    ShowError(tr("Connect"),
              tr("The project names the remote profile %1 for %2, and there is none of that name. "
                 "Make it with Tools, Remote Profiles, or assign another one to the project.")
                  .arg(ToQString(profile), ToQString(platform)),
              &FWindow);
}

} // namespace workbench
