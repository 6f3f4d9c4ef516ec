#include "workbench/desktop/dialogs/form_texts.h"

#include <QCoreApplication>
#include <array>
#include <string>

namespace workbench {
namespace {

// What the package's forms say. The table is for the translators' tools: the package gives the
// texts, and one that is missing here is shown in English.
[[maybe_unused]] constexpr std::array Texts{
    QT_TRANSLATE_NOOP("Forms", "OK"),
    QT_TRANSLATE_NOOP("Forms", "Cancel"),
    QT_TRANSLATE_NOOP("Forms", "Select Platforms"),
    QT_TRANSLATE_NOOP("Forms", "Featured Files"),
    QT_TRANSLATE_NOOP("Forms", "Please specify the action"),
    QT_TRANSLATE_NOOP("Forms", "Warning: This action could remove any file entry that you "
                               "manually added to the target configurations and platforms."),
    QT_TRANSLATE_NOOP("Forms", "Revert to default options:"),
    QT_TRANSLATE_NOOP("Forms", "Revert for all configurations of the active platform"),
    QT_TRANSLATE_NOOP("Forms", "Revert for all configurations and platforms"),
    QT_TRANSLATE_NOOP("Forms", "Keep added files"),
};

} // namespace

QString FormText(std::string_view text) {
  return QCoreApplication::translate("Forms", std::string(text).c_str());
}

} // namespace workbench
