// The row of an entry in a list.
#pragma once

#include <QString>

namespace workbench {

class TFormControls;

/// Brings the row of the entry of that stored local name into sight and takes the keyboard there.
/// False when the list shows no such row.
bool GoToEntry(const TFormControls& controls, const QString& localName);

} // namespace workbench
