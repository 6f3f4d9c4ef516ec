#include "workbench/desktop/dialogs/deploy/consent_dialog.h"

#include "workbench/desktop/text/qt_text.h"
#include "workbench/text/visible_text.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace workbench {
namespace {

class TConsentDialog final : public QDialog {
  Q_DECLARE_TR_FUNCTIONS(TConsentDialog)

public:
  TConsentDialog(const std::vector<std::string>& commands, const std::string& place,
                 QWidget* parent)
      : QDialog(parent) {
    setWindowTitle(tr("Commands of the Project"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(MakeQuestion(place));
    layout->addWidget(MakeList(commands));
    layout->addWidget(MakeButtons());
  }

private:
  QWidget* MakeQuestion(const std::string& place) {
    auto* question = new QLabel(tr("The project wants to run these commands when it is deployed to "
                                   "%1. Run only what you trust. May they run, now and whenever "
                                   "they are the same there?")
                                    .arg(ToQString(place)),
                                this);
    question->setTextFormat(Qt::PlainText);
    question->setWordWrap(true);
    return question;
  }

  QWidget* MakeList(const std::vector<std::string>& commands) {
    auto* list = new QPlainTextEdit(this);
    list->setObjectName(QStringLiteral("commands"));
    list->setAccessibleName(tr("Commands"));
    list->setReadOnly(true);
    list->setTabChangesFocus(true);
    list->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    for (const std::string& command : commands)
      list->appendPlainText(ToQString(Visible(command)));
    list->moveCursor(QTextCursor::Start);
    const QFontMetrics metrics(list->font());
    list->setMinimumSize(metrics.averageCharWidth() * 60, metrics.lineSpacing() * 8);
    return list;
  }

  QWidget* MakeButtons() {
    auto* buttons = new QDialogButtonBox(this);
    auto* yes = buttons->addButton(tr("&Run Them"), QDialogButtonBox::AcceptRole);
    auto* no = buttons->addButton(tr("&Do Not Run"), QDialogButtonBox::RejectRole);
    yes->setAutoDefault(false);
    no->setDefault(true);
    no->setFocus();
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
  }
};

} // namespace

bool AskConsent(const std::vector<std::string>& commands, const std::string& place,
                QWidget* parent) {
  return TConsentDialog(commands, place, parent).exec() == QDialog::Accepted;
}

} // namespace workbench
