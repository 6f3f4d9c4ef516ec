// Runs the tests of a program that needs Qt: no screen, and no directory of the user.
#include <gtest/gtest.h>

#include <QApplication>
#include <QByteArray>
#include <QLocale>
#include <QTemporaryDir>
#include <QTranslator>

namespace {

// Tests may be started without any of this, by hand or to be listed.
void SetEnvironment(const QTemporaryDir& home) {
  const QByteArray directory = home.path().toLocal8Bit();
  qputenv("HOME", directory);
  qputenv("XDG_CONFIG_HOME", directory + "/config");
  qputenv("XDG_STATE_HOME", directory + "/state");
  qputenv("XDG_CACHE_HOME", directory + "/cache");
  qputenv("XDG_RUNTIME_DIR", directory);
  qputenv("LANG", "C.UTF-8");
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

// Pictures may be wanted in a language: the file with its translations is named for that.
void Translate(QTranslator& translator) {
  const QString file = qEnvironmentVariable("PICTURE_TRANSLATION");
  if (file.isEmpty() || !translator.load(file))
    return;
  if (file.endsWith("_de.qm"))
    QLocale::setDefault(QLocale(QLocale::German));
  QApplication::installTranslator(&translator);
}

} // namespace

int main(int argc, char* argv[]) {
  ::testing::InitGoogleTest(&argc, argv);
  const QTemporaryDir home;
  SetEnvironment(home);
  QApplication application(argc, argv);
  QApplication::setApplicationName("Deployment Manager");
  QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
  QTranslator translator;
  Translate(translator);
  return RUN_ALL_TESTS();
}
