#include "workbench/desktop/text/help_topics.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <algorithm>
#include <array>

namespace workbench {
namespace {

struct THelpTopic {
  int Context;
  const char* Title;
  const char* Text;
};

constexpr std::array<THelpTopic, 1> Topics{{
    {13602, QT_TRANSLATE_NOOP("HelpTopics", "Featured Files"),
     QT_TRANSLATE_NOOP(
         "HelpTopics",
         "Features are sets of optional files, such as run-time libraries, that a program may need "
         "on its target.\n\n"
         "Tick a feature, one of its platforms, or single files. With OK the ticked files are put "
         "on the deployment list for every configuration, and the others are taken off it. Cancel "
         "changes nothing.\n\n"
         "With \"Show automatically when required\" this dialog opens by itself when a file is "
         "added to the project that usually needs one of the features.")},
}};

const THelpTopic* FindTopic(int context) {
  const auto* found = std::find_if(Topics.begin(), Topics.end(), [&](const THelpTopic& topic) {
    return topic.Context == context;
  });
  return found == Topics.end() ? nullptr : found;
}

} // namespace

bool HasHelpTopic(int context) {
  return FindTopic(context) != nullptr;
}

void ShowHelpTopic(int context, QWidget* parent) {
  const THelpTopic* topic = FindTopic(context);
  if (!topic)
    return;
  QMessageBox box(parent);
  box.setTextFormat(Qt::PlainText);
  box.setWindowTitle(QCoreApplication::translate("HelpTopics", topic->Title));
  box.setText(QCoreApplication::translate("HelpTopics", topic->Text));
  box.exec();
}

} // namespace workbench
