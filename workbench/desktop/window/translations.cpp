#include "workbench/desktop/window/translations.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace workbench {

// Those of the toolkit first: the later one is asked first.
void InstallTranslations(QApplication& application) {
  auto* toolkit = new QTranslator(&application);
  if (toolkit->load(QLocale(), "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(toolkit);
  auto* own = new QTranslator(&application);
  if (own->load(QLocale(), "deployment_manager", "_", ":/translations"))
    QApplication::installTranslator(own);
}

} // namespace workbench
