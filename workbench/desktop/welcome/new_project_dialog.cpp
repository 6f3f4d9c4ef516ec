#include "workbench/desktop/welcome/new_project_dialog.h"

#include "package/common/application_type.h"
#include "workbench/desktop/dialogs/forms/dialog_place.h"
#include "workbench/desktop/text/error_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/project/build_import/build_directory.h"
#include "workbench/project/project_text.h"
#include "workbench/session/project_from_build.h"
#include "workbench/session/session.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>
#include <algorithm>

namespace workbench {
namespace {

// Names stand in conditions and lists of projects.
constexpr const char* ConfigurationNames = "[A-Za-z0-9_ ,.-]*";

QStringList NamesIn(const QString& list) {
  QStringList names;
  for (const QString& part : list.split(QLatin1Char(','))) {
    const QString name = part.trimmed();
    if (!name.isEmpty() && !names.contains(name) &&
        ToStdString(name) != deployment::BaseConfiguration)
      names += name;
  }
  return names;
}

QStringList PlatformNamesOf(const TSession& session) {
  QStringList names;
  for (const std::string& name : session.Platforms().Names())
    names += ToQString(name);
  return names;
}

QList<QWidget*> LabelsOf(const QFormLayout& form) {
  QList<QWidget*> labels;
  for (int row = 0; row < form.rowCount(); ++row) {
    if (QLayoutItem* item = form.itemAt(row, QFormLayout::LabelRole); item && item->widget())
      labels += item->widget();
  }
  return labels;
}

// The fields of forms that stand below each other begin at one line; the lower ones are indented.
void AlignFields(const QFormLayout& top, const QList<QFormLayout*>& lower) {
  constexpr int Indent = 20;
  int width = 0;
  for (const QWidget* label : LabelsOf(top))
    width = std::max(width, label->sizeHint().width() - Indent);
  for (const QFormLayout* form : lower) {
    for (const QWidget* label : LabelsOf(*form))
      width = std::max(width, label->sizeHint().width());
  }
  for (QWidget* label : LabelsOf(top))
    label->setMinimumWidth(width + Indent);
  for (QFormLayout* form : lower) {
    form->setContentsMargins(Indent, 0, 0, 0);
    for (QWidget* label : LabelsOf(*form))
      label->setMinimumWidth(width);
  }
}

} // namespace

TNewProjectDialog::TNewProjectDialog(TSession& session, QWidget* parent)
    : QDialog(parent), FSession(session), FBackground(*this) {
  setWindowTitle(tr("New Project"));
  MakeFields();
  ShowKind();
}

QLineEdit* TNewProjectDialog::AddPathField(QFormLayout& form, const QString& label,
                                           const char* name, void (TNewProjectDialog::*browse)()) {
  auto* edit = new QLineEdit(this);
  edit->setObjectName(QLatin1String(name));
  auto* button = new QPushButton(tr("&Browse…"), this);
  button->setAutoDefault(false);
  button->setAccessibleName(tr("Browse: %1").arg(QString(label).remove(u'&')));
  connect(button, &QPushButton::clicked, this, browse);
  auto* row = new QHBoxLayout;
  row->addWidget(edit, 1);
  row->addWidget(button);
  form.addRow(label, row);
  if (auto* shown = qobject_cast<QLabel*>(form.labelForField(row)))
    shown->setBuddy(edit);
  edit->setAccessibleName(QString(label).remove(u'&'));
  return edit;
}

void TNewProjectDialog::MakeFields() {
  auto* form = new QFormLayout;
  FName = AddPathField(*form, tr("Project &file"), "file", &TNewProjectDialog::BrowseFile);
  FIsEmpty = new QRadioButton(tr("&Empty, for these platforms"), this);
  FIsFromBuild = new QRadioButton(tr("From the install rules of a &build directory"), this);
  FIsEmpty->setChecked(true);
  connect(FIsEmpty, &QRadioButton::toggled, this, &TNewProjectDialog::ShowKind);

  FEmptyFields = new QWidget(this);
  auto* empty = new QFormLayout(FEmptyFields);
  FKind = new QComboBox(this);
  for (const std::string& type : deployment::ApplicationTypes())
    FKind->addItem(ToQString(type));
  FKind->setCurrentText(QStringLiteral("Application"));
  FPlatforms = new QListWidget(this);
  FPlatforms->setAccessibleName(tr("Platforms"));
  for (const QString& name : PlatformNamesOf(FSession)) {
    auto* item = new QListWidgetItem(name, FPlatforms);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(FPlatforms->count() == 1 ? Qt::Checked : Qt::Unchecked);
  }
  FConfigurations = new QLineEdit(QStringLiteral("Debug, Release"), this);
  FConfigurations->setValidator(new QRegularExpressionValidator(
      QRegularExpression(QLatin1String(ConfigurationNames)), FConfigurations));
  empty->addRow(tr("&Kind of program"), FKind);
  empty->addRow(tr("&Platforms"), FPlatforms);
  empty->addRow(tr("&Configurations"), FConfigurations);

  FBuildFields = new QWidget(this);
  auto* build = new QFormLayout(FBuildFields);
  FBuild = AddPathField(*build, tr("Build &directory"), "build", &TNewProjectDialog::BrowseBuild);
  FBuild->setToolTip(tr("Of CMake or Meson; CMake may be run to tell what it installs."));
  FBuildPlatform = new QComboBox(this);
  FBuildPlatform->addItems(PlatformNamesOf(FSession));
  build->addRow(tr("It builds &for"), FBuildPlatform);
  AlignFields(*form, {empty, build});

  FProblem = new QLabel(this);
  FProblem->setTextFormat(Qt::PlainText);
  FProblem->setWordWrap(true);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
  buttons->addButton(tr("&Make Project"), QDialogButtonBox::AcceptRole)->setDefault(true);
  connect(buttons, &QDialogButtonBox::accepted, this, &TNewProjectDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  for (QWidget* widget :
       {static_cast<QWidget*>(FIsEmpty), FEmptyFields, static_cast<QWidget*>(FIsFromBuild),
        FBuildFields, static_cast<QWidget*>(FProblem), static_cast<QWidget*>(buttons)})
    layout->addWidget(widget);
}

void TNewProjectDialog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  CenterOn(*this, parentWidget());
}

void TNewProjectDialog::ShowKind() {
  FEmptyFields->setEnabled(FIsEmpty->isChecked());
  FBuildFields->setEnabled(FIsFromBuild->isChecked());
}

void TNewProjectDialog::BrowseFile() {
  const QString file =
      QFileDialog::getSaveFileName(this, windowTitle(), FName->text(), tr("Projects (*.vproj)"),
                                   nullptr, QFileDialog::DontConfirmOverwrite);
  if (!file.isEmpty())
    FName->setText(QDir::toNativeSeparators(file));
}

void TNewProjectDialog::BrowseBuild() {
  const QString directory =
      QFileDialog::getExistingDirectory(this, tr("Build Directory"), FBuild->text());
  if (!directory.isEmpty())
    FBuild->setText(QDir::toNativeSeparators(directory));
}

QStringList TNewProjectDialog::Platforms() const {
  QStringList names;
  for (int row = 0; row < FPlatforms->count(); ++row) {
    if (FPlatforms->item(row)->checkState() == Qt::Checked)
      names += FPlatforms->item(row)->text();
  }
  return names;
}

std::filesystem::path TNewProjectDialog::EnteredFile() const {
  std::filesystem::path file = ToPathText(FName->text().trimmed());
  if (!file.empty() && !file.has_extension())
    file += ".vproj";
  return file;
}

// Empty when the fields can be taken.
QString TNewProjectDialog::Problem() const {
  const std::filesystem::path file = EnteredFile();
  std::error_code ignored;
  if (file.empty() || !file.is_absolute())
    return tr("Name the file of the project, with its directory.");
  if (file.native().find('\\') != std::string::npos)
    return tr("The name of a project cannot hold \"\\\".");
  if (std::filesystem::exists(file, ignored))
    return tr("%1 exists already.").arg(PathToQString(file));
  if (!std::filesystem::is_directory(file.parent_path(), ignored))
    return tr("There is no directory %1.").arg(PathToQString(file.parent_path()));
  if (FIsFromBuild->isChecked())
    return FBuild->text().trimmed().isEmpty() ? tr("Name the build directory.") : QString();
  return Platforms().isEmpty() ? tr("Tick a platform.") : QString();
}

void TNewProjectDialog::accept() {
  if (FBackground.IsBusy())
    return;
  QString problem = Problem();
  try {
    if (problem.isEmpty()) {
      FFile = EnteredFile();
      FSession.CheckInstallation();
      Make();
    }
  } catch (const std::exception& error) {
    problem = ErrorText(error);
  }
  FProblem->setText(problem);
  if (problem.isEmpty())
    QDialog::accept();
}

void TNewProjectDialog::Make() {
  if (FIsFromBuild->isChecked())
    MakeFromBuild();
  else
    MakeEmpty();
}

void TNewProjectDialog::MakeEmpty() {
  TProjectValues values;
  values.ApplicationType = ToStdString(FKind->currentText());
  for (const QString& name : Platforms())
    values.Platforms.push_back(ToStdString(name));
  for (const QString& name : NamesIn(FConfigurations->text()))
    values.Configurations.push_back(ToStdString(name));
  values.ActivePlatform = values.Platforms.front();
  values.ActiveConfiguration = values.Configurations.empty()
                                   ? std::string(deployment::BaseConfiguration)
                                   : values.Configurations.front();
  FSession.Create(FFile, ProjectText(values));
}

// The build's tool may be run, which takes its time.
void TNewProjectDialog::MakeFromBuild() {
  const TBuildSource source{.Directory = ToPathText(FBuild->text().trimmed()),
                            .Platform = ToStdString(FBuildPlatform->currentText())};
  TInstallPlan plan;
  FBackground.Run([&] { plan = ReadBuildDirectory(source.Directory, {}, /*mayRun=*/true); });
  FSession.Close(CreateFromBuild(FSession, FFile, source, plan).Project);
}

} // namespace workbench
