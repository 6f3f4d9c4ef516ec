#include "workbench/desktop/deploy/consent_dialog.h"

#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/qt_text.h"

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

// What is asked for: a title, the question, the name of the list, and the two answers.
struct TConsentTexts {
  QString Title;
  QString Question;
  QString ListName;
  QString Yes;
  QString No;
};

class TConsentDialog final : public QDialog {
  Q_DECLARE_TR_FUNCTIONS(TConsentDialog)

public:
  TConsentDialog(const TConsentTexts& texts, const std::vector<std::string>& listed,
                 QWidget* parent)
      : QDialog(parent) {
    setWindowTitle(texts.Title);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(MakeQuestion(texts.Question));
    layout->addWidget(MakeList(texts.ListName, listed));
    layout->addWidget(MakeButtons(texts));
  }

  static TConsentTexts CommandTexts(const std::string& place) {
    return {.Title = tr("Commands of the Project"),
            .Question = tr("The project wants to run these commands when it is deployed to "
                           "%1. Run only what you trust. May they run, now and whenever "
                           "they are the same there?")
                            .arg(EngineText(place)),
            .ListName = tr("Commands"),
            .Yes = tr("&Run Them"),
            .No = tr("&Do Not Run")};
  }

  static TConsentTexts SourceTexts() {
    return {.Title = tr("Files from Beyond the Project"),
            .Question = tr("The project wants to send these files, which stand beyond its "
                           "directory. Send only what is meant to leave this machine. May they be "
                           "sent, now and from now on?"),
            .ListName = tr("Files"),
            .Yes = tr("&Send Them"),
            .No = tr("&Do Not Send")};
  }

private:
  QWidget* MakeQuestion(const QString& text) {
    auto* question = new QLabel(text, this);
    question->setTextFormat(Qt::PlainText);
    question->setWordWrap(true);
    return question;
  }

  QWidget* MakeList(const QString& name, const std::vector<std::string>& listed) {
    auto* list = new QPlainTextEdit(this);
    list->setObjectName(QStringLiteral("commands"));
    list->setAccessibleName(name);
    list->setReadOnly(true);
    list->setTabChangesFocus(true);
    list->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    for (const std::string& each : listed)
      list->appendPlainText(EngineText(each));
    list->moveCursor(QTextCursor::Start);
    const QFontMetrics metrics(list->font());
    list->setMinimumSize(metrics.averageCharWidth() * 60, metrics.lineSpacing() * 8);
    return list;
  }

  QWidget* MakeButtons(const TConsentTexts& texts) {
    auto* buttons = new QDialogButtonBox(this);
    auto* yes = buttons->addButton(texts.Yes, QDialogButtonBox::AcceptRole);
    auto* no = buttons->addButton(texts.No, QDialogButtonBox::RejectRole);
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
  return TConsentDialog(TConsentDialog::CommandTexts(place), commands, parent).exec() ==
         QDialog::Accepted;
}

bool AskSourceConsent(const std::vector<std::string>& files, QWidget* parent) {
  return TConsentDialog(TConsentDialog::SourceTexts(), files, parent).exec() == QDialog::Accepted;
}

} // namespace workbench
