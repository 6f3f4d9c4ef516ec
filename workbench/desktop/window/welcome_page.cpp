#include "workbench/desktop/window/welcome_page.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace workbench {

TWelcomePage::TWelcomePage(QWidget* parent) : QWidget(parent) {
  auto* hint = new QLabel(tr("Open a project to see which files go to which platform.\n"
                             "A project file can also be dropped here."),
                          this);
  hint->setAlignment(Qt::AlignCenter);
  auto* open = new QPushButton(tr("&Open Project…"), this);
  connect(open, &QPushButton::clicked, this, &TWelcomePage::OpenWanted);
  auto* layout = new QVBoxLayout(this);
  layout->addStretch();
  layout->addWidget(hint);
  layout->addSpacing(12);
  layout->addWidget(open, 0, Qt::AlignHCenter);
  layout->addStretch();
}

} // namespace workbench
