#include "workbench/desktop/welcome/guide_dialog.h"

#include "workbench/desktop/text/qt_text.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace workbench {

std::filesystem::path FindGuide(const std::filesystem::path& root) {
  const std::filesystem::path file = root / "docs" / "user-guide.md";
  std::error_code ignored;
  return std::filesystem::exists(file, ignored) ? file : std::filesystem::path();
}

TGuideDialog::TGuideDialog(const std::filesystem::path& file, QWidget* parent) : QDialog(parent) {
  constexpr QSize Size(820, 640);
  setWindowTitle(tr("User Guide"));
  setAttribute(Qt::WA_DeleteOnClose);
  auto* text = new QTextBrowser(this);
  text->setAccessibleName(windowTitle());
  text->setOpenExternalLinks(true);
  text->setSearchPaths({PathToQString(file.parent_path())});
  QFile source(PathToQString(file));
  if (source.open(QIODevice::ReadOnly))
    text->setMarkdown(QString::fromUtf8(source.readAll()));
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(QDialogButtonBox::Close)->setText(tr("Close"));
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(text, 1);
  layout->addWidget(buttons);
  resize(Size);
}

} // namespace workbench
