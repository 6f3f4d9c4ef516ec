// Help on the dialogs, by the numbers that forms give their topics.
#pragma once

class QWidget;

namespace workbench {

bool HasHelpTopic(int context);
/// Shows the topic until it is left; nothing for an unknown one.
void ShowHelpTopic(int context, QWidget* parent);

} // namespace workbench
