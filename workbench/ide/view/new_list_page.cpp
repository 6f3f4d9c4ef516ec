#include "workbench/ide/view/new_list_page.h"

#include "workbench/desktop/text/qt_text.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace workbench {

TNewListPage::TNewListPage(QWidget* parent)
    : QWidget(parent), FText(new QLabel(this)), FBuild(new QLineEdit(this)),
      FPlatform(new QComboBox(this)) {
  FText->setWordWrap(true);
  FText->setTextFormat(Qt::PlainText);
  auto* browse = new QToolButton(this);
  browse->setText(QStringLiteral("…"));
  browse->setAccessibleName(tr("Choose the build directory"));
  connect(browse, &QToolButton::clicked, this, &TNewListPage::AskForDirectory);
  auto* make = new QPushButton(tr("&Make the List"), this);
  make->setObjectName(QStringLiteral("makeList"));
  connect(make, &QPushButton::clicked, this, [this] {
    emit MakeWanted({.Directory = ToPathText(FBuild->text()),
                     .Platform = ToStdString(FPlatform->currentText())});
  });
  connect(FBuild, &QLineEdit::textChanged, make,
          [make](const QString& text) { make->setEnabled(!text.isEmpty()); });
  make->setEnabled(false);
  auto* place = new QHBoxLayout;
  place->addWidget(FBuild);
  place->addWidget(browse);
  auto* form = new QFormLayout;
  form->addRow(tr("&Build directory:"), place);
  form->addRow(tr("&Platform:"), FPlatform);
  form->addRow(QString(), make);
  make->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  qobject_cast<QLabel*>(form->labelForField(place))->setBuddy(FBuild);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(FText);
  layout->addLayout(form);
  layout->addStretch();
}

void TNewListPage::SetPlatforms(const std::vector<std::string>& platforms) {
  FPlatform->clear();
  for (const std::string& platform : platforms)
    FPlatform->addItem(ToQString(platform));
  FPlatform->setCurrentText(PlatformOfThisMachine());
}

void TNewListPage::SetProject(const TIdeProject& project) {
  FText->setText(tr("%1 has no deployment list yet. It can be made of what the install rules of "
                    "its build (CMake or Meson) install; it is kept in %2.")
                     .arg(project.Name, PathToQString(FirstListFileOf(project).filename())));
  FBuild->setText(PathToQString(project.Build));
}

void TNewListPage::AskForDirectory() {
  const QString directory =
      QFileDialog::getExistingDirectory(this, tr("Build Directory"), FBuild->text());
  if (!directory.isEmpty())
    FBuild->setText(directory);
}

} // namespace workbench
