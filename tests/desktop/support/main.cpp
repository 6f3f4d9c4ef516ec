// Runs the tests of a program that needs Qt: no screen, and no directory of the user.
#include <gtest/gtest.h>

#include <QApplication>
#include <QByteArray>
#include <QTemporaryDir>

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

} // namespace

int main(int argc, char* argv[]) {
  ::testing::InitGoogleTest(&argc, argv);
  const QTemporaryDir home;
  SetEnvironment(home);
  QApplication application(argc, argv);
  QApplication::setApplicationName("Deployment Manager");
  QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
  return RUN_ALL_TESTS();
}
