#include "workbench/desktop/controls/qt_dialogs.h"

#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/package_texts.h"
#include "workbench/desktop/text/qt_text.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <array>

namespace workbench {
namespace {

using deployment::TMessageAnswer;

struct TButtonText {
  TMessageAnswer Answer;
  QMessageBox::StandardButton Button;
  const char* Caption;
};

constexpr std::array<TButtonText, 5> ButtonTexts{{
    {TMessageAnswer::OK, QMessageBox::Ok, QT_TRANSLATE_NOOP("TDialogs", "OK")},
    {TMessageAnswer::Yes, QMessageBox::Yes, QT_TRANSLATE_NOOP("TDialogs", "&Yes")},
    {TMessageAnswer::YesToAll, QMessageBox::YesToAll, QT_TRANSLATE_NOOP("TDialogs", "Yes to &All")},
    {TMessageAnswer::No, QMessageBox::No, QT_TRANSLATE_NOOP("TDialogs", "&No")},
    {TMessageAnswer::Cancel, QMessageBox::Cancel, QT_TRANSLATE_NOOP("TDialogs", "Cancel")},
}};

// The button that a closed box counts as: the most careful one.
QPushButton* EscapeButton(const QMessageBox& box) {
  for (const auto kind : {QMessageBox::Cancel, QMessageBox::No, QMessageBox::Ok}) {
    if (auto* button = qobject_cast<QPushButton*>(box.button(kind)))
      return button;
  }
  return nullptr;
}

// A question of the package, or what the host had to say.
QString MessageText(const std::string& text) {
  const QString plain = ToQString(text);
  const QString asked = PackageText(text);
  return asked == plain ? EngineLines(plain) : asked;
}

bool HaveDirectories(const QStringList& files) {
  return std::all_of(files.begin(), files.end(),
                     [](const QString& file) { return QFileInfo(file).absoluteDir().exists(); });
}

} // namespace

TMessageAnswer TDialogs::ShowMessage(const deployment::TMessageBox& message) {
  QMessageBox box(FParent);
  box.setWindowTitle(QCoreApplication::applicationName());
  box.setTextFormat(Qt::PlainText);
  box.setText(MessageText(message.Text));
  box.setIcon(message.Buttons.size() > 1 ? QMessageBox::Question : QMessageBox::Information);
  for (const TMessageAnswer answer : message.Buttons) {
    const auto* text = std::find_if(ButtonTexts.begin(), ButtonTexts.end(),
                                    [&](const TButtonText& b) { return b.Answer == answer; });
    if (text == ButtonTexts.end())
      continue;
    QPushButton* button = box.addButton(text->Button);
    button->setText(tr(text->Caption));
    if (!box.defaultButton())
      box.setDefaultButton(button);
  }
  box.setEscapeButton(EscapeButton(box));
  const int pressed = box.exec();
  const auto* found = std::find_if(ButtonTexts.begin(), ButtonTexts.end(),
                                   [&](const TButtonText& b) { return b.Button == pressed; });
  const bool wasOffered =
      found != ButtonTexts.end() && std::find(message.Buttons.begin(), message.Buttons.end(),
                                              found->Answer) != message.Buttons.end();
  return wasOffered ? found->Answer : TMessageAnswer::None;
}

bool TDialogs::InputBox(std::string_view caption, std::string_view prompt, std::string& value) {
  QInputDialog dialog(FParent);
  dialog.setWindowTitle(PackageText(caption));
  dialog.setLabelText(PackageText(prompt));
  dialog.setTextValue(ToQString(value));
  dialog.setOkButtonText(tr("OK"));
  dialog.setCancelButtonText(tr("Cancel"));
  if (dialog.exec() != QDialog::Accepted)
    return false;
  value = ToStdString(dialog.textValue());
  return true;
}

std::vector<std::string> TDialogs::OpenFiles(const deployment::TFileOpenOptions& options) {
  QFileDialog dialog(FParent);
  dialog.setWindowTitle(tr("Add Files"));
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  if (options.AllowMultiSelect)
    dialog.setFileMode(QFileDialog::ExistingFiles);
  else
    dialog.setFileMode(options.FileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  dialog.setSizeGripEnabled(options.Sizable);
  if (!options.Sizable)
    dialog.setFixedSize(dialog.sizeHint());
  while (dialog.exec() == QDialog::Accepted) {
    const QStringList chosen = dialog.selectedFiles();
    if (options.PathMustExist && !HaveDirectories(chosen)) {
      ShowMessage({ToStdString(tr("There is no such directory. Choose a file in one that exists.")),
                   {TMessageAnswer::OK}});
      continue;
    }
    std::vector<std::string> files;
    files.reserve(static_cast<std::size_t>(chosen.size()));
    for (const QString& file : chosen)
      files.push_back(ToPathText(file));
    return files;
  }
  return {};
}

} // namespace workbench
