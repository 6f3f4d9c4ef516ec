// What the engine says (reasons, states of a plan, results, errors) in the user's language.
#pragma once

#include <QString>
#include <QStringList>
#include <string_view>

namespace workbench {

/// The sentence translated, with what cannot be shown as text made visible. Names in it stay, and
/// so does what no table knows.
QString EngineText(std::string_view text);

/// The same for a text of several lines, which is shown as it is.
QString EngineLines(const QString& text);

/// The sentences of the engine, as the translators' tables have them.
QStringList EngineSentences();

} // namespace workbench
