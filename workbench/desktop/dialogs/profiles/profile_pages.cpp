#include "workbench/desktop/dialogs/profiles/profile_pages.h"

#include "workbench/desktop/text/qt_text.h"

#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <utility>

namespace workbench {
namespace {

constexpr int LargestPort = 65535;
constexpr int LongestTime = 3600; // seconds

QLineEdit* MakeEdit(const char* name, QWidget* parent) {
  auto* edit = new QLineEdit(parent);
  edit->setObjectName(QLatin1String(name));
  return edit;
}

QSpinBox* MakeSpinBox(const char* name, int least, int most, QWidget* parent) {
  auto* box = new QSpinBox(parent);
  box->setObjectName(QLatin1String(name));
  box->setRange(least, most);
  return box;
}

// Adds an edit with its button beside it. The label belongs to the edit alone.
void AddRow(QFormLayout& form, const QString& label, QLineEdit* edit, QPushButton* button) {
  auto* caption = new QLabel(label, edit->parentWidget());
  caption->setBuddy(edit);
  button->setAutoDefault(false);
  auto* row = new QHBoxLayout;
  row->addWidget(edit, 1);
  row->addWidget(button);
  form.addRow(caption, row);
}

std::string Entered(const QLineEdit* edit) {
  return ToStdString(edit->text().trimmed());
}

} // namespace

TFolderPage::TFolderPage(QWidget* parent) : TProfilePage(parent), FPath(MakeEdit("path", this)) {
  auto* browse = new QPushButton(tr("&Browse\u2026"), this);
  connect(browse, &QPushButton::clicked, this, &TFolderPage::Browse);
  auto* form = new QFormLayout(this);
  form->setContentsMargins({});
  AddRow(*form, tr("Di&rectory:"), FPath, browse);
  FPath->setAccessibleName(tr("Directory"));
  FPath->setToolTip(tr("Everything is put below this directory."));
}

void TFolderPage::Show(const TProfile& profile) {
  FPath->setText(ToQString(profile.Path));
}

void TFolderPage::Fill(TProfile& profile) const {
  profile.Path = Entered(FPath);
}

std::optional<TMissingField> TFolderPage::Missing() const {
  if (!Entered(FPath).empty())
    return std::nullopt;
  return TMissingField{FPath, tr("Choose the directory that the files are to go to.")};
}

void TFolderPage::Browse() {
  const QString chosen =
      QFileDialog::getExistingDirectory(this, tr("Directory of the Profile"), FPath->text());
  if (!chosen.isEmpty())
    FPath->setText(chosen);
}

TSshPage::TSshPage(QWidget* parent)
    : TProfilePage(parent), FHost(MakeEdit("host", this)),
      FPort(MakeSpinBox("port", 0, LargestPort, this)), FUser(MakeEdit("user", this)),
      FIdentity(MakeEdit("identity", this)), FPath(MakeEdit("remotePath", this)),
      FOptions(new QPlainTextEdit(this)),
      FConnectTimeout(MakeSpinBox("connectTimeout", 1, LongestTime, this)),
      FKeepAlive(MakeSpinBox("keepAlive", 1, LongestTime, this)) {
  const QString open = tr("as the SSH client is set up");
  FPort->setSpecialValueText(open);
  FUser->setPlaceholderText(open);
  FIdentity->setPlaceholderText(open);
  FHost->setPlaceholderText(tr("name, address or alias of the SSH client"));
  FPath->setPlaceholderText(tr("such as /opt/app or ~/app"));
  FOptions->setObjectName(QStringLiteral("options"));
  FOptions->setPlaceholderText(tr("one KEY=VALUE in each line, such as ProxyJump=gateway"));
  FOptions->setTabChangesFocus(true);
  FOptions->setMaximumHeight(fontMetrics().lineSpacing() * 5);
  FConnectTimeout->setSuffix(tr(" s"));
  FKeepAlive->setSuffix(tr(" s"));
  AddFields();
}

void TSshPage::AddFields() {
  auto* browse = new QPushButton(tr("&Browse\u2026"), this);
  connect(browse, &QPushButton::clicked, this, &TSshPage::Browse);
  auto* form = new QFormLayout(this);
  form->setContentsMargins({});
  form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  form->addRow(tr("&Host:"), FHost);
  form->addRow(tr("P&ort:"), FPort);
  form->addRow(tr("&User:"), FUser);
  AddRow(*form, tr("Key &file:"), FIdentity, browse);
  FIdentity->setAccessibleName(tr("Key file"));
  form->addRow(tr("Remote di&rectory:"), FPath);
  form->addRow(tr("SSH op&tions:"), FOptions);
  form->addRow(tr("Wait for the &machine:"), FConnectTimeout);
  form->addRow(tr("Ask whether it li&ves every:"), FKeepAlive);
}

void TSshPage::Show(const TProfile& profile) {
  FHost->setText(ToQString(profile.Host));
  FPort->setValue(static_cast<int>(profile.Port));
  FUser->setText(ToQString(profile.User));
  FIdentity->setText(ToQString(profile.Identity));
  FPath->setText(ToQString(profile.Path));
  QStringList options;
  for (const std::string& option : profile.SshOptions)
    options += ToQString(option);
  FOptions->setPlainText(options.join(QLatin1Char('\n')));
  FConnectTimeout->setValue(static_cast<int>(profile.ConnectTimeout));
  FKeepAlive->setValue(static_cast<int>(profile.KeepAlive));
}

void TSshPage::Fill(TProfile& profile) const {
  profile.Host = Entered(FHost);
  profile.Port = static_cast<unsigned>(FPort->value());
  profile.User = Entered(FUser);
  profile.Identity = Entered(FIdentity);
  profile.Path = Entered(FPath);
  profile.SshOptions.clear();
  const QStringList lines = FOptions->toPlainText().split(QLatin1Char('\n'));
  for (const QString& line : lines) {
    if (!line.trimmed().isEmpty())
      profile.SshOptions.push_back(ToStdString(line.trimmed()));
  }
  profile.ConnectTimeout = static_cast<unsigned>(FConnectTimeout->value());
  profile.KeepAlive = static_cast<unsigned>(FKeepAlive->value());
}

std::optional<TMissingField> TSshPage::Missing() const {
  if (Entered(FHost).empty())
    return TMissingField{FHost, tr("Enter the name or the address of the machine as the host.")};
  if (Entered(FPath).empty())
    return TMissingField{FPath, tr("Enter the directory on the machine that the files are to go "
                                   "to, such as ~/app.")};
  return std::nullopt;
}

void TSshPage::Browse() {
  const QString start = FIdentity->text().isEmpty() ? QDir::home().filePath(QStringLiteral(".ssh"))
                                                    : FIdentity->text();
  const QString chosen = QFileDialog::getOpenFileName(this, tr("Key File"), start);
  if (!chosen.isEmpty())
    FIdentity->setText(chosen);
}

TProfilePage* MakeProfilePage(TProfileKind kind, QWidget* parent) {
  switch (kind) {
  case TProfileKind::Folder:
    return new TFolderPage(parent);
  case TProfileKind::Ssh:
    return new TSshPage(parent);
  }
  return nullptr;
}

} // namespace workbench
