// deployment-manager, the window.
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/text/error_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/desktop/window/appearance.h"
#include "workbench/desktop/window/main_window.h"
#include "workbench/desktop/window/screenshot.h"
#include "workbench/desktop/window/translations.h"
#include "workbench/files/open_file_limit.h"
#include "workbench/project/project_settings.h"
#include "workbench/session/session.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDialog>
#include <QElapsedTimer>
#include <QIcon>
#include <QMessageBox>
#include <QTimer>
#include <QWindow>
#include <cstdio>
#include <cstring>
#include <deployment_commit.h>
#include <optional>

namespace {

using namespace workbench;

constexpr int StatusFailed = 1;
constexpr int StatusUsage = 2;
constexpr int DialogInterval = 50;
constexpr int LongestWaitForScreen = 2000;

struct TArguments {
  QStringList Projects;
  QString Root;
  QString Configuration;
  QString Platform;
  QString Screenshot;
  QSize Size;
  std::optional<TAppearance> Appearance;
};

// Of the desktop entry and of the icon. Sessions of desktops keep it, so it never changes.
constexpr const char* DesktopId = "org.deploymentmanager.DeploymentManager";

QString VersionText() {
  const QString commit = DEPLOYMENT_COMMIT;
  return DEPLOYMENT_VERSION + (commit.isEmpty() ? QString() : " (" + commit + ")");
}

int Fail(const QString& text, int status) {
  std::fprintf(stderr, "deployment-manager: %s\n", qUtf8Printable(text));
  return status;
}

bool HasWord(int argc, char* argv[], const char* word) {
  for (int i = 1; i < argc; ++i) {
    if (std::strncmp(argv[i], word, std::strlen(word)) == 0)
      return true;
  }
  return false;
}

// Qt ends the program when it finds no screen, so it is looked for beforehand.
bool HasScreen() {
  return !qEnvironmentVariableIsEmpty("DISPLAY") ||
         !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
         !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

// Nothing: a wrong argument, which was said.
std::optional<TArguments> Parse() {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QCoreApplication::translate("main", "Shows which files of a project go to which platform, "
                                          "and brings them there."));
  parser.addHelpOption();
  parser.addVersionOption();
  const QCommandLineOption root(
      "root", QCoreApplication::translate("main", "Root directory with ObjRepos/Deploy"), "DIR");
  const QCommandLineOption config(
      {"c", "config"}, QCoreApplication::translate("main", "Configuration to show"), "NAME");
  const QCommandLineOption platform(
      {"p", "platform"}, QCoreApplication::translate("main", "Platform to show, or \"all\""),
      "NAME");
  const QCommandLineOption picture(
      "screenshot", QCoreApplication::translate("main", "Draw the window into a PNG file and end"),
      "FILE");
  const QCommandLineOption size(
      "size", QCoreApplication::translate("main", "Size of the window, such as 1200x700"), "WxH");
  const QCommandLineOption dark("dark", QCoreApplication::translate("main", "Light text on dark"));
  const QCommandLineOption light("light",
                                 QCoreApplication::translate("main", "Dark text on light"));
  parser.addOptions({root, config, platform, picture, size, dark, light});
  parser.addPositionalArgument(
      "PROJECT", QCoreApplication::translate("main", "Project files to open"), "[PROJECT...]");
  if (!parser.parse(QApplication::arguments())) {
    Fail(parser.errorText(), StatusUsage);
    return {};
  }
  if (parser.isSet("help"))
    parser.showHelp();
  if (parser.isSet("version"))
    parser.showVersion();
  TArguments arguments{.Projects = parser.positionalArguments(),
                       .Root = parser.value(root),
                       .Configuration = parser.value(config),
                       .Platform = parser.value(platform),
                       .Screenshot = parser.value(picture),
                       .Size = {},
                       .Appearance = {}};
  if (parser.isSet(dark) || parser.isSet(light))
    arguments.Appearance = parser.isSet(dark) ? TAppearance::Dark : TAppearance::Light;
  if (parser.isSet(size)) {
    const QStringList parts = parser.value(size).split(u'x');
    if (parts.size() == 2)
      arguments.Size = QSize(parts[0].toInt(), parts[1].toInt());
    if (arguments.Size.width() < 1 || arguments.Size.height() < 1) {
      Fail(QCoreApplication::translate("main", "\"%1\" is no size").arg(parser.value(size)),
           StatusUsage);
      return {};
    }
  }
  return arguments;
}

// What is not named is the project's active one; "all" shows all platforms.
void ChooseTarget(TMainWindow& window, const TOpenProject& project, const TArguments& arguments) {
  std::string configuration = ToStdString(arguments.Configuration);
  std::string platform = ToStdString(arguments.Platform);
  if (configuration.empty())
    configuration = project.Settings().ActiveConfiguration();
  if (platform.empty())
    platform = project.Settings().ActivePlatform();
  window.ChooseTarget(configuration, platform == "all" ? std::string() : platform);
}

// Nobody sees the dialogs of a window that is only drawn: messages are printed.
void AnswerForNobody(QTimer& watch) {
  QObject::connect(&watch, &QTimer::timeout, &watch, [] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (const auto* box = qobject_cast<QMessageBox*>(dialog))
      Fail(box->text(), StatusFailed);
    if (dialog)
      dialog->reject();
  });
  watch.start(DialogInterval);
}

bool OpenProjects(TMainWindow& window, const TArguments& arguments) {
  bool opened = true;
  for (const QString& project : arguments.Projects)
    opened = window.Open(ToPathText(project)) && opened;
  if (const TOpenProject* project = window.CurrentProject();
      project && (!arguments.Configuration.isEmpty() || !arguments.Platform.isEmpty()))
    ChooseTarget(window, *project, arguments);
  return opened;
}

// Dialogs stand in the middle of the window, which has no place before the screen shows it.
void WaitForScreen(const QWidget& window) {
  QElapsedTimer waited;
  waited.start();
  while (window.windowHandle() && !window.windowHandle()->isExposed() &&
         waited.elapsed() < LongestWaitForScreen)
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, DialogInterval);
}

int Draw(const TArguments& arguments) {
  TSession session(TSessionOptions{ToPathText(arguments.Root)});
  TMainWindow window(session);
  if (arguments.Size.isValid())
    window.resize(arguments.Size);
  window.show();
  if (!OpenProjects(window, arguments))
    return StatusFailed;
  return SaveScreenshot(window, arguments.Screenshot)
             ? 0
             : Fail(QCoreApplication::translate("main", "%1 cannot be written")
                        .arg(arguments.Screenshot),
                    StatusFailed);
}

int Show(const TArguments& arguments) {
  TSession session(TSessionOptions{ToPathText(arguments.Root)});
  TMainWindow window(session);
  if (arguments.Size.isValid())
    window.resize(arguments.Size);
  window.show();
  WaitForScreen(window);
  if (arguments.Projects.isEmpty())
    window.Restore();
  OpenProjects(window, arguments);
  QTimer::singleShot(0, &window, [&window] { Guarded([&window] { window.OfferRecovery(); }); });
  return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[]) {
  const bool isQuestion = HasWord(argc, argv, "--help") || HasWord(argc, argv, "--version") ||
                          HasWord(argc, argv, "-h") || HasWord(argc, argv, "-v");
  if (!HasScreen()) {
    if (!isQuestion && !HasWord(argc, argv, "--screenshot"))
      return Fail("there is no screen: neither DISPLAY nor WAYLAND_DISPLAY is set; \"deploymgr\" "
                  "does the same on a terminal",
                  StatusFailed);
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  AllowManyOpenFiles();
  QApplication application(argc, argv);
  QApplication::setApplicationName("Deployment Manager");
  QApplication::setApplicationVersion(VersionText());
  QApplication::setDesktopFileName(DesktopId);
  QApplication::setWindowIcon(QIcon::fromTheme(DesktopId, QIcon(":/icons/deployment-manager.svg")));
  InstallTranslations(application);
  const auto arguments = Parse();
  if (!arguments)
    return StatusUsage;
  UseLegibleStyle();
  if (arguments->Appearance)
    SetAppearance(*arguments->Appearance);
  const bool isPicture = !arguments->Screenshot.isEmpty();
  QTimer watch;
  if (isPicture)
    AnswerForNobody(watch);
  try {
    return isPicture ? Draw(*arguments) : Show(*arguments);
  } catch (const std::exception& error) {
    if (!isPicture)
      ShowError(QApplication::applicationName(), ErrorText(error), nullptr);
    return Fail(ErrorText(error), StatusFailed);
  }
}
