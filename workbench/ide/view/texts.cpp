#include "workbench/ide/view/texts.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

namespace workbench {

// The one that is installed last is asked first. English has a file too, for its plurals.
void InstallTexts() {
  for (const QLocale& locale : {QLocale(QLocale::English), QLocale()}) {
    auto* translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(locale, QStringLiteral("deployment_manager"), QStringLiteral("_"),
                         QStringLiteral(":/deployment")))
      QCoreApplication::installTranslator(translator);
  }
}

} // namespace workbench
