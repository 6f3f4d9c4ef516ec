#include "workbench/desktop/window/translations.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace workbench {

// The one that is installed last is asked first. English has a file too, for its plurals.
void InstallTranslations(QApplication& application) {
  const QString directory = QStringLiteral(":/translations");
  const auto install = [&application](const QLocale& locale, const QString& name,
                                      const QString& place) {
    auto* translator = new QTranslator(&application);
    if (translator->load(locale, name, QStringLiteral("_"), place))
      QApplication::installTranslator(translator);
  };
  install(QLocale(QLocale::English), QStringLiteral("deployment_manager"), directory);
  install(QLocale(), QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
  install(QLocale(), QStringLiteral("deployment_manager"), directory);
}

} // namespace workbench
