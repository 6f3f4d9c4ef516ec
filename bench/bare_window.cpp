// The least that a window with a list does: the measure for the start of deployment-manager.
#include <QApplication>
#include <QMainWindow>
#include <QTreeView>

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  QMainWindow window;
  window.setCentralWidget(new QTreeView(&window));
  window.resize(1180, 680);
  window.show();
  QApplication::processEvents();
  return window.grab().save(argv[1]) ? 0 : 1;
}
